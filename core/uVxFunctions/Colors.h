// Calculating with colours.
//
//   ColorAverage, ColorIsDark   how bright a colour is
//   ColorToGray                 the gray of the same brightness
//   ColorIncrement              brighter or darker
//   ColorAndHash                one hash for many colours
//   StringToColorDef            the colour of a name or number
//
// Example:
//   vx::TColor text = vx::ColorIsDark(back) ? vx::clWhite : vx::clBlack;
//   vx::TColor zebra = vx::ColorIncrement(back, -40, true);
//
// System colours count as what the desktop uses for them (see ColorToRGB).
#pragma once

#include "platform/Graphics.h"

namespace vx {

// The brightness as the eye sees it, 0 to 255: 0.299 red + 0.587 green + 0.114 blue, midpoints to the
// even number.
uint8_t ColorAverage(TColor Color) noexcept;
// True for a brightness below 130.
bool ColorIsDark(TColor Color) noexcept;
// The brightness in all three channels, with the high byte of Color itself.
TColor ColorToGray(TColor Color) noexcept;
// A third of Amount, without its fraction, added to each channel, which stays within 0 to 255. The high
// byte is 0 with DropHigh, otherwise that of Color itself.
TColor ColorIncrement(TColor Color, int Amount, bool DropHigh) noexcept;
// Color folded into Hash, of which the low 32 bits count: begin with 0 and give back the result with
// each further colour. The top 4 of the 32 bits count the colours and start over behind 15.
uintptr_t ColorAndHash(TColor Color, uintptr_t Hash) noexcept;
// The colour of a name that IdentToColor knows, of "#" and hexadecimal digits, or of a number as
// TryStrToInt reads it, decimal also up to 2^32-1. The digits behind "#" are taken as they stand:
// u"#0000FF" is red. The empty text gives Default, any other that is no colour ColorToRGB(Default);
// that is wanted.
TColor StringToColorDef(std::u16string_view Text, TColor Default);

}  // namespace vx
