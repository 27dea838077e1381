// Whether the drive of a path can be reached.
#pragma once

#include "platform/String.h"

namespace vx {

// The drive or share of path exists as a directory; a path without one is on the local file system,
// which always is there. With showError VxDriveAvailableError tells of a missing one.
bool VxDriveAvailable(std::u16string_view path, bool showError);
// Shows an error dialog: "Netzwerkproblem: Das Laufwerk (D:) ist nicht erreichbar.", or with "Die
// Serverfreigabe" for a drive that begins with two backslashes.
void VxDriveAvailableError(std::u16string_view drive);

}  // namespace vx
