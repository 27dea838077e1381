#include "platform/Numbers.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "platform/NumberMasks.h"
#include "tests/support/Print.h"
#include "tests/support/Raised.h"

namespace vx {
namespace {

constexpr int64_t kMax = INT64_MAX;
constexpr Currency Units(int64_t Count) { return Currency::FromUnits(Count); }
String Digits(int Count, char16_t Digit = u'0') { return String(Count, Digit); }
TFormatSettings English() {
  TFormatSettings settings;
  settings.DecimalSeparator = u'.';
  settings.ThousandSeparator = u',';
  settings.CurrencyString = u"$";
  return settings;
}

TEST(Numbers, WholeNumbers) {
  EXPECT_EQ(IntToStr(0) + IntToStr(INT64_MIN) + IntToStr(kMax), u"0-92233720368547758089223372036854775807");
  struct { String Text; int Bits; int64_t Value; } cases[] = {{u"0", 32, 0}, {u"  +7", 32, 7},
      {u"-2147483648", 32, INT_MIN}, {u"2147483647", 32, INT_MAX}, {u"$fF", 32, 255}, {u"0x10", 32, 16},
      {Digits(10000) + u"12", 32, 12}, {u"$" + Digits(10000) + u"A", 32, 10}, {u"2147483648", 64, 2147483648},
      {u"-2147483649", 64, -2147483649}, {u"$100000000", 64, 4294967296}, {u"9223372036854775807", 64, kMax},
      {u"-9223372036854775808", 64, INT64_MIN}, {u"$FFFFFFFFFFFFFFFF", 64, -1}, {u"9223372036854775808", 0, 0},
      {u"-9223372036854775809", 0, 0}, {u"$10000000000000000", 0, 0}, {u"18446744073709551617", 0, 0},
      {Digits(10000, u'9'), 0, 0}, {u"0X1g", 0, 0}, {u"", 0, 0}, {u" ", 0, 0}, {u"+", 0, 0}, {u"$", 0, 0},
      {u"0x", 0, 0}, {u"1 ", 0, 0}, {u"\t1", 0, 0}, {u"--1", 0, 0}, {u"- 1", 0, 0}, {u"1.000", 0, 0},
      {u"12345.7", 0, 0}, {u"1234567:9012", 0, 0}, {u"１２３４５", 0, 0}};
  for (const auto& c : cases) {
    int value = -77;
    EXPECT_EQ(TryStrToInt(c.Text, value), c.Bits == 32) << c.Text.ToUtf8();
    EXPECT_TRUE(value == (c.Bits == 32 ? c.Value : -77) && StrToIntDef(c.Text, -77) == value) << c.Text.ToUtf8();
    int64_t large = -77;
    EXPECT_EQ(TryStrToInt64(c.Text, large), c.Bits != 0) << c.Text.ToUtf8();
    EXPECT_TRUE(large == (c.Bits ? c.Value : -77) && StrToInt64Def(c.Text, -77) == large) << c.Text.ToUtf8() << large;
  }
  EXPECT_TRUE(StrToInt(u"$FFFFFFFF") == -1 && StrToInt64(u"$FFFFFFFF") == 4294967295);
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToInt(u"1,5"); }), u"'1,5' is not a valid integer value");
}

