#include "platform/Clock.h"

#include <atomic>
#include <cmath>
#include <thread>

#include "platform/detail/Immortal.h"
#include "platform/os/Time.h"

namespace vx {

namespace {

constexpr double kMsPerDay = 86400000.0;
constexpr double kMinutesPerDay = 1440.0;
constexpr double kUnixEpoch = 25569.0;   // 1.1.1970 as a date-time
constexpr double kFirstDay = -657434.0;  // 1.1.100
constexpr double kEndDay = 2958466.0;    // 1.1.10000

constinit std::atomic<TClock*> CurrentClock{nullptr};
constinit std::atomic<TTimeZone*> CurrentZone{nullptr};

class TSystemClock final : public TClock {
 public:
  TDateTime UtcNow() override {
    const os::TMoment now = os::UtcNow();
    // One rounding only: a date-time of our days has steps of 0.6 microseconds.
    long double seconds = static_cast<long double>(now.Seconds) + static_cast<long double>(now.Nanoseconds) / 1e9L;
    return static_cast<double>(static_cast<long double>(kUnixEpoch) + seconds / 86400.0L);
  }

  int64_t Ticks() override { return os::Ticks(); }

  void Sleep(int Milliseconds) override {
    if (Milliseconds <= 0) {
      std::this_thread::yield();
      return;
    }
    os::Sleep(Milliseconds);
  }
};

class TSystemTimeZone final : public TTimeZone {
 public:
  TSystemTimeZone() noexcept { os::LoadZone(); }

  int OffsetAtUtc(TDateTime Utc) override {
    if (!(Utc >= kFirstDay && Utc < kEndDay)) return 0;
    // To the millisecond first: 01:00 as a fraction of a day may lie a little below 01:00.
    double milliseconds = std::round((Utc - kUnixEpoch) * kMsPerDay);
    auto seconds = static_cast<int64_t>(std::floor(milliseconds / 1000.0));
    // Mostly the same second is asked for again and again.
    if (const int64_t last = FLast.load(std::memory_order_relaxed); last >> kOffsetBits == seconds) {
      return static_cast<int>(last & ((1 << kOffsetBits) - 1)) - kOffsetBias;
    }
    int64_t exact = 0;
    if (!os::ZoneOffset(seconds, exact)) return 0;
    // Zones of the time before standard time are no whole minutes off.
    const int offset = static_cast<int>(std::lround(static_cast<double>(exact) / 60.0));
    FLast.store(seconds << kOffsetBits | (offset + kOffsetBias), std::memory_order_relaxed);
    return offset;
  }

 private:
  static constexpr int kOffsetBits = 12, kOffsetBias = 1 << (kOffsetBits - 1);  // no zone is a whole day off
  std::atomic<int64_t> FLast{INT64_MIN};                                        // a second and its offset
};

}  // namespace

TClock& SystemClock() noexcept { return detail::Immortal<TSystemClock>(); }

TClock& SetClock(TClock& Clock) noexcept {
  TClock* previous = CurrentClock.exchange(&Clock, std::memory_order_acq_rel);
  return previous != nullptr ? *previous : SystemClock();
}

TClock& GetClock() noexcept {
  TClock* clock = CurrentClock.load(std::memory_order_acquire);
  return clock != nullptr ? *clock : SystemClock();
}

TDateTime TManualClock::UtcNow() { return FStart + static_cast<double>(FTicks.load()) / kMsPerDay; }

void TManualClock::Sleep(int Milliseconds) {
  Advance(Milliseconds);
  ++FSleeps;
}

void TManualClock::Advance(int64_t Milliseconds) noexcept {
  if (Milliseconds > 0) FTicks += Milliseconds;
}

int TTimeZone::OffsetAtLocal(TDateTime Local) {
  // No zone is a whole day off, so these two lie on either side of the moment meant.
  int before = OffsetAtUtc(Local - 1.0);
  if (OffsetAtUtc(Local - before / kMinutesPerDay) == before) return before;
  int after = OffsetAtUtc(Local + 1.0);
  return OffsetAtUtc(Local - after / kMinutesPerDay) == after ? after : before;
}

TTimeZone& SystemTimeZone() noexcept { return detail::Immortal<TSystemTimeZone>(); }

TTimeZone& SetTimeZone(TTimeZone& Zone) noexcept {
  TTimeZone* previous = CurrentZone.exchange(&Zone, std::memory_order_acq_rel);
  return previous != nullptr ? *previous : SystemTimeZone();
}

TTimeZone& GetTimeZone() noexcept {
  TTimeZone* zone = CurrentZone.load(std::memory_order_acquire);
  return zone != nullptr ? *zone : SystemTimeZone();
}

TDateTime Now() { return UtcToLocal(GetClock().UtcNow()); }

int64_t GetTickCount() { return GetClock().Ticks(); }

void Sleep(int Milliseconds) { GetClock().Sleep(Milliseconds); }

TDateTime UtcToLocal(TDateTime Utc) { return Utc + GetTimeZone().OffsetAtUtc(Utc) / kMinutesPerDay; }

TDateTime LocalToUtc(TDateTime Local) { return Local - GetTimeZone().OffsetAtLocal(Local) / kMinutesPerDay; }

}  // namespace vx
