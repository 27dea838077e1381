#include "core/uVxFunctionsTime/Borders.h"

#include <algorithm>

#include "core/uVxFunctionsTime/Encoding.h"
#include "core/uVxFunctionsTime/Parts.h"

namespace vx {

using timeparts::DateOf;
using timeparts::TDate;

int GetYear(TDateTime DateTime) noexcept { return DateOf(DateTime).Year; }
int GetMonth(TDateTime DateTime) noexcept { return DateOf(DateTime).Month; }
int GetDay(TDateTime DateTime) noexcept { return DateOf(DateTime).Day; }

TDateTime SetMonth(TDateTime DateTime, int Month) noexcept {
  const TDate date = DateOf(DateTime);
  return VxEncodeDate(date.Year, Month, std::min(date.Day, GetMonthDayCount(date.Year, Month)));
}

TDateTime SetDay(TDateTime DateTime, int Day) noexcept {
  const TDate date = DateOf(DateTime);
  if (Day == 0) Day = 1;
  return VxEncodeDate(date.Year, date.Month, std::min(Day, GetMonthDayCount(date.Year, date.Month)));
}

TDateTime GetYearDayFirst(TDateTime DateTime) noexcept { return VxEncodeDate(GetYear(DateTime), 1, 1); }
TDateTime GetYearDayLast(TDateTime DateTime) noexcept { return VxEncodeDate(GetYear(DateTime), 12, 31); }

void GetYearBorders(TDateTime DateTime, TDateTime& First, TDateTime& Last) noexcept {
  const int year = GetYear(DateTime);
  First = VxEncodeDate(year, 1, 1);
  Last = VxEncodeDate(year, 12, 31);
}

bool isYearBorders(TDateTime From, TDateTime To) noexcept {
  const int year = GetYear(From);
  return DateOf(From) == TDate{year, 1, 1} && DateOf(To) == TDate{year, 12, 31};
}

int GetYearDayCount(TDateTime DateTime) noexcept { return IsLeapYear(GetYear(DateTime)) ? 366 : 365; }

int GetYearCount(TDateTime From, TDateTime To) noexcept { return GetYear(To) - GetYear(From) + 1; }

TDateTime IncYear(TDateTime DateTime, int Years) {
  constexpr int kTooMany = 10000;
  return IncMonth(DateTime, 12 * std::clamp(Years, -kTooMany, kTooMany));
}

TDateTime GetMonthDayFirst(TDateTime DateTime) noexcept {
  const TDate date = DateOf(DateTime);
  return VxEncodeDate(date.Year, date.Month, 1);
}

TDateTime GetMonthDayLast(TDateTime DateTime) noexcept {
  const TDate date = DateOf(DateTime);
  return VxEncodeDate(date.Year, date.Month, GetMonthDayCount(date.Year, date.Month));
}

void GetMonthBorders(TDateTime DateTime, TDateTime& First, TDateTime& Last) noexcept {
  const TDate date = DateOf(DateTime);
  First = VxEncodeDate(date.Year, date.Month, 1);
  Last = VxEncodeDate(date.Year, date.Month, GetMonthDayCount(date.Year, date.Month));
}

bool isMonthBorders(TDateTime From, TDateTime To) noexcept {
  const TDate first = DateOf(From);
  return first.Day == 1 && DateOf(To) == TDate{first.Year, first.Month, GetMonthDayCount(first.Year, first.Month)};
}

int GetMonthDayCount(int Year, int Month) noexcept {
  const int days = DaysInMonth(Year, Month);
  return days == 0 ? 31 : days;
}

int GetMonthDayCount(TDateTime DateTime) noexcept {
  const TDate date = DateOf(DateTime);
  return GetMonthDayCount(date.Year, date.Month);
}

int GetMonthCount(TDateTime From, TDateTime To) noexcept {
  const TDate first = DateOf(From), last = DateOf(To);
  return (last.Year - first.Year) * 12 + last.Month - first.Month + 1;
}

int GetWeekDay(TDateTime DateTime) noexcept {
  const int fromSunday = DayOfWeek(DateTime);
  return fromSunday == 1 ? 7 : std::max(fromSunday - 1, 0);
}

TDateTime GetWeekDayFirst(TDateTime DateTime) noexcept {
  const int day = GetWeekDay(DateTime);
  return day == 0 ? DateTime : DateTime - (day - 1);
}

TDateTime GetWeekDayLast(TDateTime DateTime) noexcept {
  const int day = GetWeekDay(DateTime);
  return day == 0 ? DateTime : DateTime + (7 - day);
}

}  // namespace vx
