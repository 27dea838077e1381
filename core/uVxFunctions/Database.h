// Dates, times and numbers in the text forms of a database: yyyy-mm-dd or yyyymmdd, and a point before
// the decimals.
#pragma once

#include "platform/Currency.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// The German form of a database date: u"20150211" and u"2015-02-11" give u"11.02.2015 00:00:00"; what
// stands behind a date with separators stays behind it. Units are moved by their positions, nothing is
// checked. A Text of 9 units comes back as it is; a shorter one than 8 gives u"00.00.0000 00:00:00". With
// DateOnly the first 10 units of that.
String ConvertDbDate(std::u16string_view Text, bool DateOnly);
// The date and time of that form, as StrToDateTimeDef reads it; Default for no date and no time.
TDateTime ConvertDbDateTime(std::u16string_view Text, TDateTime Default);

// DateTime by a mask of FormatDateTime, or Empty. Each of the three has its own test for it: no date (a
// time alone), exactly 0, no time (a whole date).
String ConvertDateDb(TDateTime DateTime, std::u16string_view Mask, const String& Empty);
String ConvertDateTimeDb(TDateTime DateTime, std::u16string_view Mask, const String& Empty);
String ConvertTimeDb(TDateTime DateTime, std::u16string_view Mask, const String& Empty);

// The texts of CurrToStr and FloatToStr with a point for their first comma: u"1234.5".
String ConvertCurrDb(Currency Value);
String ConvertExtDb(Extended Value);
// What StrToCurrDef and StrToExtDef read from Text with a comma for its first point.
Currency ConvertDbCurr(std::u16string_view Text, Currency Default);
Extended ConvertDbExtDef(std::u16string_view Text, Extended Default);

}  // namespace vx
