#include "platform/Calendar.h"

#include "platform/DateText.h"
#include "tests/support/Test.h"

namespace {

constexpr double kMs = 1.0 / MSecsPerDay;
constexpr TDateTime kNone = -77777;

TEST(Calendar, ValuesToTheNearestMillisecond) {
  const TCases<TDateTime, int64_t> cases = {
      {60, 19000228000000000}, {-1.25, 18991229060000000},      {42046 - 0.6 * kMs, 20150210235959999}, {1E300, 0},
      {HUGE_VAL, 0},           {-0.25, 18991230060000000},      {42046 - 0.4 * kMs, 20150211000000000}, {-1E300, 0},
      {-693594.75, 180000000}, {3 / 2048.0, 18991230000206562}, {-1.9999999999, 18991228000000000},     {NAN, 0},
      {3000000.5, 120000000},  {2958466 - 0.3 * kMs, 0},        {2958466 - kMs, 99991231235959999}};
  for (const auto& [value, fields] : cases) {
    int f[7];
    DecodeDate(value, f[0], f[1], f[2]);
    DecodeTime(value, f[3], f[4], f[5], f[6]);
    const int64_t date = (f[0] * 100LL + f[1]) * 100 + f[2], time = (f[3] * 100LL + f[4]) * 100000 + f[5] * 1000 + f[6];
    EXPECT_EQ(date * 1000000000 + time, fields) << value;
    const bool isOutside = fields < 10101000000000;
    const int stampDate = DateTimeToTimeStamp(value).Date;
    EXPECT_EQ(std::pair(stampDate == 0, DayOfWeek(value) == 0), std::pair(isOutside, isOutside)) << value;
    EXPECT_EQ(isOutside ? 0 : EncodeDate(f[0], f[1], f[2]), isOutside ? 0 : stampDate - DateDelta) << value;
  }
  TTimeStamp stamp = DateTimeToTimeStamp(-1.25);
  EXPECT_EQ((TFacts{stamp.Date - DateDelta, stamp.Time, DayOfWeek(42046), DayOfWeek(1)}), "-1 21600000 4 1");
}

TEST(Calendar, RefusesWhatDoesNotExist) {
  const int dates[][3] = {{0, 1, 1},           {10000, 1, 1},        {2015, 0, 1},
                          {2015, 13, 1},       {2015, 1, 0},         {2015, INT32_MIN, 1},
                          {INT32_MAX, 12, 31}, {2015, 1, INT32_MIN}, {2015, 1, INT32_MAX},
                          {1900, 2, 29},       {2015, 4, 31}};
  for (const auto& d : dates) EXPECT_THROW(EncodeDate(d[0], d[1], d[2]), EConvertError) << d[0] << "," << d[2];
  const int times[][4] = {{24, 0, 0, 0}, {0, 60, 0, 0},        {0, 0, 60, 0},       {0, 0, 0, 1000},
                          {-1, 0, 0, 0}, {0, 0, INT32_MIN, 0}, {0, INT32_MAX, 0, 0}};
  TDateTime kept = 7;
  for (const auto& t : times) EXPECT_FALSE(TryEncodeTime(t[0], t[1], t[2], t[3], kept)) << t[0] << t[1];
  EXPECT_EQ(kept, 7);
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { EncodeDate(2015, 2, 29); }), u"Invalid argument to date encode");
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { EncodeTime(24, 0, 0, 0); }), u"Invalid argument to time encode");
  EXPECT_EQ(DaysInMonth(2015, 0) + DaysInMonth(2015, 13) + DaysInMonth(INT32_MIN, INT32_MAX), 0);
  const TCases<int, int, int, int, int, int, int> months = {{2016, 1, 31, 1, 2016, 2, 29},
                                                            {2015, 8, 31, -14, 2014, 6, 30},
                                                            {1899, 12, 29, 1, 1900, 1, 29},
                                                            {9999, 12, 31, -119987, 1, 1, 31}};
  for (const auto& [year, month, day, count, toYear, toMonth, toDay] : months) {
    TDateTime from = EncodeDate(year, month, day), to = EncodeDate(toYear, toMonth, toDay);
    EXPECT_EQ(IncMonth(from < 0 ? from - 0.25 : from + 0.25, count), to < 0 ? to - 0.25 : to + 0.25) << from;
  }
  const TCases<TDateTime, int> bad = {{-693593, -1}, {2958465, 1}, {0, INT32_MAX}, {0, INT32_MIN},
                                      {2958466, -1}, {NAN, 0},     {1E300, 1}};
  for (const auto& [value, count] : bad) EXPECT_THROW(IncMonth(value, count), EConvertError) << value << "," << count;
}

