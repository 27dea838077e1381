// The user and the directories of the system.
//
// Paths are in the library's grammar while drive C: is the root directory, else native. A directory that this
// system hasn't gives an empty text.
#pragma once

#include "platform/String.h"

namespace vx {

// The name of the user logged on; empty if the system has none.
String VxUserName();

// The path of one of the special folders, without a delimiter at its end; empty for another number and for a
// folder that is not there:
//   0 the user's own directory, 1 desktop, 2 documents, 3 downloads, 4 music, 5 pictures, 6 videos, 7 templates,
//   8 public, 9 settings of programs, 10 data of programs, 11 programs, 12 data that programs share, 13 system,
//   14 temporary files
String GetProgramPath(int folder);

// Where the system itself is, without a delimiter at the end: u"C:\\usr".
String VxWindowsDirectory();
// For temporary files, with a delimiter at the end: u"C:\\tmp\\".
String VxWindowsTempDirectory();
// The user's desktop, without a delimiter at the end.
String VxWindowsDesktopDirectory();
// VxWindowsDirectory and "\Fonts\", whether or not that is there.
String VxWindowsFontsDirectory();

// Asks for a directory under root, directory being chosen at first. True, with the user's choice in directory,
// unless the user cancelled or there is no such dialog (platform/Desktop.h).
bool VxSelectDirectory(const String& caption, const String& root, String& directory);

}  // namespace vx
