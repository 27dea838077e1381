// What vxtab asks of the operating system beyond the library.
#pragma once

#include <string>

#include "platform/String.h"

namespace vx::vxtab {

bool IsTerminal(int Descriptor) noexcept;
// The columns of the terminal on that descriptor; 0 if it is none or does not tell.
int TerminalWidth(int Descriptor) noexcept;

// Makes an empty file and dates it long ago, so that a save into it is seen to change it. With
// ForOwner no one else may read it. False, see GetLastError, also if something stands there already.
bool CreateNewFile(const String& Path, bool ForOwner) noexcept;

// A signal that ends the program removes that file first; nullptr: none. One file at a time.
void RemoveOnSignal(const String* Path) noexcept;
// Makes RemoveOnSignal work, and lets a write beyond the limit of file sizes fail instead of ending the
// program. For main.
void HandleSignals() noexcept;

// A directory of the user's own among the temporary files; it goes with all that is in it.
class TScratchDirectory {
 public:
  // Raises EFCreateError.
  TScratchDirectory();
  ~TScratchDirectory();
  TScratchDirectory(const TScratchDirectory&) = delete;
  TScratchDirectory& operator=(const TScratchDirectory&) = delete;
  // The path of a file of that name in it.
  String Path(std::u16string_view Name) const { return FPath + u"/" + String(Name); }

 private:
  String FPath;
};

}  // namespace vx::vxtab
