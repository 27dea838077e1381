// The folding of German letters in keys. Internal to the index of keys.
#pragma once

#include "platform/String.h"

namespace vx::detail {

// Text with its German letters folded and a marker for each at the end, as TVxStringIndex::ModifyString tells.
String FoldKey(const String& Text);

}  // namespace vx::detail
