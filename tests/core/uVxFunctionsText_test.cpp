#include "core/uVxFunctions.h"

#include <gtest/gtest.h>

#include <vector>

#include "objects/uVxClasses.h"
#include "platform/Text.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

TEST(FixedLength, CutsOrPadsAtTheRightAndNumbersAtTheLeft) {
  for (const String result : {u"", u"ab", u"abc", u"abc  "}) {
    EXPECT_EQ(GarantyLength(u"abc", result.size()), result);
    EXPECT_EQ(GarantyLengthA("abc", result.size()), result.ToUtf8());
  }
  struct { int Value, Length; String Result; } numbers[] = {
      {7, 3, u"007"}, {-5, 3, u"005"}, {12345, 3, u"345"}, {7, -3, u""}, {INT32_MIN, 12, u"002147483648"}};
  for (const auto& c : numbers) EXPECT_EQ(GarantyLength(c.Value, c.Length), c.Result);
}

TEST(Names, ChangeOnlyWhatHasToAndShareTheRest) {
  EXPECT_EQ(ValidateFilename(u"\"*/:<>\\|?.ä"), u"________?.ä");
  EXPECT_EQ(quote(u"a'b/c\\d\r\n\"") + quote(u""), u"'a\\'b\\/c\\\\d\\r\\n\"'''");
  for (const char16_t* same : {u"äb", u"{a", u"`a", u""}) EXPECT_EQ(UpperFirstChar(same), same);
  EXPECT_EQ(UpperFirstChar(u"ab") + UpperFirstChar(u"zb"), u"AbZb");
  const String text = u"Some text too long for a place inside the value";
  String changed = UpperFirstChar(GarantyLength(VxTrim(ValidateFilename(text), u" ", true), text.size()));
  EXPECT_TRUE(!StrSetReplace(changed, u"#", u'_') && changed.data() == text.data());
  EXPECT_TRUE(StrSetReplace(changed, u"o ", u'_') && StrSet(text, u" ")) << "the shared text stays";
  EXPECT_EQ(changed, u"S_me_text_t___l_ng_f_r_a_place_inside_the_value");
}

TEST(CharSets, DecideWhatATextIsMadeOf) {
  EXPECT_EQ(CaseStringOf(u"b", {{u"a", u"b", u"b"}}), 1);
  EXPECT_EQ(CaseStringOf(u"B", {{u"a", u"b"}}) + CaseStringOf(u"", {}), -2);
  EXPECT_TRUE(StrSpecificChars(u"12", u"12") && !StrSpecificChars(u"", u"1") && !StrSpecificChars(u"1ı", u"1"));
  EXPECT_EQ(VxTrim(u"  a  ", u" ", true) + VxTrim(u"ab1a", u"1", false) + VxTrim(u"   ", u" ", true), u"a  1a");
  struct { String Text; TCharSet First, Unique, Allowed; bool Good; } codes[] = {
      {u"-1,5", u"-1", u",-", u"15,", true}, {u"1,5,", u"1", u",", u"15,", false}, {u"aa1", u"a", u"a", u"1a", true},
      {u"aa1a", u"a", u"a", u"1a", false}, {u"-", u"-", {}, {}, true}, {u"1-", u"-", {}, u"1-", false},
      {u"", {}, {}, u"1", false}, {u"11", {}, u"1", u"1", false}};
  int refused = StrCharsetErrorCount;
  for (const auto& c : codes) {
    EXPECT_EQ(StrCharset(c.Text, c.First, c.Unique, c.Allowed), c.Good) << c.Text.ToUtf8();
    EXPECT_EQ(StrCharsetErrorCount, refused += c.Good ? 0 : 1);
  }
}

// All texts of up to Longest units over Units.
std::vector<String> AllTexts(std::u16string_view Units, int Longest) {
  std::vector<String> result{u""};
  for (size_t i = 0; i < result.size() && result[i].size() < Longest; ++i) {
    for (char16_t unit : Units) result.push_back(result[i] + String(1, unit));
  }
  return result;
}

