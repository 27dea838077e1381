// Numbers and answers of yes or no as texts, read strictly.
//
//   TryStrToInt64Strict, TryStrToDoubleStrict, TryStrToBoolStrict   a text as a value, or what is wrong and where
//   TryDoubleToStrStrict                                            a number as a text that gives the same one back
//
// Example:
//   double weight = 0;
//   vx::TTextFault fault;
//   vx::TryStrToDoubleStrict(u"12,5", weight, fault);       // true
//   vx::TryStrToDoubleStrict(u"12,5 x", weight, fault);     // false
//   fault.GetText();                                        // u"unerwartetes Zeichen an Position 5"
//
// Blanks around the texts don't count; everything else does. No settings and no locale play a part. Amounts of money,
// which may have separators of thousands, are read by MoneyText.h; numbers that have to stay decimal by
// DecimalFactor.h.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/TextFault.h"
#include "platform/String.h"

namespace vx {

// Each gives false for a text that is refused; Value stays as it is then.

// A sign or none and digits: u"12", u"-3". Refused: u"1.000", u"$1F", u"0x1F", u"12,0".
[[nodiscard]] bool TryStrToInt64Strict(std::u16string_view Text, int64_t& Value, TTextFault& Fault) noexcept;
// A sign or none, digits, a comma and digits or neither; the double that is nearest. Refused: u"1.000", u",5", u"1e3",
// and texts of more than 400 units. DecimalSeparator stands in the place of the comma, for texts of programs.
[[nodiscard]] bool TryStrToDoubleStrict(std::u16string_view Text, double& Value, TTextFault& Fault,
                                        char16_t DecimalSeparator = u',') noexcept;
// In any case 1, J, JA, Y, YES, WAHR, TRUE and 0, N, NEIN, NO, FALSCH, FALSE.
[[nodiscard]] bool TryStrToBoolStrict(std::u16string_view Text, bool& Value, TTextFault& Fault) noexcept;

// As few digits as tell the number from all others, never with an exponent: u"0,1". False, with Text unchanged, for
// what is no number or infinite.
[[nodiscard]] bool TryDoubleToStrStrict(double Value, String& Text, char16_t DecimalSeparator = u',');

}  // namespace vx
