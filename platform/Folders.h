// The directories of the system and of the user.
//
//   FolderPath    the path of one of them
//   LibraryPath   a native path in the library's grammar
//
// Example:
//   vx::FolderPath(vx::flDesktop);      // such as u"C:\\home\\anna\\Schreibtisch"
//
// The user's own are told by the file of the desktop that names them in the user's language. All are looked for
// as System.h says. No environment variable is read.
//
// Threads: any number may call these at once.
#pragma once

#include <cstdint>
#include <string>

#include "platform/String.h"

namespace vx {

enum TFolder : uint8_t {
  flHome,
  flDesktop,
  flDocuments,
  flDownloads,
  flMusic,
  flPictures,
  flVideos,
  flTemplates,
  flPublic,
  flSettings,    // what programs keep for the user
  flData,        // larger things that they keep
  flPrograms,    // where programs are installed
  flCommonData,  // what programs share
  flSystem,      // what belongs to the system
  flTemp
};
inline constexpr int kFolderCount = flTemp + 1;

// Without a delimiter at its end, in the library's grammar if that can tell it. Empty if there is no such
// directory.
String FolderPath(TFolder Folder);

// With C: and backslashes while that drive is the root directory, else Path itself.
String LibraryPath(const std::string& Path);

}  // namespace vx