TEST(DateText, Masks) {
  const TDateTime evening = EncodeDate(2015, 2, 11) + EncodeTime(18, 5, 7, 89), morning = evening - 0.5;
  const TCases<String, TDateTime, String> cases = {
      {u"hh d mm|h 'd' m", evening, u"18 11 02|18 d 5"},
      {u"d.m.yy|dd.mm.yyyy|y", evening, u"11.2.15|11.02.2015|15"},
      {u"d.m.yyyy h ddd", -1.25, u"29.12.1899 6 Fr"},
      {u"ddd dddd mmm mmmm|ddddd|dddddd", evening, u"Mi Mittwoch Feb Februar|11.02.2015|Mittwoch, 11. Februar 2015"},
      {u"t|tt|c", morning, u"06:05|06:05:07|11.02.2015 06:05:07"},
      {u"", morning, u"11.02.2015 06:05:07"},
      {u"D. MMMM YYYY, H:NN", morning, u"11. Februar 2015, 6:05"},
      {u"yyyy.yy", -400000, u"0804.04"},
      {u"h:n:s z|hh:nn:ss,zzz", morning, u"6:5:7 89|06:05:07,089"},
      {u"h:m|HH.MM", evening, u"18:5|18.05"},
      {u"mm:hh|h:n:m|h:m:m", evening, u"02:18|18:5:2|18:5:2"},
      {u"hh 'am/pm'|h'a/p' a/p", evening, u"18 am/pm|6a/p p"},
      {u"h:nn am/pm|hh AM/PM|h a/p|h", evening, u"6:05 pm|06 PM|6 p|18"},
      {u"hhampm|h a", evening, u"06|18 a"},
      {u"h am/pm", 0.01, u"12 am"},
      {u"h am/pm", 0.51, u"12 pm"},
      {u"am/pm h", evening, u"pm 18"},
      {u"d 'dm\"y", evening, u"11 dm\"y"},
      {u"'d' \"it's d\" d''|d/m §", evening, u"d it's d 11|11.2 §"},
      {u"d.m. hh:nn:ss.zzz|c", 42046 - 0.4 * kMs, u"11.2. 00:00:00.000|11.02.2015"},
      {u"yyyy hh", NAN, u"0000 00"},
      {u"dd.mm.yyyy hh:nn dddd mmm", 3000000.25, u"00.00.0000 06:00  "}};
  for (const auto& [mask, value, text] : cases) EXPECT_EQ(FormatDateTime(mask, value), text) << mask;
  String many;
  for (int i = 0; i < 100000; ++i) many += u"h ";
  EXPECT_EQ(FormatDateTime(many, 0).size(), 200000) << "quadratic time would not end";
  TFormatSettings settings{.DateSeparator = u'-',
                           .TimeSeparator = 0,
                           .ShortDateFormat = u"yyyy/mm/dd",
                           .LongTimeFormat = u"h:nn ampm",
                           .TimeAMString = u"vorm."};
  EXPECT_EQ(FormatDateTime(u"c", 42046.25, settings), u"2015-02-11 600 vorm.");
  EXPECT_EQ(DateToStr(42046.25) + TimeToStr(42046.25) + DateTimeToStr(42046), u"11.02.201506:00:0011.02.2015");
  settings.ShortDateFormat = settings.LongDateFormat = settings.LongTimeFormat = u"c ddddd tt";
  EXPECT_LT(FormatDateTime(u"c dddddd t tt", 42046.5, settings).size(), 100000) << "endless";
}