// The steps of matching one after the other, with every place tried in turn.
bool MatchPlainly(const String& Text, const String& Pattern, bool CaseSensitive, std::vector<String>& List) {
  const String s = CaseSensitive ? Text : UpperCase(Text), p = CaseSensitive ? Pattern : UpperCase(Pattern);
  int i = 0, j = 0, s_end = s.size(), p_end = p.size(), start = 0, run = 0;
  bool wild = false;
  if (p == u"*") return List.push_back(Text), true;
  if (p == s) return true;
  for (; s_end > 0 && p_end > 0 && p[p_end - 1] != u'*'; --s_end, --p_end) {
    if (s[s_end - 1] != p[p_end - 1]) return false;
  }
  while (i < s_end && j < p_end) {
    if (p[j] == u'*') {
      for (wild = true, start = i; j < p_end && p[j] == u'*';) ++j;
    } else if (!wild && s[i++] != p[j++]) {
      return false;
    } else if (wild) {
      for (run = 0; i + run < s_end && j + run < p_end && p[j + run] != u'*' && s[i + run] == p[j + run];) ++run;
      wild = j + run < p_end && p[j + run] != u'*';
      i += wild ? 1 : run;
      j += wild ? 0 : run;
      if (!wild) List.push_back(Text.Slice(start, i - start - 1));
    }
  }
  while (j < p_end && p[j] == u'*') ++j;
  if (wild) List.push_back(Text.Slice(start, s_end - start));
  return j == p_end && (wild || i == s_end);
}

TEST(Matching, FollowsItsStepsForAllShortTexts) {
  TVxStringList list;
  EXPECT_TRUE(StrMatch(u"axxÖcyyd", u"a*öC*d", false, &list) && list.GetCommatext() == u"xxÖ,yy");
  for (const String& text : AllTexts(u"aAb*", 4)) {
    for (const String& pattern : AllTexts(u"ab*", 6)) {
      for (bool exact : {false, true}) {
        std::vector<String> expected;
        const bool matches = MatchPlainly(text, pattern, exact, expected);
        ASSERT_TRUE(StrMatch(text, pattern, exact, &list) == matches && StrMatch(text, pattern, exact) == matches &&
                    std::equal(expected.begin(), expected.end(), list.Items().begin(), list.Items().end()))
            << text.ToUtf8() << " by " << pattern.ToUtf8() << exact;
      }
    }
  }
}

TEST(Matching, IsNotSlowedDownByRepetition) {
  const String text(400000, u'a'), part = String(200000, u'a') + u"b";
  for (bool either : {false, true}) {
    int pos = 200000;
    EXPECT_FALSE(StrMatch(text, u"*" + part + u"*", either));
    EXPECT_FALSE(StrFind(text, part, pos, either, false, false, {}));
    EXPECT_FALSE(StrFind(text, text.Slice(0, 100000), pos, either, false, true, {})) << "many places, no word";
  }
  EXPECT_TRUE(StrMatch(text + u"Bc", u"*" + part + u"*c", false));
}

// The place found by trying each place in turn; Start if there is none.
int FindPlainly(const String& Buffer, const String& Text, int Start, bool Forward, bool WholeWord) {
  const int length = Text.size();
  auto ends = [&](int Place) { return Place < 0 || Place >= Buffer.size() || Buffer[Place] == u'.'; };
  const int step = Forward ? 1 : -1;
  for (int place = Forward ? Start : Start - length; Forward ? place < Buffer.size() : place >= 0; place += step) {
    const bool same = place >= 0 && UpperCase(Buffer.Slice(place, length)) == UpperCase(Text);
    if (same && (!WholeWord || (ends(place - 1) && ends(place + length)))) return place;
  }
  return Start;
}

TEST(Finding, TriesAllPlacesInItsDirection) {
  for (const String& buffer : AllTexts(u"aA.", 5)) {
    for (const String& text : AllTexts(u"a.", 3)) {
      for (int i = -8; i < 4 * (buffer.size() + 2) && !text.empty(); ++i) {
        const bool forward = i & 1, wholeWord = i & 2;
        const int start = i / 4, expected = FindPlainly(buffer, text, start, forward, wholeWord);
        int pos = start;
        StrFind((buffer + String(1, u'\0')).data(), text, pos, forward, true, wholeWord, u".");
        ASSERT_EQ(pos, expected) << buffer.ToUtf8() << ' ' << text.ToUtf8() << ' ' << start << forward << wholeWord;
      }
    }
  }
}

TEST(Finding, ComparesFoldedLowBytesAndStopsAtTheEnd) {
  const String zeros = u"ab" + String(1, u'\0') + u"ab";
  struct { String Buffer, Text; bool Forward; int From, Place; } cases[] = {
      {u"xÄÖÜÝ", u"äöüý", true, 0, 1}, {u"Þ", u"þ", true, 0, -1}, {u"×", u"÷", true, 0, -1}, {u"š", u"A", true, 0, 0},
      {u"Ł", u"a", true, 0, -1}, {zeros, u"b", true, 2, -1}, {zeros, u"b", false, 4, 1}, {zeros, zeros, true, 0, -1},
      {u"ab", u"", true, 1, 1}};
  for (const auto& c : cases) {
    int pos = c.From;
    EXPECT_EQ(StrFind(c.Buffer, c.Text, pos, c.Forward, true, false, {}) ? pos : -1, c.Place) << c.Text.ToUtf8();
  }
}

}  // namespace
}  // namespace vx
