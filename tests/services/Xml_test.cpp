#include "services/Xml.h"

#include "platform/Files.h"
#include "tests/support/Cases.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

// A tree: <name attribute='value' ...>children</name>, texts in braces, other kinds behind a letter.
std::string Shown(const TXmlNode& node) {
  std::string shown;
  if (node.IsElement()) shown = "<" + String(node.GetName()).ToUtf8();
  for (const TXmlAttr& attr : node.Attributes()) {
    shown += " " + String(attr.GetName()).ToUtf8() + "='" + String(attr.GetValue()).ToUtf8() + "'";
  }
  if (node.IsElement()) shown += ">";
  for (const TXmlNode& child : node.Children()) shown += Shown(child);
  if (node.IsElement()) return shown + "</>";
  const std::string text = String(node.GetValue()).ToUtf8();
  if (node.GetKind() == xnText) return "{" + text + "}";
  if (node.GetKind() == xnDocument) return shown;
  return std::string(1, "...ccid"[node.GetKind()]) + "{" + String(node.GetName()).ToUtf8() + "|" + text + "}";
}
std::string Read(std::string_view bytes, const TXmlLimits& limits = {}) {
  TXmlDocument document;
  const TXmlFault fault = ReadXml(document, bytes, limits);
  return fault ? fault.GetText().ToUtf8() : Shown(document.GetTop());
}
std::string Wide(std::string_view text, bool isBigEndian) {
  std::string bytes;
  for (char unit : text) (bytes += isBigEndian ? '\0' : unit) += isBigEndian ? unit : '\0';
  return bytes;
}

TEST(Xml, ReadsWhatIsMeant) {
  for (const auto& [bytes, shown] : TCases<std::string, std::string>{
           {"<a/>", "<a></>"},
           {"<?xml version='1.0'?>\n<!-- v --><a >\r\n x\r</a >\n<?p  q ?>", "c{| v }<a>{\n x\n}</>i{p|q }"},
           {"<p:a xmlns:p='u' b = \"x'\n\ty&#10;&#x9;&lt;&amp;\"/>", "<p:a xmlns:p='u' b='x'  y\n\t<&'></>"},
           {"<a>1 &lt; 2 &gt; ]] &#x1F600;&#8364;<b/><![CDATA[<&]]]]><!--x--></a>",
            "<a>{1 < 2 > ]] 😀€}<b></>c{|<&]]}c{|x}</>"},
           {"\xEF\xBB\xBF<ä·>ß</ä·>", "<ä·>{ß}</>"},
           {"<?xml version='1.1' encoding='ISO-8859-15' standalone='no' ?><\xE4>\xA4</\xE4>", "<ä>{€}</>"},
           {"<?xml version=\"1.0\" encoding=\"windows-1252\"?><a>\x80\xDF</a>", "<a>{€ß}</>"},
           {"<?xml version='1.0' encoding='iso-8859-1'?><a>\x80\xDF</a>", "<a>{\xC2\x80ß}</>"},
           {"\xFF\xFE" + Wide("<?xml version='1.0' encoding='UTF-16'?><a>\xE4</a>", false), "<a>{ä}</>"},
           {"<?xmlp encoding='iso-8859-1'?><a>ä</a>", "i{xmlp|encoding='iso-8859-1'}<a>{ä}</>"},
           {"<!DOCTYPE a [<!ENTITY e ''>]><a>&e;</a>", "d{a| [<!ENTITY e ''>]}<a></>"},
           {Wide("<a>\xE4</a>", true), "<a>{ä}</>"},
           {"<!DOCTYPE a PUBLIC 'p' \"s\" [<!ENTITY e '&f;&#38;#60;'><!ENTITY f \"x\n\"><!ENTITY f 'y'>"
            "<!ATTLIST a t NMTOKENS #IMPLIED u (x|y) ' &f; '><!ELEMENT a (b,c)*>]><a t='  p  q '>&e;</a>",
            "d{a| PUBLIC 'p' \"s\" [<!ENTITY e '&f;&#38;#60;'><!ENTITY f \"x\n\"><!ENTITY f 'y'>"
            "<!ATTLIST a t NMTOKENS #IMPLIED u (x|y) ' &f; '><!ELEMENT a (b,c)*>]}<a t='p q' u='x'>{x\n<}</>"}}) {
    EXPECT_EQ(Read(bytes), shown) << bytes;
  }
  TXmlLimits limits;
  limits.Options = {xroDropBlanks};
  EXPECT_EQ(Read("<a>\n <b> </b> x<![CDATA[ ]]></a>", limits), "<a><b></>{ x}c{| }</>");
}

