#include "core/uVxFunctionsTime.h"

#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

constexpr double kMSec = 1.0 / 86400000;
TDateTime Time(int Hour, int Minute, int Second = 0, int MSec = 0) { return VxEncodeTime(Hour, Minute, Second, MSec); }
TDateTime Day(int Digits) { return VxIntToDate(Digits); }
using Days = std::vector<TDateTime>;

TEST(Dates, NumbersAndBorders) {
  TDateTime first = 7, last;
  EXPECT_EQ((TFacts{VxIntToDate(20150229, first), first}), "no 0");
  for (int bad : {0, 20151301, 20150011, -20150211, 211, INT32_MAX, INT32_MIN}) EXPECT_EQ(VxIntToDate(bad), 0) << bad;
  for (int bad : {240000000, 6000000, 60000, -1, INT32_MAX})
    EXPECT_EQ(VxEncodeTime(0, 0, 0, bad) + VxIntToTime(bad), 0);
  const TDateTime leapDay = Day(20160229) + 0.75;
  EXPECT_EQ((TFacts{VxDateToInt(42046.99), VxMonthToInt(42046), VxTimeToMinute(-1.25)}), "20150211 201502 -1080");
  EXPECT_EQ((TFacts{VxTimeToMinute(9e6), VxTimeToMinute(-9e6)}), "2147483647 -2147483648");
  EXPECT_EQ(VxMinuteToTime(-1590), -1 - Time(2, 30));
  EXPECT_LT(VxMinuteToTime(INT32_MIN), -1e6);
  EXPECT_EQ((Days{SetMonth(Day(20150331) + 0.5, 2), SetMonth(leapDay, 13)}), (Days{Day(20150228), 0}));
  EXPECT_EQ((Days{SetDay(leapDay, 0), SetDay(leapDay, 31), SetDay(leapDay, -1)}),
            (Days{Day(20160201), Day(20160229), 0}));
  EXPECT_EQ(IncYear(leapDay, -1), Day(20150228) + 0.75);
  GetYearBorders(leapDay, first, last);
  EXPECT_EQ((Days{first, last}), (Days{Day(20160101), Day(20161231)}));
  EXPECT_EQ((TFacts{isYearBorders(first + 0.9, last + 0.9), isYearBorders(first, Day(20171231)),
                    isYearBorders(first, last - 1), isMonthBorders(first, last)}),
            "yes no no no");
  GetMonthBorders(leapDay, first, last);
  EXPECT_EQ((Days{first, last}), (Days{Day(20160201), GetMonthDayLast(leapDay)}));
  EXPECT_EQ((TFacts{isMonthBorders(first, last + 0.9), isMonthBorders(first, last - 1), isMonthBorders(first + 1, last),
                    isYearBorders(first, last)}),
            "yes no no no");
  EXPECT_EQ((TFacts{GetMonthDayCount(2015, 13), GetYearCount(1, 2), GetMonthCount(Day(20131101), Day(20150201))}),
            "31 2 16");
  for (int years : {INT32_MAX, INT32_MIN, 357913942}) EXPECT_THROW(IncYear(leapDay, years), EConvertError) << years;
}

