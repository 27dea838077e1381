// The version that programs for Windows carry in themselves.
#pragma once

#include "platform/String.h"

namespace vx {

// The version of the file, and of the product that it belongs to, from its version resource: u"2.10.0.1467".
// u"0.0.0.0" if the file is missing, is no such program, has no such resource or is damaged.
String VxFileVersion(const String& name);
String VxFileProductVersion(const String& name);

}  // namespace vx
