// Templates, under which each place of a text takes certain characters.
//
//   LiteralString    the text that a template begins with
//   CharAllowed      whether a place takes a character
//   TextAllowed      whether all places do
//
// Example:
//   vx::LiteralString(u"00.00-\\A", u'_');        // u"__.__-A"
//   vx::CharAllowed(u"00.00-\\A", u'7', 4);       // true
//   vx::TextAllowed(u"00.00-\\A", u"12.34-A");    // true
//
// What a place takes:
//   0 9 1        a digit; a digit from 1 to 9; 0 or 1
//   # * v        + or - or a digit; + or - or a digit from 1 to 9; + or -
//   L l          a letter
//   < >          a letter in lower case, in upper case
//   A a          a letter or a digit
//   C c          anything
//   _            a blank
//   !x           anything but x
//   \x           x alone
//   others       themselves alone
// Letters are those of the Latin, Greek and Cyrillic scripts. A ! or \ at the end of a template is no place.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include "platform/String.h"

namespace vx {

// What a place takes, and the character in the template that says so.
struct TTemplatePlace {
  char16_t Unit;
  char16_t Prefix;  // u'!', u'\\' or 0

  bool Takes(char16_t Char) const noexcept;
  // It takes one character alone, which stands in the text from the beginning.
  bool IsLiteral() const noexcept;
};

// Walks the places of a template.
class TTemplateReader {
 public:
  explicit TTemplateReader(std::u16string_view Template) noexcept : FRest(Template) {}
  // False at the end.
  bool Next(TTemplatePlace& Place) noexcept;

 private:
  std::u16string_view FRest;
};

// Each place that takes one character alone, but for a blank, has that character, all others have aBlankChar.
String LiteralString(std::u16string_view aTemplate, char16_t aBlankChar);
// Places count from 1. False for one that aTemplate does not have.
bool CharAllowed(std::u16string_view aTemplate, char16_t aChar, int aPosition) noexcept;
// Each character of aText is allowed at its place; aText may be shorter than the template.
bool TextAllowed(std::u16string_view aTemplate, std::u16string_view aText) noexcept;

}  // namespace vx