TEST(Weeks, FollowTheFirstThursdayButTheEndOfTheYearIsNotFolded) {
  const TCases<int, int, int, int> cases = {{20141229, 201453, 53, 20141229},
                                            {20150101, 201501, 1, 20141229},
                                            {20160103, 201553, 0, 20151228},
                                            {20170101, 201652, 0, 20161226},
                                            {18000101, 180001, 1, 17991230}};
  for (const auto& [date, code, calc, monday] : cases) {
    const TDateTime day = Day(date), timed = day < 0 ? day : day + 0.9;
    EXPECT_EQ(std::tuple(GetCalWeek(day), GetCalWeekCalc(day), GetCalendarWeek(timed)),
              std::tuple(code, calc, code % 100));
    EXPECT_EQ((Days{GetCalWeekDate(code), GetWeekDayFirst(day)}), (Days{Day(monday), Day(monday)})) << date;
  }
  EXPECT_EQ((TFacts{GetCalWeek(Day(20150215) + 0.001), GetMonthCalWeekCount(Day(20160115))}), "201508 5");
  EXPECT_EQ((TFacts{GetWeekDayFirst(42050.5), GetWeekDayLast(42044.5)}), "42044.5 42050.5");
  for (int code : {0, 99, -201501, 1000001, INT32_MAX, INT32_MIN}) EXPECT_EQ(GetCalWeekDate(code), 0) << code;
  TVxStringList list;
  auto code = [&](int Index) { return static_cast<int>(reinterpret_cast<intptr_t>(list.GetObject(Index))); };
  EXPECT_EQ((TFacts{SetCalWeeks(1e300, list), list.GetCount()}), "-1 0");
  EXPECT_EQ((TFacts{SetCalWeeks(Day(20150205), list), list.GetCount(), list.Get(0), code(0), code(52)}),
            "5 53 1 201501 201553");
  list.Add(u"surplus");
  EXPECT_EQ((TFacts{SetCalWeeks(Day(20160205), list), list.GetCount(), list.Get(53)}), "5 54 surplus");
  EXPECT_EQ((TFacts{list.Get(0), code(0), code(1), code(52)}), "53 201553 201601 201652");
  EXPECT_EQ(SetCalWeeks(Day(20171231) + 0.5, list), -1) << "counts as week 53";
}

TEST(TimeText, OfDatesTimesAndHours) {
  const TDateTime early = Time(6, 5, 4, 3), half = Time(0, 30);
  const TCases<double, TDateTimeFormats, String> cases = {
      {1, {}, u"24:00 24:00"},
      {early, {dfSecMSec, dfTrimLeft}, u"6:05:04:003 6:05:04:003"},
      {-1e300, {}, u"00:00 -24000000000000000:00"},
      {Time(6, 0, 0, 9), {dfSecMSec, dfTrimRight}, u"06:00:00:009 6:00:00:009"},
      {half, {dfTrimLeft}, u"0:30 :30"},
      {0, {dfTrimLeft, dfTrimRight}, u"0 0"},
      {2, {}, u"00:00 48:00"},
      {1.5, {dfPlusSign}, u"12:00 +36:00"},
      {-0.25, {dfPlusSign}, u"06:00 -6:00"}};
  TFormatSettings settings;
  settings.LongMonthNames[1] = u"\"*./:<>?\\|x";
  settings.TimeSeparator = settings.DateSeparator = settings.DecimalSeparator = u'-';
  TFormatSettingsScope scope(settings);
  for (const auto& [value, set, timeAndHour] : cases)
    EXPECT_EQ(VxTimeToStr24(value, set) + u" " + VxHourToStr(value, set), timeAndHour);
  EXPECT_EQ(VxTimeToStr(early) + VxDateToStr(Day(20150201) + 0.5) + VxHourToComma(1.5), u"06-05-0401.02.201536-00");
  EXPECT_EQ(VxDateToStr(Day(331209), {dfTrimLeft, dfTrimRight, dfSec}) + VxHourToComma(0), u"9.12.00330,00");
  EXPECT_EQ(VxDatePeriodToFilename(Day(20150201), Day(20150228)), u"__________x 2015");
}

