#include "core/HourPeriods.h"

#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

TDateTime At(const char* Text) { return StrToDateTime(String::FromUtf8(Text)); }

// A line for each part: from, to, weekday, N for night, hours by the clock and elapsed.
std::string PartsOf(const char* From, const char* To, TPeriodCuts Cuts, TClockWindow Night = {},
                    TTimeZone& Zone = GermanTimeZone()) {
  const THourPeriod period{At(From), At(To), From[0] == ' ', To[0] == ' '};
  std::string lines;
  THourAmount clock, elapsed;
  for (const TPeriodPart& part : SplitPeriod(period, Cuts, Night, Zone)) {
    lines += Concat({FormatDateTime(u"d.m. hh:nn", part.From), u" - ", FormatDateTime(u"d.m. hh:nn ", part.To),
                     IntToStr(part.WeekDay), part.IsNight ? u"N " : u" ", HourAmountToStr(part.Clock), u" ",
                     HourAmountToStr(part.Elapsed), u"\n"})
                 .ToUtf8();
    clock += part.Clock;
    elapsed += part.Elapsed;
  }
  EXPECT_EQ(clock, ClockHours(period, Zone)) << From;
  EXPECT_EQ(elapsed, ElapsedHours(period, Zone)) << From;
  return lines;
}

TEST(HourPeriods, AreCutAtTheirBorders) {
  EXPECT_EQ(PartsOf("31.01.2026 14:00", "02.02.2026 07:00", {pcMidnight, pcNight}),
            "31.1. 14:00 - 31.1. 20:00 6 6:00 6:00\n31.1. 20:00 - 1.2. 00:00 6N 4:00 4:00\n"
            "1.2. 00:00 - 1.2. 06:00 7N 6:00 6:00\n1.2. 06:00 - 1.2. 20:00 7 14:00 14:00\n"
            "1.2. 20:00 - 2.2. 00:00 7N 4:00 4:00\n2.2. 00:00 - 2.2. 06:00 1N 6:00 6:00\n"
            "2.2. 06:00 - 2.2. 07:00 1 1:00 1:00\n");
  EXPECT_EQ(PartsOf("31.01.2026 14:00", "02.02.2026 07:00", {pcMonth}),
            "31.1. 14:00 - 1.2. 00:00 6 10:00 10:00\n1.2. 00:00 - 2.2. 07:00 7 31:00 31:00\n");
  EXPECT_EQ(PartsOf("31.01.2026 14:00", "02.02.2026 07:00", {pcWeek}, {60, 120}),
            "31.1. 14:00 - 2.2. 00:00 6 34:00 34:00\n2.2. 00:00 - 2.2. 07:00 1 7:00 7:00\n");
  EXPECT_EQ(PartsOf("01.02.2026 20:00", "02.02.2026 06:00", {pcNight}), "1.2. 20:00 - 2.2. 06:00 7N 10:00 10:00\n");
  EXPECT_EQ(PartsOf("01.02.2026 21:00", "02.02.2026 03:00", {pcNight}, {22 * 60, 1440}),
            "1.2. 21:00 - 1.2. 22:00 7 1:00 1:00\n1.2. 22:00 - 2.2. 00:00 7N 2:00 2:00\n"
            "2.2. 00:00 - 2.2. 03:00 1 3:00 3:00\n");
  EXPECT_EQ(PartsOf("01.02.2026 21:00", "01.02.2026 21:00", {pcNight}), "");
  EXPECT_EQ(PartsOf("29.12.1899 18:00", "31.12.1899 06:00", {pcMidnight}),
            "29.12. 18:00 - 30.12. 00:00 5 6:00 6:00\n30.12. 00:00 - 31.12. 00:00 6 24:00 24:00\n"
            "31.12. 00:00 - 31.12. 06:00 7 6:00 6:00\n");
}

