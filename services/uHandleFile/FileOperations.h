// Deleting, copying, renaming and moving of files.
//
// Pitfall: a target directly in the root of a drive ("D:\a.csv") fails with the dialog of
// VxForceDirectories, which refuses a drive alone. A native path knows no such case.
#pragma once

#include "platform/String.h"

namespace vx {

// Deletes a file; false if VxFileExists doesn't find it and if it is read-only. With showError both
// open a dialog.
bool VxDeleteFile(std::u16string_view name, bool showError);
// The same, but a file that could not be deleted is unlocked and tried again.
bool VxDeleteFileReadOnly(std::u16string_view name, bool showError);
// Copies a file, overwriting, into a directory that is made if it is missing. A read-only target is
// unlocked first if need be; the copy is never read-only. A directory that can't be made shows the
// dialog of VxForceDirectories, whatever showError.
bool VxCopyFile(std::u16string_view source, std::u16string_view target, bool showError);
// Renames a file, replacing target, into a directory that is made if it is missing; false without a
// dialog if source is missing or that directory can't be made. If the first try fails, source is
// unlocked, an existing target is deleted (with a dialog if that fails), and it is tried again. A target that
// is the same file, by whatever spelling or link, is never deleted.
bool VxRenameFile(std::u16string_view source, std::u16string_view target, bool showError);
// VxRenameFile on one drive, else VxCopyFile and then VxDeleteFileReadOnly of source: true only if
// both succeeded, so that after a false the copy may exist. False without a dialog if source is missing.
bool VxMoveFile(std::u16string_view source, std::u16string_view target, bool showError);

}  // namespace vx