TEST(Xml, RefusesWhatIsNotWellFormedWithItsPlace) {
  const std::string doctype =
      "<!DOCTYPE a [<!ENTITY l '&m;'><!ENTITY m '&l;'><!ENTITY t '<b/>'><!ENTITY x SYSTEM 'x'>]>";
  for (const auto& [bytes, told] : TCases<std::string, std::string>{
           {"", "1, Spalte 1: Es gibt kein Element."},
           {"<a>\r\n 😀<b>\r</a>", "3, Spalte 1: Hier muss </b> stehen."},
           {"<a>\n<b>", "2, Spalte 4: Die Datei endet, bevor »</b>« folgt."},
           {"<a b='1' c='\n' b=''/>", "2, Spalte 3: Das Attribut »b« steht doppelt."},
           {"<a b=1/>", "1, Spalte 6: Hier muss »\"« stehen."},
           {"<a b='1'c=''/>", "1, Spalte 9: Hier muss »>« stehen."},
           {"<a b='<'/>", "1, Spalte 7: »<« ist im Wert eines Attributs nicht erlaubt."},
           {"<a>\xC3</a>", "1, Spalte 4: Die Bytes sind kein Zeichen der Kodierung."},
           {"<a>\x01</a>", "1, Spalte 4: Das Zeichen U+0001 ist in XML nicht erlaubt."},
           {"<a>&#1;</a>", "1, Spalte 4: »&« leitet hier keinen gültigen Verweis ein."},
           {"<a>& </a>", "1, Spalte 4: »&« leitet hier keinen gültigen Verweis ein."},
           {"<a>&nbsp;</a>", "1, Spalte 4: Die Entität »nbsp« ist nicht bekannt."},
           {"<a>]]></a>", "1, Spalte 4: »]]>« ist in einem Text nicht erlaubt."},
           {"<a><!-- -- --></a>", "1, Spalte 9: »--« ist in einem Kommentar nicht erlaubt."},
           {"<a/><b/>", "1, Spalte 5: Außerhalb des äußersten Elements ist das nicht erlaubt."},
           {" <?xml version='1.0'?><a/>", "1, Spalte 2: Die Verarbeitungsanweisung ist so nicht erlaubt."},
           {"<?xml version='1.0' encoding='Shift_JIS'?><a/>",
            "1, Spalte 21: Die Zeichenkodierung »Shift_JIS« wird nicht unterstützt."},
           {"\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-16'?><a/>",
            "1, Spalte 21: Die Datei nennt die Zeichenkodierung »UTF-16«, ist aber anders kodiert."},
           {doctype + "<a>&l;</a>", "1, Spalte 93: Die Entität »l« enthält sich selbst."},
           {doctype + "<a>&t;</a>", "1, Spalte 93: Die Entität »t« enthält »<«; das wird nicht unterstützt."},
           {doctype + "<a b='&x;'/>",
            "1, Spalte 96: Die Entität »x« steht außerhalb der Datei und wird nicht gelesen."},
           {"<!DOCTYPE a [%p;]><a/>", "1, Spalte 14: Die Parameterentität »p« wird nicht unterstützt."}}) {
    EXPECT_EQ(Read(bytes), "Zeile " + told) << bytes;
  }
  std::string laughs = "<!DOCTYPE a [<!ENTITY e0 ''>", deep;
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    laughs += "<!ENTITY e" + std::to_string(i) + " '" + inner + inner + inner + "'>";
  }
  for (int i = 0; i < 1001; ++i) deep += "<a>";
  TXmlLimits limits;
  limits.EntityUnits = 100000;
  EXPECT_EQ(Read(laughs + "]><a>&e29;</a>", limits),
            "Zeile 1, Spalte 894: Die Entitäten ergeben einen zu langen Text.");
  EXPECT_EQ(Read(deep), "Zeile 1, Spalte 3001: Die Elemente sind zu tief geschachtelt.");
}

