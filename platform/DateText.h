// Dates and times and their texts.
//
//   FormatDateTime                              by a mask
//   DateToStr, TimeToStr, DateTimeToStr         by the forms of the settings
//   StrToDate, StrToTime, StrToDateTime         and back; each also as TryStrTo...
//
// Example, with German settings:
//   vx::TDateTime shift = vx::StrToDateTime(u"11.2.2015 6:30");
//   vx::FormatDateTime(u"dddd, d. mmmm yyyy, h:nn 'Uhr'", shift);   // u"Mittwoch, 11. Februar 2015, 6:30 Uhr"
//
// A mask, in any case of its letters:
//   d dd ddd dddd        day, with two digits, short and long name of the weekday
//   ddddd dddddd         the short and the long form of a date in the settings
//   m mm mmm mmmm        month, with two digits, short and long name; right behind an hour, counting
//                        the mask's letters only, minutes
//   y yy yyyy            year, of two or of four digits
//   h hh n nn s ss       hour, minute, second
//   z zzz                millisecond, as it is or with three digits
//   t tt                 the short and the long form of a time in the settings
//   c                    the short form of a date, and the long one of the time unless it is midnight
//   am/pm a/p ampm       the half of the day, as the mask writes it or by the settings; the hour before
//                        it counts to 12
//   / :                  the separators of the settings
//   'x' "x"              taken as it stands
// Everything else is taken as it stands.
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
//
// Pitfall: a text of two digits for the year means a year near the present one, so its value changes
// with the program's clock.
#pragma once

#include "platform/FormatSettings.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// DateTime by Mask; an empty mask is "c". Never raises for a mask. A date outside the years 1 to 9999
// has the fields 0 and no names.
String FormatDateTime(std::u16string_view Mask, TDateTime DateTime);
String FormatDateTime(std::u16string_view Mask, TDateTime DateTime, const TFormatSettings& Settings);
// u"11.02.2015"; u"06:30:00"; u"11.02.2015 06:30:00", only the date at midnight.
String DateToStr(TDateTime DateTime);
String DateToStr(TDateTime DateTime, const TFormatSettings& Settings);
String TimeToStr(TDateTime DateTime);
String TimeToStr(TDateTime DateTime, const TFormatSettings& Settings);
String DateTimeToStr(TDateTime DateTime);
String DateTimeToStr(TDateTime DateTime, const TFormatSettings& Settings);

// Day, month and year in the order of the short form of a date, with the separator between them;
// one more separator may follow the year. Without a year, u"11.2", the present one. Blanks may stand
// before each number. A year of up to two digits is widened by the settings. False, with Value unchanged, for anything
// else and a date that does not exist.
bool TryStrToDate(std::u16string_view Text, TDateTime& Value) noexcept;
bool TryStrToDate(std::u16string_view Text, TDateTime& Value, const TFormatSettings& Settings) noexcept;
// The hour, and if they are there the minute, the second, and behind the decimal separator the
// millisecond; before or behind it am or pm (as such or by the settings). Blanks as with a date. False, with
// Value unchanged, for anything else and a time that does not exist.
bool TryStrToTime(std::u16string_view Text, TDateTime& Value) noexcept;
bool TryStrToTime(std::u16string_view Text, TDateTime& Value, const TFormatSettings& Settings) noexcept;
// A date, and behind blanks a time; or a date or a time alone.
bool TryStrToDateTime(std::u16string_view Text, TDateTime& Value) noexcept;
bool TryStrToDateTime(std::u16string_view Text, TDateTime& Value, const TFormatSettings& Settings) noexcept;
// The same; EConvertError "'%s' is not a valid date", "... time", "... date and time".
TDateTime StrToDate(std::u16string_view Text);
TDateTime StrToDate(std::u16string_view Text, const TFormatSettings& Settings);
TDateTime StrToTime(std::u16string_view Text);
TDateTime StrToTime(std::u16string_view Text, const TFormatSettings& Settings);
TDateTime StrToDateTime(std::u16string_view Text);
TDateTime StrToDateTime(std::u16string_view Text, const TFormatSettings& Settings);

}  // namespace vx
