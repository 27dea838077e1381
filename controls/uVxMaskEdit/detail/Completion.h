// Dates, months and times that were typed in part, completed.
#pragma once

#include "platform/FormatSettings.h"
#include "platform/String.h"

namespace vx::detail {

// u"12" and u"12." get today's month, u"12.3." today's year; u"1203", u"12032" and u"12032015" get their separators.
// Anything else stays as it is.
String CompleteDate(const String& Text, const TFormatSettings& Settings);
// u"03" and u"03." get today's year; u"0315" and u"032015" get their separator.
String CompleteMonth(const String& Text, const TFormatSettings& Settings);

// The fields of a time; minutes below 60.
struct TTimeFields {
  int Hours = 0, Minutes = 0, Seconds = 0;
};
// Hours alone, u"8" and u"08"; hours and minutes, u"830", u"0830", u"8:3" and u":30"; the same with seconds where
// WithSeconds tells so, u"83015", or they stand behind a separator of their own. Minutes from 60 on are carried. False
// for anything else.
bool CompleteTime(std::u16string_view Text, char16_t Separator, bool WithSeconds, TTimeFields& Fields) noexcept;

}  // namespace vx::detail