TEST(TimeText, ReadsDatesTimesAndHours) {
  const TCases<String, int, int> dates = {
      {u"00.00", 0, 0},      {u"1.2.15", 150201, 150201},  {u" 1.$2.2015.x", 20150201, 20150201},
      {u"29.02.2015", 0, 0}, {u"4294967297.2.2015", 0, 0}, {u"00.00.2015", 0, 20150101},
      {u"01.00.2015", 0, 0}, {u"01.02.2015 ", 0, 0},       {u"00.000.2015", 0, 20151001},
      {u"0.02.2015", 0, 0},  {u"00.02.2015", 0, 20150201}, {u"00000000001.2.2015", 20150201, 20150201},
      {u"1.2", 0, 0}};
  for (const auto& [text, date, repaired] : dates)
    EXPECT_EQ((Days{VxStrToDate(text), VxStrToDateProtected(text)}), (Days{Day(date), Day(repaired)})) << text;
  const TDateTime day = Day(20150211);
  const TCases<String, TDateTime> moments = {{u"", 0},
                                             {u"0.0.0", 0},
                                             {u"11.02.2015 ", day},
                                             {u"11-02/2015T06:30", day + Time(6, 30)},
                                             {u"0.0.0 06:30:15,250.99", Time(6, 30, 15, 250)},
                                             {u"11.02.2015  7:05", day + Time(7, 5)},
                                             {u"11.02.2015 0:0:0:1", day + kMSec},
                                             {u"11.02.2015 0:-5", day}};
  for (const auto& [text, value] : moments) EXPECT_DOUBLE_EQ(VxStrToDateTime(text), value) << text;
  for (auto bad : {u"29.02.2015", u"11.2.2015 24", u"0.0.0 -1"}) EXPECT_THROW(VxStrToDateTime(bad), EConvertError);
  for (const String text : {u"99999999999", u" "}) {
    EXPECT_EQ(test::RaisedBy<EConvertError>([&] { VxStrToDateTime(u"11." + text + u".2015"); }),
              u"'" + text + u"' is not a valid integer value");
  }
  const TCases<String, TDateTime, bool, TDateTime> times = {
      {u"6", 0.25, true, 0.25},        {u"", 7, true, 0},
      {u"24:99", 1, false, 0},         {u"24:30", 1, true, 1 + Time(0, 30)},
      {u"25:00", 7, true, 25 / 24.0},  {u"1:2:3:4:x", Time(1, 2, 3, 4), false, Time(1, 2, 3, 4)},
      {u"6:60", 7, false, 0},          {u"-36:30", 7, true, -36.5 / 24},
      {u"+36:30", 7, true, 36.5 / 24}, {u"x:30", Time(0, 30), false, Time(0, 30)},
      {u"--24", 0, false, 0},          {u":30", Time(0, 30), true, Time(0, 30)},
      {u"1:-5", 7, false, 0},          {u"99999999999:00", 0, true, 0},
      {u" 6", 0.25, false, 0.25},      {u"1000000:00", 7, true, 1e6 / 24}};
  for (const auto& [text, time24, isHour, expected] : times) {
    TDateTime hour = 7;
    EXPECT_EQ(std::pair(VxStrToTime24(text, 7), VxStrToHour(text, hour)), std::pair(time24, isHour)) << text;
    EXPECT_DOUBLE_EQ(hour, expected) << text;
  }
  EXPECT_EQ((Days{VxStrToTime(u"2630"), VxStrToTime(u"x")}), (Days{1 + Time(2, 30), 0}));
}

TEST(Hours, AsTextsAndDecimals) {
  const TCases<TDateTime, String> cases = {{-1.25, u"-30:00 -30,00"},         {0, u"0:00 0,00"},
                                           {Time(1, 30), u"01:30 1,50"},      {1 + Time(23, 59, 59), u"48:00 48,00"},
                                           {-Time(0, 0, 29), u"00:00 -0,01"}, {Time(0, 59, 29, 499), u"00:59 0,99"},
                                           {1 - 0.1 * kMSec, u"24:00 24,00"}, {Time(0, 59, 29, 500), u"01:00 0,99"}};
  for (const auto& [hour, minutesAndComma] : cases)
    EXPECT_EQ(VxHourMinToStr(hour) + u" " + VxHourToComma(hour), minutesAndComma);
  EXPECT_EQ((Days{VxTruncTime(41000 + Time(6, 45, 59, 999)), VxTruncTime(-1.25)}), (Days{41000 + Time(6, 45), -0.75}));
  EXPECT_EQ((TFacts{VxHourToDecimal(-1 - Time(6, 45, 59)), VxHourToIndustry(1 + Time(18, 45, 59)),
                    VxHourToIndustry(2 - 0.1 * kMSec)}),
            "30.75 42.75 48");
  EXPECT_EQ((TFacts{VxMinuteToIndustry(45), VxMinuteToIndustry(-1), VxMinuteToIndustry(INT32_MIN)}),
            "75 -2 -2147483648");
  EXPECT_EQ(
      (TFacts{VxIndustryToHour(47.999), VxIndustryToHour(-24), VxIndustryToMinute(75), VxIndustryHourToMinute(1.256)}),
      "2 -1 45 126");
  EXPECT_THROW(VxIndustryToHour(-0.5), EConvertError);
  EXPECT_THROW(VxHourToComma(1e300), EInvalidOp);
}

