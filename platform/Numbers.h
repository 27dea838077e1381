// Numbers and their texts.
//
//   IntToStr, StrToInt, TryStrToInt, StrToIntDef, and the same for 64 bits    whole numbers
//   FloatToStr, FloatToStrF, StrToFloat, TextToFloat                          floating point
//   CurrToStr, CurrToStrF, StrToCurr, TextToCurr                              amounts of money
//
// Example, with German settings:
//   vx::FloatToStr(1234.5);                          // u"1234,5"
//   vx::FloatToStrF(1234.5, vx::ffNumber, 15, 2);    // u"1.234,50"
//   vx::CurrToStrF(-1234, vx::ffCurrency, 2);        // u"-1.234,00 €"
//   vx::StrToFloat(u"1,5E3");                        // 1500
//
// Decimal texts are exact: a printed number is the decimal number of so many significant digits nearest to
// the value, midpoints away from zero; a read one is the value nearest to the decimal number. For masks see
// NumberMasks.h. Pitfall: the readers take no thousands separators; u"1.234,56" is no number for them.
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
#pragma once

#include <cstdint>

#include "platform/Currency.h"
#include "platform/FormatSettings.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

String IntToStr(int64_t Value);
// Decimal digits with an optional sign, or $ or 0x and hexadecimal digits; leading blanks are
// skipped. False, with Value unchanged, for anything else and for a number outside 32 or 64 bits.
// Hexadecimal digits are the bits of the number: u"$FFFFFFFF" is -1 as 32 bits.
bool TryStrToInt(std::u16string_view Text, int& Value) noexcept;
bool TryStrToInt64(std::u16string_view Text, int64_t& Value) noexcept;
int StrToIntDef(std::u16string_view Text, int Default) noexcept;
int64_t StrToInt64Def(std::u16string_view Text, int64_t Default) noexcept;
// The same; EConvertError "'%s' is not a valid integer value" for what is none.
int StrToInt(std::u16string_view Text);
int64_t StrToInt64(std::u16string_view Text);

// Forms of a number:
//   ffGeneral    as short as may be, no zeros at the end: 1234,5. Scientific where more than Precision
//                digits would stand before the decimal separator, and below 0.00001: 1,5E20. Digits is
//                the least number of digits of the exponent.
//   ffExponent   scientific with Precision digits: 1,234500E+0003, the exponent with at least Digits
//   ffFixed      Digits decimals: 1234,50
//   ffNumber     the same with thousands separators: 1.234,50
//   ffCurrency   the same with the sign of the currency: 1.234,50 €
enum TFloatFormat : uint8_t { ffGeneral, ffExponent, ffFixed, ffNumber, ffCurrency };

// Value to Precision significant digits (2 to 18) and then, but for general and scientific forms, to
// Digits decimals (0 to 18); Digits of an exponent are 0 to 4. A value too large for Precision digits before
// the decimal separator is written scientific. What rounds to 0 has no minus sign. "NAN", "INF", "-INF"
// for what is no number.
String FloatToStrF(Extended Value, TFloatFormat Format, int Precision, int Digits);
String FloatToStrF(Extended Value, TFloatFormat Format, int Precision, int Digits, const TFormatSettings& Settings);
// The general form with 15 digits: u"0,1", u"1E20".
String FloatToStr(Extended Value);
String FloatToStr(Extended Value, const TFormatSettings& Settings);

// The shortest exact text of an amount: u"1234,5", u"-0,0001".
String CurrToStr(Currency Value);
String CurrToStr(Currency Value, const TFormatSettings& Settings);
// The amount in a form, exact in all its digits; fixed forms rounded to Digits decimals (0 to 18).
String CurrToStrF(Currency Value, TFloatFormat Format, int Digits);
String CurrToStrF(Currency Value, TFloatFormat Format, int Digits, const TFormatSettings& Settings);

// Reads an optional sign, digits with an optional decimal separator, of which at least one, and an
// optional exponent such as E-3; blanks at both ends are skipped. False, with Value unchanged, for
// anything else and for a number that is too large. A number too small for the type is 0.
bool TextToFloat(std::u16string_view Text, Extended& Value, const TFormatSettings& Settings) noexcept;
// The same as an amount: rounded to 1/10000, midpoints to the even one; false outside its range.
bool TextToCurr(std::u16string_view Text, Currency& Value, const TFormatSettings& Settings) noexcept;
// The same; EConvertError "'%s' is not a valid floating point value" for what is none.
Extended StrToFloat(std::u16string_view Text);
Extended StrToFloat(std::u16string_view Text, const TFormatSettings& Settings);
Currency StrToCurr(std::u16string_view Text);
Currency StrToCurr(std::u16string_view Text, const TFormatSettings& Settings);

}  // namespace vx
