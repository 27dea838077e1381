// Whether a file is there and can be used, and making it usable.
#pragma once

#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

// True if there is such a file; "*" and "?" in the last component match, directories are passed over.
// An empty file counts only if its last-write time, in local time, lies in the years 1980 to 2043, as
// the old stamps of 32 bits can tell them; callers rely on this.
bool VxFileExists(std::u16string_view name);

// True if the file exists and can't be opened for reading and writing by one alone: another has it
// open, or it is read-only, or the system refuses. Three names for one test.
bool VxFileIsLocked(std::u16string_view name);
bool VxFileIsOpen(std::u16string_view name);
bool VxFileInUse(std::u16string_view name);
// True if the file exists and can NOT be read. The reversed sense is wanted: callers ask by it
// whether they have to wait.
bool VxFileIsReadable(std::u16string_view name);

// Clears the read-only attribute of every file of files that exists and opens it as VxFileIsLocked
// does. False if one fails; with a list failed all are tried and the paths of those that fail are
// added there, without it the first failure ends it. Missing files don't fail.
bool VxTestExclusive(const TVxStringList& files, TVxStringList* failed = nullptr);

// Clears the read-only attribute of a file that has it; nothing else.
void VxUnlockFile(std::u16string_view name);
// True if the file could be opened for reading and writing beside others; its buffers then have been
// brought to the disk.
bool VxFlushFile(std::u16string_view name);

}  // namespace vx
