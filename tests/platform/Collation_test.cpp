#include "platform/Collation.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "platform/Text.h"

namespace vx {
namespace {

int Sign(int Value) { return (Value > 0) - (Value < 0); }
std::string Utf8(std::u16string_view Text) { return String(Text).ToUtf8(); }

// Texts in ascending order, each pair compared both ways.
void ExpectAscending(const std::vector<String>& Texts, int (*Compare)(std::u16string_view, std::u16string_view)) {
  for (int i = 0; i < static_cast<int>(Texts.size()); ++i) {
    for (int j = 0; j < static_cast<int>(Texts.size()); ++j) {
      EXPECT_EQ(Sign(Compare(Texts[i], Texts[j])), Sign(i - j)) << Texts[i].ToUtf8() << " | " << Texts[j].ToUtf8();
    }
  }
}

TEST(Collation, GermanOrder) {
  const std::vector<String> lists[] = {
      // accents only between equal words, case last
      {u"", u"Arg", u"arger", u"ärger", u"Ärger", u"Ärgerlich", u"Arges", u"Zebra"},
      {u"mulle", u"Müller", u"Mullers"}, {u"cote", u"Cote", u"coté", u"côte", u"côté", u"cotes"},
      {u"Goethe", u"Goldmann", u"Göthe", u"Gotz", u"Götz", u"Götze"},
      // ß with ss, behind it
      {u"Masse", u"Maße", u"Massel", u"Maßen", u"Mast"},
      {u"weiss", u"Weiss", u"WEISS", u"weiß", u"Weiß", u"WEIẞ", u"weissa"},
      // white space, punctuation, digits, letters
      {u"\t", u" ", u"_", u"-", u"–", u",", u";", u":", u"!", u"?", u".", u"'", u"\"", u"„", u"(", u")", u"[", u"]",
       u"{", u"}", u"§", u"@", u"*", u"/", u"\\", u"&", u"#", u"%", u"`", u"^", u"°", u"+", u"<", u"=", u">", u"|",
       u"~", u"$", u"€", u"0", u"1", u"1⁄2", u"½", u"10", u"2", u"²", u"9", u"a", u"ä", u"z", u"þ"},
      {u"Am Ring", u"Am-Ring", u"Amring"},
      // letters of other languages at their place
      {u"ae", u"áe", u"æ", u"Æ", u"ǽ", u"af", u"da", u"ða", u"đb", u"iz", u"ıa", u"ja", u"lo", u"Łódź", u"lodzie",
       u"ø", u"oe", u"øe", u"œ", u"of", u"s", u"ś", u"ſ", u"sa", u"ſt", u"ﬅ"},
      {u"Oke", u"Økland", u"Öktem", u"Oktober"},
      // marks behind the letter count as the accented letter
      {u"Mull", u"Mu\u0308ll", u"Müll", u"Müller"}, {u"ǆ", u"ǅ", u"Ǆ"},
      {u"a", u"a\u00AD", u"a\u0301", u"á", u"a\u0301\u0302", u"ab"},
      // everything else behind, by code unit of the small letter
      {u"zz", u"\x01", u"µ", u"α", u"Α", u"β", u"а", u"А", u"б", u"א", u"中", u"\xD800", u"\xDFFF", u"\xE000"}};
  for (const std::vector<String>& list : lists) ExpectAscending(list, AnsiCompareStr);
  ExpectAscending({u"ARG", u"arger", u"ÄRGER", u"ärgerlich", u"Arges", u"WEISS", u"weiß", u"Weissa"}, AnsiCompareText);
}

TEST(Collation, KeysOfPeople) {
  struct { const char16_t *A, *B; bool Same; } cases[] = {
      {u"Weiß", u"WEIß", true}, {u"Weiß", u"WEIẞ", true}, {u"Weiß", u"Weiss", false}, {u"MÜLLER", u"müller", true},
      {u"Müller", u"Muller", false}, {u"I", u"ı", false}, {u"i", u"İ", false}, {u"Θεός", u"ΘΕός", true},
      {u"é", u"e\u0301", false}, {u"ﬁ", u"fi", false}, {u"ǅ", u"Ǆ", true}, {u"", u"\u00AD", false}};
  for (const auto& c : cases) EXPECT_EQ(AnsiSameText(c.A, c.B), c.Same) << Utf8(c.A) << " | " << Utf8(c.B);
}

TEST(Collation, StrictWeakOrderOnAnyInput) {
  std::u16string nasty = u"aAäÄáeEsSßẞſæÆǽœøﬁﬃ½…ıIİǆǅǄ中α \u0301\u0308\u0344\u0300\u0323\u035D\u00AD\uFEFF-1²";
  nasty += {u'\0', char16_t{0xD83D}, char16_t{0xDE00}, char16_t{0xFFFF}};
  std::mt19937 random(1);
  auto make = [&] {
    std::u16string text(random() % 5, u'a');
    for (char16_t& unit : text) {
      unit = random() % 200 ? nasty[random() % nasty.size()] : static_cast<char16_t>(random());
    }
    return random() % 4 ? text : u"Wei" + text;
  };
  for (int round = 0; round < 300000; ++round) {
    std::u16string a = make(), b = make(), c = random() % 2 ? a + make() : make();
    int text = Sign(AnsiCompareText(a, b)), str = Sign(AnsiCompareStr(a, b));
    ASSERT_EQ(text == 0, LowerCase(String(a)) == LowerCase(String(b))) << Utf8(a + u" | " + b);
    ASSERT_TRUE((str == 0) == (a == b) && (text == 0 || str == text)) << Utf8(a + u" | " + b);
    for (auto compare : {AnsiCompareText, AnsiCompareStr}) {
      int ab = Sign(compare(a, b)), bc = Sign(compare(b, c)), ac = Sign(compare(a, c));
      ASSERT_EQ(ab, -Sign(compare(b, a))) << Utf8(a + u" | " + b);
      ASSERT_TRUE((ab != bc && bc != 0) || ac == ab) << Utf8(a + u" | " + b + u" | " + c);
      ASSERT_TRUE(ab != 0 || ac == bc) << Utf8(a + u" | " + b + u" | " + c);
    }
  }
}

TEST(Collation, LongTextsTakeLinearTime) {
  const std::u16string marks(2000000, u'\u0301'), sharp(1000000, u'ß'), pairs(2000000, u's');
  EXPECT_LT(AnsiCompareStr(u"a" + marks, u"á" + marks), 0);
  EXPECT_GT(AnsiCompareStr(sharp, pairs), 0);
  EXPECT_LT(AnsiCompareText(sharp, pairs + u"s"), 0);
  EXPECT_GT(AnsiCompareText(u"ä" + pairs + u"b", u"a" + pairs + u"B"), 0);
}

}  // namespace
}  // namespace vx
