#include "core/HourPeriods.h"

#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "tests/support/Test.h"

namespace {

// The parts from a moment, each as its end, weekday, N for night, hours by the clock and elapsed. A blank before a
// moment tells the second of a doubled hour. The parts make up the whole.
std::string PartsOf(const char* From, const char* To, TPeriodCuts Cuts, TClockWindow Night = {}) {
  const THourPeriod period{StrToDateTime(String::FromUtf8(From)), StrToDateTime(String::FromUtf8(To)), *From == ' ',
                           *To == ' '};
  String line;
  THourAmount clock, elapsed;
  for (const TPeriodPart& part : SplitPeriod(period, Cuts, Night)) {
    line += Concat({FormatDateTime(u"d.m. hh:nn ", part.To), IntToStr(part.WeekDay), part.IsNight ? u"N " : u" ",
                    HourAmountToStr(part.Clock), u" ", HourAmountToStr(part.Elapsed), u"; "});
    clock += part.Clock;
    elapsed += part.Elapsed;
  }
  EXPECT_EQ(std::pair(clock, elapsed), std::pair(ClockHours(period), ElapsedHours(period))) << From;
  return line.ToUtf8();
}

// Cuts by midnights and nights are compared with Python's time zones, minute by minute: tests/oracle/.
TEST(HourPeriods, AreCutAtTheirBordersAndOverSummerTime) {
  const char *kFrom = "31.01.2026 14:00", *kTo = "02.02.2026 07:00";
  const TCases<std::string, std::string> cases = {
      {PartsOf(kFrom, kTo, {pcMonth}), "1.2. 00:00 6 10:00 10:00; 2.2. 07:00 7 31:00 31:00; "},
      {PartsOf(kFrom, kTo, {pcWeek}), "2.2. 00:00 6 34:00 34:00; 2.2. 07:00 1 7:00 7:00; "},
      {PartsOf("01.02.2026 21:00", "01.02.2026 21:00", {pcNight}), ""},
      {PartsOf("29.12.1899 18:00", "30.12.1899 06:00", {pcMidnight}),
       "30.12. 00:00 5 6:00 6:00; 30.12. 06:00 6 6:00 6:00; "},
      {PartsOf("28.03.2026 22:00", "29.03.2026 06:30", {pcNight}),
       "29.3. 06:00 6N 8:00 7:00; 29.3. 06:30 7 0:30 0:30; "},
      // 2:30 is skipped
      {PartsOf("29.03.2026 00:00", "29.03.2026 05:00", {pcNight}, {150, 240}),
       "29.3. 02:30 7 2:30 2:00; 29.3. 04:00 7N 1:30 1:00; 29.3. 05:00 7 1:00 1:00; "},
      {PartsOf("29.03.2026 02:15", "29.03.2026 02:45", {}), "29.3. 02:45 7 0:30 0:00; "},
      {PartsOf("25.10.2026 02:45", " 25.10.2026 02:15", {}), "25.10. 02:15 7 -0:30 0:30; "},
      {PartsOf(" 25.10.2026 02:15", "25.10.2026 05:00", {pcNight}, {150, 240}),
       "25.10. 02:30 7 0:15 0:15; 25.10. 04:00 7N 1:30 1:30; 25.10. 05:00 7 1:00 1:00; "},
      {PartsOf(" 25.10.2026 01:30", " 25.10.2026 03:00", {}), "25.10. 03:00 7 1:30 2:30; "}};
  for (const auto& [got, parts] : cases) EXPECT_EQ(got, parts);
}

TEST(HourPeriods, RefuseWhatIsNoPeriod) {
  const TDateTime day = EncodeDate(2026, 10, 25), half = day + 2.5 / 24;
  EXPECT_THROW(SplitPeriod({day, day - 1.0 / 1440}, {}), EInvalidArgument);
  EXPECT_THROW(ClockHours({half, half, true, false}), EInvalidArgument) << "the first is before the second";
  EXPECT_THROW(ElapsedHours({day, std::nan("")}), EInvalidArgument);
  for (TClockWindow window : {TClockWindow{60, 60}, TClockWindow{-1, 60}, TClockWindow{60, 1441}})
    EXPECT_THROW(SplitPeriod({day, half}, {}, window), EInvalidArgument) << window.From;
  EXPECT_EQ(ElapsedHours({half + 29.4 / 86400, half + 1 + 30.6 / 86400}).Minutes, 1501) << "to the nearest minute";
  TFixedTimeZone fixed(60);
  EXPECT_EQ(ElapsedHours({day, half, false, true}, fixed).Minutes, 150);
}

TEST(GermanTimeZone, ChangesAtOneOClockUniversalTime) {
  const TCases<TDateTime, const char*> cases = {{EncodeDate(1980, 4, 6), "60 120"},
                                                {EncodeDate(1980, 9, 28), "120 60"},
                                                {EncodeDate(1995, 9, 24), "120 60"},
                                                {EncodeDate(1996, 3, 31), "60 120"},
                                                {EncodeDate(1996, 10, 27), "120 60"},
                                                {EncodeDate(2027, 10, 31), "120 60"},
                                                {EncodeDate(1979, 7, 1), "60 60"},
                                                {1e300, "60 60"},
                                                {std::nan(""), "60 60"}};
  for (const auto& [day, offsets] : cases) {
    TTimeZone& zone = GermanTimeZone();
    EXPECT_EQ((TFacts{zone.OffsetAtUtc(day + 1 / 24.0 - 1 / 86400000.0), zone.OffsetAtUtc(day + 1 / 24.0)}), offsets)
        << day;
  }
}

}  // namespace
