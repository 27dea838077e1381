#include "platform/Format.h"

#include "tests/support/Test.h"

namespace {

using TValues = std::initializer_list<TFormatArg>;

TEST(Format, PutsValuesInTheirPlaces) {
  const String name = u"Meier";
  const Currency most = Currency::FromUnits(INT64_MAX);
  const struct {
    String Pattern;
    TValues Values;
    String Text;
  } cases[] = {
      {u"%2s|%5s", {u"abc", u"abc"}, u"abc|  abc"},
      {u"%s: %d von %s", {u"Zeile", 3, u"%s%%"}, u"Zeile: 3 von %s%%"},
      {u"%%%s%s%%", {u"a", name}, u"%aMeier%"},
      {u"%1:s %0:s|%-8s|%3.3d", {u"a", u"b", 7}, u"b a|b       |007"},
      {u"%g %.3g", {1234.5, 1234.5}, u"1234,5 1,23E3"},
      {u"%2:s%0:s%s%1:-3s|", {u"a", u"b", u"c"}, u"cabb  |"},
      {u"%n %.0n", {1234567.891, 999.5}, u"1.234.567,89 1.000"},
      {u"%.2s|%4.1S|%.0s|%.9s", {name, name, name, name}, u"Me|   M||Meier"},
      {u"%5d|%-5d|%5.3d|%.3d", {-7, -7, -7, 1234}, u"   -7|-7   | -007|1234"},
      {u"%*d|%-*.*f|%.*s", {4, 7, 6, 1, 2.25, 2, name}, u"   7|2,3   |Me"},
      {u"%d %D %u", {INT64_MIN, char16_t{65}, UINT64_MAX}, u"-9223372036854775808 65 18446744073709551615"},
      {u"%x %.4X %x", {0xBEEF, 255u, int64_t{-1}}, u"BEEF 00FF FFFFFFFFFFFFFFFF"},
      {u"%f %.0f %8.1F|%-6.1f|", {7.5f, 2.5, -0.04, 1.0L}, u"7,50 3      0,0|1,0   |"},
      {u"%m %.0m %m", {1234.5, 0.5, -2.0}, u"1.234,50 € 1 € -2,00 €"},
      {u"%m %.4n %.4f", {most, most, most}, u"922.337.203.685.477,58 € 922.337.203.685.477,5807 922337203685477,5807"}};
  for (const auto& c : cases) EXPECT_EQ(Format(c.Pattern, c.Values), c.Text) << c.Pattern.ToUtf8();
  TFormatSettings settings{.DecimalSeparator = u'.', .CurrencyFormat = 0, .CurrencyDecimals = 3};
  EXPECT_EQ(Format(u"%n %m", {234.5, Currency(1)}, settings), u"234.50 €1.000");
}

TEST(Format, RefusesWrongPlacesAndValues) {
  struct {
    String Pattern;
    TValues Values;
  } faults[] = {{u"%", {u"a"}},        {u"a%q", {1}},       {u"%5", {1}}, {u"%-", {1}},           {u"%0:", {1}},
                {u"%5.", {1}},         {u"% d", {1}},       {u"%s", {1}}, {u"%s", {1.5}},         {u"%d", {u"1"}},
                {u"%d", {1.0}},        {u"%f", {u"1"}},     {u"%f", {1}}, {u"%d", {Currency(1)}}, {u"%*d", {u"a", 1}},
                {u"%.*f", {1.5, 1.5}}, {u"%s %0:d", {u"a"}}};
  struct {
    String Pattern;
    TValues Values;
  } missing[] = {{u"%s", {}},          {u"%s %s", {u"a"}}, {u"%1:s", {u"a"}},
                 {u"%0:s %s", {u"a"}}, {u"%*d", {5}},      {u"%*.*f", {5, 2}}};
  auto raised = [](const auto& c) { return test::RaisedBy<EConvertError>([&] { Format(c.Pattern, c.Values); }); };
  for (auto& c : faults) EXPECT_EQ(raised(c), u"Format '" + c.Pattern + u"' invalid or incompatible with argument");
  for (auto& c : missing) EXPECT_EQ(raised(c), u"No argument for format '" + c.Pattern + u"'");
  for (const char16_t* huge : {u"%99999999999:s", u"%4294967296:s", u"%99999999999q", u"%.99999999999q"})
    EXPECT_THROW(Format(huge, {u"a"}), EConvertError) << String(huge).ToUtf8();
}

}  // namespace
