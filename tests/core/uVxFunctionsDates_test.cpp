#include "core/uVxFunctions/CurrencyText.h"
#include "core/uVxFunctions/Database.h"
#include "core/uVxFunctions/DateParsers.h"
#include "platform/Calendar.h"
#include "tests/support/Test.h"

namespace {

TDateTime Time(int Hour, int Minute = 0, int Second = 0, int MSec = 0) {
  return Hour / 24 + EncodeTime(Hour % 24, Minute, Second, MSec);
}
const TDateTime kDay = EncodeDate(2015, 2, 11);

TEST(DateParsers, DatesAndTimesStandAtTheirPlaces) {
  const TCases<String, TDateTime, TDateTime> dates = {
      {u"1.2.2015", 7, 7},   {u"20150211", kDay, kDay}, {u"11.02.2015", kDay, kDay},
      {u"", 7, 7},           {u"11.02.15", kDay, kDay}, {u"00.00.0000", 7, EncodeDate(1900, 1, 1)},
      {u"00000000", 7, 7},   {u"0x.01.2015", 7, 7},     {u"00.13.0000", 7, EncodeDate(1900, 12, 1)},
      {u"31.02.2015", 7, 7}, {u"11-02-2015", 7, 7},     {u"99.01.2015", 7, EncodeDate(2015, 1, 31)},
      {u"20151301", 7, 7},   {u"11.02.2015 ", 7, 7},    {u" 5.:0.2015", 7, EncodeDate(2015, 12, 1)}};
  for (const auto& row : dates) {
    const String& text = std::get<0>(row);
    EXPECT_EQ(std::tuple(text, StrToDateDef(text, 7), StrToDateHeavy(text, 7)), row);
  }
  const TCases<String, TDateTime, TDateTime> times = {{u"8", 7, 7},
                                                      {u"2630", Time(26, 30), Time(26)},
                                                      {u"8:30", 7, 7},
                                                      {u"12345", Time(12, 34), Time(12)},
                                                      {u"::", 7, 7},
                                                      {u"1234561000", 7, Time(12)},
                                                      {u"", 7, 7},
                                                      {u"12:30:1", Time(12, 30), Time(12, 30)},
                                                      {u"12:5:", 7, 7},
                                                      {u"12345:06", Time(12, 0, 6), Time(12, 0, 6)},
                                                      {u"-1:00", 7, 7},
                                                      {u"10:75", 7, Time(11, 15)},
                                                      {u"123", Time(12), Time(12)},
                                                      {u"99:99:99", 7, Time(100, 40, 39)},
                                                      {u"12:5", Time(12), Time(12)},
                                                      {u"12:30:15:999", Time(12, 30, 15, 999), Time(12, 30, 15, 999)},
                                                      {u"26:00", Time(26), Time(26)},
                                                      {u"1234560000000000000000009", Time(12, 34, 56, 9), Time(12)},
                                                      {u"12:30:15:999x", 7, 7}};
  for (const auto& [text, def, heavy] : times) EXPECT_DOUBLE_EQ(StrToTimeDef(text, 7), def) << text;
  for (const auto& [text, def, heavy] : times) EXPECT_DOUBLE_EQ(StrToTimeHeavy(text, 7), heavy) << text;
  const TCases<String, TDateTime> both = {
      {u"11.02.2015", 7},     {u" 06:30", Time(6, 30)},    {u"11.02.2015 06:30", kDay + Time(6, 30)}, {u"x y", 0},
      {u"11.02.2015 ", kDay}, {u"31.02.2015 08", Time(8)}, {u"20150211  2630\t", kDay + Time(26, 30)}};
  for (const auto& [text, value] : both) EXPECT_DOUBLE_EQ(StrToDateTimeDef(text, 7), value) << text;
  const TCases<String, TDateTime> hours = {
      {u":30", 7},  {u"30:60", 1}, {u"-1:30", -1},         {u"+1:30", Time(1, 30)}, {u"123:45", Time(123, 45)},
      {u"01:3", 7}, {u"30::5", 1}, {u"+:30", Time(0, 30)}, {u"x:30", Time(0, 30)},  {u"--2147483648:00", 2147483648.0}};
  for (const auto& [text, value] : hours) EXPECT_DOUBLE_EQ(StrToHourDef(text, 7), value) << text;
}

TEST(Database, TextsAndTestsForEmpty) {
  const TCases<String, String, TDateTime> texts = {
      {u"2015-02-11", u"11.02.2015 00:00:00", kDay},   {u"2015-02-11 18:00:00", u"11.02.2015 18:00:00", kDay + 0.75},
      {u"20150211", u"11.02.2015 00:00:00", kDay},     {u"2015-02", u"00.00.0000 00:00:00", 7},
      {u"2015-02-11T18:00", u"11.02.2015T18:00", 7},   {u"2015-2-11", u"2015-2-11", 7},
      {u"0000-00-00", u"00.00.0000 00:00:00", 7},      {u"   06:00 ", u"   06:00 ", 0.25},
      {u"0000-00-00 18:00", u"00.00.0000 18:00", 0.75}};
  for (const auto& [text, german, value] : texts)
    EXPECT_EQ(std::tuple(ConvertDbDate(text, false), ConvertDbDate(text, true), ConvertDbDateTime(text, 7)),
              std::tuple(german, german.Slice(0, 10), value));
  const TCases<TDateTime, String> values = {
      {0, u"---"}, {0.5, u"-1212"}, {-0.5, u"-1212"}, {kDay, u"0000-"}, {kDay + 0.5, u"121212"}};
  auto forms = [h = String(u"hh"), e = String(u"-")](double v) {
    return ConvertDateDb(v, h, e) + ConvertDateTimeDb(v, h, e) + ConvertTimeDb(v, h, e);
  };
  for (const auto& [value, expected] : values) EXPECT_EQ(forms(value), expected) << value;
  EXPECT_EQ((TFacts{ConvertCurrDb(Currency::FromUnits(-12345000)), ConvertExtDb(-0.25L)}), "-1234.5 -0.25");
  EXPECT_EQ((TFacts{ConvertDbCurr(u"1234.5", 0).Units, ConvertDbCurr(u"1.234.5", 0).Units}), "12345000 12345");
  EXPECT_EQ((TFacts{ConvertDbExtDef(String(100, u' ') + u"1.5", 7), ConvertDbExtDef(u"1.2.3", 7)}), "1.5 7");
  const TCases<TDateTime, TDateTime, String> periods = {
      {kDay - 10, 0, u"von 1.02.2015"},       {0, -5, u""},
      {-1, kDay, u"bis 11.02.2015"},          {kDay, kDay + 1, u"11.02.2015 - 12.02.2015"},
      {kDay, kDay + 0.5, u"11.02.2015"},      {kDay - 396, kDay, u"11.01. - 11.02.2015"},
      {kDay - 365, kDay, u"11. - 11.02.2015"}};
  for (const auto& [from, till, text] : periods) EXPECT_EQ(DatesToDuration(from, till), text);
}

}  // namespace