TEST(Numbers, FormsWithPrecisionAndDigits) {
  struct { Extended Value; TFloatFormat Form; int Precision, Digits; String Text; } cases[] = {
      {-0.0, ffGeneral, 15, 0, u"0"}, {0.1, ffGeneral, 15, 0, u"0,1"}, {-1234.5, ffGeneral, 15, 0, u"-1234,5"},
      {1E14, ffGeneral, 15, 0, u"100000000000000"}, {1E15, ffGeneral, 15, 0, u"1E15"},
      {999999999999999.5, ffGeneral, 15, 0, u"1E15"}, {999999999999999.4, ffGeneral, 15, 0, u"999999999999999"},
      {100000000000000.5, ffGeneral, 15, 0, u"100000000000001"}, {0.00001L, ffGeneral, 15, 0, u"0,00001"},
      {0.0000099, ffGeneral, 15, 0, u"9,9E-6"}, {LDBL_MAX, ffGeneral, 15, 0, u"1,18973149535723E4932"},
      {LDBL_TRUE_MIN, ffGeneral, 15, 0, u"3,64519953188247E-4951"}, {99.5, ffGeneral, 2, 0, u"1E2"},
      {1E20, ffGeneral, 15, 4, u"1E0020"}, {1.5E-7, ffGeneral, INT_MIN, 2, u"1,5E-07"},
      {0.1, ffGeneral, INT_MAX, 0, u"0,100000000000000006"}, {1234.5, ffExponent, 7, 4, u"1,234500E+0003"},
      {-1.5E-5, ffExponent, 3, 2, u"-1,50E-05"}, {0, ffExponent, 3, 2, u"0,00E+00"},
      {99.96875, ffExponent, 3, 1, u"1,00E+2"}, {0.125, ffFixed, 15, 2, u"0,13"}, {2.5, ffFixed, 15, INT_MIN, u"3"},
      {9.9999, ffFixed, 15, 2, u"10,00"}, {-0.004, ffFixed, 15, 2, u"0,00"}, {1234.5678, ffFixed, 6, 4, u"1234,5700"},
      {123456.789, ffFixed, 4, 0, u"1,235E5"}, {0.1, ffFixed, 18, INT_MAX, u"0,100000000000000006"},
      {999999.996, ffNumber, 15, 2, u"1.000.000,00"}, {-999, ffNumber, 15, 0, u"-999"},
      {1E300, ffNumber, 15, 0, u"1E300"}, {1234.5, ffCurrency, 15, 1, u"1.234,5 €"}, {-0.4, ffCurrency, 15, 0, u"0 €"},
      {-NAN, ffCurrency, 15, 2, u"NAN"}, {-HUGE_VALL, ffNumber, 15, 2, u"-INF"}};
  for (const auto& c : cases) {
    EXPECT_EQ(FloatToStrF(c.Value, c.Form, c.Precision, c.Digits), c.Text) << c.Value;
    bool isUsual = c.Form == ffGeneral && c.Precision == 15 && c.Digits == 0;
    EXPECT_TRUE(!isUsual || FloatToStr(c.Value) == c.Text) << c.Value;
  }
  TFormatSettings settings = English();
  EXPECT_EQ(FloatToStrF(1234567.5, ffNumber, 15, 2, settings) + FloatToStr(-0.5, settings), u"1,234,567.50-0.5");
  settings.ThousandSeparator = 0;
  EXPECT_EQ(FloatToStrF(1234567.5, ffNumber, 15, 2, settings), u"1234567.50");
  EXPECT_EQ(FormatFloat(u"#,##0.0", 1234, settings), u"1234.0");
}

TEST(Numbers, PlacesOfTheCurrencySign) {
  const char16_t* positive[] = {u"$1", u"1$", u"$ 1", u"1 $"};
  const char16_t* negative[] = {u"($1)", u"-$1", u"$-1", u"$1-", u"(1$)", u"-1$", u"1-$", u"1$-",
                                u"-1 $", u"-$ 1", u"1 $-", u"$ 1-", u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};
  TFormatSettings settings = English();
  for (uint8_t i = 0; i < 16; ++i) {
    settings.CurrencyFormat = i % 4;
    settings.NegCurrFormat = i;
    for (int value : {1, -1}) {
      EXPECT_EQ(CurrToStrF(value, ffCurrency, 0, settings), value > 0 ? positive[i % 4] : negative[i]);
      EXPECT_EQ(FloatToStrF(value, ffCurrency, 15, 0, settings), value > 0 ? positive[i % 4] : negative[i]);
    }
  }
}

TEST(Numbers, AmountsAreExact) {
  struct { int64_t Units; TFloatFormat Form; int Digits; String Text; } cases[] = {
      {INT64_MIN, ffGeneral, 0, u"-922337203685477,5808"}, {1, ffGeneral, 0, u"0,0001"},
      {-120000, ffGeneral, 0, u"-12"}, {0, ffGeneral, 0, u"0"}, {kMax, ffNumber, 2, u"922.337.203.685.477,58"},
      {kMax, ffFixed, 3, u"922337203685477,581"}, {-50, ffFixed, 2, u"-0,01"}, {-49, ffCurrency, 2, u"0,00 €"},
      {9950, ffFixed, 1, u"1,0"}, {25000, ffFixed, 0, u"3"}, {1, ffFixed, 18, u"0,000100000000000000"},
      {INT64_MIN, ffCurrency, 4, u"-922.337.203.685.477,5808 €"}, {9999950, ffNumber, 2, u"1.000,00"}};
  for (const auto& c : cases) EXPECT_EQ(CurrToStrF(Units(c.Units), c.Form, c.Digits), c.Text);
  for (uint64_t step = 1; step < uint64_t{1} << 63; step += step / 2 + 1) {
    Currency amount = Units(-static_cast<int64_t>(step));
    ASSERT_EQ(StrToCurr(CurrToStr(amount)), amount);
  }
  EXPECT_EQ(FormatCurr(u"#,##0.00##;(,0.0000)", Units(INT64_MIN)), u"(922.337.203.685.477,5808)");
  EXPECT_EQ(FormatCurr(u"0.000", Units(-5)) + FormatCurr(u"0.00", Units(-49)) + FormatCurr(u"", 1), u"-0,0010,001");
}

