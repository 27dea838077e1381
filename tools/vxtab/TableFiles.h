// How the commands get their tables and save them.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "tables/Csv.h"
#include "tables/uFileCsv.h"
#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/Reporter.h"

namespace vx::vxtab {

enum TReadBy : uint8_t {
  rbLibrary,    // as the library reads table files
  rbForeign,    // as RFC 4180 has it, see tables/Csv.h
  rbExport,     // a database server's export in UTF-16
  rbIni,        // a configuration file: UTF-8 or UTF-16 by its byte order mark, else the code page
  rbForeignIni  // the same, but UTF-8 and UTF-16 need no mark
};

struct TReading {
  TReadBy By = rbLibrary;
  TCsvForm Form;             // for rbForeign: what is left open is found in the file
  std::string Sheet;         // of a spreadsheet file, whatever By is
  bool WithDetails = false;  // see TLoadedFile
};

struct TLoadedFile {
  THeadCsv Table;
  int64_t Bytes = 0;
  // The rest is known only if it was asked for.
  char16_t Separator = u',';
  std::string Encoding;
  std::string Hint;  // why the file looks foreign, empty if it does not
};

// Name is a path in UTF-8, or "-" for In. Faults of foreign files and sheets that are not read are told in notes.
// Raises TFailure with a message that names the file; nothing that is no regular file is read twice.
std::unique_ptr<TLoadedFile> LoadTable(const std::string& Name, const TReading& Reading, std::istream& In,
                                       TReporter& Reporter);

// The whole file. Raises EFOpenError and EReadError, which name it.
std::string ReadBytes(const String& Path);

// Raises TFailure unless Name can be a table's target: a known extension, no directory, not read-only;
// TUsageError for "-".
void CheckTarget(const std::string& Name);

// Saves in the form that the extension tells, or, if Form is there, as tables/Csv.h has it. The file that was there is
// replaced in one step, when the new one is whole and on the disk; until then it stays as it was. What is no regular
// file is written to. A table that the file does not give back cell for cell is told in a note. TFailure.
void SaveTable(TFileCsv& Table, const std::string& Name, const std::optional<TCsvForm>& Form, TReporter& Reporter);

}  // namespace vx::vxtab
