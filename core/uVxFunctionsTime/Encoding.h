// Dates and times from their fields and from whole numbers, and back. Nothing here raises.
#pragma once

#include "platform/Types.h"

namespace vx {

// Years 1 to 9999, months 1 to 12, days 1 to the length of the month. False, with DateTime 0, for
// anything else.
bool VxEncodeDate(int Year, int Month, int Day, TDateTime& DateTime) noexcept;
// The same; 0 for a date that does not exist.
TDateTime VxEncodeDate(int Year, int Month, int Day) noexcept;
// Hours 0 to 23, minutes and seconds 0 to 59, milliseconds 0 to 999. False, with DateTime 0, for
// anything else, also for 24:00.
bool VxEncodeTime(int Hour, int Minute, int Second, int MSec, TDateTime& DateTime) noexcept;
// The same; 0 for a time that does not exist.
TDateTime VxEncodeTime(int Hour, int Minute, int Second, int MSec) noexcept;

// The date as decimal digits yyyymmdd: 11.02.2015 is 20150211. 0 outside the years 1 to 9999.
int VxDateToInt(TDateTime DateTime) noexcept;
// The same as yyyymm.
int VxMonthToInt(TDateTime DateTime) noexcept;
// The time of day as decimal digits hhnnsszzz: 06:30 is 63000000.
int VxTimeToInt(TDateTime DateTime) noexcept;
// The date of the digits yyyymmdd. False, with DateTime 0, for 0 and for a date that does not exist.
bool VxIntToDate(int Value, TDateTime& DateTime) noexcept;
// The same; 0 where there is none.
TDateTime VxIntToDate(int Value) noexcept;
// The time of the digits hhnnsszzz; 0 for a time that does not exist.
TDateTime VxIntToTime(int Value) noexcept;

// An amount of minutes as an hour amount with the sign of Minutes: -90 gives -0.0625.
TDateTime VxMinuteToTime(int Minutes) noexcept;
// The whole days times 1440 and the minutes of the time of day; seconds are dropped. Held to the range
// of int. Pitfall: the time of day counts upwards also where the days are negative: -1.25 gives -1080.
int VxTimeToMinute(TDateTime DateTime) noexcept;

}  // namespace vx
