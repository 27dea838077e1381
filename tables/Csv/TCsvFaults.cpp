#include "tables/Csv/TCsvFaults.h"

#include "platform/TextBuffer.h"

namespace vx {

String TCsvFault::ToText() const {
  static constexpr std::u16string_view kTexts[] = {u": Das Anführungszeichen wird nicht geschlossen.",
                                                   u": Hinter dem schließenden Anführungszeichen steht noch Text.",
                                                   u": Die Bytes sind kein Zeichen der Kodierung."};
  TTextBuffer text;
  text.Add(u"Zeile ");
  text.AddNumber(static_cast<uint64_t>(Line));
  text.Add(u", Spalte ");
  text.AddNumber(static_cast<uint64_t>(Column));
  text.Add(kTexts[Kind]);
  return text.ToString();
}

}  // namespace vx
