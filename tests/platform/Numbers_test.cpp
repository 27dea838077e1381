#include "platform/Numbers.h"

#include "platform/NumberMasks.h"
#include "tests/support/Test.h"

namespace {

constexpr int64_t kMax = INT64_MAX, kMin = INT64_MIN;
constexpr Currency Units(int64_t Count) { return Currency::FromUnits(Count); }
String Digits(int Count, char16_t Digit = u'0') { return String(Count, Digit); }
TFormatSettings English() { return {.DecimalSeparator = u'.', .ThousandSeparator = u',', .CurrencyString = u"$"}; }

TEST(Numbers, WholeNumbers) {
  EXPECT_EQ(IntToStr(0) + IntToStr(kMin) + IntToStr(kMax), u"0-92233720368547758089223372036854775807");
  const TCases<String, int, int64_t> cases = {
      {u"  +7", 32, 7},     {u"-2147483648", 32, INT32_MIN}, {u"$100000000", 64, 4294967296},
      {u"$fF", 32, 255},    {u"2147483647", 32, INT32_MAX},  {u"$" + Digits(10000) + u"A", 32, 10},
      {u"0X1g", 0, 0},      {Digits(10000) + u"12", 32, 12}, {u"9223372036854775807", 64, kMax},
      {u"1 ", 0, 0},        {u"$10000000000000000", 0, 0},   {u"-9223372036854775808", 64, kMin},
      {u"\t1", 0, 0},       {u"$FFFFFFFFFFFFFFFF", 64, -1},  {u"+", 0, 0},
      {u"--1", 0, 0},       {u"9223372036854775808", 0, 0},  {u"-9223372036854775809", 0, 0},
      {u"12345.7", 0, 0},   {Digits(10000, u'9'), 0, 0},     {u"", 0, 0},
      {u"１２３４５", 0, 0}};
  for (const auto& [text, bits, value] : cases) {
    int small = -77;
    int64_t large = -77;
    EXPECT_EQ(std::pair(TryStrToInt(text, small), TryStrToInt64(text, large)), std::pair(bits == 32, bits != 0))
        << text;
    EXPECT_EQ((std::array<int64_t, 2>{small, StrToIntDef(text, -77)}),
              (std::array{bits == 32 ? value : -77, int64_t{small}}))
        << text;
    EXPECT_EQ((std::array{large, StrToInt64Def(text, -77)}), (std::array{bits ? value : -77, large})) << text;
  }
  EXPECT_EQ((TFacts{StrToInt(u"$FFFFFFFF"), StrToInt64(u"$FFFFFFFF")}), "-1 4294967295");
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToInt(u"1,5"); }), u"'1,5' is not a valid integer value");
}

TEST(Numbers, FormsWithPrecisionAndDigits) {
  const TCases<Extended, TFloatFormat, int, int, String> cases = {
      {-0.0, ffGeneral, 15, 0, u"0"},
      {0.00001L, ffGeneral, 15, 0, u"0,00001"},
      {123456.789, ffFixed, 4, 0, u"1,235E5"},
      {0.0000099, ffGeneral, 15, 0, u"9,9E-6"},
      {LDBL_MAX, ffGeneral, 15, 0, u"1,18973149535723E4932"},
      {1E20, ffGeneral, 15, 4, u"1E0020"},
      {1.5E-7, ffGeneral, INT32_MIN, 2, u"1,5E-07"},
      {0.1, ffGeneral, INT32_MAX, 0, u"0,100000000000000006"},
      {99.96875, ffExponent, 3, 1, u"1,00E+2"},
      {2.5, ffFixed, 15, INT32_MIN, u"3"},
      {1E300, ffNumber, 15, 0, u"1E300"},
      {-HUGE_VALL, ffNumber, 15, 2, u"-INF"},
      {0.1, ffFixed, 18, INT32_MAX, u"0,100000000000000006"},
      {999999.996, ffNumber, 15, 2, u"1.000.000,00"},
      {-NAN, ffCurrency, 15, 2, u"NAN"},
      {-0.4, ffCurrency, 15, 0, u"0 €"}};
  for (const auto& [value, form, precision, digits, text] : cases)
    EXPECT_EQ(FloatToStrF(value, form, precision, digits), text) << value;
  TFormatSettings settings = English();
  EXPECT_EQ(FloatToStrF(1234567.5, ffNumber, 15, 2, settings) + FloatToStr(-0.5, settings), u"1,234,567.50-0.5");
  settings.ThousandSeparator = 0;
  EXPECT_EQ(FloatToStrF(1234.5, ffNumber, 15, 2, settings) + FormatFloat(u"#,##0.0", 1234, settings), u"1234.501234.0");
  const String plus[] = {u"$1", u"1$", u"$ 1", u"1 $"};
  const String minus[] = {u"($1)", u"-$1",  u"$-1",  u"$1-",  u"(1$)", u"-1$",  u"1-$",   u"1$-",
                          u"-1 $", u"-$ 1", u"1 $-", u"$ 1-", u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};
  for (uint8_t i = 0; i < 16; ++i) {
    settings.CurrencyFormat = i % 4;
    settings.NegCurrFormat = i;
    EXPECT_EQ(CurrToStrF(1, ffCurrency, 0, settings) + FloatToStrF(-1, ffCurrency, 15, 0, settings),
              plus[i % 4] + minus[i]);
  }
  const TCases<int64_t, TFloatFormat, int, String> amounts = {
      {kMin, ffGeneral, 0, u"-922337203685477,5808"}, {-49, ffCurrency, 2, u"0,00 €"},
      {kMax, ffFixed, 3, u"922337203685477,581"},     {-50, ffFixed, 2, u"-0,01"},
      {1, ffFixed, 18, u"0,000100000000000000"},      {kMin, ffCurrency, 4, u"-922.337.203.685.477,5808 €"}};
  for (const auto& [units, form, digits, text] : amounts) EXPECT_EQ(CurrToStrF(Units(units), form, digits), text);
  EXPECT_EQ(FormatCurr(u"#,##0.00##;(,0.0000)", Units(kMin)), u"(922.337.203.685.477,5808)");
  EXPECT_EQ(FormatCurr(u"0.000", Units(-5)) + FormatCurr(u"0.00", Units(-49)) + FormatCurr(u"", 1), u"-0,0010,001");
}

