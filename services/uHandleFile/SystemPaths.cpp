#include "services/uHandleFile/SystemPaths.h"

#include "platform/Desktop.h"
#include "platform/Folders.h"
#include "platform/Paths.h"
#include "platform/System.h"

namespace vx {

String VxUserName() { return LoginName(); }

String GetProgramPath(int folder) {
  return folder >= 0 && folder < kFolderCount ? FolderPath(static_cast<TFolder>(folder)) : String();
}

String VxWindowsDirectory() { return FolderPath(flSystem); }

String VxWindowsTempDirectory() {
  const String path = FolderPath(flTemp);
  return path.empty() ? path : IncludeTrailingPathDelimiter(path);
}

String VxWindowsDesktopDirectory() { return FolderPath(flDesktop); }

String VxWindowsFontsDirectory() { return VxWindowsDirectory() + u"\\Fonts\\"; }

bool VxSelectDirectory(const String& caption, const String& root, String& directory) {
  return SelectDirectory({caption, root}, directory);
}

}  // namespace vx
