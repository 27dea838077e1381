// Texts of dates, times and hour amounts, and reading them.
#pragma once

#include <cstdint>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TDateTimeFormat : uint8_t {
  dfSec,        // with seconds
  dfSecMSec,    // with seconds and milliseconds
  dfTrimLeft,   // without a leading zero; in hour amounts without hours that are 0
  dfTrimRight,  // without the fields at the end that are 0
  dfPlusSign    // hour amounts from 0 on with "+"
};
using TDateTimeFormats = Set<TDateTimeFormat>;

// u"11.02.2015", with dfTrimLeft u"1.02.2015" for a day below 10; other formats have no effect. The
// points are points whatever the settings say. u"00.00.0000" outside the years 1 to 9999.
String VxDateToStr(TDateTime DateTime, TDateTimeFormats Formats = {});
// The time of day with seconds, u"06:30:00", with the separator of the settings.
String VxTimeToStr(TDateTime DateTime);
// The time of day, always with ":": u"06:30", with dfSec u"06:30:15", with dfSecMSec u"06:30:15:250";
// exactly 1.0 is u"24:00", every other whole day u"00:00". With dfTrimLeft u"6:30"; with dfTrimRight
// u"06" for 06:00:00.
String VxTimeToStr24(TDateTime DateTime, TDateTimeFormats Formats = {});
// An hour amount in the same form, its hours going beyond a day and without a leading zero: u"36:00",
// u"-6:00", with dfPlusSign u"+36:00". With dfTrimLeft hours that are 0 are left out, u":30", but for
// the amount 0, which is u"0:00". Pitfall: a value a hair below a whole day, as sums of hours give, has the hours of
// the day before and the fields 00:00, so that 24 hours are missing: 1 - 1E-10 is u"0:00". DateTimeDefuzz mends it.
String VxHourToStr(TDateTime Hour, TDateTimeFormats Formats = {});

// Day, month and year between points, as StrToIntDef with 0 reads each; a year is taken as written,
// and what follows a third point is not looked at. 0 for a date that does not exist and for the empty
// text.
TDateTime VxStrToDate(std::u16string_view Text) noexcept;
// The same for texts with unknown fields: a leading u"00." is read as u"01.", and then u"00" at the
// positions 4 and 5 as u"01". A month u"00" behind a day that is known gives 0, which is wanted.
TDateTime VxStrToDateProtected(std::u16string_view Text);
// StrToTimeDef with 0.
TDateTime VxStrToTime(std::u16string_view Text) noexcept;
// Up to seven numbers: day, month, year, hour, minute, second, millisecond; missing ones are 0. A number
// ends at the first code unit that is no digit, its own first one not counted, and the next one begins
// behind that unit: u"11.02.2015 06:30" or u"11-2-2015T6". Date fields that are all 0 are no date. The
// time is added to the date, also before 1899. 0 for the empty text. EConvertError for a number, date
// or time that is none, "'%s' is not a valid integer value" or "Invalid argument to ... encode".
TDateTime VxStrToDateTime(std::u16string_view Text);
// Hour, minute, second and millisecond between colons, as StrToIntDef with 0 reads each. An hour of 24
// gives 1.0 whatever follows. Default for a time that does not exist and for the empty text.
TDateTime VxStrToTime24(std::u16string_view Text, TDateTime Default) noexcept;
// Reads an hour amount: an optional sign, then hours without limit, minutes, seconds and milliseconds
// between colons, as StrToIntDef with 0 reads each; u"-36:30" gives -1.520833. The empty text is the
// amount 0. False, with Hour 0, if minutes and so on do not exist; false, with Hour set all the same, if
// there is anything but digits and colons behind the sign.
// Amounts that are exact, with the place of what is wrong: TryStrToHourAmount (core/HourAmount.h).
bool VxStrToHour(std::u16string_view Text, TDateTime& Hour) noexcept;

}  // namespace vx
