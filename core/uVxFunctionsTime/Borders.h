// Fields of a date, and the first and last days of years, months and weeks. For a date-time outside the
// years 1 to 9999 all fields are 0, and so are the dates made from them.
#pragma once

#include "platform/Types.h"

namespace vx {

int GetYear(TDateTime DateTime) noexcept;
int GetMonth(TDateTime DateTime) noexcept;
int GetDay(TDateTime DateTime) noexcept;
// The date with another month, its day held to the length of that month, without a time. 0 for a
// Month outside 1 to 12.
TDateTime SetMonth(TDateTime DateTime, int Month) noexcept;
// The date with another day, without a time: Day 0 gives the first, one beyond the end of the month the
// last. 0 for a negative Day.
TDateTime SetDay(TDateTime DateTime, int Day) noexcept;

// 1.1. and 31.12. of the year, without a time.
TDateTime GetYearDayFirst(TDateTime DateTime) noexcept;
TDateTime GetYearDayLast(TDateTime DateTime) noexcept;
void GetYearBorders(TDateTime DateTime, TDateTime& First, TDateTime& Last) noexcept;
// From is 1.1. and To 31.12. of one year, at any time of day.
bool isYearBorders(TDateTime From, TDateTime To) noexcept;
// 365 or 366.
int GetYearDayCount(TDateTime DateTime) noexcept;
// The years that a period touches; 0 and less if it runs backwards.
int GetYearCount(TDateTime From, TDateTime To) noexcept;
// IncMonth by 12 months a year: 29.2. becomes 28.2. where there is none, the time stays.
// EConvertError "Invalid argument to date encode" where that leaves the years 1 to 9999.
TDateTime IncYear(TDateTime DateTime, int Years);

// The first and the last day of the month, without a time.
TDateTime GetMonthDayFirst(TDateTime DateTime) noexcept;
TDateTime GetMonthDayLast(TDateTime DateTime) noexcept;
void GetMonthBorders(TDateTime DateTime, TDateTime& First, TDateTime& Last) noexcept;
// From is the first and To the last day of one month, at any time of day.
bool isMonthBorders(TDateTime From, TDateTime To) noexcept;
// 28 to 31; 31 also for a Month outside 1 to 12.
int GetMonthDayCount(int Year, int Month) noexcept;
int GetMonthDayCount(TDateTime DateTime) noexcept;
// The months that a period touches: 31.1. to 1.2. are 2; 0 and less if it runs backwards.
int GetMonthCount(TDateTime From, TDateTime To) noexcept;

// 1 for Monday to 7 for Sunday; 0 outside the years 1 to 9999.
int GetWeekDay(TDateTime DateTime) noexcept;
// The Monday and the Sunday of the week, at the same time of day. Outside the years 1 to 9999 the
// value itself.
TDateTime GetWeekDayFirst(TDateTime DateTime) noexcept;
TDateTime GetWeekDayLast(TDateTime DateTime) noexcept;

}  // namespace vx
