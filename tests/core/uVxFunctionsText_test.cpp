#include "core/uVxFunctions.h"
#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

// A text is no bool here, and a character no number.
template <typename T>
concept TBoolText = requires(T Value) {
  BoolToStr(Value);
  BoolToStrDef(u"j", u"n", Value);
  BoolToInt(Value);
};
static_assert(TBoolText<bool>);
static_assert(!TBoolText<const char16_t*>);
template <typename T>
concept TLengthened = requires(T Value) {
  GarantyLength(Value, 3);
};
static_assert(TLengthened<int64_t>);
static_assert(TLengthened<const char16_t*>);
static_assert(!TLengthened<char16_t>);
static_assert(!TLengthened<bool>);
static_assert(!TLengthened<double>);

TEST(Strings, ChangeOnlyWhatHasToAndShareTheRest) {
  for (const String result : {u"", u"ab", u"abc", u"abc  "}) {
    EXPECT_EQ(GarantyLength(u"abc", result.size()), result);
    EXPECT_EQ(GarantyLengthA("abc", result.size()), result.ToUtf8());
  }
  EXPECT_EQ(GarantyLength(7, 3) + GarantyLength(-5, 3) + GarantyLength(12345, 3) + GarantyLength(7, -3), u"007005345");
  EXPECT_EQ(GarantyLength(INT64_MIN, 20) + GarantyLength(UINT64_MAX, 3), u"09223372036854775808615");
  EXPECT_EQ(GetCurrencySign(int64_t{2015}) + GetCurrencySign(sizeof(int)) + GetCurrencySign(42000.5), u"€€€");
  EXPECT_EQ(GarantyLength(INT32_MIN, 12) + ValidateFilename(u"\"*/:<>\\|?.ä"), u"002147483648________?.ä");
  EXPECT_EQ(quote(u"a'b/c\\d\r\n\"") + quote(u""), u"'a\\'b\\/c\\\\d\\r\\n\"'''");
  for (const char16_t* same : {u"äb", u"{a", u"`a", u""}) EXPECT_EQ(UpperFirstChar(same), same);
  EXPECT_EQ(UpperFirstChar(u"ab") + UpperFirstChar(u"zb"), u"AbZb");
  const String text = u"Some text too long for a place inside the value";
  String changed = UpperFirstChar(GarantyLength(VxTrim(ValidateFilename(text), u" ", true), text.size()));
  EXPECT_FALSE(StrSetReplace(changed, u"#", u'_'));
  EXPECT_EQ(changed.data(), text.data());
  EXPECT_TRUE(StrSetReplace(changed, u"o ", u'_'));
  EXPECT_TRUE(StrSet(text, u" ")) << "the shared text stays";
  EXPECT_EQ(changed, u"S_me_text_t___l_ng_f_r_a_place_inside_the_value");
  EXPECT_EQ(CaseStringOf(u"b", {{u"a", u"b", u"b"}}) * 10 + CaseStringOf(u"B", {{u"b"}}) + CaseStringOf(u"", {}), 8);
  EXPECT_EQ((TFacts{StrSpecificChars(u"12", u"12"), StrSpecificChars(u"", u"1"), StrSpecificChars(u"1ı", u"1")}),
            "yes no no");
  EXPECT_EQ(VxTrim(u"  a  ", u" ", true) + VxTrim(u"ab1a", u"1", false) + VxTrim(u"   ", u" ", true), u"a  1a");
  const TCases<String, TCharSet, TCharSet, TCharSet, bool> codes = {
      {u"1,5,", u"1", u",", u"15,", false}, {u"-1,5", u"-1", u",-", u"15,", true}, {u"aa1", u"a", u"a", u"1a", true},
      {u"-", u"-", {}, {}, true},           {u"aa1a", u"a", u"a", u"1a", false},   {u"", {}, {}, u"1", false},
      {u"1-", u"-", {}, u"1-", false}};
  for (const auto& [code, first, unique, allowed, good] : codes) {
    const int refused = StrCharsetErrorCount + (good ? 0 : 1);
    EXPECT_EQ(StrCharset(code, first, unique, allowed), good) << code;
    EXPECT_EQ(StrCharsetErrorCount, refused) << code;
  }
}

