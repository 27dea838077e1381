#include "objects/uVxClassesString.h"

#include "fuzz/support/PlainReplacer.h"
#include "tests/support/Test.h"

namespace {

using TTexts = std::vector<String>;

TEST(StringReplacer, Replaces) {
  const TCases<String, TTexts, TTexts, String, int> kCases = {
      {u"text", {u"a"}, {u"b"}, u"text", 1},   {u"", {u"a"}, {u"b"}, u"", 0},
      {u"text", {}, {}, u"text", 1},           {u"abc", {u"", u"b"}, {u"1", u"2"}, u"a2c", 3},
      {u"aba", {u"a"}, {u"1"}, u"1b1", 3},     {u"abab", {u"a", u"b"}, {u"b", u"a"}, u"baba", 4},
      {u"aaaaa", {u"aa"}, {u"1"}, u"11a", 3},  {u"abc", {u"ab", u"bc"}, {u"1", u"2"}, u"12", 3},
      {u"ab", {u"a", u"b"}, {u"1"}, u"1b", 2}, {u"abcd", {u"abcd", u"b"}, {u"1", u"2"}, u"12cd", 4},
      {u"ab", {u"a"}, {u"1", u"2"}, u"1b", 2}, {u"a", {u"a", u"a", u"a"}, {u"1", u"2", u"3"}, u"321", 5},
      {u"Ab", {u"a"}, {u"1"}, u"Ab", 1}};
  for (const auto& [text, holders, replacers, result, parts] : kCases) {
    EXPECT_EQ(VxStringReplace(text, holders, replacers), result);
    TVxStringReplacer replacer;
    EXPECT_EQ(&replacer.ReplaceString(text, holders, replacers, true), &replacer);
    EXPECT_EQ(replacer.GetCount(), parts) << text;
  }
}

TEST(StringReplacer, FillsAgain) {
  EXPECT_EQ(VxStringReplace(u"a-b", {u"a", u"b"}, {u"1", u"2"}) + VxStringReplace(u"a", {}, {}), u"1-2a");
  TVxStringReplacer letter;
  const TTexts holders = {u"hallo", u"NAME"}, first = {u"1", u"2", u"3"};
  EXPECT_FALSE(letter.GetDirty());
  EXPECT_EQ(letter.ReplaceString(u"Hallo HALLO, Name Ä", holders, first, false).ToString(), u"1 1, 2 Ä");
  EXPECT_TRUE(letter.GetDirty());
  EXPECT_EQ(letter.Replace(TTexts{u"x", u"y"}).ToString(), u"1 1, 2 Ä") << "too few";
  EXPECT_EQ(letter.ReplaceItemText(2, u"z").ReplaceItemText(-1, u"z").ToString(), u"1 1, 2 Ä");
  EXPECT_EQ(letter.ReplaceItemText(0, u"").ToString(), u" , 2 Ä");
  EXPECT_EQ(letter.Replace(TTexts{u"x", u"y", u"", u"v"}).ToString(), u"x x, y Ä");
  EXPECT_EQ((TFacts{letter.GetPart(1).ClassName(), letter.GetPart(2).ClassName(), letter.GetPart(2).GetPos(),
                    letter.GetPart(2).GetHolderLng()}),
            "TVxStringReplaceConst TVxStringReplaceVar 7 5");
  EXPECT_THROW(letter.GetPart(6), EListError);
  letter.SetDirty(false);
  EXPECT_EQ(letter.ReplaceString(u"", holders, first, true).ToString(), u"");
  EXPECT_EQ(letter.Replace(TTexts{u"x", u"y", u"z"}).ReplaceItemText(0, u"x").ToString(), u"");
  EXPECT_FALSE(letter.GetDirty());
}

TEST(StringReplacer, AgreesWithTheModel) {
  std::mt19937 random(4711);
  auto text = [&](size_t most) {
    static constexpr char16_t kUnits[] = u"abABä";
    String result;
    for (size_t size = random() % (most + 1), units = random() % 5 + 1; size > 0; --size)
      result += kUnits[random() % units];
    return result;
  };
  auto texts = [&](size_t longest) {
    TTexts result(random() % 6);
    for (String& each : result) each = text(longest);
    return result;
  };
  TVxStringReplacer replacer;
  for (int round = 0; round < 20000; ++round) {
    const String source = text(60);
    const TTexts holders = texts(round % 10 == 0 ? 20 : 3), first = texts(8), second = texts(8);
    const bool caseSensitive = random() % 2 == 0;
    replacer.ReplaceString(source, holders, first, caseSensitive);
    fuzz::TPlainParts model = fuzz::PlainParts(source, holders, first, caseSensitive);
    ASSERT_EQ(fuzz::PartsOf(replacer), model) << source.ToUtf8();
    replacer.Replace(second);
    String printed;
    for (fuzz::TPlainPart& part : model) {
      if (part.Index >= 0 && second.size() >= first.size()) part.Text = second[static_cast<size_t>(part.Index)];
      printed += part.Text;
    }
    ASSERT_EQ(replacer.ToString(), printed) << source.ToUtf8();
  }
}

TEST(StringReplacer, BearsManyMatches) {
  const String text(50000, u'a'), nearly = String(1000, u'a') + u"b";
  TTexts holders(20, u"a"), replacers(20, u"x");
  EXPECT_EQ(VxStringReplace(text, holders, replacers).size(), 20 * text.size());
  holders.assign(20, nearly);
  EXPECT_EQ(VxStringReplace(text, holders, replacers), text);
}

}  // namespace
