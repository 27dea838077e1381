#include "platform/os/Time.h"

#include <time.h>

#include <cerrno>

namespace vx::os {

TMoment UtcNow() noexcept {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return {int64_t{now.tv_sec}, static_cast<int32_t>(now.tv_nsec)};
}

int64_t Ticks() noexcept {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

int64_t CoarseTicks() noexcept {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return int64_t{now.tv_sec} * 1000000000 + now.tv_nsec;
}

void Sleep(int Milliseconds) noexcept {
  timespec rest{Milliseconds / 1000, Milliseconds % 1000 * 1000000L};
  while (::nanosleep(&rest, &rest) != 0 && errno == EINTR) {
  }
}

void LoadZone() noexcept { ::tzset(); }

bool ZoneOffset(int64_t UtcSeconds, int64_t& OffsetSeconds) noexcept {
  const time_t seconds{UtcSeconds};
  tm local{};
  if (::localtime_r(&seconds, &local) == nullptr) return false;
  OffsetSeconds = local.tm_gmtoff;
  return true;
}

}  // namespace vx::os