TEST(Values, SnapToWholeDaysAndCompareAtEachPrecision) {
  for (double day : {41000.0, -3.0, 0.0, 41000.5}) {
    const double fuzzy[] = {day + 0.1 * kMSec, day - 0.1 * kMSec, day + 0.6 * kMSec, day - 0.6 * kMSec};
    for (int i = 0; i < 4; ++i) {
      const bool isSnapped = i < 2 && day != 41000.5, isLow = day != 0 && std::fabs(fuzzy[i]) < std::fabs(day);
      EXPECT_EQ(DateTimeDefuzzFunc(fuzzy[i], true), isSnapped ? day : fuzzy[i]) << day << ' ' << i;
      EXPECT_EQ(DateTimeDefuzzFunc(fuzzy[i], false), isSnapped && isLow ? day : fuzzy[i]) << day << ' ' << i;
    }
  }
  const TDateTime value = 41000 + Time(6, 5, 4, 3) + 0.2 * kMSec;
  EXPECT_EQ(DateTimeDefuzzFull(value, true, false), 41000 + Time(6, 5, 4));
  EXPECT_EQ(DateTimeDefuzzFull(value, false, true), 41000 + Time(6, 5, 0, 3));
  for (TDateTime day : {41000, 0}) EXPECT_EQ(DateTimeDefuzzFull(day > 0 ? day - 0.6 * kMSec : 0, true, true), day);
  // Differ holds a 1 for each TDateTimeType that tells A, the earlier one by its day, from B.
  const TCases<TDateTime, TDateTime, const char*> cases = {
      {Time(10, 0, 20), Time(10, 0, 40), "0010101"}, {Time(10, 0, 0, 1), Time(10, 0, 0, 2), "0010101"},
      {Time(10, 0, 50), Time(10, 1, 10), "0111111"}, {41000.1, 41000.9, "0111111"},
      {0.4, 0.4 + 0.2 * kMSec, "0000000"},           {41000.4, 41001.3, "1111111"},
      {41000 - 0.6 * kMSec, 41000, "0000000"}};
  for (const auto& [a, b, differ] : cases) {
    for (int type = dttDate; type <= dttTime24Full; ++type) {
      const int ab = CompareDateTime(a, b, TDateTimeType(type)), ba = CompareDateTime(b, a, TDateTimeType(type));
      EXPECT_EQ(std::pair(ab, ba), std::pair('0' - differ[type], differ[type] - '0')) << a << ' ' << b << ' ' << type;
    }
  }
  const TDateTime late = 1 - 20000 * kMSec;  // only the 24 types know the hour 24
  EXPECT_EQ((TFacts{CompareDateTime(1, late, dttTime), CompareDateTime(1, late, dttTime24)}), "-1 1");
}

TEST(Periods, AsTexts) {
  const TCases<int, int, String> days = {
      {0, 20150203, u"bis 3.02.2015"},      {0, 0, u""},
      {20150203, 0, u"von 3.02.2015"},      {20160201, 20160228, u"1.-28.02.2016"},
      {20150203, 20150203, u"3.02.2015"},   {20150102, 20151231, u"2.01.-31.12.2015"},
      {20160301, 20160331, u"März 2016"},   {20140101, 20150331, u"Jan 2014 -Mrz 2015"},
      {20150101, 20151231, u"Jahr 2015"},   {20141203, 20150217, u"3.12.2014-17.02.2015"},
      {20150101, 20150331, u"Jan-Mrz 2015"}};
  for (const auto& [from, to, text] : days) EXPECT_EQ(VxDatePeriodToStr(Day(from), Day(to)), text);
  EXPECT_EQ(VxPeriodStr(41000.5, 0, u"d.m.yy", u" / ", u"..."), u"1.4.12 / ...");
  const TCases<TDateTime, TDateTime, String, TDateTime> times = {
      {0, 0, u" 0-0", 0},
      {0.25, Time(16, 30), u"06:00-16:30 6-16:30", 10.5 / 24},
      {0, 0.5, u"bis 12:00 0-12", 0.5},
      {0.5, 0, u"von 12:00 12-0", 0.5},
      {0.75, 0.25, u"18:00-06:00 18-6", 0.5},
      {0.25, 0.25, u"06:00-06:00 6-6", 1},
      {1 / 3.0, 1, u"08:00-24:00 8-24", 1 - 1 / 3.0}};
  for (const auto& [from, to, texts, length] : times) {
    EXPECT_EQ(VxTimePeriodToStr(from, to) + u" " + VxTimePeriodToStr24(from, to), texts);
    EXPECT_DOUBLE_EQ(VxTimesPeriod24(from, to), length);
  }
}

