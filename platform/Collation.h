// The German order of texts, the same on every machine.
//
//   AnsiCompareStr    German dictionary order, every difference counts
//   AnsiCompareText   the same without regard to case
//   AnsiSameText      equality by AnsiCompareText
//   AppendCollationKey   bytes that sort as the texts do, for sorting many
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
//   vx::AnsiCompareStr(u"Müller", u"Muller") > 0;     // true: the accent decides
//   vx::AnsiCompareStr(u"Müller", u"Mulle") > 0;      // true: letters first
//   vx::AnsiCompareText(u"MÜLLER", u"müller");        // 0
//
// Both are strict weak orders on any input, lone surrogates and code units 0 among it, allocate
// nothing and never raise.
//
// Threads: any number may call these at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace vx {

// Below 0, 0 or above 0 as A stands before, with or behind B.
int AnsiCompareStr(std::u16string_view A, std::u16string_view B) noexcept;
int AnsiCompareText(std::u16string_view A, std::u16string_view B) noexcept;

namespace collation {
// Whether two texts of one size have one LowerCase form; for AnsiSameText, which has looked for equal units.
bool SameFolded(const char16_t* A, const char16_t* B, size_t Size) noexcept;
}  // namespace collation

// The same as AnsiCompareText(A, B) == 0, and faster: texts of one LowerCase form. Made for scans: lengths and first
// letters tell most texts apart before anything is called.
inline bool AnsiSameText(std::u16string_view A, std::u16string_view B) noexcept {
  if (A.size() != B.size()) return false;
  if (A.empty()) return true;
  const unsigned a = A[0], b = B[0];
  if ((a | b) < 0x80 && ((a ^ b) & ~0x20u) != 0) return false;  // the two cases of an ASCII letter differ in this bit
  return std::memcmp(A.data(), B.data(), A.size() * sizeof(char16_t)) == 0 ||
         collation::SameFolded(A.data(), B.data(), A.size());
}

// Appends the key of Text to Key. Keys compared byte by byte, the shorter one first, stand as AnsiCompareText
// has the texts; where two keys are equal and both are whole, so are the texts, and otherwise only
// AnsiCompareText itself tells. No key ends with the byte 0, so that keys padded with it stand alike. The
// result is whether the key is whole, as those of German texts are.
bool AppendCollationKey(std::u16string_view Text, std::vector<uint8_t>& Key);

}  // namespace vx
