// Dates and times of the day as texts, read strictly and written whole.
//
//   TryStrToDateStrict and its kin for times and date-times    a text as a value, or what is wrong and where
//   TryDateToStrStrict and its kin                             a value as a text that is read back as the same one
//
// Example:
//   vx::TDateTime born = 0;
//   vx::TTextFault fault;
//   vx::TryStrToDateStrict(u"4.5.1944", born, fault);       // true
//   vx::TryStrToDateStrict(u"31.02.2015", born, fault);     // false
//   fault.GetText();                                        // u"diesen Tag gibt es nicht an Position 1"
//   vx::String text;
//   vx::TryDateToStrStrict(born, text);                     // true
//   text;                                                   // u"04.05.1944"
//
// What is read, with blanks around:
//   04.05.1944  4.5.1944                  a day and a month of one or two digits, a year of four, between points
//   1944-05-04                            as programs and databases write it, with all digits
//   06:30  6:30  06:30:15                 an hour of one or two digits; minutes and seconds of two
//   06:30:15.250  06:30:15:250            thousandths in three digits
//   24:00  24:00:00                       as a time alone: 1.0, the end of the day
//   04.05.1944 06:30  1944-05-04T06:30    a date, blanks, and a time up to 23:59; T behind the form of programs only
//
// Refused is what could be meant in two ways or is no date: 4.5.44, 05/04/1944, 19440504, 31.02.2015, 24:00 behind a
// date. No settings and no locale play a part.
//
// Pitfalls: 30.12.1899 is read, and its value is 0, which elsewhere says that there is no date. The told readers
// (StrToDateDef, VxStrToTime24 and their kin) take other forms, and guess the century of a short year.
#pragma once

#include <string_view>

#include "core/TextFault.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// False for a text that is refused; Value stays as it is then.
[[nodiscard]] bool TryStrToDateStrict(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept;
[[nodiscard]] bool TryStrToTimeStrict(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept;
// A date and a time: one without the other is incomplete.
[[nodiscard]] bool TryStrToDateTimeStrict(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept;

// u"04.05.1944"; false, with Text unchanged, outside the years 1 to 9999 and for a value with a time of the day.
[[nodiscard]] bool TryDateToStrStrict(TDateTime Value, String& Text);
// u"06:30", with seconds and thousandths where there are some: u"06:30:15", u"06:30:15:250"; 1.0 is u"24:00". False
// outside 0 to 1.
[[nodiscard]] bool TryTimeToStrStrict(TDateTime Value, String& Text);
// u"04.05.1944 06:30:00", with thousandths where there are some. False outside the years 1 to 9999.
[[nodiscard]] bool TryDateTimeToStrStrict(TDateTime Value, String& Text);

}  // namespace vx
