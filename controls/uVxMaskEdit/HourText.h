// Texts of hour counts, u"1:30", as an hour field has them.
//
//   StrToHM             hours and minutes as they stand
//   toHour, toMinute    the same as one number
//
// Example:
//   vx::Extended hours = 0;
//   vx::toHour(u"-1:30", hours);   // true
//   hours;                         // -1.5
//
// Pitfall: a text without ":" is minutes here.
#pragma once

#include <string_view>

#include "platform/Types.h"

namespace vx {

// What stands before and behind the first ":"; without one the whole text is the minutes. A part that is no whole
// number is 0. False, with both 0, for a second ":".
bool StrToHM(std::u16string_view aText, int& aHours, int& aMinutes) noexcept;
// Hours and minutes/60, below 0 where the text begins with "-". False, with 0, where StrToHM is.
bool toHour(std::u16string_view aText, Extended& aHours) noexcept;
// Hours*60 and minutes, below 0 where the text begins with "-". False, with 0, where StrToHM is, and beyond 32 bits.
bool toMinute(std::u16string_view aText, int& aMinutes) noexcept;

}  // namespace vx
