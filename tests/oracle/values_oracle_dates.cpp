// Days and weeks against the calendar of std::chrono.
#include <chrono>
#include <cstdio>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Exceptions.h"
#include "values_oracle.h"

namespace vx::oracle {
namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kDayZero{chrono::year{1899} / 12 / 30};
constexpr TDateTime kNoDate = -1e9;

int SerialOf(chrono::sys_days Day) { return static_cast<int>((Day - kDayZero).count()); }

struct TDay {
  explicit TDay(chrono::sys_days Date)
      : Chrono(Date),
        Fields(Date),
        Serial(SerialOf(Date)),
        Year(static_cast<int>(Fields.year())),
        Month(static_cast<int>(static_cast<unsigned>(Fields.month()))),
        Day(static_cast<int>(static_cast<unsigned>(Fields.day()))),
        WeekDay(static_cast<int>(chrono::weekday(Date).iso_encoding())) {}

  // The date with a time of day: before day 0 the time is taken off.
  TDateTime At(double Fraction) const { return Serial < 0 ? Serial - Fraction : Serial + Fraction; }

  chrono::sys_days Chrono;
  chrono::year_month_day Fields;
  int Serial;
  int Year, Month, Day;
  int WeekDay;  // 1 for Monday
};

template <typename F>
bool IsRefused(F&& Body) {
  try {
    Body();
  } catch (const EConvertError&) {
    return true;
  }
  return false;
}

void CompareFields(TComparison& To, const TDay& Day) {
  To.Case();
  const double want = Day.Serial;
  TDateTime date = kNoDate;
  To.Same("TryEncodeDate", TryEncodeDate(Day.Year, Day.Month, Day.Day, date), true, Day.Serial);
  To.Same("TryEncodeDate", date, want, Day.Serial);
  To.Same("EncodeDate", EncodeDate(Day.Year, Day.Month, Day.Day), want, Day.Serial);
  date = kNoDate;
  To.Same("VxEncodeDate", VxEncodeDate(Day.Year, Day.Month, Day.Day, date), true, Day.Serial);
  To.Same("VxEncodeDate", date, want, Day.Serial);
  To.Same("VxEncodeDate()", VxEncodeDate(Day.Year, Day.Month, Day.Day), want, Day.Serial);
  for (double time : {want, Day.At(0.75), Day.At(86399999.0 / 86400000.0)}) {
    int year = -1, month = -1, day = -1;
    DecodeDate(time, year, month, day);
    To.Same("DecodeDate", (year * 100 + month) * 100 + day, (Day.Year * 100 + Day.Month) * 100 + Day.Day, time);
    To.Same("DayOfWeek", DayOfWeek(time), Day.WeekDay % 7 + 1, time);
    To.Same("DateTimeToTimeStamp", DateTimeToTimeStamp(time).Date, Day.Serial + DateDelta, time);
    To.Same("GetWeekDay", GetWeekDay(time), Day.WeekDay, time);
    To.Same("GetYear", GetYear(time), Day.Year, time);
    To.Same("GetMonth", GetMonth(time), Day.Month, time);
    To.Same("GetDay", GetDay(time), Day.Day, time);
    To.Same("VxDateToInt", VxDateToInt(time), Day.Year * 10000 + Day.Month * 100 + Day.Day, time);
    To.Same("VxMonthToInt", VxMonthToInt(time), Day.Year * 100 + Day.Month, time);
  }
  date = kNoDate;
  const int code = Day.Year * 10000 + Day.Month * 100 + Day.Day;
  To.Same("VxIntToDate", VxIntToDate(code, date), true, code);
  To.Same("VxIntToDate", date, want, code);
  To.Same("VxIntToDate()", VxIntToDate(code), want, code);
}

void CompareBorders(TComparison& To, const TDay& Day) {
  To.Case();
  const double time = Day.At(0.25);
  const chrono::year year = Day.Fields.year();
  const chrono::month month = Day.Fields.month();
  const chrono::sys_days last = year / month / chrono::last;
  const int count = static_cast<int>(static_cast<unsigned>((year / month / chrono::last).day()));
  To.Same("IsLeapYear", IsLeapYear(Day.Year), year.is_leap(), Day.Year);
  To.Same("DaysInMonth", DaysInMonth(Day.Year, Day.Month), count, Day.Serial);
  To.Same("GetMonthDayCount", GetMonthDayCount(Day.Year, Day.Month), count, Day.Serial);
  To.Same("GetMonthDayCount()", GetMonthDayCount(time), count, time);
  To.Same("GetYearDayCount", GetYearDayCount(time), year.is_leap() ? 366 : 365, time);
  To.Same("GetMonthDayFirst", GetMonthDayFirst(time), double(SerialOf(year / month / 1)), time);
  To.Same("GetMonthDayLast", GetMonthDayLast(time), double(SerialOf(last)), time);
  To.Same("GetYearDayFirst", GetYearDayFirst(time), double(SerialOf(year / 1 / 1)), time);
  To.Same("GetYearDayLast", GetYearDayLast(time), double(SerialOf(year / 12 / 31)), time);
  To.Same("IncMonth", IncMonth(Day.Serial, 0), double(Day.Serial), Day.Serial);
  if (Day.Year < 9999) {
    const chrono::year_month_day later = Day.Fields + chrono::months{1};
    const chrono::sys_days want = later.ok() ? chrono::sys_days(later) : later.year() / later.month() / chrono::last;
    To.Same("IncMonth", IncMonth(Day.Serial), double(SerialOf(want)), Day.Serial);
  }
}

void CompareText(TComparison& To, const TDay& Day) {
  To.Case();
  const double want = Day.Serial;
  const TWide text = Print("%02d.%02d.%04d", Day.Day, Day.Month, Day.Year);
  const TWide trimmed = Print("%d.%02d.%04d", Day.Day, Day.Month, Day.Year);
  const TWide compact = Print("%04d%02d%02d", Day.Year, Day.Month, Day.Day);
  To.Same("VxDateToStr", VxDateToStr(want, {}), text, want);
  To.Same("VxDateToStr dfTrimLeft", VxDateToStr(want, {dfTrimLeft}), trimmed, want);
  To.Same("FormatDateTime", FormatDateTime(u"dd.mm.yyyy", Day.At(0.5)), text, want);
  To.Same("FormatDateTime yyyymmdd", FormatDateTime(u"yyyymmdd", want), compact, want);
  To.Same("DateToStr", DateToStr(Day.At(0.5)), text, want);
  To.Same("StrToDateDef", StrToDateDef(text, kNoDate), want, text);
  To.Same("StrToDateDef", StrToDateDef(compact, kNoDate), want, compact);
  To.Same("StrToDateHeavy", StrToDateHeavy(text, kNoDate), want, text);
  To.Same("VxStrToDate", VxStrToDate(text), want, text);
  To.Same("VxStrToDate", VxStrToDate(trimmed), want, trimmed);
  TDateTime date = kNoDate;
  To.Same("TryStrToDate", TryStrToDate(trimmed, date), true, trimmed);
  To.Same("TryStrToDate", date, want, trimmed);
}

void CompareInvalid(TComparison& To, int Year, int Month, int Day) {
  To.Case();
  const int code = Year * 10000 + Month * 100 + Day;
  TDateTime date = kNoDate;
  To.Same("TryEncodeDate", TryEncodeDate(Year, Month, Day, date), false, Year, Month, Day);
  To.Same("TryEncodeDate", date, kNoDate, Year, Month, Day);
  To.Same("EncodeDate", IsRefused([&] { EncodeDate(Year, Month, Day); }), true, Year, Month, Day);
  To.Same("VxEncodeDate", VxEncodeDate(Year, Month, Day, date), false, Year, Month, Day);
  To.Same("VxEncodeDate", date, 0.0, Year, Month, Day);
  To.Same("VxEncodeDate()", VxEncodeDate(Year, Month, Day), 0.0, Year, Month, Day);
  if (Year < 0 || Month < 0 || Day < 0) return;
  date = kNoDate;
  To.Same("VxIntToDate", VxIntToDate(code, date), false, code);
  To.Same("VxIntToDate", date, 0.0, code);
  const TWide text = Print("%02d.%02d.%04d", Day, Month, Year);
  To.Same("VxStrToDate", VxStrToDate(text), 0.0, text);
  To.Same("StrToDateDef", StrToDateDef(text, kNoDate), kNoDate, text);
  date = kNoDate;
  To.Same("TryStrToDate", TryStrToDate(text, date), false, text);
  To.Same("TryStrToDate", date, kNoDate, text);
}

// Year * 100 + week by the rule of the first Thursday, by the Thursday of the day's own week.
int IsoWeek(const TDay& Day) {
  const chrono::sys_days thursday = Day.Chrono + chrono::days{4 - Day.WeekDay};
  const chrono::year year = chrono::year_month_day(thursday).year();
  const int dayOfYear = static_cast<int>((thursday - chrono::sys_days(year / 1 / 1)).count());
  return static_cast<int>(year) * 100 + dayOfYear / 7 + 1;
}

void CompareWeek(TComparison& To, const TDay& Day) {
  To.Case();
  const int iso = IsoWeek(Day), isoYear = iso / 100;
  const bool folded = isoYear > Day.Year;
  const int want = folded ? Day.Year * 100 + 53 : iso;
  const double date = Day.Serial, monday = Day.Serial + 1 - Day.WeekDay;
  const int got = GetCalWeek(date);
  To.Same("GetCalWeek", got, want, date);
  To.Same("GetCalendarWeek", GetCalendarWeek(date), want % 100, date);
  To.Same("GetCalendarWeek with a time", GetCalendarWeek(Day.At(0.5)), want % 100, date);
  To.Same("GetCalWeekCalc", GetCalWeekCalc(date), isoYear < Day.Year ? 0 : want % 100, date);
  To.Same("GetCalWeekDate", GetCalWeekDate(want), monday, want);
  To.Same("GetCalWeekDate of the ISO week", GetCalWeekDate(iso), monday, iso);
  if (got != iso) {
    To.Explain();
    if (To.Verbose()) {
      std::printf("  %02d.%02d.%04d: week %d, ISO %d\n", Day.Day, Day.Month, Day.Year, got, iso);
    }
  }
  To.Same("GetCalWeek is ISO's but at the end of a year", got != iso, folded, date);
  // A Sunday with a time counts as the week behind it: week 1 where it is before that week's Monday.
  const int timed = Day.WeekDay < 7 ? want : isoYear < Day.Year ? Day.Year * 100 + 1 : want + 1;
  To.Same("GetCalWeek with a time", GetCalWeek(Day.At(0.5)), timed, Day.At(0.5));
}

}  // namespace