// A text with a blank in front is the second of its kind.
TEST(HourPeriods, GoOverChangesOfSummerTime) {
  EXPECT_EQ(PartsOf("28.03.2026 22:00", "29.03.2026 06:30", {pcNight}),
            "28.3. 22:00 - 29.3. 06:00 6N 8:00 7:00\n29.3. 06:00 - 29.3. 06:30 7 0:30 0:30\n");
  EXPECT_EQ(PartsOf("29.03.2026 00:00", "29.03.2026 05:00", {pcNight}, {150, 240}),
            "29.3. 00:00 - 29.3. 02:30 7 2:30 2:00\n29.3. 02:30 - 29.3. 04:00 7N 1:30 1:00\n"
            "29.3. 04:00 - 29.3. 05:00 7 1:00 1:00\n")
      << "2:30 is skipped";
  EXPECT_EQ(PartsOf("29.03.2026 02:15", "29.03.2026 02:45", {}), "29.3. 02:15 - 29.3. 02:45 7 0:30 0:00\n");
  EXPECT_EQ(PartsOf("24.10.2026 22:00", "25.10.2026 06:30", {pcMidnight}),
            "24.10. 22:00 - 25.10. 00:00 6 2:00 2:00\n25.10. 00:00 - 25.10. 06:30 7 6:30 7:30\n");
  EXPECT_EQ(PartsOf("25.10.2026 02:45", " 25.10.2026 02:15", {}), "25.10. 02:45 - 25.10. 02:15 7 -0:30 0:30\n");
  EXPECT_EQ(PartsOf(" 25.10.2026 02:15", "25.10.2026 05:00", {pcNight}, {150, 240}),
            "25.10. 02:15 - 25.10. 02:30 7 0:15 0:15\n25.10. 02:30 - 25.10. 04:00 7N 1:30 1:30\n"
            "25.10. 04:00 - 25.10. 05:00 7 1:00 1:00\n");
  EXPECT_EQ(PartsOf(" 25.10.2026 01:30", " 25.10.2026 03:00", {}), "25.10. 01:30 - 25.10. 03:00 7 1:30 2:30\n");
  TFixedTimeZone fixed(60);
  EXPECT_EQ(PartsOf("24.10.2026 22:00", " 25.10.2026 02:30", {}, {}, fixed),
            "24.10. 22:00 - 25.10. 02:30 6 4:30 4:30\n");
}

TEST(HourPeriods, RefuseWhatIsNoPeriod) {
  const TDateTime day = EncodeDate(2026, 10, 25), half = day + 2.5 / 24;
  EXPECT_THROW(SplitPeriod({day, day - 1.0 / 1440}, {}), EInvalidArgument);
  EXPECT_THROW(ClockHours({half, half, true, false}), EInvalidArgument) << "the first is before the second";
  EXPECT_THROW(ElapsedHours({day, std::nan("")}), EInvalidArgument);
  for (TClockWindow window : {TClockWindow{60, 60}, TClockWindow{-1, 60}, TClockWindow{60, 1441}})
    EXPECT_THROW(SplitPeriod({day, half}, {}, window), EInvalidArgument) << window.From;
  EXPECT_EQ(ElapsedHours({half + 29.4 / 86400, half + 1 + 30.6 / 86400}).Minutes, 1501) << "to the nearest minute";
}

TEST(GermanTimeZone, ChangesAtOneOClockUniversalTime) {
  const TCases<const char*, int> changes = {{"06.04.1980", 120}, {"28.09.1980", 60},  {"31.03.1985", 120},
                                            {"24.09.1995", 60},  {"31.03.1996", 120}, {"27.10.1996", 60},
                                            {"28.03.2027", 120}, {"31.10.2027", 60}};
  for (const auto& [day, after] : changes) {
    const TDateTime change = StrToDate(String::FromUtf8(day)) + 1 / 24.0;
    EXPECT_EQ((TFacts{GermanTimeZone().OffsetAtUtc(change - 1 / 86400000.0), GermanTimeZone().OffsetAtUtc(change)}),
              (after == 120 ? "60 120" : "120 60"))
        << day;
  }
  for (double moment : {EncodeDate(1979, 7, 1), -700000.0, 1e300, std::nan("")})
    EXPECT_EQ(GermanTimeZone().OffsetAtUtc(moment), 60) << moment;
}

}  // namespace
