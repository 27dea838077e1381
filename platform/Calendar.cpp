#include "platform/Calendar.h"

#include <algorithm>
#include <cmath>

#include "platform/Exceptions.h"

namespace vx {

namespace {

constexpr int kLastDay = 3652059;  // 31.12.9999, counted from 1.1.0001 as 1
// Beyond it no time of day is left in a value of use, and whole days still fit an int.
constexpr double kLargest = 1e8;

constexpr int kDaysBeforeYear1 = 306;  // from 1.3.0000 on

constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

// By 16 where others ask for 400: what is a multiple of 25 and of 16 is one of 400.
bool IsLeap(int Year) noexcept { return (Year & (Year % 25 == 0 ? 15 : 3)) == 0; }

struct TYearMonthDay {
  int Year, Month, Day;
};

// Counts in years that begin with March, so that the leap day comes last.
TYearMonthDay FieldsOf(int Day) noexcept {
  constexpr uint32_t kDaysPer400Years = 146097;
  const uint32_t days = static_cast<uint32_t>(Day - 1 + kDaysBeforeYear1);
  const uint32_t century = (4 * days + 3) / kDaysPer400Years;
  const uint32_t dayOfCentury = (4 * days + 3) % kDaysPer400Years / 4;
  const uint32_t yearOfCentury = (4 * dayOfCentury + 3) / 1461;
  const uint32_t dayOfYear = (4 * dayOfCentury + 3) % 1461 / 4;
  const uint32_t month = (5 * dayOfYear + 2) / 153;  // 0 for March
  const uint32_t day = dayOfYear - (153 * month + 2) / 5 + 1;
  const bool isNextYear = month >= 10;
  return {static_cast<int>(100 * century + yearOfCentury + (isNextYear ? 1 : 0)),
          static_cast<int>(isNextYear ? month - 9 : month + 3), static_cast<int>(day)};
}

}  // namespace

TTimeStamp DateTimeToTimeStamp(TDateTime DateTime) noexcept {
  TTimeStamp result;
  if (!(std::fabs(DateTime) < kLargest)) return result;
  int day = static_cast<int>(DateTime);
  // The difference is exact, so one rounding is all there is.
  result.Time = static_cast<int>(std::lrint(std::fabs(DateTime - day) * MSecsPerDay));
  if (result.Time == MSecsPerDay) {
    result.Time = 0;
    day += DateTime < 0 ? -1 : 1;
  }
  day += DateDelta;
  if (day >= 1 && day <= kLastDay) result.Date = day;
  return result;
}

bool IsLeapYear(int Year) noexcept { return IsLeap(Year); }

int DaysInMonth(int Year, int Month) noexcept {
  if (Month < 1 || Month > 12) return 0;
  return kDaysBefore[Month] - kDaysBefore[Month - 1] + (Month == 2 && IsLeap(Year) ? 1 : 0);
}

bool TryEncodeDate(int Year, int Month, int Day, TDateTime& Date) noexcept {
  if (Year < 1 || Year > 9999 || Month < 1 || Month > 12 || Day < 1) return false;
  if (Day > 28 && Day > DaysInMonth(Year, Month)) return false;
  // Again in years from March on.
  const int isLastYear = Month <= 2 ? 1 : 0;
  const int year = Year - isLastYear;
  const int month = Month + 12 * isLastYear - 3;
  const int leapDays = year / 4 - year / 100 + year / 400;
  const int days = year * 365 + leapDays + (153 * month + 2) / 5 + Day;
  Date = days - kDaysBeforeYear1 - DateDelta;
  return true;
}

TDateTime EncodeDate(int Year, int Month, int Day) {
  TDateTime result;
  if (!TryEncodeDate(Year, Month, Day, result)) throw EConvertError(u"Invalid argument to date encode");
  return result;
}

void DecodeDate(TDateTime DateTime, int& Year, int& Month, int& Day) noexcept {
  const int day = DateTimeToTimeStamp(DateTime).Date;
  const TYearMonthDay fields = day == 0 ? TYearMonthDay{} : FieldsOf(day);
  Year = fields.Year;
  Month = fields.Month;
  Day = fields.Day;
}

bool TryEncodeTime(int Hour, int Minute, int Second, int MSec, TDateTime& Time) noexcept {
  auto isBelow = [](int Value, int Limit) { return static_cast<unsigned>(Value) < static_cast<unsigned>(Limit); };
  if (!isBelow(Hour, 24) || !isBelow(Minute, 60) || !isBelow(Second, 60) || !isBelow(MSec, 1000)) return false;
  Time = static_cast<double>(((Hour * 60 + Minute) * 60 + Second) * 1000 + MSec) / MSecsPerDay;
  return true;
}

TDateTime EncodeTime(int Hour, int Minute, int Second, int MSec) {
  TDateTime result;
  if (!TryEncodeTime(Hour, Minute, Second, MSec, result)) throw EConvertError(u"Invalid argument to time encode");
  return result;
}

int DayOfWeek(TDateTime DateTime) noexcept {
  const int day = DateTimeToTimeStamp(DateTime).Date;
  return day == 0 ? 0 : day % 7 + 1;
}

TDateTime IncMonth(TDateTime DateTime, int Months) {
  const double day = std::trunc(DateTime);
  int year, month, dayOfMonth;
  DecodeDate(day, year, month, dayOfMonth);
  if (year == 0) return EncodeDate(0, 0, 0);
  const int64_t all = int64_t{year} * 12 + month - 1 + Months;
  if (all < 12 || all >= 12 * 10000) return EncodeDate(0, 0, 0);
  year = static_cast<int>(all / 12);
  month = static_cast<int>(all % 12 + 1);
  const TDateTime date = EncodeDate(year, month, std::min(dayOfMonth, DaysInMonth(year, month)));
  const double time = std::fabs(DateTime - day);
  return date < 0 ? date - time : date + time;
}

}  // namespace vx
