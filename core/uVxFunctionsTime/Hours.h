// Hour amounts, as working-time accounts keep them: date-times used as durations, beyond a day and below 0.
// Industry hours count 100 minutes: 0:45 is 0.75 industry hours.
// New code takes THourAmount (core/HourAmount.h): whole minutes, exact sums, nothing odd below 0.
#pragma once

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// The hours as a decimal number: 1.75 gives 42. The sign and the seconds are dropped.
Extended VxHourToDecimal(TDateTime Hour) noexcept;
// u"36:30", rounded to minutes, hours and minutes with at least two digits: 1:30 is u"01:30", but the
// amount 0 is u"0:00". A negative amount has "-" unless it rounds to u"00:00".
String VxHourMinToStr(TDateTime Hour);
// The decimal hours with two places and the decimal separator of the settings: u"36,50", u"-1,25"; the
// amount 0 is u"0,00" whatever the separator. EInvalidOp for what is no number and beyond 3.8E15 days, as
// RoundTrade raises it.
String VxHourToComma(TDateTime Hour);
// Without seconds and milliseconds: the days cut towards 0 plus the hour and minute. Pitfall: the time is
// added also to a negative value: -1.25 gives -0.75.
TDateTime VxTruncTime(TDateTime DateTime) noexcept;

// Minutes to industry minutes and back, rounded: 45 gives 75, 75 gives 45. Held to the range of int.
int VxMinuteToIndustry(int Minutes) noexcept;
int VxIndustryToMinute(int IndustryMinutes) noexcept;
// An hour amount in industry hours: 1.75 gives 42, 0:45 gives 0.75. Seconds are ignored. Pitfall: for
// amounts of 0 and more; the days of a negative one count down, its time of day counts up.
double VxHourToIndustry(TDateTime Hour) noexcept;
// And back, to whole minutes: 0.75 gives 0:45. For amounts of 0 and more; a negative one that is not in
// whole days raises EConvertError "Invalid argument to time encode".
TDateTime VxIndustryToHour(double IndustryHours);
// Industry hours to industry minutes, rounded and held to the range of int, and back: 1.5 and 150.
int VxIndustryHourToMinute(double IndustryHours) noexcept;
double VxIndustryMinuteToHour(int IndustryMinutes) noexcept;

}  // namespace vx