TEST(Periods, Overlap) {
  // As they are, with odoOpenEnd, odoSwap, both; and what is turned round, without and with an open end.
  const TCases<TDateTime, TDateTime, TDateTime, TDateTime, std::string, std::string> days = {
      {1, 31.1, 31.9, 59, "1111", "00"}, {1, 30, 31, 59, "0000", "00"},   {30, 1, 59, 20, "0011", "11"},
      {30, 40, 20, 10, "0000", "11"},    {30, 40, 20, 0.9, "0101", "10"}, {30, 40, 50, 0, "0010", "10"},
      {30, 0, 10, 20, "0111", "10"}};
  const TOverlappingDateOptionsSet options[] = {{}, {odoOpenEnd}, {odoSwap}, {odoOpenEnd, odoSwap}};
  for (const auto& row : days) {
    const auto& [a1, a2, b1, b2, overlaps, swapped] = row;
    std::string found, swaps, again;
    for (const auto& option : options) found += OverlappingDate(a1, a2, b1, b2, option) ? '1' : '0';
    for (bool isOpenEnd : {false, true}) {
      bool isSwapped;
      again += OverlappingDate(a1, a2, b1, b2, isSwapped, isOpenEnd) ? '1' : '0', swaps += isSwapped ? '1' : '0';
    }
    EXPECT_EQ(std::tuple(a1, a2, b1, b2, found, swaps), row);
    EXPECT_EQ(again, overlaps.substr(2)) << a1 << ' ' << b1;
  }
  const TCases<TDateTime, TDateTime, TDateTime, TDateTime, bool, bool, TDateTime> times = {
      {8 / 24.0, 0.5, 0.5, 16 / 24.0, false, true, 0},
      {0.2, 0.5, 0.6, 0.9, false, false, 0},
      {0.2, 0.7, 0.3, 0.5, true, true, 0.2},
      {0.2, 0.5 + 0.3 * kMSec, 0.5, 0.9, false, true, 0},
      {0.2, 0.5 + 0.7 * kMSec, 0.5, 0.9, true, true, 0.7 * kMSec}};
  for (const auto& [a1, a2, b1, b2, overlaps, docks, length] : times) {
    EXPECT_EQ(std::tuple(OverlappingTime(a1, a2, b1, b2), OverlappingTime(b1, b2, a1, a2), DockingTime(a1, a2, b1, b2)),
              std::tuple(overlaps, overlaps, docks))
        << a2 << ' ' << b1;
    EXPECT_NEAR(GetOverlappingTime(a1, a2, b1, b2), length, 1e-15);
  }
  test::TZoneAt zone(120);
  EXPECT_EQ(UtcTOLocalDateTime(41000.75), 41000.75 + 2 / 24.0);
}

TEST(Values, OutOfRangeAreHarmless) {
  for (double value : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, 1e15, -9.3e18, 2958466.0, -693594.0, 1e8}) {
    EXPECT_EQ((TFacts{VxDateToInt(value), GetMonthCount(value, value), GetCalWeek(value), GetCalendarWeek(value),
                      SetDay(value, 5), isMonthBorders(value, value), CompareDateTime(value, value, dttDateTimeFull)}),
              "0 1 0 0 0 no 0")
        << value;
    EXPECT_EQ(VxTimeToStr24(value) + VxDatePeriodToStr(value, value), u"00:000.00.0000") << value;
    EXPECT_LE(VxHourMinToStr(value).size(), 21) << value;
    DateTimeDefuzzFull(VxIndustryToHour(value < 0 ? 0 : value) + VxTimeToMinute(value), true, true);
    VxIndustryHourToMinute(VxHourToIndustry(DateTimeDefuzzFunc(value, OverlappingDate(value, 5, 3, value))));
    EXPECT_THROW(IncYear(value, 1), EConvertError) << value;
  }
}

}  // namespace
