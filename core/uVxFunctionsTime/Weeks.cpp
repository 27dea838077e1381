#include "core/uVxFunctionsTime/Weeks.h"

#include <cmath>

#include "core/uVxFunctionsTime/Borders.h"
#include "core/uVxFunctionsTime/Encoding.h"
#include "platform/Numbers.h"

namespace vx {

namespace {

// The Monday of week 1.
TDateTime FirstMonday(int Year) noexcept {
  const TDateTime newYear = VxEncodeDate(Year, 1, 1);
  const int day = GetWeekDay(newYear);
  return day > 4 ? newYear + 8 - day : newYear - day + 1;
}

void PutWeek(TStrings& Strings, int Index, int Code) {
  const String text = IntToStr(Code % 100);
  // Never looked at as an object.
  TObject* code = reinterpret_cast<TObject*>(intptr_t{Code});  // NOLINT(performance-no-int-to-ptr)
  if (Index < Strings.GetCount()) {
    Strings.Put(Index, text);
    Strings.PutObject(Index, code);
  } else {
    Strings.AddObject(text, code);
  }
}

}  // namespace

int GetCalWeek(TDateTime DateTime) noexcept {
  const int year = GetYear(DateTime);
  if (year == 0) return 0;
  const int week = static_cast<int>(std::ceil((DateTime - FirstMonday(year) + 1) / 7));
  return week < 1 ? GetCalWeek(VxEncodeDate(year, 1, 1) - 1) : year * 100 + week;
}

int GetCalWeekCalc(TDateTime DateTime) noexcept {
  const int code = GetCalWeek(DateTime);
  const int years = code / 100 - GetYear(DateTime);
  return years == 0 ? code % 100 : years < 0 ? 0 : 54;
}

int GetCalendarWeek(TDateTime DateTime) noexcept {
  const int year = GetYear(DateTime);
  if (year == 0) return 0;
  const TDateTime newYear = VxEncodeDate(year, 1, 1);
  int offset = GetWeekDay(newYear) - 8;
  if (offset < -3) offset += 7;
  const double days = offset + std::trunc(DateTime - newYear) + 1;
  const int week = static_cast<int>(std::ceil(days / 7));
  return week == 0 ? GetCalendarWeek(newYear - 1) : week;
}

int GetMonthCalWeekCount(TDateTime DateTime) noexcept {
  return GetCalWeekCalc(GetMonthDayLast(DateTime)) - GetCalWeekCalc(GetMonthDayFirst(DateTime)) + 1;
}

TDateTime GetCalWeekDate(int Code) noexcept {
  const int year = Code / 100;
  return year < 1 || year > 9999 ? 0 : FirstMonday(year) + 7 * (Code % 100 - 1);
}

int SetCalWeeks(TDateTime DateTime, TStrings& Strings) {
  const int year = GetYear(DateTime);
  if (year == 0) return -1;
  const int first = GetCalWeek(VxEncodeDate(year, 1, 1));
  const int last = GetCalWeek(VxEncodeDate(year, 12, 31));
  const int current = GetCalWeek(DateTime);
  int result = -1;
  int count = 0;
  auto put = [&](int Code) {
    PutWeek(Strings, count, Code);
    if (Code == current) result = count;
    ++count;
  };
  int code = first;
  if (first / 100 != last / 100) {
    put(first);
    code = last / 100 * 100 + 1;
  }
  for (; code <= last; ++code) put(code);
  return result;
}

}  // namespace vx
