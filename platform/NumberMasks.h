// Numbers written by masks.
//
//   FormatFloat, FormatCurr
//
// Example, with German settings:
//   vx::FormatFloat(u"0.00", 1234.5);                    // u"1234,50"
//   vx::FormatFloat(u"#,##0.##", 1234.5);                // u"1.234,5"
//   vx::FormatFloat(u"0.0 'h';(0.0 'h');-", -7.25);      // u"(7,3 h)"
//
// A mask:
//   0            a digit, or 0 where the number has none
//   #            a digit, or nothing
//   .            the decimal separator; only the first one counts
//   ,            anywhere: thousands separators
//   E+ E- e+ e-  scientific, with the sign of the exponent always or only if negative; up to four 0
//                behind it are the least number of its digits
//   'x' "x"      taken as it stands
//   ;            parts the masks of positive, negative and zero numbers
// Everything else is taken as it stands. Digits stand at all places between the outermost 0 on both
// sides; a number with more digits before the decimal separator than the mask has places is not cut.
//
// The number is rounded at the last place of the mask, midpoints away from zero, as it is written
// with 15 digits: 1.005 by "0.00" is 1,01. A negative number whose part of the mask is missing or empty
// is written by the first one with a minus sign in front, a zero number by the first one; a number
// that rounds to zero is zero. An empty mask, and a number of more than 18 digits before the decimal separator in a
// mask that is not scientific, give FloatToStr's text.
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
#pragma once

#include "platform/Currency.h"
#include "platform/FormatSettings.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// Value by Mask. "NAN", "INF" and "-INF" for what is no number. Never raises for a mask.
String FormatFloat(std::u16string_view Mask, Extended Value);
String FormatFloat(std::u16string_view Mask, Extended Value, const TFormatSettings& Settings);
// The same for an amount, exact in all its digits.
String FormatCurr(std::u16string_view Mask, Currency Value);
String FormatCurr(std::u16string_view Mask, Currency Value, const TFormatSettings& Settings);

}  // namespace vx