constexpr int64_t kNone = INT64_MIN;

TEST(Numbers, ReadsDecimalTexts) {
  const Extended none = LDBL_MAX;
  struct { String Text; Extended Value; int64_t Units; } cases[] = {{u"1,5", 1.5, 15000}, {u"  -1,5  ", -1.5, -15000},
      {u"+,5", 0.5, 5000}, {u"5,", 5, 50000}, {u"1,5e+3", 1500, 15000000}, {u"25,E-2", 0.25, 2500},
      {u"0,1", 0.1L, 1000}, {u"0E99999999999", 0, 0}, {u"1E-99999999999", 0, 0}, {u"4E-4951", LDBL_TRUE_MIN, 0},
      {u"1E4932", 1E4932L, kNone}, {u"18446744073709551617", 0x1p64L, kNone},
      {u"18446744073709551617," + Digits(10000) + u"1", 0x1p64L + 2, kNone},
      {u"1" + Digits(10000) + u"E-10000", 1, 10000}, {u"," + Digits(10000) + u"1E10001", 1, 10000},
      {Digits(10000) + u"1", 1, 10000}, {u"1E" + Digits(10000) + u"2", 100, 1000000},
      {u"0," + Digits(10000) + u"1", 0, 0}, {u"1,00005", 1.00005L, 10000}, {u"-1,00015", -1.00015L, -10002},
      {u"1,00005" + Digits(10000) + u"1", 1.00005L, 10001}, {u"922337203685477,5807", 922337203685477.5807L, kMax},
      {u"922337203685477,58074999999", 922337203685477.58074999999L, kMax},
      {u"922337203685477,58075", 922337203685477.58075L, kNone}, {u"1" + Digits(10000), none, kNone},
      {u"-1E99999999999", none, kNone}, {u"1E4933", none, kNone}, {u"1E" + Digits(10000, u'9'), none, kNone}};
  TFormatSettings german;
  for (const auto& c : cases) {
    Extended value = none;
    Currency amount = Units(kNone);
    EXPECT_EQ(TextToFloat(c.Text, value, german), c.Value != none) << c.Text.Slice(0, 30).ToUtf8();
    EXPECT_EQ(TextToCurr(c.Text, amount, german), c.Units != kNone) << c.Text.Slice(0, 30).ToUtf8();
    EXPECT_TRUE(value == c.Value && amount.Units == c.Units) << c.Text.Slice(0, 30).ToUtf8() << value << amount.Units;
  }
  const String bad[] = {u"", u" ", u",", u"+", u"-,", u"E3", u",E3", u"1E", u"1E+", u"1E1,5", u"1.5", u"1.234,56",
      u"1,5,5", u"1 5", u"--1", u"$10", u"0x10", u"INF", u"NAN", u"1,5 €", u"１"};
  for (const String& text : bad) {
    Extended value = 7;
    Currency amount = 7;
    EXPECT_FALSE(TextToFloat(text, value, german) || TextToCurr(text, amount, german)) << text.ToUtf8();
    EXPECT_TRUE(value == 7 && amount == 7) << text.ToUtf8();
  }
  EXPECT_EQ(StrToFloat(u"-1.5", English()) + StrToFloat(u"1,5"), 0);
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToCurr(u"1E15"); }), u"'1E15' is not a valid floating point value");
}

