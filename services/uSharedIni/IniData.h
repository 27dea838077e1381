// Texts with line breaks and other control characters as one value of a configuration file.
#pragma once

#include <string_view>

#include "platform/String.h"

namespace vx {

// Runs of code units from 32 on in double quotes, each double quote in them doubled, also an empty run at the
// start; each other unit as two hexadecimal digits: of an a, a line end and a b u"\"a\"0D0A\"b\"".
String IniStrToData(std::u16string_view Text);
// The way back. What does not stand in double quotes is read as pairs of hexadecimal digits, capitals alone; any
// other character counts as 0, and an odd last one is dropped. Any Text is taken.
String IniDataToStr(std::u16string_view Text);

}  // namespace vx
