#include "core/uVxFunctions.h"

#include "core/uConstHex.h"
#include "tests/support/Test.h"

namespace {

TEST(Quoting, QuotesWhatHoldsASpaceQuoteOrComma) {
  const TCases<String, String> cases = {
      {u"abc", u"abc"},           {u"Max Meier", u"\"Max Meier\""},     {u"", u""},          {u"a,b", u"\"a,b\""},
      {u"a\tb\r\n", u"a\tb\r\n"}, {u"a\"\"b\"", u"\"a\"\"\"\"b\"\"\""}, {u"\"", u"\"\"\"\""}};
  for (const auto& [plain, quoted] : cases)
    EXPECT_EQ(std::pair(VxStrToQuoted(plain), VxQuotedToStr(quoted)), std::pair(quoted, plain));
  EXPECT_EQ(VxQuotedToStr(u"\"ab") + VxQuotedToStr(u"\""), u"a") << "the last unit goes without a look";
}

TEST(HexTables, HoldTheDigits) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  for (uint32_t i = 0; i < 128; ++i) {
    uint32_t place = i / 16, digit = i % 16;
    EXPECT_EQ(digit < 10 ? HexToIntConstLow[place][digit] : HexToIntConstHigh[place][digit - 10], digit << 4 * place);
    EXPECT_EQ(IntToHexConst[i + 128], String(1, kDigits[place + 8]) + String(1, kDigits[digit])) << i;
  }
  EXPECT_EQ((TFacts{IntToHexConst[0], IntToHexConst[10], IntToHexConst[31]}), "0 A 1F");
}

}  // namespace