TEST(Numbers, PrintedAndReadAsTheExactNumber) {
  TFormatSettings english = English();
  std::mt19937_64 random(7);
  for (int round = 0; round < 20000; ++round) {
    int range = round % 8 == 0 ? 16400 : 270, precision = 2 + static_cast<int>(random() % 17);
    int exponent = static_cast<int>(random() % 32768) % (range * 2) - range - 63;
    Extended value = std::ldexp(static_cast<Extended>(random()), exponent);
    if (value > 1E14L && value < 1E20L) continue;  // midpoints, which the other side rounds to even
    char text[64];
    std::snprintf(text, sizeof text, "%.*LE", precision - 1, value);
    ASSERT_EQ(FloatToStrF(value, ffExponent, precision, 2, english), String::FromUtf8(text));
    std::snprintf(text, sizeof text, "%.*LE", static_cast<int>(random() % 30), value);
    ASSERT_EQ(StrToFloat(String::FromUtf8(text), english), std::strtold(text, nullptr)) << text;
  }
}

TEST(NumberMasks, Masks) {
  struct { String Mask; Extended Value; String Text; } cases[] = {{u"", 1234.5678, u"1234,5678"}, {u"0", 2.5, u"3"},
      {u"0", -0.5, u"-1"}, {u"0", -0.4, u"0"}, {u"0.00", 1.005, u"1,01"}, {u"0.00", 9.995, u"10,00"},
      {u"0.0", -0.25, u"-0,3"}, {u"#.##", 1234, u"1234"}, {u"#.##", 0.05, u",05"}, {u"#.##", 0, u""}, {u"#", 0.4, u""},
      {u"0.##", 1.999, u"2"}, {u"00.#0#", 1.5, u"01,50"}, {u"#0#.0", 7, u"07,0"}, {u".00", 12.5, u"12,50"},
      {u"0000", -12345, u"-12345"}, {u"00-00", 12345, u"123-45"}, {u"00-00", 5, u"00-05"}, {u"0.0.0", 1.25, u"1,25"},
      {u"EUR 0.00", -5, u"-EUR 5,00"}, {u"0E", 5, u"5E"}, {u"0." + Digits(10000), 0.5, u"0,5" + Digits(9999)},
      {Digits(10000), 7, Digits(9999) + u"7"}, {u"#,##0.00", 1234.5, u"1.234,50"}, {u"#,##0", 999.5, u"1.000"},
      {u"#,##0", 12, u"12"}, {u"0.00,", -1234567, u"-1.234.567,00"}, {u"0,000000", 1234, u"0.001.234"},
      {u"0;(0)", -5, u"(5)"}, {u"0;(0)", -0.4, u"0"}, {u"0;;-", -5, u"-5"}, {u"0;;-", 0.4, u"-"},
      {u"0.00;(0);null", -0.4, u"null"}, {u"0;(0);", 0, u"0"}, {u"0.00;-0.000", -2, u"-2,000"},
      {u"0;null", -5, u"null"}, {u"0.0 'h';(0.0 'h');-", -7.25, u"(7,3 h)"}, {u"0';'0", 12, u"1;2"},
      {u"0 \"it's 0\"", 5, u"5 it's 0"}, {u"0 'x;0", -5, u"-5 x;0"}, {u"''0'", 5, u"5"}, {u"0'E+0'", 12, u"12E+0"},
      {u"0'.,'0", 12, u"1.,2"}, {u"0.000E+00", 0.5, u"5,000E-01"}, {u"0.000E+00", 0, u"0,000E+00"},
      {u"#.###E-0", 1234, u"1,234E3"}, {u"#.###E-0", -0.5, u"-5E-1"}, {u"0.00E+00", 9.996, u"1,00E+01"},
      {u"0e-0000", 1E20, u"1e0020"}, {u"0.0E+0", -1E300L, u"-1,0E+300"}, {u"0E+0;(0E-00)", -0.001, u"(1E-03)"},
      {u"00.0E+0", 12345, u"12,3E+3"}, {u"#,##0", 123456789012345678, u"123.456.789.012.346.000"},
      {u"0.00", 1E18L, u"1E18"}, {u"0", 1E17L, u"100000000000000000"},
      {u"#,##0.00", LDBL_MAX, u"1,18973149535723E4932"}, {u"0.00", LDBL_TRUE_MIN, u"0,00"}, {u"0;(0);-", NAN, u"NAN"},
      {u"0;(0)", -HUGE_VALL, u"-INF"}};
  for (const auto& c : cases) EXPECT_EQ(FormatFloat(c.Mask, c.Value), c.Text) << c.Mask.ToUtf8() << " of " << c.Value;
  EXPECT_EQ(FormatFloat(u"#,##0.00;'.,'0.0", 1234.5, English()), u"1,234.50");
}

}  // namespace
}  // namespace vx
