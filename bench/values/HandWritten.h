// The peers of the values: what a programmer writes by hand who knows the form of his input. Each takes
// that one form, rejects everything else, and gives the same value or text as the library's routine.
#pragma once

#include <string_view>

#include "platform/Currency.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx::bench {

// dd.mm.yyyy, a date that exists.
TDateTime HandStrToDate(std::u16string_view Text, TDateTime Default);
// hh:mm, a time of day.
TDateTime HandStrToTime(std::u16string_view Text, TDateTime Default);
// dd.mm.yyyy; empty outside the years 1 to 9999.
String HandDateToStr(TDateTime Date);
// hh:mm of the time of day, 24:00 for exactly 1; empty for what is no time.
String HandTimeToStr(TDateTime Time);

// An optional minus, digits with points between them, and up to four decimals behind a comma.
bool HandStrToCurr(std::u16string_view Text, Currency& Value);
// 1.234,56, rounded to two decimals.
String HandCurrToStr(Currency Value);

// An optional sign and digits.
int HandStrToInt(std::u16string_view Text, int Default);
// An optional sign, digits, and digits behind a comma, at most 19 in all.
Extended HandStrToExt(std::u16string_view Text, Extended Default);

// An optional sign, hours of any number of digits, a colon and two digits of minutes.
bool HandStrToHour(std::u16string_view Text, TDateTime& Hour);
// The same form.
String HandHourToStr(TDateTime Hour);

// Whether Text is what Pattern says, in which * stands for any text; without regard to the case of
// German letters.
bool HandMatch(std::u16string_view Text, std::u16string_view Pattern);

}  // namespace vx::bench
