// The German order of texts, the same on every machine.
//
//   AnsiCompareStr    German dictionary order, every difference counts
//   AnsiCompareText   the same without regard to case
//   AnsiSameText      equality by AnsiCompareText
//
// The order is that of German dictionaries (DIN 5007-1). Three levels decide, one after the other:
//   1. the letters: ä sorts with a, ß with ss; punctuation and digits come before letters, and
//      whatever is not a Latin letter, a digit or punctuation comes behind the letters, by code unit
//      (control characters other than white space too);
//   2. the accents, written with the letter or as marks behind it, and ß behind ss;
//   3. the case, the small letter first (AnsiCompareStr only).
// Soft hyphens and marks of no width only tell apart what is equal otherwise. AnsiCompareStr never
// contradicts AnsiCompareText: it only tells apart what is equal there, texts of one LowerCase form.
// AnsiCompareText keeps accents and ß apart: Weiß and Weiss are two people, so they are two keys.
// Two texts are equal for AnsiCompareStr only if they are the same code units.
//
// Example:
//   vx::AnsiCompareStr(u"Müller", u"Muller") > 0;     // the accent decides
//   vx::AnsiCompareStr(u"Müller", u"Mulle") > 0;      // letters first
//   vx::AnsiCompareText(u"MÜLLER", u"müller") == 0;
//
// Both are strict weak orders on any input, lone surrogates and code units 0 among it, allocate
// nothing and never raise.
#pragma once

#include <string_view>

namespace vx {

// Below 0, 0 or above 0 as A stands before, with or behind B.
int AnsiCompareStr(std::u16string_view A, std::u16string_view B) noexcept;
int AnsiCompareText(std::u16string_view A, std::u16string_view B) noexcept;
inline bool AnsiSameText(std::u16string_view A, std::u16string_view B) noexcept { return AnsiCompareText(A, B) == 0; }

}  // namespace vx