TEST(Xml, WritesWhatReadsBackTheSame) {
  TXmlDocument document;
  TXmlNode* root = document.SetRoot(u"Ärzte");
  root->SetAttribute(u"a", u"<\"\t\n\r&'😀€ä>");
  root->Add(u"b", u"ä€😀 < > & ]]>\r\n");
  root->Add(u"m")->AddText(u"x");
  root->GetLast()->Add(u"i")->AddComment(u" ä ");
  root->Add(u"e")->AddCData(u"]]>]]ä");
  root->Add(u"f")->Add(u"g")->AddInstruction(u"p", u"q");
  const std::string shown = Shown(document.GetTop());
  for (TXmlEncoding encoding : {xeUtf8, xeUtf16, xeUtf16BigEndian, xeIso8859_1, xeIso8859_15, xeWindows1252}) {
    TXmlForm form;
    form.Encoding = encoding;
    TXmlDocument back;
    EXPECT_FALSE(ReadXml(back, std::string_view(WriteXml(document, form).Bytes)));
    std::string read = Shown(back.GetTop());
    if (const size_t split = read.find("}c{|"); split != read.npos) read.replace(split, 4, "");
    EXPECT_EQ(read, shown) << encoding;
    EXPECT_EQ(back.GetForm().Encoding, encoding);
  }
  TXmlForm form;
  form.Encoding = xeAscii;
  EXPECT_EQ(WriteXml(document, form).Fault.GetText(), u"»Ä« ist in der Zeichenkodierung nicht darstellbar.");
  root->SetName(u"A");
  root->DeleteAttribute(u"a");
  root->Delete(root->Find(u"m")->GetPrevious());
  root->Delete(root->Find(u"e"));
  root->Find(u"m")->Find(u"i")->Clear();
  form.Indent = 2;
  EXPECT_EQ(WriteXml(document, form).Bytes,
            "<?xml version=\"1.0\" encoding=\"US-ASCII\"?>\n<A>\n  <m>x<i/></m>\n  <f>\n    <g>\n      <?p q?>\n"
            "    </g>\n  </f>\n</A>\n");
  root->AddCopy(*root);
  EXPECT_EQ(Shown(*root), "<A><m>{x}<i></></><f><g>i{p|q}</></><A><m>{x}<i></></><f><g>i{p|q}</></></></>");
  for (const auto& [change, kind] :
       TCases<void (*)(TXmlNode&), TXmlFaultKind>{{[](TXmlNode& a) { a.SetName(u"a b"); }, xfName},
                                                  {[](TXmlNode& a) { a.SetText(u"\x1"); }, xfCharacter},
                                                  {[](TXmlNode& a) { a.SetAttribute(u"x", u"\xD800"); }, xfCharacter},
                                                  {[](TXmlNode& a) { a.AddComment(u"a-"); }, xfDashes},
                                                  {[](TXmlNode& a) { a.AddInstruction(u"p", u"?>"); }, xfInstruction},
                                                  {[](TXmlNode& a) { a.GetParent()->Add(u"second"); }, xfOutside},
                                                  {[](TXmlNode& a) { a.GetParent()->Clear(); }, xfNoElement}}) {
    TXmlDocument other;
    change(*other.SetRoot(u"a"));
    EXPECT_EQ(WriteXml(other).Fault.Kind, kind);
    EXPECT_EQ(WriteXml(other).Bytes, "");
  }
}

TEST(Xml, FilesAndPieces) {
  const test::TTempDir dir;
  TXmlDocument document;
  ASSERT_FALSE(
      ReadXml(document, u"<?xml version='1.0' encoding='iso-8859-1' standalone='yes'?><a><b>1</b>2<b c='3'/></a>"));
  EXPECT_FALSE(SaveXml(document, dir.Path("a.xml")));
  EXPECT_TRUE(ReadXml(document, u"<a>"));  // leaves it as it was
  EXPECT_FALSE(LoadXml(document, dir.Path("a.xml")));
  EXPECT_EQ(WriteXml(document).Bytes,
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\"?>\n<a><b>1</b>2<b c=\"3\"/></a>\n");
  TXmlNode* root = document.GetRoot();
  EXPECT_EQ((TFacts{root->GetText(), root->FindText(u"b"), root->FindText(u"x"), root->GetLast()->GetAttribute(u"c"),
                    root->GetLast()->GetLine(), root->GetLast()->HasAttribute(u"d")}),
            "2 1  3 2 no");
  TXmlReader reader(dir.Path("a.xml"));
  std::string told;
  while (reader.Next()) {
    told += String(reader.GetName()).ToUtf8() + std::to_string(reader.GetPiece()) + std::to_string(reader.GetDepth()) +
            (reader.IsEmptyTag() ? "!" : "") + String(reader.GetAttribute(u"c")).ToUtf8() +
            std::to_string(reader.GetColumn()) + " ";
    if (reader.GetText() == u"2") told += reader.Next() && reader.Skip() ? "skipped " : "";
  }
  EXPECT_EQ(told, "a101 b114 327 b218 3112 skipped a2023 ");
  EXPECT_FALSE(reader.GetFault());
  EXPECT_THROW((void)LoadXml(document, dir.Path("none.xml")), EFOpenError);
}

}  // namespace
