#include "platform/TRegEx.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/support/Cases.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

TEST(TRegEx, MatchesByItsOptions) {
  const TCases<String, TRegExOptions, String, bool> cases{
      {u"ü.R", {}, u"fünf ür", false},
      {u"ü.R", {roIgnoreCase}, u"fÜnr", true},
      {u"^b$", {}, u"a\r\nb\rc", false},
      {u"^b$", {roMultiLine}, u"a\r\nb\rc", true},
      {u"a.b", {}, u"a\rb", false},
      {u"a.b", {roSingleLine}, u"a\rb", true},
      {u"(a)(?<n>b)\\1", {roExplicitCapture}, u"abb", true},  // the group with a name is the first
      {u"a b # c", {roIgnorePatternSpace}, u"ab", true},
      {u"a*", {}, u"b", true},
      {u"a*", {roNotEmpty}, u"b", false},
      {u"^\\w+$", {}, u"Größeřж", true},
      {u"^.$", {}, u"\U0001F600", true},
      {u"^..$", {}, u"\xDE00\xD83D", true},  // halves of pairs, each for itself
      {u"^\xD83D$", {}, u"\xDC00", true},    // both count as U+FFFD
      {u"^\uFFFD\U0001F600$", {}, u"\xD83D\xD83D\xDE00", true},
      {u"^\U0001F600{2}\xDE00$", {}, u"\U0001F600\U0001F600\xD83D", true},
      {u"(*NO_JIT)b", {}, u"abc", true},
      {{}, {}, {}, true},
  };
  for (const auto& [pattern, options, text, matches] : cases) {
    const TRegExOptions compiled = options + TRegExOptions{roCompiled};
    EXPECT_EQ((TFacts{TRegEx::IsMatch(text, pattern, options), TRegEx::IsMatch(text, pattern, compiled)}),
              matches ? "yes yes" : "no no")
        << pattern;
  }
  EXPECT_EQ((TFacts{TRegEx().IsMatch(u""), TRegEx(u"a.b").GetPattern(), TRegEx().GetWasStopped()}), "no a.b no");
}

TEST(TRegEx, TellsWhatIsWrongAndWhere) {
  const TCases<String, const char*> cases{{u"a(b", "3: missing closing parenthesis"},
                                          {u"ü[z-a]", "4: range out of order in character class"},
                                          {u"*", "0: quantifier does not follow a repeatable item"},
                                          {u"a\\C", "3: using \\C is disabled by the application"}};
  for (const auto& [pattern, fault] : cases) try {
      TRegEx{pattern};
      ADD_FAILURE() << pattern;
    } catch (const ERegularExpressionError& e) {
      EXPECT_EQ(e.what(), std::string("Error in regular expression at offset ") + fault);
      EXPECT_EQ(e.GetOffset(), fault[0] - '0');
    }
}

TEST(TRegEx, EscapedTextMatchesItself) {
  EXPECT_EQ(TRegEx::Escape(u"a.b[c](d)?*+{e}^$|\\ -#/!ü"), u"a\\.b\\[c\\]\\(d\\)\\?\\*\\+\\{e\\}\\^\\$\\|\\\\ -#/!ü");
  String all;
  for (char16_t unit = 0; unit < 0x3000; ++unit) all += unit;
  EXPECT_TRUE(TRegEx::IsMatch(all, u"\\A" + TRegEx::Escape(all) + u"\\z"));
}

TEST(TRegEx, GivesUpWhatNeverEnds) {
  const String many(300'000, u'a');
  const TCases<String, String, const char*> cases{
      {u"(a+)+[bd]", String(40, u'a') + u"c", "no yes"},
      {u"(*NO_JIT)(a+)+[bd]", String(40, u'a') + u"c", "no yes"},
      {u"(a+)+$", many + u"b", "no yes"},
      {u"(*NO_JIT)(a+)+$", many + u"b", "no yes"},
      {u"[^b]*\\d", many, "no yes"},
      {u"(.*)a(.*)a(.*)a\\d", many, "no yes"},
      {u"(a*)\\1+[cd]$", many + u"b", "no yes"},
      {u"[^b]{60000}\\d", many + u"b", "no yes"},
      {u"((((a?){9}){9}){9}){9}[bd]$", many + u"c", "no yes"},
      {u"(?R)?a(?R)?\\d", many, "no yes"},
      {u"(a|a)*c", many, "no yes"},
      {u"(a|b)*c", many + u"c", "yes no"},
      {u"^(?:a|b)+$", many, "yes no"},
      {u".*a$", many, "yes no"},
  };
  for (const auto& [pattern, text, facts] : cases) {
    const TRegEx regex(pattern, {roIgnoreCase, roCompiled});
    const bool isMatch = regex.IsMatch(text);
    EXPECT_EQ((TFacts{isMatch, regex.GetWasStopped()}), facts) << pattern;
  }
}

TEST(TRegEx, ManyAlternatives) {
  auto alternatives = [](int count) {
    String result = u"x";
    for (int i = 0; i < count; ++i) result += u"|" + String::FromUtf8(std::to_string(i * 7 % 100003)) + u"q";
    return result;
  };
  EXPECT_THROW(TRegEx(alternatives(10'000)), ERegularExpressionError);  // too large
  // The second is too large to count its steps.
  for (int count : {1'000, 4'000}) {
    const TRegEx some(alternatives(count), {roIgnoreCase, roCompiled});
    const String cell(2'000, u'7');
    EXPECT_EQ((TFacts{some.IsMatch(cell), some.IsMatch(cell + u"Q"), some.GetWasStopped()}), "no yes no") << count;
  }
}

TEST(TRegEx, ThreadsShareAnExpression) {
  const TRegEx regex(u"(a+)+[bd]", {roCompiled});
  std::vector<std::thread> threads;
  std::atomic<int> matches{0};
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&matches, regex] {
      for (int n = 0; n < 30; ++n) matches += regex.IsMatch(String(n, u'a') + (n % 2 == 0 ? u"b" : u"c"));
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ((TFacts{matches.load(), regex.GetWasStopped()}), "56 yes");
}

}  // namespace
}  // namespace vx
