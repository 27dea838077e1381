// Making, removing, merging and listing of directories.
#pragma once

#include <memory>
#include <span>

#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

// Removes an empty directory; false if it is missing or not empty, with showError with a dialog.
bool VxRemoveDir(std::u16string_view dir, bool showError);

// Makes every missing level of path; true for an empty path and for a directory that exists. Double
// quotes around the path are taken off. A path that is only a drive, such as "C:\", shows
// VxDriveAvailableError and is false even though the drive exists; this is wanted. A failure shows a
// dialog in any case.
bool VxForceDirectories(std::u16string_view path);
// The same for older callers: the path is trimmed, and only whether it exists in the end counts, so
// that an existing drive alone is true.
bool VxForceDirectoriesOld(std::u16string_view path);

// Copies what is in the directories sources into the directory target, which is made if it is missing:
// of each in order first the subdirectories, then the files, overwriting. The first failure ends it
// with false and its text in errorText, which else is empty. An empty target can't be reached.
bool MergeDirectories(std::span<const String> sources, std::u16string_view target, String* errorText = nullptr);

// True if there is no file in dir and its subdirectories at any depth. A missing directory is empty.
bool VxIsEmptyDir(std::u16string_view dir);

// The attributes of an entry for ls. Every file has faArchive, every directory faDirectory.
inline constexpr int faReadOnly = 1, faHidden = 2, faSysFile = 4, faDirectory = 16, faArchive = 32, faAnyFile = 63;

// Lists the entries that the search text dir + pattern finds, with no delimiter put between the two;
// an empty dir is the current directory. Gives a new list of the bare names of those whose attributes
// share a bit with attributesIn and none with what attributesOut has beyond attributesIn. False, and
// list is nullptr, if the search finds nothing; "*" finds an empty directory itself.
bool ls(std::unique_ptr<TVxStringList>& list, std::u16string_view dir, int attributesIn, int attributesOut,
        std::u16string_view pattern);

}  // namespace vx
