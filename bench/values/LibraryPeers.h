// The peers of the values from the standard libraries and fmt, as their users would call them.
#pragma once

#include <string>
#include <string_view>

#include "platform/Types.h"

namespace vx::bench {

// strptime alone and with timegm, which gives a value; neither rejects a day that the month has not.
// The day of the month, 0 for what is no date.
int CStrToDay(const std::string& Text);
TDateTime CStrToDate(const std::string& Text);
TDateTime CStrToTime(const std::string& Text);

// The value taken apart by gmtime_r and written by strftime, which speaks English.
std::string CFormatTime(const char* Mask, TDateTime Value);
std::string CDateToStr(TDateTime Date);
std::string CTimeToStr(TDateTime Time);

// printf's form of a number.
std::string CFormatFloat(const char* Mask, double Value);

// The whole of Text by std::from_chars; 0 for what is no number.
template <typename T>
T FromChars(std::string_view Text);
// The same for 1.234,56: without the points, and with a point instead of the comma.
double GermanFromChars(std::string_view Text);
// The whole of Text, with a point, by strtold.
Extended CStrToExt(const std::string& Text);

// 1.234,56 by fmt and a German facet of numbers.
std::string FmtCurrToStr(double Value);

}  // namespace vx::bench
