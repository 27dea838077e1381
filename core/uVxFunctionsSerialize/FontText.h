// A font as text.
#pragma once

#include "platform/Graphics.h"

namespace vx {

// The commatext of name, colour, style and size: u"Arial,clRed,BU,12". The style is any of B, I, U
// and S in this order. With Compact the name Tahoma and the colour clWindowText are empty: u",,B,8".
String FontToString(const TFont& Font, bool Compact);
// Reads that text into Font. An empty name stands for Tahoma; a colour that is empty, or none, for
// clWindowText; a size that is no integer for 10. With other than four cells Font stays as it is.
void StringToFont(std::u16string_view Text, TFont& Font);

}  // namespace vx
