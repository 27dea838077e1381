#include "services/uHandleFile/Drives.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Paths.h"

namespace vx {

bool VxDriveAvailable(std::u16string_view path, bool showError) {
  const String drive = ExtractFileDrive(path);
  if (drive.empty() || DirectoryExists(drive)) return true;
  if (showError) VxDriveAvailableError(drive);
  return false;
}

void VxDriveAvailableError(std::u16string_view drive) {
  const char16_t* what = drive.starts_with(u"\\\\") ? u"Die Serverfreigabe (" : u"Das Laufwerk (";
  MessageDlg(Concat({u"Netzwerkproblem: ", what, drive, u") ist nicht erreichbar."}), mtError, {mbOK});
}

}  // namespace vx
