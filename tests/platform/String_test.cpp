#include "platform/String.h"

#include <iomanip>

#include "platform/StringArena.h"
#include "tests/support/Test.h"

namespace {

std::u16string Letters(size_t Length) {
  std::u16string text;
  for (size_t i = 0; i < Length; ++i) text += static_cast<char16_t>(u'a' + i % 26);
  return text;
}

TEST(String, KeepsTextsOfEveryLengthThroughCopyMoveAndSlice) {
  // Lengths around the border between texts inside the value and texts in a block.
  for (size_t length : {0, 1, 2, 7, 8, 10, 11, 12, 13, 16, 40, 1000}) {
    std::u16string text = Letters(length);
    String a = std::u16string_view(text), copy = a, moved = std::move(copy);
    EXPECT_EQ(moved.view(), text);
    EXPECT_EQ(std::pair(copy, moved), std::pair(String(), a));
    for (size_t first = 0; first <= length; first += 1 + length / 7) {
      for (size_t count = 0; count <= length - first; count += 1 + length / 5) {
        String slice = a.Slice(static_cast<int>(first), static_cast<int>(count));
        EXPECT_EQ(slice.view(), text.substr(first, count)) << length << " " << first;
        EXPECT_EQ(slice.Detached(), slice) << length << " " << first;
      }
    }
    EXPECT_EQ(a.Slice(-3), a);
    EXPECT_TRUE(a.Slice(static_cast<int>(length) + 1, 5).empty());
  }
}

TEST(String, SharesLongTextsAndDetachesBeforeWriting) {
  String a = std::u16string_view(Letters(100)), b = a, slice = a.Slice(10, 50);
  EXPECT_EQ((std::array{b.data(), slice.data()}), (std::array{a.data(), a.data() + 10}));
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
    if (random() % 97 == 0) text += text, expected += std::u16string(expected);  // a part of itself
    if (expected.size() > 5000) text = String(), expected.clear();
    std::u16string kept(earlier.view());
    text += part;
    expected += part;
    ASSERT_EQ(text.view(), expected) << i;
    ASSERT_EQ(earlier.view(), kept) << i;
  }
}

TEST(String, ComparesByCodeUnitsWhateverTheForm) {
  using namespace std::string_literals;
  const std::vector texts = {
      u""s, u"\0"s, u"a\0b"s, u"a"s, u"\u00E4"s, u"\xD800"s, Letters(11), Letters(12), Letters(12) + u'\0', u"\xFFFF"s};
  for (const auto& a : texts) {
    for (const auto& b : texts) {
      String sa = std::u16string_view(a), sb = std::u16string_view(b);
      sb.Reserve(50);  // in a block, even if it would fit into the value
      EXPECT_EQ(std::pair(sa == sb, sa < sb), std::pair(a == b, a < b)) << sa << " | " << sb;
    }
  }
}

TEST(String, ConvertsUtf8BothWays) {
  const std::pair<const char*, std::u16string_view> cases[] = {
      {"Stra\xC3\237e \xE2\x82\xAC \xF0\x9F\x98\x80", u"Stra\u00DFe \u20AC \U0001F600"},
      {"a\377b", u"a\uFFFDb"},
      {"\xC3", u"\uFFFD"},
      {"\xE2\202A", u"\uFFFDA"},
      {"\xC0\xAF", u"\uFFFD\uFFFD"},
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}};
  for (const auto& [utf8, text] : cases) EXPECT_EQ(String::FromUtf8(utf8).view(), text);
  EXPECT_EQ(String(u"a\xD800"
                   u"b\xDC00")
                .ToUtf8(),
            "a\xEF\xBF\275b\xEF\xBF\xBD");
  EXPECT_EQ(String(cases[0].second).ToUtf8(), cases[0].first);
}

TEST(String, GoesIntoStreamsAsUtf8) {
  std::ostringstream stream;
  stream << String(u"Größe 😀") << '|' << std::setw(5) << std::left << String(u"Öl") << '|' << std::setw(2)
         << String(u"Weiß") << '|' << String(u"\xD800") + u"!" << '|' << std::setw(3) << String();
  EXPECT_EQ(stream.str(), "Größe 😀|Öl   |Weiß|\xEF\xBF\xBD!|   ");
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
  for (size_t size : {5, 500}) EXPECT_THROW(String::Build(size, fail), int);
  EXPECT_THROW(String::Build(size_t{1} << 31, [](char16_t*) {}), std::length_error);
}

TEST(StringThread, CopiesMayGoInSeveralThreadsAtOnce) {
  String shared = std::u16string_view(Letters(50));
  auto work = [&shared] {
    for (int i = 0; i < 10000; ++i) ASSERT_EQ((String(shared) += u"x").size(), 51);
  };
  std::jthread a(work), b(work);
}

}  // namespace
