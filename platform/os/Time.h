// The system's clocks, its way of sleeping and its data of time zones. For the sources of platform/ only.
#pragma once

#include <cstdint>

namespace vx::os {

// Universal time since the start of 1970. Nanoseconds go from 0 to 999999999.
struct TMoment {
  int64_t Seconds;
  int32_t Nanoseconds;
};
TMoment UtcNow() noexcept;

// Milliseconds since an arbitrary moment, never going back.
int64_t Ticks() noexcept;
// A cheap reading that stays the same between two ticks of the clock by which the system wakes threads.
int64_t CoarseTicks() noexcept;
// Sleeps at least so long; more than 0 milliseconds.
void Sleep(int Milliseconds) noexcept;

// Reads the zone that is set for this process; before the first look at offsets.
void LoadZone() noexcept;
// The seconds to add to universal time, so many seconds after the start of 1970, for local time. False if the
// system can't tell.
bool ZoneOffset(int64_t UtcSeconds, int64_t& OffsetSeconds) noexcept;

}  // namespace vx::os