TEST(Numbers, ReadsDecimalTexts) {
  const Extended none = LDBL_MAX;
  const String zeros = Digits(10000), nines = Digits(10000, u'9');
  const TCases<String, Extended, int64_t> cases = {
      {u"  -1,5  ", -1.5, -15000},      {u"+,5", 0.5, 5000},
      {u"1,5e+3", 1500, 15000000},      {u"0E99999999999", 0, 0},
      {u"4E-4951", LDBL_TRUE_MIN, 0},   {u"18446744073709551617," + zeros + u"1", 0x1p64L + 2, kMin},
      {u"1E" + nines, none, kMin},      {u"1" + zeros + u"E-10000", 1, 10000},
      {zeros + u"1", 1, 10000},         {u"," + zeros + u"1E10001", 1, 10000},
      {u"-1,00015", -1.00015L, -10002}, {u"1E" + zeros + u"2", 100, 1000000},
      {u"1" + zeros, none, kMin},       {u"1,00005" + zeros + u"1", 1.00005L, 10001},
      {u"0," + zeros + u"1", 0, 0},     {u"922337203685477,5807", 922337203685477.5807L, kMax},
      {u"1,00005", 1.00005L, 10000}};
  TFormatSettings german;
  for (const auto& [text, number, units] : cases) {
    Extended value = none;
    Currency amount = Units(kMin);
    const bool isNumber = TextToFloat(text, value, german), isAmount = TextToCurr(text, amount, german);
    EXPECT_EQ(std::pair(isNumber, isAmount), std::pair(number != none, units != kMin)) << text.Slice(0, 30);
    EXPECT_EQ(std::pair(value, amount.Units), std::pair(number, units)) << text.Slice(0, 30);
  }
  Extended value = 7;
  Currency amount = 7;
  for (const String text :
       {u"",         u" ",     u",",   u"+",   u"-,",  u"E3",   u",E3", u"1E",  u"1E+",   u"1E1,5", u"1.5",
        u"1.234,56", u"1,5,5", u"1 5", u"--1", u"$10", u"0x10", u"INF", u"NAN", u"1,5 €", u"１"})
    EXPECT_EQ((TFacts{TextToFloat(text, value, german), TextToCurr(text, amount, german)}), "no no") << text;
  EXPECT_EQ((TFacts{value, amount.Units, StrToFloat(u"-1.5", English()) + StrToFloat(u"1,5")}), "7 70000 0");
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToCurr(u"1E15"); }), u"'1E15' is not a valid floating point value");
}

TEST(NumberMasks, Masks) {
  const TCases<String, Extended, String> cases = {
      {u"", 1234.5678, u"1234,5678"},    {u"#.##", 0, u""},
      {u"00.#0#", 1.5, u"01,50"},        {u"#.##", 0.05, u",05"},
      {u"00-00", 12345, u"123-45"},      {u"0;(0);", 0, u"0"},
      {u"0.0.0", 1.25, u"1,25"},         {Digits(10000), 7, Digits(9999) + u"7"},
      {u"EUR 0.00", -5, u"-EUR 5,00"},   {u"0." + Digits(10000), 0.5, u"0,5" + Digits(9999)},
      {u"0,000000", 1234, u"0.001.234"}, {u"''0'", 5, u"5"},
      {u"0 'x;0", -5, u"-5 x;0"},        {u"0.00,", -1234567, u"-1.234.567,00"},
      {u"0.00;(0);null", -0.4, u"null"}, {u"0;(0)", -0.4, u"0"},
      {u"0 \"it's 0\"", 5, u"5 it's 0"}, {u"0;;-", -5, u"-5"},
      {u"0'E+0'", 12, u"12E+0"},         {u"0';'0", 12, u"1;2"},
      {u"0;(0);-", NAN, u"NAN"},         {u"0.0 'h';(0.0 'h');-", -7.25, u"(7,3 h)"},
      {u"0.000E+00", 0, u"0,000E+00"},   {u"0'.,'0", 12, u"1.,2"},
      {u"#.###E-0", 1234, u"1,234E3"},   {u"0.00E+00", 9.996, u"1,00E+01"},
      {u"0e-0000", 1E20, u"1e0020"},     {u"0E+0;(0E-00)", -0.001, u"(1E-03)"},
      {u"00.0E+0", 12345, u"12,3E+3"},   {u"#,##0", 123456789012345678, u"123.456.789.012.346.000"},
      {u"0;(0)", -HUGE_VALL, u"-INF"},   {u"#,##0.00", LDBL_MAX, u"1,18973149535723E4932"}};
  for (const auto& [mask, value, text] : cases) EXPECT_EQ(FormatFloat(mask, value), text) << mask << " of " << value;
  EXPECT_EQ(FormatFloat(u"#,##0.00;'.,'0.0", 1234.5, English()), u"1,234.50");
}

}  // namespace