void CompareDates(TReport& Report) {
  TComparison dates(Report, "dates", "days"), borders(Report, "months-and-years", "days");
  TComparison texts(Report, "date-texts", "days"), invalid(Report, "invalid-dates", "dates");
  const chrono::sys_days first = chrono::year{1} / 1 / 1, last = chrono::year{9999} / 12 / 31;
  for (chrono::sys_days day = first; day <= last; day += chrono::days{1}) {
    const TDay fields(day);
    CompareFields(dates, fields);
    CompareBorders(borders, fields);
    CompareText(texts, fields);
  }
  for (int year = 1; year <= 9999; ++year) {
    for (unsigned month = 1; month <= 12; ++month) {
      for (unsigned day : {0u, 29u, 30u, 31u, 32u}) {
        const bool good = (chrono::year{year} / chrono::month{month} / chrono::day{day}).ok();
        if (!good) CompareInvalid(invalid, year, static_cast<int>(month), static_cast<int>(day));
      }
    }
    for (int month : {-1, 0, 13}) CompareInvalid(invalid, year, month, 1);
  }
  for (int year : {-9999, -1, 0, 10000}) {
    for (int month = 0; month <= 13; ++month) {
      for (int day = -1; day <= 32; ++day) CompareInvalid(invalid, year, month, day);
    }
  }
}

void CompareWeeks(TReport& Report) {
  TComparison weeks(Report, "weeks", "days");
  const chrono::sys_days first = chrono::year{1900} / 1 / 1, last = chrono::year{2200} / 12 / 31;
  for (chrono::sys_days day = first; day <= last; day += chrono::days{1}) CompareWeek(weeks, TDay(day));
}

}  // namespace vx::oracle
