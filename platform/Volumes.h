// The volumes behind the drives of the path settings.
//
//   FreeBytes      how much fits on a drive
//   KindOfVolume   what sort of drive it is
//   NetworkPath    where in the network it lies
//   VolumeLabel    its label
//
// Example:
//   vx::GetPathMap().SetDrive(u'D', "/mnt/daten");    // mounted from //nordvale/daten
//   vx::NetworkPath(u"D:\\");                         // such as u"\\\\nordvale\\daten"
//
// Told by the system's table of mounts, which is looked for as System.h says. Paths are in the library's or
// the native grammar. What is missing or has not the form that it should have counts as not there; nothing
// raises but for lack of memory.
#pragma once

#include <cstdint>

#include "platform/String.h"

namespace vx {

// What this user may still write on the file system of Path, in bytes; of a path that is not there, of the
// nearest directory above it. False, and Bytes 0, if it can't be asked.
bool FreeBytes(const String& Path, int64_t& Bytes);

// The numbers stand in configuration files and must not change.
enum TVolumeKind : int {
  vkUnknown = 0,
  vkMissing = 1,  // no such directory
  vkRemovable = 2,
  vkFixed = 3,
  vkRemote = 4,
  vkCdRom = 5,
  vkRamDisk = 6
};
TVolumeKind KindOfVolume(const String& Path);

// u"\\\\server\\share\\sub" for a directory that is mounted from a server; empty for any other.
String NetworkPath(const String& Path);
// Empty without one.
String VolumeLabel(const String& Path);

}  // namespace vx
