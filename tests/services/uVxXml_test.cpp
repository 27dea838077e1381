#include "services/uVxXml.h"

#include "fuzz/support/PlainXml.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;
using namespace std::string_view_literals;
using std::u16string_view;

String Repeat(int count, u16string_view text) {
  String result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

TEST(XmlText, EncodesAndDecodes) {
  const TCases<String (*)(u16string_view), u16string_view, u16string_view> cases = {
      {XMLEncode, u"", u""},
      {XMLEncode, u"a&b\"c'd<e>f ä\0g"sv, u"a&amp;b&quot;c&#039;d&lt;e&gt;f ä\0g"sv},
      {XMLEncode, u"12345678'", u"12345678&#039;"},
      {XMLDecode, u"", u""},
      {XMLDecode, u"&lt;&GT;&amp;&quot;&nbsp;", u"<>&\" "},
      {XMLDecode, u"&auml;&Auml;&ouml;&OUML;&uuml;&Uuml;", u"ääööüü"},
      {XMLDecode, u"&#65;&#8364;&#039;&#xyz;&#-1;&#+1;", u"A€'   "},
      {XMLDecode, u"&#$41;&#0x41;&#x41;& lt;", u"   & lt;"},
      {XMLDecode, u"&#;&;&szlig;&unknown;&#12345;", u"&#;&;&szlig;&unknown;&#12345;"},
      {XMLDecode, u"&amp", u"&amp"},
      {XMLDecode, u"&amp;lt; &&lt;&", u"&lt; &<&"},
      {StripHTMLTags, u"a  b", u"a b"},
      {StripHTMLTags, u"a \t\r\n b \n<b>c</b > d ", u"a bc d "},
      {StripHTMLTags, u"a > b < c > d <!-- x < y", u"a  b d"},
      {StripHTMLTags, u"&quot;&apos;&gt;&lt;&amp;lt; &amp;amp; &QUOT;&amp", u"\"'><&lt; &amp; &QUOT;&amp"},
  };
  for (const auto& [code, text, result] : cases) EXPECT_EQ(code(text), String(result)) << String(text);
}

TEST(XmlText, NamesCodePages) {
  for (const char* name : {"-1 ",
                           "0 ",
                           "37 IBM037",
                           "437 IBM437",
                           "850 ibm850",
                           "1149 IBM01149",
                           "1200 utf-16",
                           "1201 unicodeFFFE",
                           "1202 ",
                           "1258 windows-1258",
                           "10029 x-mac-ce",
                           "20127 us-ascii",
                           "20932 EUC-JP",
                           "28605 iso-8859-15",
                           "50222 ",
                           "51932 euc-jp",
                           "57011 x-iscii-pa",
                           "65000 utf-7",
                           "65001 utf-8",
                           "65002 "}) {
    EXPECT_EQ((TFacts{std::atoi(name), CodepageToEncoding(std::atoi(name))}), name);
  }
  int rows = 0;
  for (int page = 0; page < 66000; ++page) rows += CodepageToEncoding(page).empty() ? 0 : 1;
  EXPECT_EQ(rows, 139);
  SetSystemCodePage(850);
  EXPECT_EQ(TMyEncodingHelper(TEncoding::Default()).Webname(), u"ibm850");
  SetSystemCodePage(1252);
  EXPECT_EQ((TFacts{TMyEncodingHelper(TEncoding::Utf8()).Webname(), TMyEncodingHelper(TEncoding::Utf16()).Webname(),
                    TMyEncodingHelper(TEncoding::Utf16BigEndian()).Webname(), TMyEncodingHelper(1252).Webname()}),
            "utf-8 utf-16 unicodeFFFE windows-1252");
}

TEST(XmlObject, FindsByNameAndWritesLines) {
  TXmlObject root;
  EXPECT_EQ(root.Add(nullptr), nullptr);
  EXPECT_EQ(root.GetCount(), 0) << "an absent child is left out";
  root.SetName(u"größe");
  EXPECT_EQ(root.GetXmlCommatext(0), u"");
  root.SetIsRoot(true);
  EXPECT_EQ(root.GetXmlCommatext(1), u"\" <GRÖßE>\",\"  <NULL />\",\" </GRÖßE>\"");
  root.AddAttribute(u"a", u"");
  root.Add(u"empty", u"")->Add(u"emptier", u"");
  root.AddAttribute(u"b", u"1 & \"2\"");
  TXmlObject* child = new TXmlObject;
  EXPECT_EQ(root.Add(child), child);
  child->SetName(u"b");
  child->SetValue(u"<one>\r\n\ntwo, three\r");
  child->Add(u"inner", u"")->AddAttribute(u"x", u"y");
  root.Add(u"b", u"second");
  TVxStringList lines;
  lines.Add(u"goes");
  root.GetXmlText(0, lines);
  EXPECT_EQ(lines.GetTextStr(),
            u"<GRÖßE b=\"1 &amp; &quot;2&quot;\">\r\n  <B>\r\n    <INNER x=\"y\" />\r\n"
            u"&lt;one&gt;\r\n\r\ntwo, three\r\n  </B>\r\n  <B>\r\nsecond\r\n  </B>\r\n</GRÖßE>");
  for (int indent : {0, -3}) EXPECT_EQ(root.GetXmlCommatext(indent), lines.GetCommatext());
  EXPECT_EQ((TFacts{root.IndexOf(u"b"), root.IndexOf(u"B"), root.IndexOfAttribute(u"b")}), "1 -1 1");
  String value = u"kept";
  EXPECT_FALSE(root.GetValue(u"c", value));
  EXPECT_EQ(value, u"kept");
  EXPECT_EQ((TFacts{root.GetValue(u"a", value), value}), "yes ");
  EXPECT_EQ(root.GetValue(u"b"), child->GetValue());
  EXPECT_THROW(root.GetXml(3), EListError);
  root.XmlObjects.SetOwnsObjects(false);
  std::vector<std::unique_ptr<TXmlObject>> mine;
  for (int i = 0; i < root.GetCount(); ++i) mine.emplace_back(root.GetXml(i));
}

TEST(XmlObject, ReadsByTheRules) {
  const TCases<u16string_view, u16string_view, u16string_view> cases = {
      {u"", u"", u""},
      {u"no tag", u"", u""},
      {u"<?xml?><!DOCTYPE x><a>1</a>!", u"<A>,1,</A>", u">!"},
      {u"</a>", u"", u"/a>"},
      {u"<a b='1' c = \"2'd=x e f=3 >t</a>", u"\"<A b=\"\"1\"\" c=\"\"2\"\" d=\"\"x\"\" f=\"\"3\"\">\",t,</A>", u">"},
      {u"<a> x &lt;<!-- <b> -->y<![CDATA[z]]> </a>", u"<A>,\"x &lt;y \",</A>", u">"},
      {u"<a>\0</a>"sv, u"", u"\0</a>"sv},
      {u"<a><b/><c>1</c></a>", u"<A>,\"  <B>\",\"    <C>\",1,\"    </C>\",\"  </B>\",</A>", u""},
      {u"<a></x><b>1</y></b><>2</></a>", u"<A>,\"  <B>\",1,\"  </B>\",</A>", u">"},
      {u"<a><b>1</b ><!-- never", u"<A>,\"  <B>\",1,\"  </B>\",</A>", u""},
      {u"<a b=\"never", u"\"<A b=\"\"never\"\" />\"", u""}};
  for (const auto& [text, result, rest] : cases) {
    TXmlObject object;
    EXPECT_EQ(String(object.Read(text)), String(rest)) << String(text);
    EXPECT_EQ(object.GetXmlCommatext(0).Slice(0, static_cast<int>(result.size())), String(result)) << String(text);
  }
}

TEST(XmlObject, ReadsAndWritesAsTheModel) {
  const u16string_view kPieces[] = {u"<a>",  u"</a>",  u"<b",   u"</b>", u"<ab/>", u"</ab",  u"<",
                                    u">",    u"/",     u" ",    u"=",    u"\"",    u"'",     u"a",
                                    u"b",    u"&lt;",  u"<!",   u"-->",  u"]]>",   u"<?x?>", u"\r\n",
                                    u"\0"sv, u" x=\"", u"<!--", u"&#9;", u",",     u"text",  u"<b/a>"};
  std::mt19937 random(4711);
  for (int round = 0; round < 20000; ++round) {
    String text;
    for (size_t count = random() % 40, few = random() % 8 + 2; count > 0; --count)
      text += kPieces[random() % (round % 2 ? std::size(kPieces) : few)];
    if (round % 3 == 0) {  // long names that repeat themselves are compared in another way
      const String ends = Repeat(1 + round % 40, u"</x");
      text = Concat({u"<", Repeat(30, u"x</"), text, u">", ends, text, u"</", Repeat(34, u"x</"), text});
    }
    TXmlObject object, model;
    const size_t rest = object.Read(text).size();
    ASSERT_EQ(fuzz::PlainRead(text, model), static_cast<size_t>(text.size()) - rest) << text.ToUtf8();
    ASSERT_EQ(fuzz::Dump(object), fuzz::Dump(model)) << text.ToUtf8();
    if (object.GetCount() > 0) object.GetXml(0)->SetIsRoot(round % 2 == 0);
    ASSERT_EQ(object.GetXmlCommatext(round % 5), fuzz::PlainWrite(object, round % 5)) << text.ToUtf8();
  }
}

TEST(XmlObject, BearsHugeAndHostileTexts) {
  constexpr int kMany = 1000000;
  const String deep = Repeat(kMany, u"<a>");
  const TCases<const char*, String, int> cases = {
      {"never closed", deep, kMany},
      {"deep and closed", deep + Repeat(kMany, u"</a>"), kMany},
      {"without end tags", Repeat(kMany, u"<a/>"), kMany},
      {"nameless", Repeat(kMany, u"<>"), 1},
      {"starts of comments", u"<a>" + Repeat(kMany, u"<!"), 1},
      {"starts of comments in a tag", u"<a " + Repeat(kMany, u"<!--->- "), 1},
      {"wrong closing tags", u"<a>" + Repeat(kMany, u"</b>"), 1},
      {"a name that nearly closes", Concat({u"<", Repeat(kMany, u"x</"), u">", Repeat(kMany - 1, u"x</"), u"y"}), 1},
      {"many such", Repeat(2000, Concat({u"<", Repeat(300, u"x</"), u">"})) + Repeat(kMany, u"</x"), 0},
      {"entities", u"<a>" + Repeat(kMany, u"&&#1") + u"</a>", 1},
      {"an attribute", Concat({u"<a b='", Repeat(50 * kMany / 10, u"0123456789"), u"'></a>"}), 1},
      {"attributes", u"<a " + Repeat(kMany, u"b= "), 1},
      {"attributes without value", u"<a " + Repeat(kMany, u"b "), 1}};
  for (const auto& [what, text, wanted] : cases) {
    auto object = std::make_unique<TXmlObject>();
    object->Read(text);
    int depth = 1;
    for (TXmlObject* at = object.get(); at->GetCount() > 0; at = at->GetXml(at->GetCount() - 1)) ++depth;
    EXPECT_EQ(wanted == 0 ? 0 : depth, wanted) << what;
    if (depth > 10000) {
      EXPECT_EQ(object->GetXmlCommatext(0), u"") << what;
      object->SetIsRoot(true);
      EXPECT_NE(object->GetXmlCommatext(0), u"") << what;
      TXmlObject* leaf = object.get();
      while (leaf->GetCount() > 0) leaf = leaf->GetXml(0);
      leaf->SetValue(u"1");
      EXPECT_THROW(object->GetXmlCommatext(0), std::length_error) << what;
    } else {
      object->SetIsRoot(true);
      EXPECT_LE(object->GetXmlCommatext(0).size(), 60 * kMany) << what;
    }
  }
}

}  // namespace
