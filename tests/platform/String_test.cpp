#include "platform/String.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>
#include <vector>

#include "platform/StringArena.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

std::u16string Letters(size_t Length) {
  std::u16string text;
  for (size_t i = 0; i < Length; ++i) text += static_cast<char16_t>(u'a' + i % 26);
  return text;
}

// Lengths around the border between texts inside the value and texts in a block.
const size_t kLengths[] = {0, 1, 2, 7, 8, 10, 11, 12, 13, 16, 40, 1000};

TEST(String, KeepsTextsOfEveryLengthThroughCopyMoveAndSlice) {
  for (size_t length : kLengths) {
    std::u16string text = Letters(length);
    String a = std::u16string_view(text);
    String copy = a;
    String moved = std::move(copy);
    EXPECT_EQ(moved.view(), text);
    EXPECT_TRUE(copy.empty());
    EXPECT_EQ(moved, a);
    EXPECT_EQ(std::hash<String>()(moved), std::hash<String>()(String(std::u16string_view(text))));
    for (size_t first = 0; first <= length; first += 1 + length / 7) {
      for (size_t count = 0; count <= length - first; count += 1 + length / 5) {
        String slice = a.Slice(static_cast<int>(first), static_cast<int>(count));
        EXPECT_EQ(slice.view(), text.substr(first, count));
        EXPECT_EQ(slice.Detached(), slice);
      }
    }
    EXPECT_EQ(a.Slice(-3), a);
    EXPECT_TRUE(a.Slice(static_cast<int>(length) + 1, 5).empty());
  }
}

TEST(String, SharesLongTextsAndDetachesBeforeWriting) {
  String a = std::u16string_view(Letters(100));
  String b = a;
  EXPECT_EQ(a.data(), b.data());
  String slice = a.Slice(10, 50);
  EXPECT_EQ(slice.data(), a.data() + 10);
  b.SetUnit(0, u'X');
  slice += u"!";
  EXPECT_EQ(a.view(), Letters(100));
  EXPECT_EQ(b.view().substr(1), Letters(100).substr(1));
  EXPECT_EQ(slice.view(), Letters(60).substr(10) + u"!");
  EXPECT_LT(String(slice.Slice(0, 20)).Detached().BlockBytes(), 64u);
}

TEST(String, AppendsLikeAPlainText) {
  std::mt19937 random(1);
  String text, earlier;
  std::u16string expected;
  for (int i = 0; i < 2000; ++i) {
    std::u16string part = Letters(random() % 5);
    if (random() % 50 == 0) earlier = text;  // shares the block: the next append has to leave it alone
    if (random() % 97 == 0) {
      text += text;  // a part of itself
      expected += std::u16string(expected);
      if (expected.size() > 5000) text = String(), expected.clear();
    }
    std::u16string kept(earlier.view());
    text += part;
    expected += part;
    ASSERT_EQ(text.view(), expected);
    ASSERT_EQ(earlier.view(), kept);
  }
  String reserved;
  reserved.Reserve(100);
  const char16_t* place = reserved.data();
  reserved += Letters(100);
  EXPECT_EQ(reserved.data(), place);
}

TEST(String, ComparesByCodeUnitsWhateverTheForm) {
  const std::u16string texts[] = {u"", std::u16string(1, u'\0'), std::u16string(u"a\0b", 3), u"a", u"\u00E4", u"\xD800",
                                  Letters(11), Letters(12), Letters(12) + u"\0", u"\xFFFF"};
  for (const auto& a : texts) {
    for (const auto& b : texts) {
      String sa = std::u16string_view(a), sb = std::u16string_view(b);
      EXPECT_EQ(sa == sb, a == b);
      EXPECT_EQ(sa < sb, a < b);
      // The same text, once inside the value and once sliced from a block that was changed in place.
      String grown = sa;
      grown.Reserve(50);
      EXPECT_EQ(grown, sa);
    }
  }
}

TEST(String, ConvertsUtf8BothWays) {
  struct { const char* Utf8; std::u16string_view Text; const char* Back; } cases[] = {
      {"Stra\xC3\x9F""e \xE2\x82\xAC \xF0\x9F\x98\x80", u"Stra\u00DFe \u20AC \U0001F600", nullptr},
      {"a\xFF""b", u"a\uFFFDb", "a\xEF\xBF\xBD""b"},
      {"\xC3", u"\uFFFD", "\xEF\xBF\xBD"},
      {"\xE2\x82" "A", u"\uFFFDA", "\xEF\xBF\xBD" "A"},
      {"\xC0\xAF", u"\uFFFD\uFFFD", "\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", nullptr},
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD", nullptr},
  };
  for (const auto& c : cases) {
    String text = String::FromUtf8(c.Utf8);
    EXPECT_EQ(text.view(), c.Text);
    EXPECT_EQ(text.ToUtf8(), c.Back ? c.Back : text.ToUtf8());
  }
  EXPECT_EQ(String(u"a\xD800" u"b\xDC00").ToUtf8(), "a\xEF\xBF\xBD" "b\xEF\xBF\xBD");
  EXPECT_EQ(String::FromUtf8(cases[0].Utf8).ToUtf8(), cases[0].Utf8);
}

TEST(String, ArenaTextsOutliveTheArenaAndEachOther) {
  std::vector<String> texts;
  {
    TStringArena arena(256);
    for (size_t length = 0; length < 300; ++length) {
      std::u16string text = Letters(length);
      texts.push_back(arena.Build(length, [&](char16_t* units) { std::copy(text.begin(), text.end(), units); }));
    }
  }
  for (size_t i = 0; i < texts.size(); i += 2) texts[i].clear();
  for (size_t i = 1; i < texts.size(); i += 2) EXPECT_EQ(texts[i].view(), Letters(i));
}

TEST(String, BuildFreesWhatItMadeWhenFillingFails) {
  auto fail = [](char16_t*) { throw 1; };
  EXPECT_THROW(String::Build(5, fail), int);
  EXPECT_THROW(String::Build(500, fail), int);
  EXPECT_THROW(String::Build(size_t{1} << 31, [](char16_t*) {}), std::length_error);
}

TEST(StringThread, CopiesMayGoInSeveralThreadsAtOnce) {
  String shared = std::u16string_view(Letters(50));
  auto work = [&shared] {
    for (int i = 0; i < 10000; ++i) {
      String mine = shared;
      mine += u"x";
      ASSERT_EQ(mine.size(), 51);
    }
  };
  std::thread a(work), b(work);
  a.join();
  b.join();
  EXPECT_EQ(shared.view(), Letters(50));
}

}  // namespace
}  // namespace vx
