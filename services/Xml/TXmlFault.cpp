#include "services/Xml/TXmlFault.h"

#include "platform/TextBuffer.h"
#include "services/Xml/TXmlForm.h"

namespace vx {

namespace {

// % stands for the detail.
constexpr std::u16string_view kTexts[] = {u"",
                                          u"Die Datei ist zu groß.",
                                          u"Die Zeichenkodierung »%« wird nicht unterstützt.",
                                          u"Die Datei nennt die Zeichenkodierung »%«, ist aber anders kodiert.",
                                          u"Die Bytes sind kein Zeichen der Kodierung.",
                                          u"Das Zeichen % ist in XML nicht erlaubt.",
                                          u"Die Datei endet, bevor »%« folgt.",
                                          u"Hier muss »%« stehen.",
                                          u"Hier muss ein Name stehen.",
                                          u"Außerhalb des äußersten Elements ist das nicht erlaubt.",
                                          u"Es gibt kein Element.",
                                          u"Hier muss </%> stehen.",
                                          u"Das Attribut »%« steht doppelt.",
                                          u"»<« ist im Wert eines Attributs nicht erlaubt.",
                                          u"»]]>« ist in einem Text nicht erlaubt.",
                                          u"»--« ist in einem Kommentar nicht erlaubt.",
                                          u"Die Verarbeitungsanweisung ist so nicht erlaubt.",
                                          u"»&« leitet hier keinen gültigen Verweis ein.",
                                          u"Die Entität »%« ist nicht bekannt.",
                                          u"Die Entität »%« steht außerhalb der Datei und wird nicht gelesen.",
                                          u"Die Entität »%« enthält »<«; das wird nicht unterstützt.",
                                          u"Die Entität »%« enthält sich selbst.",
                                          u"Die Parameterentität »%« wird nicht unterstützt.",
                                          u"Die Entitäten ergeben einen zu langen Text.",
                                          u"Die Elemente sind zu tief geschachtelt.",
                                          u"»%« ist in der Zeichenkodierung nicht darstellbar."};
static_assert(std::size(kTexts) == xfUnencodable + 1);

}  // namespace

String TXmlFault::GetText() const {
  TTextBuffer text;
  if (Line > 0) {
    text.Add(u"Zeile ");
    text.AddNumber(static_cast<uint64_t>(Line));
    text.Add(u", Spalte ");
    text.AddNumber(static_cast<uint64_t>(Column));
    text.Add(u": ");
  }
  for (char16_t unit : Kind == xfName && !Detail.empty() ? std::u16string_view(u"»%« ist kein Name.") : kTexts[Kind]) {
    if (unit == u'%') {
      text.Add(Detail);
    } else {
      text.Add(unit);
    }
  }
  return text.ToString();
}

String XmlEncodingName(TXmlEncoding Encoding) {
  static constexpr std::u16string_view kNames[] = {u"UTF-8",      u"UTF-16",      u"UTF-16",      u"US-ASCII",
                                                   u"ISO-8859-1", u"ISO-8859-15", u"windows-1252"};
  return kNames[Encoding];
}

}  // namespace vx
