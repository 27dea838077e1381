// The drives: whether they can be reached, and what the system knows of them.
//
// Which drives there are, the path settings say (platform/Paths.h).
#pragma once

#include <cstdint>
#include <memory>

#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

// The drive or share of path exists as a directory; a path without one is on the local file system,
// which always is there. With showError VxDriveAvailableError tells of a missing one.
bool VxDriveAvailable(std::u16string_view path, bool showError);
// Shows an error dialog: "Netzwerkproblem: Das Laufwerk (D:) ist nicht erreichbar.", or with "Die
// Serverfreigabe" for a drive that begins with two backslashes.
void VxDriveAvailableError(std::u16string_view drive);

// The roots of all drives, such as u"C:\\", by their letters.
[[nodiscard]] std::unique_ptr<TVxStringList> VxDriveList();
// The system's number for the sort of a drive, told by any path on it or its letter: 0 unknown, 1 not there,
// 2 removable, 3 fixed, 4 in the network, 5 a CD, 6 in memory.
int VxDriveType(const String& drive);
// The network path of a mapped drive, u"\\\\server\\share"; empty if it isn't mapped.
String VxDriveToUNC(const String& drive);
// The label of the volume; empty without one.
String GetVolumeName(char16_t letter);
// Gives the bytes that this user may still write on the drive of path as free. False, and 0, if the drive is
// not there.
bool VxDiskSpace(const String& path, int64_t& free);

}  // namespace vx
