#include "platform/Text.h"

#include "tests/support/Test.h"

namespace {

TEST(Text, TrimsUnitsUpTo32AtTheEndsOnly) {
  const TCases<String, String, String, String> cases = {{u"", u"", u"", u""},
                                                        {std::u16string_view(u" \t\r\n\0 ", 6), u"", u"", u""},
                                                        {u" \x01 ä b\t ", u"ä b", u"ä b\t ", u" \x01 ä b"},
                                                        {u"\u00A0x!", u"\u00A0x!", u"\u00A0x!", u"\u00A0x!"}};
  for (const auto& row : cases) {
    const auto& [text, both, left, right] = row;
    EXPECT_EQ(std::tuple(text, Trim(text), TrimLeft(text), TrimRight(text)), row);
    EXPECT_EQ(TrimView(text), both.view()) << text;
  }
}

TEST(Text, CaseOfLettersOneUnitToOne) {
  const TCases<String, String, String> cases = {{u"Größe äöü ÄÖÜ éŁđ", u"GRÖßE ÄÖÜ ÄÖÜ ÉŁĐ", u"größe äöü äöü éłđ"},
                                                {u"Ωώς Жђё", u"ΩΏς ЖЂЁ", u"ωώς жђё"},
                                                {u"ẞß ÿŸ ıİ ſ µ", u"ẞß ŸŸ ıİ ſ µ", u"ßß ÿÿ ıİ ſ µ"},
                                                {u"ǅ ȺⱥƏə Ệệ ắ", u"Ǆ ȺȺƏƏ ỆỆ Ắ", u"ǆ ⱥⱥəə ệệ ắ"},
                                                {u"@[`{×÷ªº \xD83D", u"@[`{×÷ªº \xD83D", u"@[`{×÷ªº \xD83D"}};
  for (const auto& [text, upper, lower] : cases) EXPECT_EQ(UpperCase(text) + LowerCase(text), upper + lower);
  int letters = 0;
  for (int i = 0; i <= 0xFFFF; ++i) {
    char16_t unit = static_cast<char16_t>(i), lower = LowerCase(unit), upper = UpperCase(unit);
    letters += lower != unit;
    EXPECT_EQ((std::array{LowerCase(lower), LowerCase(upper), UpperCase(upper), UpperCase(lower)}),
              (std::array{lower, lower, upper, unit == u'ẞ' ? u'ß' : upper}))
        << i;
  }
  EXPECT_EQ(letters, 675 + 4 + 1);  // pairs, digraphs such as ǅ, and ẞ
}

TEST(Text, CopyHoldsBothNumbersToTheText) {
  const TCases<int, int, String> cases = {{1, 2, u"ab"}, {0, 2, u"ab"}, {INT_MIN, 1, u"a"},
                                          {4, 9, u"d"},  {5, 1, u""},   {2, INT_MAX, u"bcd"},
                                          {2, 0, u""},   {2, -1, u""},  {INT_MAX, INT_MAX, u""}};
  for (const auto& [index, count, part] : cases) EXPECT_EQ(Copy(u"abcd", index, count), part) << index << "," << count;
}

TEST(Text, PosFindsEveryPartThatAPlainSearchFinds) {
  EXPECT_EQ(Pos(u"", u"abc") + Pos(u"a", u"abc", 0) + Pos(u"a", u"", INT_MAX) + Pos(u"B", u"b"), 0);
  std::mt19937 random(3);
  for (int round = 0; round < 20000; ++round) {
    std::u16string text, part;
    unsigned kinds = 1 + random() % 3;
    for (size_t size = random() % 60; size > 0; --size) text += static_cast<char16_t>(u'a' + random() % kinds);
    for (size_t size = 1 + random() % 20; size > 0; --size) part += static_cast<char16_t>(u'a' + random() % kinds);
    if (random() % 2) part += part;
    if (random() % 2) text.insert(random() % (text.size() + 1), part);
    int from = static_cast<int>(1 + random() % 5);
    size_t place = text.find(part, static_cast<size_t>(from) - 1);
    ASSERT_EQ(Pos(part, text, from), place == text.npos ? 0 : static_cast<int>(place) + 1);
  }
  std::u16string text(1000000, u'a'), part(300000, u'a');  // quadratic time would not end
  EXPECT_EQ((TFacts{Pos(part + u"b", text), Pos(u"b" + part, text)}), "0 0");
  EXPECT_EQ(ReplaceAll(String(text), part, u"x"), String(u"xxx" + std::u16string(100000, u'a')));
}

TEST(Text, ReplaceAll) {
  const TCases<String, String, String, String> cases = {{u"aaa", u"aa", u"b", u"ba"}, {u"a,b,", u",", u", ", u"a, b, "},
                                                        {u"abc", u"", u"x", u"abc"},  {u"", u"a", u"x", u""},
                                                        {u"aXbX", u"X", u"", u"ab"},  {u"aa", u"a", u"aa", u"aaaa"}};
  for (const auto& [text, from, to, result] : cases) EXPECT_EQ(ReplaceAll(text, from, to), result);
}

}  // namespace
