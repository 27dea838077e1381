// A table file as the viewer has it: read in a worker, changed by the user, written back whole or not at all.
//
//   TFileForm                how a file is read, and written again
//   TLoadState, LoadTable    reading, watched and stopped from another thread
//   TakeLook                 the look file beside a table
//   SaveTable                writing in the place of the file, unless another program has changed it
//   TFileStamp, StampOf      whether a file is still the one that was read
//
// Example:
//   TLoadState state;
//   TLoadedTable loaded = LoadTable(path, {}, state);
//   if (loaded.LooksForeign && asks(u"...")) loaded = LoadTable(path, TFileForm{frForeign}, state);
//   loaded.View->SetCell(2, 7, u"Bonn");
//   const TSaveOutcome outcome = SaveTable(*loaded.View, path, loaded.Form, loaded.Stamp);
//   if (outcome.Kind != skSaved) show(outcome.Text);
//
// Texts are German, for users, and name the file.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>

#include "tables/Csv.h"
#include "tables/uTypeCsv.h"

namespace vx::vxview {

enum TFileRules : uint8_t {
  frLibrary,  // as the library reads table files, in the system's code page
  frForeign   // as other programs have them, see tables/Csv.h
};

struct TFileForm {
  TFileRules Rules = frLibrary;
  TCsvForm Form;  // for frForeign; what is left open is found in the file
};

// Which content a file had.
struct TFileStamp {
  int64_t Size = -1;  // -1: there was no file
  TDateTime LastWrite = 0;
  uint64_t Id = 0;
  friend bool operator==(const TFileStamp&, const TFileStamp&) noexcept = default;
};
TFileStamp StampOf(const String& Path);

// What a load tells and is told while it runs; for any thread.
struct TLoadState {
  std::atomic<int64_t> Done = 0;  // bytes, about
  std::atomic<int64_t> Total = 0;
  std::atomic<bool> IsCancelled = false;
};

// Raised by LoadTable once IsCancelled is seen, within some thousand rows.
struct TCancelled {};

struct TLoadedTable {
  std::unique_ptr<TCsvView> View;  // a head row, and columns of the types that their cells look like
  TFileForm Form;                  // with nothing left open
  TFileStamp Stamp;                // from before the reading
  bool LooksForeign = false;       // the rules of other programs would give another table
  String Note;                     // what was wrong with the file; empty if nothing
};

// The file by Form, or by the library's rules and with a look at those of other programs. Raises Exception.
TLoadedTable LoadTable(const String& Path, const std::optional<TFileForm>& Form, TLoadState& State);

// The file of looks that belongs to a table file: u"Pläne.look" for u"Pläne.csv".
String LookPathOf(const String& Path);
// Gives the view the look of that file; false if there is none. One that is damaged is told as the library tells it, so
// that this is for the main thread. Raises EFOpenError, EReadError.
bool TakeLook(TCsvView& View, const String& Path);

enum TSaveKind : uint8_t {
  skSaved,
  skLost,     // the form can't hold every cell; nothing was written
  skChanged,  // the file is another one than was read; nothing was written
  skFailed    // the system refused; the old file stands
};

struct TSaveOutcome {
  TSaveKind Kind = skFailed;
  String Text;       // why not; empty if saved
  TFileStamp Stamp;  // of the file as it was written
};

// All rows of the view, hidden ones too. The file at Path is replaced in one step, if it is the one that Expected
// tells, unless that is empty. With ilSave cells that the form can't hold are written as far as they fit.
TSaveOutcome SaveTable(const TCsvView& View, const String& Path, const TFileForm& Form,
                       const std::optional<TFileStamp>& Expected, TIfLost IfLost = ilRefuse);

}  // namespace vx::vxview