TEST(DateText, ReadsDatesNearThePresent) {
  test::TZoneAt zone(60);
  test::TClockAt clock(EncodeDate(2015, 12, 31) + EncodeTime(23, 30, 0, 0));  // 2016 by local time
  const TCases<String, String, int, int, int, int> cases = {
      {u"dd.mm.yyyy", u"29. 2", 50, 2016, 2, 29},   {u"d.m.y", u"1.1.66", 50, 1966, 1, 1},
      {u"d.m.y", u"1.1.65", 50, 2065, 1, 1},        {u"d.m.y", u"1.1.007", 50, 7, 1, 1},
      {u"m/d/yyyy", u"2.11.2015", 50, 2015, 2, 11}, {u"YYYY-mm-dd", u"2015.2.11", 50, 2015, 2, 11},
      {u"yy-m-d", u"2.11", 50, 2016, 2, 11},        {u"d.m.y", u"1.1.99", 0, 2099, 1, 1},
      {u"d.m.y", u"1.1.35", 80, 2035, 1, 1},        {u"d.m.y", u"1.1.14", 1, 2114, 1, 1}};
  for (const auto& [form, text, window, year, month, day] : cases) {
    TFormatSettings settings{.TwoDigitYearCenturyWindow = static_cast<uint16_t>(window), .ShortDateFormat = form};
    EXPECT_EQ(StrToDate(text, settings), EncodeDate(year, month, day)) << text << window;
  }
}

TEST(DateText, ReadsDatesAndTimes) {
  const String nines(10000, u'9');
  using TTry = bool (*)(std::u16string_view, TDateTime&) noexcept;
  const TTry date = TryStrToDate, time = TryStrToTime, both = TryStrToDateTime;
  const TCases<TTry, String, TDateTime> cases = {
      {date, u"11.02.2015", 42046},    {date, u"  11. 2.  2015", 42046},    {time, u"6:00 PM", 0.75},
      {date, u"0011.002.2015", 42046}, {time, u"23:59:59,999", 1 - kMs},    {time, u"12:00 am", 0},
      {time, u" 06: 00: 00", 0.25},    {both, u"29.12.1899 6:00", -1.25},   {both, u" 11.2.2015    18:00:00", 42046.75},
      {time, u"12:00 Pm", 0.5},        {both, u"11.2.2015 6 pm", 42046.75}, {both, u"6:00", 0.25}};
  for (const auto& [reads, text, expected] : cases) {
    TDateTime value = kNone;
    EXPECT_TRUE(reads(text, value)) << text;
    EXPECT_NEAR(value, expected, 1E-12) << text;
  }
  const TCases<TTry, std::vector<String>> bad = {
      {date,
       {u"", u" ", u"11", u"11.", u"11..2015", u".2.2015", u"11.2.2015x", u"11.2.2015.7", u"-11.2.2015", u"１.1.2015"}},
      {date,
       {u"2015.2.11", u"1a.02.2015", u"11.2.2015 6:30", u"29.2.1900", u"1.1.0000", u"1.1.10000", u"1.1." + nines,
        u"4294967297.1.2015", u"1.1.4294969311", nines + u".1.2015"}},
      {time,
       {u"", u" ", u"pm", u"6:", u":30", u"6:00:", u"6:00:00:00", u"6.30", u"6:00x", u"-6:00", nines, u"24:00",
        u"6:00:00,1000", u"13:00 pm", u"4294967302", u"6:00 p m"}},
      {both, {u"", u"x", u"11.2.2015 24:00", u"31.2.2015 6:00", u"11.2.2015T6:00", u"6:00 11.2.2015"}}};
  TDateTime kept = kNone;
  for (const auto& [reads, texts] : bad)
    for (const String& text : texts) EXPECT_EQ((std::pair{reads(text, kept), kept}), std::pair(false, kNone)) << text;
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToDate(u"31.4.2015"); }), u"'31.4.2015' is not a valid date");
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToTime(u"6:60"); }), u"'6:60' is not a valid time");
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToDateTime(u"x"); }), u"'x' is not a valid date and time");
  TFormatSettings settings{.DecimalSeparator = u'.', .TimeSeparator = u'h', .TimePMString = u"nachm."};
  EXPECT_NEAR(StrToTime(u"6h00h00.500 NACHM.", settings), 0.75 + 500 * kMs, 1E-12);
}

}  // namespace
