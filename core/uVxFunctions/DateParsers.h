// Texts to dates, times and amounts of hours.
//
// Routines in Def give their default for a text that is no such value; routines in Heavy repair the text
// before. None of them raises. Dates are read in the order of the program's format settings, day, month
// and year in German ones. Readers that repair nothing and tell what is wrong: core/StrictDates.h.
#pragma once

#include <string_view>

#include "platform/Types.h"

namespace vx {

// The date of u"dd.mm.yyyy", u"dd.mm.yy" or u"yyyymmdd"; Default for a text of any other form, for
// u"00.00.0000" and for a date that does not exist.
TDateTime StrToDateDef(std::u16string_view Text, TDateTime Default) noexcept;
// The same, but in u"dd.mm.yyyy" a day of 00 and a month of 00 become 01, a day above 31 becomes 31, a
// month above 12 becomes 12 and the year 0000 becomes 1900: u"00.13.0000" is 01.12.1900. The fields are
// compared as texts. u"31.02.2015" is not repaired and gives Default.
TDateTime StrToDateHeavy(std::u16string_view Text, TDateTime Default) noexcept;

// The time of u"hh", u"hhnn", u"hhnnss" with milliseconds of any number of digits behind it, or of u"hh:nn",
// u"hh:nn:ss", u"hh:nn:ss:zzz". 24 hours and more count as days: u"2630" is 1 day and 2:30. Default for any
// unit but digits and colons, and for minutes or seconds above 59. Parts that don't stand at their
// place are left out: u"12:5" is 12:00.
TDateTime StrToTimeDef(std::u16string_view Text, TDateTime Default) noexcept;
// The same with colons; without them only the hour counts: u"1045" is 10:00. Seconds and minutes above 59
// are carried: u"10:75" is 11:15.
TDateTime StrToTimeHeavy(std::u16string_view Text, TDateTime Default) noexcept;

// The date before the first blank and the time behind it, by StrToDateDef and StrToTimeDef; a half that is
// none counts 0. Default without a blank, even for a date.
TDateTime StrToDateTimeDef(std::u16string_view Text, TDateTime Default) noexcept;

// An amount of hours with two digits of minutes, u"123:45", as days. Default for a text of another form;
// hours or minutes that are no number count 0. Pitfall: with a minus sign the result is minus the hours
// as a number of days, without the minutes: u"-1:30" is -1. This is wanted; callers know it so.
// New code reads hours by TryStrToHourAmount (core/HourAmount.h), which has no such rule.
TDateTime StrToHourDef(std::u16string_view Text, TDateTime Default) noexcept;

}  // namespace vx