TEST(Matching, CapturesWhatEachStarStoodFor) {
  const TCases<String, String, bool, bool, String> cases = {
      {u"abab", u"*ab*", true, true, u"a,ab"}, {u"axxbcyyd", u"a*bc*d", true, true, u"xxb,yy"},
      {u"", u"*", true, true, u"\"\""},        {u"axxÖcyyd", u"a*öC*d", false, true, u"xxÖ,yy"},
      {u"ab", u"**", true, true, u"ab"},       {u"axxÖcyyd", u"a*öC*d", true, false, u"xxÖcyy"},
      {u"AB", u"ab", false, true, u""},        {u"Ab", u"*", true, true, u"Ab"},
      {u"AB", u"ab", true, false, u""},        {u"", u"a", true, false, u""},
      {u"ab", u"ab*", true, true, u""},        {u"", u"**", false, true, u""},
      {u"ab", u"abb", true, false, u""},       {u"ab", u"b", true, false, u""},
      {u"aab", u"a*ab", true, true, u""},      {u"xaxbx", u"*a**b*", true, true, u"x,x,x"},
      {u"ab", u"a*ab", true, false, u""},      {u"b", u"a*", true, false, u""},
      {u"aabab", u"*ab", true, true, u"aab"},  {u"xabyab", u"*ab*ab", true, true, u"xa,y"},
      {u"abc", u"a*x*c", true, false, u"b"},   {u"a", u"", true, false, u""},
      {u"a*b", u"*b", true, true, u"a*"},      {u"", u"", true, true, u""},
      {u"a*b", u"a*b", true, true, u""},       {u"aaXbb", u"a*x*B", false, true, u"a,b"},
      {u"ab", u"a*b*c", true, false, u""},     {u"aaab", u"*aab*", true, true, u"aaa"}};
  for (const auto& row : cases) {
    const auto& [text, pattern, exact, matches, captured] = row;
    TVxStringList list;
    const bool isMatch = StrMatch(text, pattern, exact, &list);
    EXPECT_EQ(std::tuple(text, pattern, exact, isMatch, list.GetCommatext()), row);
    EXPECT_EQ(StrMatch(text, pattern, exact), matches) << text << ' ' << pattern;
  }
  const String text(400000, u'a'), part = String(200000, u'a') + u"b";
  for (bool either : {false, true}) {
    int pos = 200000;
    EXPECT_FALSE(StrMatch(text, u"*" + part + u"*", either));
    EXPECT_FALSE(StrFind(text, part, pos, either, false, false, {}));
    EXPECT_FALSE(StrFind(text, text.Slice(0, 100000), pos, either, false, true, {})) << "many places, no word";
  }
  EXPECT_TRUE(StrMatch(text + u"Bc", u"*" + part + u"*c", false));
}

TEST(Finding, ComparesFoldedLowBytesAndStopsAtTheEnd) {
  const String zeros = u"ab" + String(1, u'\0') + u"ab", word = u"aba.ba.aba.a";
  const TCases<String, String, bool, bool, int, int> cases = {
      {u"aaab", u"AAB", true, false, 0, 1}, {u"xÄÖÜÝ", u"äöüý", true, false, 0, 1},
      {u"Þ", u"þ", true, false, 0, -1},     {u"×", u"÷", true, false, 0, -1},
      {u"š", u"A", true, false, 0, 0},      {u"Ł", u"a", true, false, 0, -1},
      {zeros, u"b", true, false, 2, -1},    {zeros, u"b", false, false, 4, 1},
      {zeros, zeros, true, false, 0, -1},   {u"ab", u"", true, false, 1, 1},
      {word, u"BA", true, false, 2, 4},     {u"xa.a.a", u"a.a", true, true, 0, 3},
      {word, u"ba", true, true, 0, 4},      {word, u"ba", true, true, 5, -1},
      {word, u"a", true, true, 0, 11},      {word, u"aba", true, true, 0, 0},
      {word, u"a", false, true, 12, 11},    {word, u"a", false, false, 10, 9},
      {word, u"ba", false, true, 11, 4},    {word, u"aba", false, true, 2, -1},
      {word, u"aba", false, true, 3, 0},    {word, u"a", true, false, -8, 0},
      {word, u"a", false, false, 99, 11}};
  for (const auto& [buffer, text, forward, whole, from, place] : cases) {
    int pos = from, pos0 = from;
    EXPECT_EQ(StrFind(buffer, text, pos, forward, true, whole, u".") ? pos : -1, place) << text;
    StrFind((buffer + String(1, u'\0')).data(), text, pos0, forward, true, whole, u".");
    EXPECT_EQ(pos0, place < 0 ? from : place) << text << from;
  }
}

}  // namespace
