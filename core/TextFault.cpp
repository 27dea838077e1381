#include "core/TextFault.h"

#include "platform/Numbers.h"

namespace vx {

String TTextFault::GetText() const {
  static constexpr const char16_t* kTexts[] = {u"",
                                               u"leer",
                                               u"unerwartetes Zeichen",
                                               u"unvollständig",
                                               u"Minuten über 59",
                                               u"falsche Tausendergruppe",
                                               u"zu viele Nachkommastellen",
                                               u"Wert zu groß",
                                               u"diesen Tag gibt es nicht",
                                               u"diesen Monat gibt es nicht",
                                               u"kein vierstelliges Jahr",
                                               u"diese Stunde gibt es nicht",
                                               u"Sekunden über 59"};
  const std::u16string_view text = kTexts[Kind];
  if (Kind == tfNone || Kind == tfEmpty) return text;
  return Concat({text, u" an Position ", IntToStr(Position)});
}

}  // namespace vx
