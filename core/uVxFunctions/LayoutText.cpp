#include "core/uVxFunctions/LayoutText.h"

#include <algorithm>

#include "platform/Text.h"

namespace vx {

namespace {

template <typename E>
struct TLetter {
  char16_t Letter;
  E Value;
};

constexpr TLetter<TAlign> kAlignLetters[] = {
    {u'L', alLeft}, {u'T', alTop}, {u'R', alRight}, {u'B', alBottom}, {u'C', alClient}};
constexpr TLetter<TFontStyle> kStyleLetters[] = {
    {u'B', fsBold}, {u'I', fsItalic}, {u'U', fsUnderline}, {u'S', fsStrikeOut}};

// By the number of the side.
constexpr std::u16string_view kAlignNames[] = {u"None", u"Top", u"Bottom", u"Left", u"Right", u"Client", u"Custom"};
constexpr std::u16string_view kGermanNames[] = {u"", u"oben", u"unten", u"links", u"rechts", u"klient"};

template <typename E, size_t Count>
String WriteLetters(const TLetter<E> (&Letters)[Count], Set<E> Values) {
  char16_t text[Count];
  size_t size = 0;
  for (const TLetter<E>& letter : Letters) {
    if (Values.Has(letter.Value)) text[size++] = letter.Letter;
  }
  return std::u16string_view(text, size);
}

template <typename E, size_t Count>
Set<E> ReadLetters(const TLetter<E> (&Letters)[Count], std::u16string_view Text) noexcept {
  Set<E> result;
  for (const TLetter<E>& letter : Letters) {
    if (Text.find(letter.Letter) != Text.npos) result.Include(letter.Value);
  }
  return result;
}

}  // namespace

String AlignSetToString(TAlignSet Aligns) { return WriteLetters(kAlignLetters, Aligns); }

TAlignSet StringToAlignSet(std::u16string_view Text) noexcept { return ReadLetters(kAlignLetters, Text); }

String AlignToStr(TAlign Align) { return kAlignNames[Align <= alCustom ? Align : alNone]; }

TAlign StrToAlign(std::u16string_view Text, TAlign Default) noexcept {
  const auto found = std::find(std::begin(kAlignNames), std::end(kAlignNames), Text);
  return found == std::end(kAlignNames) ? Default : static_cast<TAlign>(found - std::begin(kAlignNames));
}

String AlignToString(TAlign Align) { return Concat({u"al", kAlignNames[Align < alCustom ? Align : alNone]}); }

TAlign StringToAlign(std::u16string_view Text) noexcept {
  const bool hasPrefix = Text.size() > 2 && SameAscii(Text.substr(0, 2), u"al");
  for (TAlign align : {alTop, alBottom, alLeft, alRight, alClient}) {
    if (SameAscii(hasPrefix ? Text.substr(2) : Text, kAlignNames[align])) return align;
    if (SameAscii(Text, kGermanNames[align])) return align;
  }
  return alNone;
}

String FontStylesToString(TFontStyles Styles) { return WriteLetters(kStyleLetters, Styles); }

TFontStyles StringToFontStyles(std::u16string_view Text) noexcept { return ReadLetters(kStyleLetters, Text); }

}  // namespace vx
