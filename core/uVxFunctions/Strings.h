// Small operations on texts: fixed length, replacing, checking by sets of code units.
//
//   quote                              a text as literal in single quotes
//   GarantyLength, GarantyLengthA      a text of exactly so many characters
//   ValidateFilename, UpperFirstChar   a name without forbidden characters; a capital in front
//   CaseStringOf                       a case statement over texts
//   StrSet, StrSetReplace, StrSpecificChars, VxTrim, StrCharset    texts and sets of code units
//
// Example:
//   switch (vx::CaseStringOf(key, {{u"name", u"town"}})) {
//     case 0: person.Name = vx::GarantyLength(value, 30); break;
//     case 1: person.Town = value; break;
//   }
//
// A text that needs no change comes back as it is, sharing its characters.
// Pitfall: VxTrim trims the front only.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "core/uVxFunctions/Rounding.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// A set of bytes.
using ByteSet = TCharSet;

// Text in single quotes, with a backslash before each single quote, slash and backslash, and \n and \r
// for line feed and carriage return: u"it's" gives u"'it\\'s'", the empty text u"''".
String quote(std::u16string_view Text);

// Exactly Length code units: a longer text is cut at the right, a shorter one padded with blanks at
// the right. A negative Length counts as 0.
String GarantyLength(const String& Text, int Length);
// The form for a number without sign.
String GarantyDigits(uint64_t Value, int Length);
// Exactly Length digits: zeros in front of a shorter number; of a longer one the rightmost digits. The
// sign is lost: -5 to 3 digits is u"005", 12345 is u"345".
String GarantyLength(TWholeNumber auto Value, int Length) {
  const auto bits = static_cast<uint64_t>(Value);
  return GarantyDigits(std::cmp_less(Value, 0) ? 0 - bits : bits, Length);
}
// The form for texts of one-byte characters.
std::string GarantyLengthA(std::string_view Text, int Length);

// Text with an underscore for each of " * / : < > \ |. The question mark stays; that is wanted.
String ValidateFilename(const String& Text);
// Text with a capital in front if it begins with one of a to z; u"ä" and all others stay.
String UpperFirstChar(const String& Text);

// The place, counted from 0, of the first entry of List that equals Text exactly; -1 if there is none
// or List is empty.
int CaseStringOf(std::u16string_view Text, std::span<const std::u16string_view> List) noexcept;

// True if any code unit of Text is in Chars.
bool StrSet(std::u16string_view Text, const TCharSet& Chars) noexcept;
// Replaces each code unit of Text that is in Chars by Replacement; true if there was one.
bool StrSetReplace(String& Text, const TCharSet& Chars, char16_t Replacement);
// True if Text is not empty and all its code units are in Chars.
bool StrSpecificChars(std::u16string_view Text, const TCharSet& Chars) noexcept;
// Text from the first code unit on whose being in Chars differs from InSet. Only the front is trimmed;
// that is wanted: u"  a  " without blanks is u"a  ".
String VxTrim(const String& Text, const TCharSet& Chars, bool InSet);

// How many texts StrCharset has refused since the start of the program. Any thread may read it.
inline std::atomic<int> StrCharsetErrorCount = 0;
// Checks the form of a short code. The first code unit must be in First and is then not looked at
// further; with an empty First it is like the others. All others must be in Allowed, and those in
// Unique may stand there only once. False, and one more in StrCharsetErrorCount, for what is not so and
// for the empty text.
bool StrCharset(std::u16string_view Text, const TCharSet& First, const TCharSet& Unique,
                const TCharSet& Allowed) noexcept;

}  // namespace vx
