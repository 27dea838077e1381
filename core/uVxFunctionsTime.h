// The calendar and time-keeping vocabulary of the library.
//
//   VxEncodeDate, VxEncodeTime, VxDateToInt, VxMinuteToTime      fields and whole numbers (Encoding.h)
//   GetYear, SetDay, GetMonthBorders, GetWeekDay, IncYear        parts and borders of a date (Borders.h)
//   GetCalWeek, GetCalendarWeek, GetCalWeekDate, SetCalWeeks     calendar weeks (Weeks.h)
//   VxDateToStr, VxTimeToStr24, VxHourToStr, VxStrToDate         texts (TimeText.h)
//   VxHourMinToStr, VxHourToComma, VxHourToIndustry              hour amounts and industry hours (Hours.h)
//   DateTimeDefuzz, CompareDateTime                              snapping and comparing (Compare.h)
//   VxDatePeriodToStr, ValidatePeriod, OverlappingDate           periods (Periods.h)
//
// Example:
//   vx::TDateTime worked = vx::VxTimesPeriod24(vx::VxStrToTime24(u"22:00", 0), vx::VxStrToTime24(u"6:30", 0));
//   worked *= 5;                             // five nights
//   vx::VxHourToStr(worked);                 // u"42:30"
//   vx::VxHourToComma(worked);               // u"42,50"
//   vx::GetCalWeek(vx::VxStrToDate(u"11.02.2015"));   // 201507
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
//
// Pitfalls:
//   - 0 is no date and no time. Exactly 1.0 as a time of day is 24:00, but only for routines with 24 in their
//     name; for all others it is a day and 00:00.
//   - A float that should be a whole day or millisecond usually is not. Compare by CompareDateTime and snap
//     by DateTimeDefuzz.
//   - Days and times of day that these routines put together are added as plain numbers, also below 0.
#pragma once

#include "core/uVxFunctionsTime/Borders.h"
#include "core/uVxFunctionsTime/Compare.h"
#include "core/uVxFunctionsTime/Encoding.h"
#include "core/uVxFunctionsTime/Hours.h"
#include "core/uVxFunctionsTime/Periods.h"
#include "core/uVxFunctionsTime/TimeText.h"
#include "core/uVxFunctionsTime/Weeks.h"
