#include "core/uVxFunctions.h"

#include <gtest/gtest.h>

#include "core/uConstHex.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

TEST(Quoting, QuotesWhatHoldsASpaceQuoteOrComma) {
  struct { String Plain, Quoted; } cases[] = {
      {u"", u""},           {u"abc", u"abc"},         {u"Max Meier", u"\"Max Meier\""},
      {u"a,b", u"\"a,b\""}, {u"\"", u"\"\"\"\""}, {u"a\"\"b\"", u"\"a\"\"\"\"b\"\"\""}, {u"a\tb\r\n", u"a\tb\r\n"}};
  for (const auto& c : cases) {
    EXPECT_EQ(VxStrToQuoted(c.Plain), c.Quoted);
    EXPECT_EQ(VxQuotedToStr(c.Quoted), c.Plain);
  }
}

TEST(Quoting, DropsTheLastUnitWithoutALook) {
  struct { String Text, Result; } cases[] = {
      {u"\"", u""}, {u"\"\"", u""}, {u"\"ab", u"a"}, {u"\"a\"\"\"b\"", u"a\"\"b"}, {u"a\"b\"", u"a\"b\""}};
  for (const auto& c : cases) EXPECT_EQ(VxQuotedToStr(c.Text), c.Result) << c.Text.ToUtf8();
}

TEST(HexTables, AgreeWithEachOther) {
  EXPECT_EQ(IntToHexConst[0], u"0");
  EXPECT_EQ(IntToHexConst[10], u"A");
  for (uint32_t i = 0; i < 256; ++i) {
    uint32_t value = 0;
    std::u16string_view text = IntToHexConst[i];
    EXPECT_TRUE(text.size() == 1 || text[0] != u'0') << i;
    for (size_t place = 0; place < text.size(); ++place) {
      char16_t digit = text[text.size() - 1 - place];
      value += digit >= u'A' ? HexToIntConstHigh[place][digit - u'A'] : HexToIntConstLow[place][digit - u'0'];
    }
    EXPECT_EQ(value, i);
  }
  EXPECT_EQ(HexToIntConstLow[7][9], 0x90000000u);
  EXPECT_EQ(HexToIntConstHigh[7][5], 0xF0000000u);
}

}  // namespace
}  // namespace vx
