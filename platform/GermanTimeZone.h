// The time zone of Germany by its own rules, whatever data the machine has.
//
//   GermanTimeZone   local and universal time, with summer time as it holds in Germany
//
// Example:
//   vx::TTimeZone& zone = vx::GermanTimeZone();
//   zone.OffsetAtLocal(vx::EncodeDate(2026, 7, 1));      // 120
//   zone.OffsetAtLocal(vx::EncodeDate(2026, 12, 24));    // 60
//   vx::SetTimeZone(zone);                               // for all that asks GetTimeZone
//
// Summer time begins at 1:00 universal time on the last Sunday of March and ends at 1:00 on the last Sunday of October,
// until 1995 of September; in 1980, its first year, it began on 6.4. Pitfall: before 1980 there is none here, as there
// was none from 1950 on; years to come have today's rule.
#pragma once

#include "platform/Clock.h"

namespace vx {

// One object, which lives as long as the program; threads may share it. Moments are read to the nearest millisecond.
// The offset is 60 outside the years 1 to 9999 and for what is no number.
TTimeZone& GermanTimeZone() noexcept;

}  // namespace vx
