// The arrow keys: the part of a value at the cursor goes up or down.
#pragma once

#include "controls/uVxMaskEdit/MaskTypes.h"

namespace vx::detail {

// Text with the part at Cursor, a place counted from 0, one step of Delta (1 or -1) further. False, with Result
// unchanged, where there is no value to step: a text that is none, an empty picture, and beyond what the mode can hold.
bool StepText(const TMaskRules& Rules, const String& Text, int Cursor, int Delta, String& Result);

}  // namespace vx::detail
