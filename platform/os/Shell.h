// What the desktop of the system does by itself. For the sources of platform/ only.
#pragma once

#include "platform/ShellExecute.h"
#include "platform/String.h"

namespace vx::os {

// OpenDocument (platform/Shell.h) and ShellExecute (platform/ShellExecute.h) while no hook is set.
bool OpenDocument(const String& File, const String& Directory);
int ShellExecute(const TShellCall& Call);

}  // namespace vx::os
