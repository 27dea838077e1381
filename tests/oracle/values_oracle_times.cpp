// Times, hour amounts and industry hours: to text or another form and back.
//
// A time is made here of whole milliseconds; what its texts and other forms must be follows from the
// integers alone.
#include <cmath>
#include <cstdlib>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctionsTime.h"
#include "tests/oracle/values_oracle.h"

namespace vx::oracle {
namespace {

constexpr int64_t kSecond = 1000, kMinute = 60000, kHour = 3600000, kDay = 86400000;
constexpr TDateTime kNone = -1e9;

const TDateTimeFormats kFormats[] = {
    {}, {dfPlusSign}, {dfSec}, {dfSecMSec}, {dfTrimLeft, dfTrimRight}, {dfSecMSec, dfTrimLeft, dfTrimRight}};

// An amount of milliseconds.
struct TAmount {
  explicit TAmount(int64_t MSecs) : Total(MSecs), Size(std::llabs(MSecs)), Hours(Size / kHour) {}
  // The time of day alone, and the amount as days.
  double Fraction() const { return static_cast<double>(Size % kDay) / static_cast<double>(kDay); }
  double Value() const { return (Total < 0 ? -1 : 1) * (static_cast<double>(Size / kDay) + Fraction()); }
  int64_t Total, Size, Hours;  // the hours with those of the days
};

// The amount without what a text with these formats does not hold.
TAmount Cut(int64_t MSecs, TDateTimeFormats Formats) {
  const int64_t step = Formats.Has(dfSecMSec) ? 1 : Formats.Has(dfSec) ? kSecond : kMinute;
  return TAmount(MSecs / step * step);
}

// The hours by Pattern and ":mm", ":mm:ss" or ":mm:ss:mmm", cut where only zeros would follow.
std::u16string TimeText(const char* Pattern, int64_t Hours, const TAmount& Time, TDateTimeFormats Formats) {
  std::u16string tail = Print(":%02d:%02d:%03d", static_cast<int>(Time.Size / kMinute % 60),
                              static_cast<int>(Time.Size / kSecond % 60), static_cast<int>(Time.Size % kSecond));
  tail.resize(Formats.Has(dfSecMSec) ? 10 : Formats.Has(dfSec) ? 6 : 3);
  while (Formats.Has(dfTrimRight) && !tail.empty() && tail.find_first_not_of(u":0", tail.rfind(u':')) == tail.npos)
    tail.resize(tail.rfind(u':'));
  return Print(Pattern, static_cast<int>(Hours)) + tail;
}

// Times of day, also of a second day, whose day a time of day does not show.
void CompareTimeText(TComparison& To, int64_t MSecs, TDateTimeFormats Formats) {
  const TAmount given(MSecs), time = Cut(MSecs, Formats);
  const bool isEnd = MSecs == kDay, isTrimmed = Formats.Has(dfTrimLeft);
  const double want = isEnd ? 1.0 : time.Fraction();
  if (want != given.Value()) To.Explain();
  To.Same("VxIntToTime", VxIntToTime(VxTimeToInt(given.Value())), given.Fraction(), given.Value());
  const String got = VxTimeToStr24(given.Value(), Formats);
  To.Same("VxTimeToStr24", got, TimeText(isTrimmed ? "%d" : "%02d", isEnd ? 24 : time.Hours % 24, time, Formats),
          given.Value());
  To.Same("VxStrToTime24", VxStrToTime24(got, kNone), want, got);
  if (!isTrimmed) To.Same("StrToTimeDef", StrToTimeDef(got, kNone), want, got);
  if (isEnd || Formats != TDateTimeFormats{dfSec}) return;
  To.Same("VxTimeToStr", VxTimeToStr(given.Value()), got, given.Value());
  To.Same("VxStrToTime", VxStrToTime(got), want, got);
}

void CompareHourText(TComparison& To, int64_t MSecs, TDateTimeFormats Formats) {
  const TAmount given(MSecs), hour = Cut(MSecs, Formats);
  const std::u16string sign = MSecs < 0 ? u"-" : Formats.Has(dfPlusSign) ? u"+" : u"";
  const bool isBare = hour.Hours == 0 && MSecs != 0 && Formats.Has(dfTrimLeft);
  const String got = VxHourToStr(given.Value(), Formats);
  To.Same("VxHourToStr", got, sign + TimeText(isBare ? "" : "%d", hour.Hours, hour, Formats), given.Value());
  TDateTime back = kNone;
  To.Same("VxStrToHour", VxStrToHour(got, back) ? back : kNone, hour.Value(), got);
  // Below 0 this reader gives the whole hours alone, as a number.
  const bool isShort = Formats.IsEmpty() || Formats == TDateTimeFormats{dfPlusSign};
  const double want = isShort && MSecs < 0 ? -static_cast<double>(hour.Hours) : hour.Value();
  if (want != given.Value()) To.Explain();
  if (isShort) To.Same("StrToHourDef", StrToHourDef(got, kNone), want, got);
}

// Rounded from the milliseconds to seconds, and from these to minutes.
void CompareRoundedHour(TComparison& To, int64_t MSecs) {
  const TAmount hour(MSecs), rounded((MSecs < 0 ? -1 : 1) * ((std::llabs(MSecs) + 500) / 1000 + 30) / 60 * kMinute);
  if (rounded.Total != MSecs) To.Explain();
  const std::u16string text = (rounded.Total < 0 ? u"-" : u"") + TimeText("%02d", rounded.Hours, rounded, {});
  const String got = VxHourMinToStr(hour.Value());
  To.Same("VxHourMinToStr", got, MSecs == 0 ? u"0:00" : text, hour.Value());
  TDateTime back = kNone;
  To.Same("VxStrToHour", VxStrToHour(got, back) ? back : kNone, rounded.Value(), got);
}

// The whole number nearest to Value * Factor / Divisor, which is never in the middle here.
int Nearest(int64_t Value, int64_t Factor, int64_t Divisor) {
  const int64_t size = (2 * std::llabs(Value) * Factor + Divisor) / (2 * Divisor);
  return static_cast<int>(Value < 0 ? -size : size);
}

void CompareMinutes(TComparison& To, int Minutes) {
  const TAmount time(Minutes * kMinute);
  To.Same("VxMinuteToTime", VxMinuteToTime(Minutes), time.Value(), Minutes);
  // The days keep their sign on the way back, the time of day has none.
  To.Same("VxTimeToMinute", VxTimeToMinute(time.Value()), Minutes / 1440 * 1440 + std::abs(Minutes % 1440), Minutes);
  const int industry = Nearest(Minutes, 5, 3), minute = Nearest(Minutes, 3, 5);
  To.Same("VxMinuteToIndustry", VxMinuteToIndustry(Minutes), industry, Minutes);
  To.Same("VxIndustryToMinute", VxIndustryToMinute(industry), Minutes, industry);
  // Of a hundred industry minutes only sixty come back.
  To.Same("VxIndustryToMinute", VxIndustryToMinute(Minutes), minute, Minutes);
  if (Nearest(minute, 5, 3) != Minutes || Minutes < 0) To.Explain();
  To.Same("VxIndustryHourToMinute", VxIndustryHourToMinute(Minutes / 100.0), Minutes, Minutes);
  if (Minutes < 0) return;
  const double hours = VxHourToIndustry(time.Value());
  const double want = static_cast<double>(time.Hours) * 100 + Nearest(Minutes % 60, 5, 3);
  To.Same("VxHourToIndustry", std::fabs(hours * 100 - want) < 1e-9, true, Minutes);
  To.Same("VxIndustryToHour", VxIndustryToHour(hours), time.Value(), hours);
  // Any hundredth of an hour: whole hours, and the nearest minute.
  const TAmount whole((Minutes / 100 * 60 + Nearest(Minutes % 100, 3, 5)) * kMinute);
  To.Same("VxIndustryToHour", VxIndustryToHour(Minutes / 100.0), whole.Value(), Minutes);
}

}  // namespace

void CompareTimes(TReport& Report) {
  TComparison times(Report, "time-texts"), hours(Report, "hour-texts"), minutes(Report, "minutes");
  TRandom random(1440);
  for (int i = 0; i < 100000 / Report.Part; ++i) {
    const int64_t hour = random.Range(-1000000 * kHour, 1000000 * kHour) >> random.Range(0, 40);
    const int64_t minute = (i % 5761 - 2880) * kMinute, time = random.Range(0, 2 * kDay);
    for (TDateTimeFormats formats : kFormats) {
      CompareHourText(hours, hour, formats);
      CompareTimeText(times, time, formats);
      if (i > 5760) continue;
      CompareHourText(hours, minute, formats);
      if (minute >= 0) CompareTimeText(times, minute, formats);
    }
    CompareRoundedHour(hours, hour);
    CompareRoundedHour(hours, minute + random.Int(-1, 1) * 30 * kSecond - random.Int(0, 1) * 500 + random.Int(-1, 1));
    CompareMinutes(minutes, i % 2 == 0 ? random.Int(-200000, 200000) : i / 2 - 25000);
  }
}

}  // namespace vx::oracle
