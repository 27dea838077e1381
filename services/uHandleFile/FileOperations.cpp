#include "services/uHandleFile/FileOperations.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "services/uHandleFile/Directories.h"
#include "services/uHandleFile/FileTests.h"
#include "services/uHandleFile/detail/Warnings.h"

namespace vx {

using uHandleFile::Failed;

namespace {

bool DeleteExisting(std::u16string_view name, bool unlocks, bool showError) {
  if (!VxFileExists(name)) {
    return Failed(showError,
                  u"Folgende Datei konnte nicht gelöscht werden, weil Sie, wider Erwarten, nicht vorhanden war:\r\n"
                  u"Name: ",
                  name);
  }
  if (FileDelete(name)) return true;
  if (unlocks) {
    VxUnlockFile(name);
    if (FileDelete(name)) return true;
  }
  return Failed(showError, u"Folgende Datei konnte nicht gelöscht werden:\r\nName: ", name);
}

bool CopyUnlocking(std::u16string_view source, std::u16string_view target) {
  if (FileCopy(source, target)) return true;
  if (!VxFileExists(target)) return false;
  VxUnlockFile(target);
  return FileCopy(source, target);
}

bool MoveReplacing(std::u16string_view source, std::u16string_view target) {
  if (FileMove(source, target)) return true;
  VxUnlockFile(source);
  if (VxFileExists(target) && !IsSameFile(source, target)) VxDeleteFileReadOnly(target, true);
  return FileMove(source, target);
}

}  // namespace

bool VxDeleteFile(std::u16string_view name, bool showError) { return DeleteExisting(name, false, showError); }

bool VxDeleteFileReadOnly(std::u16string_view name, bool showError) { return DeleteExisting(name, true, showError); }

bool VxCopyFile(std::u16string_view source, std::u16string_view target, bool showError) {
  if (!VxFileExists(source)) {
    return Failed(showError, u"Folgende Datei konnte nicht kopiert werden, da die Quelle nicht existiert:\r\nvon: ",
                  source, target);
  }
  if (!VxForceDirectories(ExtractFileDir(target))) {
    return Failed(showError,
                  u"Folgende Datei konnte nicht kopiert werden, da das Zielverzeichnis nicht existiert:\r\nvon: ",
                  source, target);
  }
  if (!CopyUnlocking(source, target)) {
    return Failed(showError, u"Folgende Datei konnte nicht kopiert werden:\r\nvon: ", source, target);
  }
  VxUnlockFile(target);
  return true;
}

bool VxRenameFile(std::u16string_view source, std::u16string_view target, bool showError) {
  if (!VxFileExists(source) || !VxForceDirectories(ExtractFileDir(target))) return false;
  if (!MoveReplacing(source, target)) {
    return Failed(showError, u"Folgende Datei konnte nicht umbenannt werden:\r\nvon: ", source, target);
  }
  VxUnlockFile(target);
  return true;
}

bool VxMoveFile(std::u16string_view source, std::u16string_view target, bool showError) {
  if (!VxFileExists(source)) return false;
  if (UpperCase(ExtractFileDrive(source)) == UpperCase(ExtractFileDrive(target))) {
    return VxRenameFile(source, target, showError);
  }
  return VxCopyFile(source, target, showError) && VxDeleteFileReadOnly(source, showError);
}

}  // namespace vx
