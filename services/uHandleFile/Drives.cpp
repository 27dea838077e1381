#include "services/uHandleFile/Drives.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/Volumes.h"

namespace vx {

namespace {

// The root of the drive of path, or path itself if it has none.
String RootOf(const String& path) {
  const String drive = path.size() == 1 ? path + u":" : ExtractFileDrive(path);
  return drive.empty() ? path : drive + u"\\";
}

}  // namespace

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

std::unique_ptr<TVxStringList> VxDriveList() {
  auto result = std::make_unique<TVxStringList>();
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
    if (GetPathMap().HasDrive(letter)) result->Add(String(1, letter) + u":\\");
  }
  return result;
}

int VxDriveType(const String& drive) { return KindOfVolume(RootOf(drive)); }

String VxDriveToUNC(const String& drive) { return Trim(NetworkPath(RootOf(drive))); }

String GetVolumeName(char16_t letter) { return VolumeLabel(String(1, letter) + u":\\"); }

bool VxDiskSpace(const String& path, int64_t& free) {
  free = 0;
  return VxDriveAvailable(path, false) && FreeBytes(RootOf(path), free);
}

}  // namespace vx
