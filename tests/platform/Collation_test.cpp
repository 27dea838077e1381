#include "platform/Collation.h"

#include "tests/support/Test.h"

namespace {

int Sign(int Value) { return (Value > 0) - (Value < 0); }
const std::u16string kNasty =
    u"aAäÄáeEsSßẞſæÆǽœøﬁﬃ½…ıIİǆǅǄ中αжЖ \u0301\u0308\u0344\u0300\u0323\u035D\u00AD\uFEFF-1²³ṩǖｓＳ″ɦꞪΘθςσ" +
    std::u16string{u'\0', char16_t{0xD83D}, char16_t{0xDE00}, char16_t{0xFFFF}};
std::string Utf8(std::u16string_view Text) { return String(Text).ToUtf8(); }

// Texts in ascending order, each pair compared both ways.
void ExpectAscending(const std::vector<String>& Texts, int (*Compare)(std::u16string_view, std::u16string_view)) {
  for (int i = 0; i < static_cast<int>(Texts.size()); ++i) {
    for (int j = 0; j < static_cast<int>(Texts.size()); ++j)
      EXPECT_EQ(Sign(Compare(Texts[i], Texts[j])), Sign(i - j)) << Texts[i].ToUtf8() << " | " << Texts[j].ToUtf8();
  }
}

TEST(Collation, GermanOrder) {
  const std::vector<String> lists[] = {
      // accents only between equal words, case last
      {u"", u"Arg", u"arger", u"ärger", u"Ärger", u"Ärgerlich", u"Arges", u"Zebra"},
      {u"mulle", u"Müller", u"Mullers"},
      {u"cote", u"Cote", u"coté", u"côte", u"côté", u"cotes"},
      {u"Goethe", u"Goldmann", u"Göthe", u"Gotz", u"Götz", u"Götze"},
      // ß with ss, behind it
      {u"Masse", u"Maße", u"Massel", u"Maßen", u"Mast"},
      {u"weiss", u"Weiss", u"WEISS", u"weiß", u"Weiß", u"WEIẞ", u"weissa"},
      // white space, punctuation, digits, letters
      {u"\t", u" ", u"_", u"-", u"–", u",", u";", u":",   u"!", u"?",  u".", u"'", u"\"", u"„", u"(", u")", u"[",
       u"]",  u"{", u"}", u"§", u"@", u"*", u"/", u"\\",  u"&", u"#",  u"%", u"`", u"^",  u"°", u"+", u"<", u"=",
       u">",  u"|", u"~", u"$", u"€", u"0", u"1", u"1⁄2", u"½", u"10", u"2", u"²", u"9",  u"a", u"ä", u"z", u"þ"},
      {u"Am Ring", u"Am-Ring", u"Amring"},
      // letters of other languages at their place
      {u"ae",   u"áe",     u"æ", u"Æ",  u"ǽ",  u"af", u"da", u"ða", u"đb", u"iz", u"ıa", u"ja", u"lo",
       u"Łódź", u"lodzie", u"ø", u"oe", u"øe", u"œ",  u"of", u"s",  u"ś",  u"ſ",  u"sa", u"ſt", u"ﬅ"},
      {u"Oke", u"Økland", u"Öktem", u"Oktober"},
      // marks behind the letter count as the accented letter
      {u"Mull", u"Mu\u0308ll", u"Müll", u"Müller"},
      {u"ǆ", u"ǅ", u"Ǆ"},
      {u"a", u"a\u00AD", u"a\u0301", u"á", u"a\u0301\u0302", u"ab"},
      // everything else behind, by code unit of the small letter
      {u"zz", u"\x01", u"µ", u"α", u"Α", u"β", u"а", u"А", u"б", u"א", u"中", u"\xD800", u"\xDFFF", u"\xE000"}};
  for (const std::vector<String>& list : lists) ExpectAscending(list, AnsiCompareStr);
  ExpectAscending({u"ARG", u"arger", u"ÄRGER", u"ärgerlich", u"Arges", u"WEISS", u"weiß", u"Weissa"}, AnsiCompareText);
}

TEST(Collation, StrictWeakOrderOnAnyInput) {
  std::mt19937 random(1);
  auto make = [&] {
    std::u16string text(random() % 5, u'a');
    for (char16_t& unit : text)
      unit = random() % 200 ? kNasty[random() % kNasty.size()] : static_cast<char16_t>(random());
    return random() % 4 ? text : u"Wei" + text;
  };
  for (int round = 0; round < 300000; ++round) {
    std::u16string a = make(), b = make(), c = random() % 2 ? a + make() : make();
    int text = Sign(AnsiCompareText(a, b)), str = Sign(AnsiCompareStr(a, b));
    ASSERT_EQ(text == 0, LowerCase(String(a)) == LowerCase(String(b))) << Utf8(a + u" | " + b);
    ASSERT_EQ(str == 0, a == b) << Utf8(a + u" | " + b);
    ASSERT_EQ(text == 0 ? 0 : str, text) << Utf8(a + u" | " + b);
    for (auto compare : {AnsiCompareText, AnsiCompareStr}) {
      int ab = Sign(compare(a, b)), bc = Sign(compare(b, c)), ac = Sign(compare(a, c));
      ASSERT_EQ(ab, -Sign(compare(b, a))) << Utf8(a + u" | " + b);
      // Who stands between two others or beside an equal one tells how these stand.
      const int expected = ab == 0 ? bc : bc == 0 || bc == ab ? ab : ac;
      ASSERT_EQ(ac, expected) << Utf8(a + u" | " + b + u" | " + c);
    }
  }
}

// A text with its key, in a vector that holds another one already.
struct TKeyed {
  explicit TKeyed(std::u16string_view AText) : Text(AText) {
    Whole = AppendCollationKey(Text, Key);
    Key.erase(Key.begin());
  }
  std::u16string Text;
  std::vector<uint8_t> Key{0};
  bool Whole;
};

void ExpectKeysOrdered(const TKeyed& A, const TKeyed& B) {
  const int text = Sign(AnsiCompareText(A.Text, B.Text)), key = (A.Key > B.Key) - (A.Key < B.Key);
  std::vector<uint8_t> a = A.Key, b = B.Key;
  a.resize(A.Key.size() + B.Key.size());
  b.resize(a.size());
  ASSERT_EQ((a > b) - (a < b), key) << "padded: " << Utf8(A.Text + u" | " + B.Text);
  ASSERT_EQ(key, key != 0 || (A.Whole && B.Whole) ? text : 0) << Utf8(A.Text + u" | " + B.Text);
  ASSERT_EQ(AnsiSameText(A.Text, B.Text), text == 0) << Utf8(A.Text + u" | " + B.Text);
}

TEST(Collation, KeysStandAsTheTexts) {
  const std::u16string far(300, u'x');
  std::vector<TKeyed> keyed;
  for (std::u16string_view text : {u"", u"Müller", u"LÜDENSCHEIDT, „Weiß“ & Söhne – 12€", u"Groß", u"Ægir", u"a\nb§",
                                   u"strassenzüge.", u"STRASSENZÜGE.", u"strasse@", u"strasse`", u"[[[[[", u"{{{{{"})
    EXPECT_TRUE(keyed.emplace_back(text).Whole) << Utf8(text);
  for (std::u16string_view text : {u"ﬁ", u"a\u0308", u"a\u00AD", u"m²", u"½", u"ｗeit", u"\u0301"})
    EXPECT_FALSE(keyed.emplace_back(text).Whole) << Utf8(text);
  for (size_t length : {0, 61, 62, 125, 126, 127, 251, 252, 253, 300})
    for (const char16_t* accent : {u"ä", u"ǟ", u"ß", u"áä"}) keyed.emplace_back(far.substr(length) + accent + far);
  for (const TKeyed& a : keyed)
    for (const TKeyed& b : keyed) ExpectKeysOrdered(a, b);
  keyed.clear();
  for (int unit = 0; unit < 0x10000; ++unit) keyed.emplace_back(std::u16string(1, static_cast<char16_t>(unit)));
  std::sort(keyed.begin(), keyed.end(), [](const TKeyed& a, const TKeyed& b) {
    return a.Key != b.Key ? a.Key < b.Key : a.Whole != b.Whole ? a.Whole : AnsiCompareStr(a.Text, b.Text) < 0;
  });
  for (size_t i = 1; i < keyed.size(); ++i) ExpectKeysOrdered(keyed[i - 1], keyed[i]);
  std::mt19937 random(2);
  for (int round = 0; round < 300000; ++round) {
    std::u16string a(random() % 7, u'a'), b(random() % 7, u'a');
    for (char16_t& unit : a) unit = kNasty[random() % kNasty.size()];
    if (random() % 2) b = a;
    if (!b.empty()) b[random() % b.size()] = kNasty[random() % kNasty.size()];
    ExpectKeysOrdered(TKeyed(a), TKeyed(random() % 4 ? b : a + b));
    if (HasFatalFailure()) return;
  }
}

TEST(Collation, LongTextsTakeLinearTime) {
  const std::u16string marks(2000000, u'\u0301'), sharp(1000000, u'ß'), pairs(2000000, u's');
  EXPECT_LT(AnsiCompareStr(u"a" + marks, u"á" + marks), 0);
  EXPECT_GT(AnsiCompareStr(sharp, pairs), 0);
  EXPECT_LT(AnsiCompareText(sharp, pairs + u"s"), 0);
  EXPECT_GT(AnsiCompareText(u"ä" + pairs + u"b", u"a" + pairs + u"B"), 0);
  ExpectKeysOrdered(TKeyed(sharp), TKeyed(pairs + marks));
}

}  // namespace
