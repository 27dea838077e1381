#include "core/uVxFunctions.h"

#include "core/uConstHex.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

TEST(Quoting, QuotesWhatHoldsASpaceQuoteOrComma) {
  struct {
    String Plain, Quoted;
  } cases[] = {{u"", u""},
               {u"abc", u"abc"},
               {u"Max Meier", u"\"Max Meier\""},
               {u"a,b", u"\"a,b\""},
               {u"\"", u"\"\"\"\""},
               {u"a\"\"b\"", u"\"a\"\"\"\"b\"\"\""},
               {u"a\tb\r\n", u"a\tb\r\n"}};
  for (const auto& c : cases)
    EXPECT_TRUE(VxStrToQuoted(c.Plain) == c.Quoted && VxQuotedToStr(c.Quoted) == c.Plain) << c.Quoted.ToUtf8();
  EXPECT_EQ(VxQuotedToStr(u"\"ab") + VxQuotedToStr(u"\""), u"a") << "the last unit goes without a look";
}

TEST(HexTables, HoldTheDigits) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  for (uint32_t i = 0; i < 128; ++i) {
    uint32_t place = i / 16, digit = i % 16;
    EXPECT_EQ(digit < 10 ? HexToIntConstLow[place][digit] : HexToIntConstHigh[place][digit - 10], digit << 4 * place);
    EXPECT_EQ(IntToHexConst[i + 128], String(1, kDigits[place + 8]) + String(1, kDigits[digit])) << i;
  }
  EXPECT_TRUE(IntToHexConst[0] == u"0" && IntToHexConst[10] == u"A" && IntToHexConst[31] == u"1F");
}

}  // namespace
