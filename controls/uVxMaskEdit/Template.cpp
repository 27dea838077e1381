#include "controls/uVxMaskEdit/Template.h"

#include "platform/Text.h"
#include "platform/TextBuffer.h"

namespace vx {
namespace {

bool IsSign(char16_t Char) noexcept { return Char == u'+' || Char == u'-'; }
bool IsDigitAboveZero(char16_t Char) noexcept { return Char >= u'1' && Char <= u'9'; }
bool IsLower(char16_t Char) noexcept { return Char == u'ß' || UpperCase(Char) != Char; }
bool IsUpper(char16_t Char) noexcept { return LowerCase(Char) != Char; }
bool IsLetter(char16_t Char) noexcept { return IsLower(Char) || IsUpper(Char); }

}  // namespace

bool TTemplatePlace::Takes(char16_t Char) const noexcept {
  if (Prefix != 0) return (Char == Unit) == (Prefix == u'\\');
  switch (Unit) {
    case u'#':
      return IsSign(Char) || IsDigit(Char);
    case u'*':
      return IsSign(Char) || IsDigitAboveZero(Char);
    case u'0':
      return IsDigit(Char);
    case u'1':
      return Char == u'0' || Char == u'1';
    case u'9':
      return IsDigitAboveZero(Char);
    case u'<':
      return IsLower(Char);
    case u'>':
      return IsUpper(Char);
    case u'A':
    case u'a':
      return IsLetter(Char) || IsDigit(Char);
    case u'C':
    case u'c':
      return true;
    case u'L':
    case u'l':
      return IsLetter(Char);
    case u'_':
      return Char == u' ';
    case u'v':
      return IsSign(Char);
    default:
      return Char == Unit;
  }
}

bool TTemplatePlace::IsLiteral() const noexcept {
  return Prefix == u'\\' ||
         (Prefix == 0 && std::u16string_view(u"#*019<>AaCcLl_v").find(Unit) == std::u16string_view::npos);
}

bool TTemplateReader::Next(TTemplatePlace& Place) noexcept {
  if (FRest.empty()) return false;
  const char16_t first = FRest.front();
  FRest.remove_prefix(1);
  if (first != u'!' && first != u'\\') {
    Place = {first, 0};
    return true;
  }
  if (FRest.empty()) return false;
  Place = {FRest.front(), first};
  FRest.remove_prefix(1);
  return true;
}

String LiteralString(std::u16string_view aTemplate, char16_t aBlankChar) {
  TTextBuffer text;
  TTemplateReader reader(aTemplate);
  for (TTemplatePlace place; reader.Next(place);) text.Add(place.IsLiteral() ? place.Unit : aBlankChar);
  return text.ToString();
}

bool CharAllowed(std::u16string_view aTemplate, char16_t aChar, int aPosition) noexcept {
  TTemplateReader reader(aTemplate);
  int position = 0;
  for (TTemplatePlace place; reader.Next(place);) {
    if (++position == aPosition) return place.Takes(aChar);
  }
  return false;
}

bool TextAllowed(std::u16string_view aTemplate, std::u16string_view aText) noexcept {
  TTemplateReader reader(aTemplate);
  for (char16_t unit : aText) {
    TTemplatePlace place;
    if (!reader.Next(place) || !place.Takes(unit)) return false;
  }
  return true;
}

}  // namespace vx
