// Plain operations on texts. Positions count from 1.
//
//   Trim, TrimLeft, TrimRight   without code units up to 32 at the ends
//   UpperCase, LowerCase        Latin, Greek and Cyrillic letters, one unit to one
//   IsDigit, LowerAscii, SameAscii, DigitValue    the characters of keywords and numbers
//   Copy, Pos                   part of a text, place of a text
//   ReplaceAll                  every occurrence replaced
//
// Example:
//   vx::Trim(u"  Straße\t");      // u"Straße"
//   vx::UpperCase(u"Größe");      // u"GRÖßE": ß has no capital of one unit in this mapping
//
// Threads: any number may call these at once.
#pragma once

#include <cstdint>

#include "platform/String.h"

namespace vx {

// Views of the text without code units from 0 to 32 at both ends, or at one.
std::u16string_view TrimView(std::u16string_view Text) noexcept;
std::u16string_view TrimLeftView(std::u16string_view Text) noexcept;
std::u16string_view TrimRightView(std::u16string_view Text) noexcept;
// The same as texts; a text with nothing to trim is returned as it is, sharing its characters.
String Trim(const String& Text);
String TrimLeft(const String& Text);
String TrimRight(const String& Text);

// One code unit to one for all Latin, Greek and Cyrillic letters that have such a counterpart and
// are its counterpart in turn; every other unit, ß, İ, ı, ſ and µ among them, stays. ẞ becomes ß and
// never comes back. The same on every machine.
char16_t UpperCase(char16_t Unit) noexcept;
char16_t LowerCase(char16_t Unit) noexcept;
String UpperCase(const String& Text);
String LowerCase(const String& Text);

// The digits 0 to 9 and the letters A to Z alone, whatever else a language has.
constexpr bool IsDigit(char16_t Unit) noexcept { return Unit >= u'0' && Unit <= u'9'; }
constexpr char16_t LowerAscii(char16_t Unit) noexcept {
  return Unit >= u'A' && Unit <= u'Z' ? static_cast<char16_t>(Unit + 32) : Unit;
}
// The value of a digit up to F in any case; 99 for what is none.
constexpr unsigned DigitValue(char16_t Unit) noexcept {
  if (IsDigit(Unit)) return Unit - unsigned{u'0'};
  const char16_t lower = LowerAscii(Unit);
  return lower >= u'a' && lower <= u'f' ? lower - unsigned{u'a'} + 10 : 99;
}
// A and B differ at most in the case of the letters A to Z.
bool SameAscii(std::u16string_view A, std::u16string_view B) noexcept;

// Count code units from position Index, both held to the text; an Index below 1 counts as 1.
String Copy(const String& Text, int Index, int Count);
// The position of the first Part in Text at or behind position From; 0 if there is none, if Part is
// empty, or if From is below 1.
int Pos(std::u16string_view Part, std::u16string_view Text, int From = 1) noexcept;
// Text with every occurrence of From, found from the front, replaced by To. An empty From changes
// nothing.
String ReplaceAll(const String& Text, std::u16string_view From, std::u16string_view To);

}  // namespace vx
