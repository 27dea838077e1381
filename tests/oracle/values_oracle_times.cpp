// Times, hour amounts and industry hours: to text or another form and back.
//
// A time is made here of whole milliseconds; what its texts and other forms must be follows from the
// integers alone.
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "values_oracle.h"

namespace vx::oracle {
namespace {

constexpr int64_t kSecond = 1000, kMinute = 60000, kHour = 3600000, kDay = 86400000;
constexpr TDateTime kNone = -1e9;

// An amount of milliseconds in its parts.
struct TAmount {
  explicit TAmount(int64_t MSecs)
      : Total(MSecs),
        Size(std::llabs(MSecs)),
        Days(static_cast<int>(Size / kDay)),
        Hour(static_cast<int>(Size % kDay / kHour)),
        Minute(static_cast<int>(Size % kHour / kMinute)),
        Second(static_cast<int>(Size % kMinute / kSecond)),
        MSec(static_cast<int>(Size % kSecond)),
        Hours(Size / kHour) {}

  // The time of day alone, and the amount as days.
  double Fraction() const { return static_cast<double>(Size % kDay) / static_cast<double>(kDay); }
  double Value() const { return Total < 0 ? -(Days + Fraction()) : Days + Fraction(); }

  int64_t Total, Size;
  int Days, Hour, Minute, Second, MSec;
  int64_t Hours;  // with those of the days
};

TDateTimeFormats FormatsOf(unsigned Bits) {
  TDateTimeFormats result;
  for (TDateTimeFormat format : {dfSec, dfSecMSec, dfTrimLeft, dfTrimRight, dfPlusSign}) {
    if (Bits >> format & 1) result.Include(format);
  }
  return result;
}

// The smallest part that a text with these formats holds.
int64_t StepOf(TDateTimeFormats Formats) { return Formats.Has(dfSecMSec) ? 1 : Formats.Has(dfSec) ? kSecond : kMinute; }

// What stands behind the hour: ":mm", ":mm:ss" or ":mm:ss:mmm", cut where only zeros would follow.
std::string TailOf(const TAmount& Time, TDateTimeFormats Formats) {
  char text[40];
  std::snprintf(text, sizeof text, ":%02d:%02d:%03d", Time.Minute, Time.Second, Time.MSec);
  std::string result(text, Formats.Has(dfSecMSec) ? 10 : Formats.Has(dfSec) ? 6 : 3);
  if (Formats.Has(dfTrimRight)) {
    if (result.size() == 10 && Time.MSec == 0) result.resize(6);
    if (result.size() == 6 && Time.Second == 0) result.resize(3);
    if (result.size() == 3 && Time.Minute == 0) result.clear();
  }
  return result;
}

// Times of day, also of a second day, whose day a time of day does not show. What is smaller than the text's
// last field is cut off.
void CompareTimeText(TComparison& To, int64_t MSecs, unsigned FormatBits) {
  const TDateTimeFormats formats = FormatsOf(FormatBits);
  const TAmount given(MSecs), time(MSecs / StepOf(formats) * StepOf(formats));
  const bool isEnd = given.Total == kDay;
  const double want = isEnd ? 1.0 : time.Fraction();
  To.Case();
  if (want != given.Value()) To.Explain();
  const std::string hour = std::to_string(isEnd ? 24 : time.Hour);
  const bool isPadded = hour.size() < 2 && !formats.Has(dfTrimLeft);
  const String got = VxTimeToStr24(given.Value(), formats);
  To.Same("VxTimeToStr24", got, TWide((isPadded ? "0" : "") + hour + TailOf(time, formats)), given.Value(), FormatBits);
  To.Same("VxStrToTime24", VxStrToTime24(got, kNone), want, got);
  if (!formats.Has(dfTrimLeft)) To.Same("StrToTimeDef", StrToTimeDef(got, kNone), want, got);
}

void CompareHourText(TComparison& To, int64_t MSecs, unsigned FormatBits) {
  const TDateTimeFormats formats = FormatsOf(FormatBits);
  const TAmount given(MSecs), hour(MSecs / StepOf(formats) * StepOf(formats));
  To.Case();
  std::string text = given.Total < 0 ? "-" : formats.Has(dfPlusSign) ? "+" : "";
  if (hour.Hours > 0 || given.Total == 0 || !formats.Has(dfTrimLeft)) text += std::to_string(hour.Hours);
  text += TailOf(hour, formats);
  const String got = VxHourToStr(given.Value(), formats);
  To.Same("VxHourToStr", got, TWide(text), given.Value(), FormatBits);
  TDateTime back = kNone;
  To.Same("VxStrToHour", VxStrToHour(got, back), true, got);
  To.Same("VxStrToHour", back, hour.Value(), got);
  if (formats != TDateTimeFormats() && formats != TDateTimeFormats{dfPlusSign}) {
    if (hour.Total != given.Total) To.Explain();
    return;
  }
  // Below 0 the reader gives the whole hours alone, as a number.
  const double want = given.Total < 0 ? -static_cast<double>(hour.Hours) : hour.Value();
  if (want != given.Value()) To.Explain();
  To.Same("StrToHourDef", StrToHourDef(got, kNone), want, got);
}

// Rounded from the milliseconds to seconds, and from these to minutes.
void CompareRoundedHour(TComparison& To, int64_t MSecs) {
  const TAmount hour(MSecs);
  const int64_t seconds = (hour.Size + 500) / 1000, minutes = (seconds + 30) / 60;
  const TAmount rounded((hour.Total < 0 ? -1 : 1) * minutes * kMinute);
  To.Case();
  std::string text = hour.Total == 0 ? "0:00" : rounded.Total < 0 ? "-" : "";
  if (text != "0:00") {
    const std::string hours = std::to_string(rounded.Hours);
    text += (hours.size() < 2 ? "0" : "") + hours + TailOf(rounded, {});
  }
  const String got = VxHourMinToStr(hour.Value());
  To.Same("VxHourMinToStr", got, TWide(text), hour.Value());
  TDateTime back = kNone;
  To.Same("VxStrToHour", VxStrToHour(got, back), true, got);
  To.Same("VxStrToHour", back, rounded.Value(), got);
}

void CompareTimeForms(TComparison& To, int64_t MSecs) {
  const TAmount time(MSecs % kDay);
  const double want = time.Fraction();
  To.Case();
  TDateTime encoded = kNone;
  To.Same("VxEncodeTime", VxEncodeTime(time.Hour, time.Minute, time.Second, time.MSec, encoded), true, MSecs);
  To.Same("VxEncodeTime", encoded, want, MSecs);
  To.Same("EncodeTime", EncodeTime(time.Hour, time.Minute, time.Second, time.MSec), want, MSecs);
  const int code = time.Hour * 10000000 + time.Minute * 100000 + time.Second * 1000 + time.MSec;
  for (double value : {want, 1 + want, 42000 + want, -42000 - want}) {
    int hour = -1, minute = -1, second = -1, msec = -1;
    DecodeTime(value, hour, minute, second, msec);
    To.Same("DecodeTime", hour * 10000000 + minute * 100000 + second * 1000 + msec, code, value);
    To.Same("DateTimeToTimeStamp", DateTimeToTimeStamp(value).Time, static_cast<int>(time.Total), value);
    To.Same("VxTimeToInt", VxTimeToInt(value), code, value);
  }
  To.Same("VxIntToTime", VxIntToTime(code), want, code);
  if (time.MSec != 0) return;
  const TWide text = Print("%02d:%02d:%02d", time.Hour, time.Minute, time.Second);
  To.Same("VxTimeToStr", VxTimeToStr(42000 + want), text, want);
  To.Same("VxStrToTime", VxStrToTime(text), want, text);
  TDateTime back = kNone;
  To.Same("TryStrToTime", TryStrToTime(text, back), true, text);
  To.Same("TryStrToTime", back, want, text);
}

// A date with a time of day in whole seconds: before day 0 the time is taken off the day.
void CompareDateTimeText(TComparison& To, int Day, int64_t Second) {
  const TAmount time(Second * kSecond);
  const double value = Day < 0 ? Day - time.Fraction() : Day + time.Fraction();
  To.Case();
  constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
  const std::chrono::year_month_day fields(kDayZero + std::chrono::days{Day});
  const int year = static_cast<int>(fields.year());
  const unsigned month = static_cast<unsigned>(fields.month()), day = static_cast<unsigned>(fields.day());
  const TWide text =
      Second == 0 ? Print("%02u.%02u.%04d", day, month, year)
                  : Print("%02u.%02u.%04d %02d:%02d:%02d", day, month, year, time.Hour, time.Minute, time.Second);
  const String got = DateTimeToStr(value);
  To.Same("DateTimeToStr", got, text, value);
  To.Same("StrToDateTime", StrToDateTime(got), value, got);
  // These add the time to the day, so that it moves forward also before day 0.
  if (Day < 0 && Second != 0) To.Explain();
  To.Same("VxStrToDateTime", VxStrToDateTime(got), Day + time.Fraction(), got);
  if (Second != 0) To.Same("StrToDateTimeDef", StrToDateTimeDef(got, kNone), Day + time.Fraction(), got);
}

void CompareMinutes(TComparison& To, int Minutes) {
  const TAmount time(Minutes * kMinute);
  To.Case();
  To.Same("VxMinuteToTime", VxMinuteToTime(Minutes), time.Value(), Minutes);
  // The days keep their sign on the way back, the time of day has none.
  const int rest = static_cast<int>(time.Size % kDay / kMinute);
  const int want = (Minutes < 0 ? -time.Days : time.Days) * 1440 + rest;
  To.Same("VxTimeToMinute", VxTimeToMinute(time.Value()), want, Minutes);
  if (want != Minutes) To.Explain();
}

// The whole number nearest to Value * Factor / Divisor, which is never in the middle here.
int64_t Nearest(int64_t Value, int64_t Factor, int64_t Divisor) {
  const int64_t size = (2 * std::llabs(Value) * Factor + Divisor) / (2 * Divisor);
  return Value < 0 ? -size : size;
}

void CompareIndustry(TComparison& To, int Minutes) {
  To.Case();
  const int64_t industry = Nearest(Minutes, 5, 3);
  To.Same("VxMinuteToIndustry", int64_t{VxMinuteToIndustry(Minutes)}, industry, Minutes);
  To.Same("VxIndustryToMinute", int64_t{VxIndustryToMinute(static_cast<int>(industry))}, int64_t{Minutes}, industry);
  // The way round by industry minutes: of a hundred only sixty come back.
  const int64_t minute = Nearest(Minutes, 3, 5), back = Nearest(minute, 5, 3);
  To.Same("VxIndustryToMinute", int64_t{VxIndustryToMinute(Minutes)}, minute, Minutes);
  To.Same("VxMinuteToIndustry", int64_t{VxMinuteToIndustry(static_cast<int>(minute))}, back, minute);
  if (back != Minutes) To.Explain();
  To.Same("VxIndustryHourToMinute", int64_t{VxIndustryHourToMinute(Minutes / 100.0)}, int64_t{Minutes}, Minutes);
  if (Minutes < 0) return;
  const TAmount time(Minutes * kMinute);
  const double hours = VxHourToIndustry(time.Value());
  const int64_t hundredths = time.Hours * 100 + Nearest(time.Minute, 5, 3);
  To.Same("VxHourToIndustry", std::fabs(hours * 100 - static_cast<double>(hundredths)) < 1e-9, true, Minutes);
  To.Same("VxIndustryToHour", VxIndustryToHour(hours), time.Value(), hours);
  // Any hundredth of an hour: whole hours, and the nearest minute.
  const TAmount want((Minutes / 100 * 60 + Nearest(Minutes % 100, 3, 5)) * kMinute);
  To.Same("VxIndustryToHour", VxIndustryToHour(Minutes / 100.0), want.Value(), Minutes);
}

}  // namespace

void CompareTimes(TReport& Report) {
  TComparison times(Report, "time-texts", "times"), hours(Report, "hour-texts", "hours");
  TComparison rounded(Report, "rounded-hours", "hours"), forms(Report, "time-forms", "times");
  TComparison dates(Report, "datetime-texts", "datetimes"), minutes(Report, "minutes", "minutes");
  TComparison industry(Report, "industry", "minutes");
  TRandom random(1440);
  for (unsigned formats = 0; formats < 32; ++formats) {
    const int64_t step = StepOf(FormatsOf(formats)) == kMinute ? kMinute : kSecond;
    for (int64_t time = 0; time < 2 * kDay; time += step) {
      CompareTimeText(times, time, formats);
      CompareHourText(hours, time, formats);
      CompareHourText(hours, -time, formats);
    }
    for (int i = 0; i < 10000; ++i) CompareTimeText(times, random.Range(0, 2 * kDay), formats);
  }
  for (int i = 0; i < 100000; ++i) {
    const int64_t hour = random.Range(-1000000 * kHour, 1000000 * kHour) >> random.Range(0, 40);
    for (unsigned formats = 0; formats < 32; ++formats) CompareHourText(hours, hour, formats);
    CompareRoundedHour(rounded, hour);
    CompareTimeForms(forms, random.Range(0, kDay - 1));
    CompareDateTimeText(dates, static_cast<int>(random.Range(-693593, 2958465)), random.Range(0, 86399));
  }
  for (int64_t time = -2 * kDay; time < 2 * kDay; time += 500) CompareRoundedHour(rounded, time);
  for (int64_t time = 0; time < kDay; time += kSecond) {
    CompareTimeForms(forms, time);
    CompareDateTimeText(dates, 42046, time / kSecond);
    CompareDateTimeText(dates, 42047, time / kSecond);
  }
  for (int value = -200000; value <= 200000; ++value) {
    CompareMinutes(minutes, value);
    CompareIndustry(industry, value);
  }
}

}  // namespace vx::oracle
