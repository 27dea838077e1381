#include "objects/uVxClasses/detail/KeyFolding.h"

#include <algorithm>
#include <string>

namespace vx {

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
  std::u16string rest(Text.view());  // what follows the position, with the markers behind it
  std::u16string result;
  result.reserve(rest.size() + 16);
  for (size_t i = 0; i < rest.size(); ++i) {  // a marker may be such a letter, too, and is folded in its turn
    if (!IsFolded(rest[i])) {
      result += rest[i];
      continue;
    }
    bool smallFollows = i + 1 == rest.size() || rest[i + 1] >= u'a' || rest[i + 1] == u' ';
    rest += static_cast<char16_t>(result.size() + 1 + 32);
    result += FoldedForm(rest[i], smallFollows);
  }
  return result;
}

}  // namespace vx
