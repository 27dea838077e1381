// Calendar weeks. They begin on Monday; week 1 is the one that holds the first Thursday of the year. A
// week code is year * 100 + week: 201506 is the sixth week of 2015.
#pragma once

#include "platform/TStrings.h"
#include "platform/Types.h"

namespace vx {

// The code of the week; 0 outside the years 1 to 9999. Days in January before week 1 are in the last week
// of the year before. Two things are wanted: the last days of December never count to the next year,
// they are in week 53 of their own (29.12.2014 gives 201453); and the time of day counts, so that a
// Sunday after 00:00 is in the week that follows. Cut the time off first where that matters.
int GetCalWeek(TDateTime DateTime) noexcept;
// The week of GetCalWeek without its year; 0 where it belongs to the year before, 54 where to a later one.
int GetCalWeekCalc(TDateTime DateTime) noexcept;
// The week without its year by the same rule, at any time of day: 1 to 53; 0 outside the years 1 to 9999.
int GetCalendarWeek(TDateTime DateTime) noexcept;
// GetCalWeekCalc of the last day of the month minus that of the first, plus 1: the rows of a month's
// calendar.
int GetMonthCalWeekCount(TDateTime DateTime) noexcept;
// The Monday of a week code, also of a week 0 or beyond the end of the year; 0 for a year outside 1 to
// 9999.
TDateTime GetCalWeekDate(int Code) noexcept;

// Fills Strings with the weeks of the year of DateTime: the week as text, and the week code in place of
// the object, to be read as reinterpret_cast<intptr_t>(GetObject(i)); so the list must not own its
// objects. The first entry may be the last week of the year before. Entries are overwritten from index 0
// on, missing ones added, surplus ones stay. Returns the index of the week of DateTime by GetCalWeek, -1
// if it is not there; outside the years 1 to 9999 nothing is filled and -1 returned.
int SetCalWeeks(TDateTime DateTime, TStrings& Strings);

}  // namespace vx
