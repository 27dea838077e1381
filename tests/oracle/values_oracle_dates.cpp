// Days and weeks against the calendar of std::chrono.
#include <chrono>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Exceptions.h"
#include "tests/oracle/values_oracle.h"

namespace vx::oracle {
namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kDayZero{chrono::year{1899} / 12 / 30};
constexpr TDateTime kNoDate = -1e9;

struct TDay {
  explicit TDay(chrono::sys_days Date)
      : Chrono(Date),
        Serial(static_cast<int>((Date - kDayZero).count())),
        WeekDay(static_cast<int>(chrono::weekday(Date).iso_encoding())) {
    const chrono::year_month_day fields(Date);
    Year = static_cast<int>(fields.year());
    Month = static_cast<int>(static_cast<unsigned>(fields.month()));
    Day = static_cast<int>(static_cast<unsigned>(fields.day()));
  }
  // The date with a time of day: before day 0 the time is taken off.
  TDateTime At(double Fraction) const { return Serial < 0 ? Serial - Fraction : Serial + Fraction; }

  chrono::sys_days Chrono;
  int Serial, WeekDay;  // 1 for Monday
  int Year, Month, Day;
};

void CompareDate(TComparison& To, const TDay& Day) {
  const int code = Day.Year * 10000 + Day.Month * 100 + Day.Day;
  const double want = Day.Serial;
  TDateTime date = kNoDate;
  To.Same("TryEncodeDate", TryEncodeDate(Day.Year, Day.Month, Day.Day, date) ? date : kNoDate, want, code);
  To.Same("EncodeDate", EncodeDate(Day.Year, Day.Month, Day.Day), want, code);
  To.Same("VxEncodeDate", VxEncodeDate(Day.Year, Day.Month, Day.Day, date) ? date : kNoDate, want, code);
  To.Same("VxIntToDate", VxIntToDate(code), want, code);
  for (double time : {want, Day.At(0.75), Day.At(86399999.0 / 86400000.0)}) {
    int year = -1, month = -1, day = -1;
    DecodeDate(time, year, month, day);
    To.Same("DecodeDate", (year * 100 + month) * 100 + day, code, time);
    To.Same("VxDateToInt", VxDateToInt(time), code, time);
    To.Same("DayOfWeek", DayOfWeek(time), Day.WeekDay % 7 + 1, time);
    To.Same("GetWeekDay", GetWeekDay(time), Day.WeekDay, time);
  }
  To.Same("StrToDateTime", StrToDateTime(DateTimeToStr(Day.At(0.75))), Day.At(0.75), want);
  const std::u16string text = Print("%02d.%02d.%04d", Day.Day, Day.Month, Day.Year);
  const std::u16string trimmed = Print("%d.%02d.%04d", Day.Day, Day.Month, Day.Year);
  const std::u16string compact = Print("%04d%02d%02d", Day.Year, Day.Month, Day.Day);
  To.Same("VxDateToStr", VxDateToStr(want, {}), text, want);
  To.Same("VxDateToStr dfTrimLeft", VxDateToStr(want, {dfTrimLeft}), trimmed, want);
  To.Same("StrToDateDef", StrToDateDef(text, kNoDate), want, text);
  To.Same("StrToDateDef", StrToDateDef(compact, kNoDate), want, compact);
  To.Same("VxStrToDate", VxStrToDate(text), want, text);
  To.Same("VxStrToDate", VxStrToDate(trimmed), want, trimmed);
}

// Refused by all routines, and what they were to fill is as they promise.
void CompareInvalid(TComparison& To, int Year, int Month, int Day) {
  TDateTime date = kNoDate;
  try {
    date = EncodeDate(Year, Month, Day);
  } catch (const EConvertError&) {
  }
  To.Same("EncodeDate", date, kNoDate, Year, Month, Day);
  To.Same("TryEncodeDate", TryEncodeDate(Year, Month, Day, date) || date != kNoDate, false, Year, Month, Day);
  To.Same("VxEncodeDate", VxEncodeDate(Year, Month, Day, date) || date != 0, false, Year, Month, Day);
  if (Year < 0 || Month < 0 || Day < 0) return;
  const int code = Year * 10000 + Month * 100 + Day;
  const std::u16string text = Print("%02d.%02d.%04d", Day, Month, Year);
  To.Same("VxIntToDate", VxIntToDate(code), 0.0, code);
  To.Same("VxStrToDate", VxStrToDate(text), 0.0, text);
  To.Same("StrToDateDef", StrToDateDef(text, kNoDate), kNoDate, text);
}

// Year * 100 + week by the rule of the first Thursday, by the Thursday of the day's own week.
int IsoWeek(const TDay& Day) {
  const chrono::sys_days thursday = Day.Chrono + chrono::days{4 - Day.WeekDay};
  const chrono::year year = chrono::year_month_day(thursday).year();
  return static_cast<int>(year) * 100 + static_cast<int>((thursday - chrono::sys_days(year / 1 / 1)).count()) / 7 + 1;
}

void CompareWeek(TComparison& To, const TDay& Day) {
  const int iso = IsoWeek(Day), isoYear = iso / 100;
  // The days that ISO puts into the next year stay in a week 53 of their own.
  const int want = isoYear > Day.Year ? Day.Year * 100 + 53 : iso;
  const double date = Day.Serial, monday = Day.Serial + 1 - Day.WeekDay;
  const int got = GetCalWeek(date);
  To.Same("GetCalWeek", got, want, date);
  To.Same("GetCalendarWeek", GetCalendarWeek(date), want % 100, date);
  To.Same("GetCalendarWeek with a time", GetCalendarWeek(Day.At(0.5)), want % 100, date);
  To.Same("GetCalWeekDate", GetCalWeekDate(want), monday, want);
  To.Same("GetCalWeekDate of the ISO week", GetCalWeekDate(iso), monday, iso);
  // A Sunday with a time counts as the week behind it: week 1 where it is before that week's Monday.
  const int timed = Day.WeekDay < 7 ? want : isoYear < Day.Year ? Day.Year * 100 + 1 : want + 1;
  To.Same("GetCalWeek with a time", GetCalWeek(Day.At(0.5)), timed, Day.At(0.5));
  if (got == iso) return;
  To.Explain();
  if (To.Verbose()) std::printf("  %02d.%02d.%04d: week %d, ISO %d\n", Day.Day, Day.Month, Day.Year, got, iso);
}

}  // namespace

void CompareDates(TReport& Report) {
  TComparison dates(Report, "dates"), invalid(Report, "invalid-dates"), weeks(Report, "weeks");
  for (chrono::sys_days day = chrono::year{1} / 1 / 1; day <= chrono::year{9999} / 12 / 31; day += chrono::days{1}) {
    const TDay fields(day);
    CompareDate(dates, fields);
    if (fields.Year >= 1900 && fields.Year <= 2200) CompareWeek(weeks, fields);
  }
  for (int months = 0; months < 10002 * 15; ++months) {
    const int year = months / 15 - 1, month = months % 15 - 1;
    for (int day : {-1, 0, 28, 29, 30, 31, 32}) {
      const bool good = year > 0 && year < 10000 && month > 0 && day > 0 &&
                        (chrono::year{year} / chrono::month(static_cast<unsigned>(month)) / day).ok();
      if (!good) CompareInvalid(invalid, year, month, day);
    }
  }
}

}  // namespace vx::oracle
