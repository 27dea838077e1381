// Dates and times taken apart and put together.
//
//   EncodeDate, DecodeDate, EncodeTime, DecodeTime       fields to values and back
//   IsLeapYear, DaysInMonth, DayOfWeek, IncMonth         the calendar
//   TTimeStamp, DateTimeToTimeStamp                      whole days and whole milliseconds
//
// Example:
//   vx::TDateTime shift = vx::EncodeDate(2015, 2, 11) + vx::EncodeTime(6, 30, 0, 0);
//   vx::DayOfWeek(shift);            // 4: Wednesday
//   vx::DateTimeToStr(vx::IncMonth(shift, -12));   // u"11.02.2014 06:30:00"
//
// A date-time counts days since 30.12.1899; its fraction is the time of day also where it is negative:
// -1.25 is 29.12.1899 06:00. The Gregorian calendar holds for all years, 1 to 9999.
//
// Values are read to the nearest millisecond, midpoints to the even one. Pitfall: so the last half
// millisecond of a day reads as 00:00 of the next one; of a negative day, of the one before.
//
// Threads: any number may call these at once.
#pragma once

#include <cstdint>

#include "platform/Types.h"

namespace vx {

inline constexpr int MSecsPerDay = 86400000;
// The day 30.12.1899, counted from 1.1.0001 as day 1.
inline constexpr int DateDelta = 693594;

// A date-time in whole numbers: the day counted from 1.1.0001 as 1, 0 for a value that is outside the
// years 1 to 9999 or no number, and milliseconds since midnight, 0 to 86399999.
struct TTimeStamp {
  int Time = 0;
  int Date = 0;
};
TTimeStamp DateTimeToTimeStamp(TDateTime DateTime) noexcept;

bool IsLeapYear(int Year) noexcept;
// 28 to 31; 0 for a Month outside 1 to 12.
int DaysInMonth(int Year, int Month) noexcept;

// Years 1 to 9999. False, with Date unchanged, for a date that does not exist.
bool TryEncodeDate(int Year, int Month, int Day, TDateTime& Date) noexcept;
// The same; EConvertError "Invalid argument to date encode".
TDateTime EncodeDate(int Year, int Month, int Day);
// All three 0 for a value outside the years 1 to 9999.
void DecodeDate(TDateTime DateTime, int& Year, int& Month, int& Day) noexcept;

// Hours 0 to 23, minutes and seconds 0 to 59, milliseconds 0 to 999. False, with Time unchanged, for
// anything else.
bool TryEncodeTime(int Hour, int Minute, int Second, int MSec, TDateTime& Time) noexcept;
// The same; EConvertError "Invalid argument to time encode".
TDateTime EncodeTime(int Hour, int Minute, int Second, int MSec);
// The time of day, whatever the day; all four 0 for a value that is no number or too large for a time.
// Inline, so that fields nobody uses cost nothing.
inline void DecodeTime(TDateTime DateTime, int& Hour, int& Minute, int& Second, int& MSec) noexcept {
  const auto time = static_cast<unsigned>(DateTimeToTimeStamp(DateTime).Time);
  Hour = static_cast<int>(time / 3600000);
  Minute = static_cast<int>(time / 60000 % 60);
  Second = static_cast<int>(time / 1000 % 60);
  MSec = static_cast<int>(time % 1000);
}

// 1 for Sunday to 7 for Saturday; 0 for a value outside the years 1 to 9999.
int DayOfWeek(TDateTime DateTime) noexcept;
// The same day and time so many months later or, below 0, earlier; in a shorter month its last day.
// EConvertError "Invalid argument to date encode" where that leaves the years 1 to 9999.
TDateTime IncMonth(TDateTime DateTime, int Months = 1);

}  // namespace vx
