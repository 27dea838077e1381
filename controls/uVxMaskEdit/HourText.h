// Texts of hour counts, u"1:30", as an hour field has them.
//
//   StrToHM             hours and minutes as they stand
//   toHour, toMinute    the same as one number
//   CalStrToHourStr     the normal form of what was typed
//
// Example:
//   vx::Extended hours = 0;
//   vx::toHour(u"-1:30", hours);    // true
//   hours;                          // -1.5
//   vx::CalStrToHourStr(u"130");    // u"1:30"
//
// Pitfall: a text without ":" is minutes for the first three, and hours with two digits of minutes for the normal form.
#pragma once

#include <cstdint>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// What stands before and behind the first ":"; without one the whole text is the minutes. A part that is no whole
// number is 0. False, with both 0, for a second ":".
bool StrToHM(std::u16string_view aText, int& aHours, int& aMinutes) noexcept;
// Hours and minutes/60, below 0 where the text begins with "-". False, with 0, where StrToHM is.
bool toHour(std::u16string_view aText, Extended& aHours) noexcept;
// Hours*60 and minutes, below 0 where the text begins with "-". False, with 0, where StrToHM is, and beyond 32 bits.
bool toMinute(std::u16string_view aText, int& aMinutes) noexcept;

// Hours, ":" and two digits of minutes, with "-" in front where aText has it. Without ":" the last two characters are
// the minutes: u"130" is u"1:30", u"5" is u"0:05". Minutes from 60 on are carried: u"0:90" is u"1:30". What stands
// behind a second ":" goes, and minutes that are no whole number are 0. A text whose hours are none stays as it is.
String CalStrToHourStr(std::u16string_view aText);
// The minutes of that form. False, with aMinutes unchanged, for what has two signs or no hours.
bool TryStrToMinutes(std::u16string_view aText, int64_t& aMinutes);
// The text of so many minutes in that form: -45 is u"-0:45".
String FormatToHour(int64_t aMinutes);

}  // namespace vx
