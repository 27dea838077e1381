// Texts to booleans, numbers and amounts of money.
//
// Routines in Def give their default for a text that is no such value; routines in Heavy repair the text
// before. None of them raises for a text. Where nothing else is said, numbers are read by the program's
// format settings, so with German ones u"1234,56" is a number and u"1.234,56" an amount only. Readers that repair
// nothing and tell what is wrong: core/StrictNumbers.h.
#pragma once

#include <cstdint>

#include "platform/Currency.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// u"1" or u"0". No pointer is taken for a bool here, so that a text can't be.
String BoolToStr(bool Value);
template <typename T>
String BoolToStr(T*) = delete;
constexpr int BoolToInt(bool Value) noexcept { return Value ? 1 : 0; }
template <typename T>
int BoolToInt(T*) = delete;
constexpr bool IntToBool(int64_t Value) noexcept { return Value != 0; }
// True for u"1" and, in any case, TRUE, WAHR, JA, YES, J and Y; everything else is false.
bool StrToBool(std::u16string_view Text) noexcept;
// Text is TrueText, in the same case. There is no other text for false.
constexpr bool StrToBoolDef(std::u16string_view Text, std::u16string_view TrueText) noexcept {
  return Text == TrueText;
}
// TrueText or FalseText.
String BoolToStrDef(const String& TrueText, const String& FalseText, bool Value);
template <typename T>
String BoolToStrDef(const String&, const String&, T*) = delete;

// The digits 0 to 9 of Text, read as one number; all else, signs too, is left out: u"-12" gives 12,
// u"12-34" gives 1234. Default if there is none, and for a number outside 32 or 64 bits.
int StrToIntHeavy(std::u16string_view Text, int Default) noexcept;
int64_t StrToInt64Heavy(std::u16string_view Text, int64_t Default) noexcept;

// A floating point number as StrToFloat reads it. Ok says whether Text was one.
Extended StrToExtDef(std::u16string_view Text, Extended Default) noexcept;
Extended StrToExtDef(std::u16string_view Text, Extended Default, bool& Ok) noexcept;
// The same, but Text must also begin with +, -, a comma or a digit, and end with a comma or a digit:
// blanks at its ends make it no number. So does an amount that is too large for a double.
double StrToDoubleDef(std::u16string_view Text, double Default) noexcept;
double StrToDoubleDef(std::u16string_view Text, double Default, bool& Ok) noexcept;

// Text without any thousands separator of the settings; Text itself if it holds none.
String DeleteThousandDivider(const String& Text);
// An amount as StrToCurr reads it, with thousands separators at any place: u"1.234,56" is 1234.56. False,
// with Value 0, for anything else; an empty Text is none.
// Amounts as people write them, nothing repaired or guessed: TryStrToMoney (core/MoneyText.h).
bool TryStrToCurr(std::u16string_view Text, Currency& Value);
Currency StrToCurrDef(std::u16string_view Text, Currency Default);
// The amount up to the last digit of Text, without any u".": u"1.234,56 EUR" is 1234.56. Points go whatever
// the settings say.
Currency StrToCurrHeavy(std::u16string_view Text, Currency Default);

}  // namespace vx
