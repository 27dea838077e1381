#include "objects/uVxClasses/detail/KeyFolding.h"

#include <algorithm>

#include "platform/TextBuffer.h"

namespace vx::detail {

namespace {

bool IsFolded(char16_t Unit) noexcept {
  return Unit >= u'Ä' && std::u16string_view(u"ÄÖÜßäöü").find(Unit) != std::u16string_view::npos;
}

// What stands for a German letter; a capital one is followed by a capital one unless SmallFollows.
std::u16string_view FoldedForm(char16_t Unit, bool SmallFollows) noexcept {
  switch (Unit) {
    case u'ä':
      return u"ae";
    case u'ö':
      return u"oe";
    case u'ü':
      return u"ue";
    case u'ß':
      return u"ss";
    case u'Ä':
      return SmallFollows ? u"Ae" : u"AE";
    case u'Ö':
      return SmallFollows ? u"Oe" : u"OE";
    default:
      return SmallFollows ? u"Ue" : u"UE";
  }
}

}  // namespace

String FoldKey(const String& Text) {
  if (std::none_of(Text.begin(), Text.end(), IsFolded)) return Text;
  TTextBuffer source;  // the text and the markers behind it
  source.Add(Text);
  TTextBuffer result;
  for (size_t i = 0; i < source.View().size(); ++i) {  // a marker may be such a letter, too, and is folded in its turn
    const std::u16string_view rest = source.View().substr(i);
    if (!IsFolded(rest[0])) {
      result.Add(rest[0]);
      continue;
    }
    const bool smallFollows = rest.size() == 1 || rest[1] >= u'a' || rest[1] == u' ';
    const auto marker = static_cast<char16_t>(result.View().size() + 1 + 32);
    result.Add(FoldedForm(rest[0], smallFollows));
    source.Add(marker);
  }
  return result.ToString();
}

}  // namespace vx::detail
