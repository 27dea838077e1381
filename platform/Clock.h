// Time: the present, ticks, sleeping and the time zone.
//
//   TClock           what the library asks of time; SystemClock() and TManualClock implement it
//   SetClock         replaces the clock
//   TTimeZone        local time and universal time; SystemTimeZone() and TFixedTimeZone implement it, and
//                    GermanTimeZone() (GermanTimeZone.h)
//   SetTimeZone      replaces the time zone
//
// Example (a test):
//   vx::TManualClock clock(46000.5);
//   vx::TClockScope scope(clock);
//   vx::Sleep(100);                       // returns at once; the clock stands 100 ms later
//
// Date-times are taken as plain numbers of days here, the fraction added also where the number is
// negative. Pitfall: clock and zone are the program's; replace them before other threads use them.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/Types.h"

namespace vx {

class TClock {
 public:
  virtual ~TClock() = default;
  // The present as universal time.
  virtual TDateTime UtcNow() = 0;
  // Milliseconds since an arbitrary moment, never going back.
  virtual int64_t Ticks() = 0;
  // At least so long; 0 and less only give way to other threads.
  virtual void Sleep(int Milliseconds) = 0;
};

TClock& SystemClock() noexcept;
// Returns the clock in use before. The clock stays the caller's and must outlive its use.
TClock& SetClock(TClock& Clock) noexcept;
TClock& GetClock() noexcept;

// Stands still but for Sleep and Advance, its ticks starting at 0. Threads may share it.
class TManualClock : public TClock {
 public:
  explicit TManualClock(TDateTime UtcStart) noexcept : FStart(UtcStart) {}
  TDateTime UtcNow() override;
  int64_t Ticks() override { return FTicks; }
  void Sleep(int Milliseconds) override;
  // Milliseconds below 0 count as 0, as ticks never go back.
  void Advance(int64_t Milliseconds) noexcept;
  // How often Sleep was called.
  int GetSleeps() const noexcept { return FSleeps; }

 private:
  TDateTime FStart;
  std::atomic<int64_t> FTicks{0};
  std::atomic<int> FSleeps{0};
};

class TTimeZone {
 public:
  virtual ~TTimeZone() = default;
  // Minutes to add to universal time to get local time, at a moment of universal time and at a local
  // time. A local time that occurs twice is taken as the first; one that is skipped is taken with
  // the offset before the change. Unless overridden, OffsetAtLocal is found through OffsetAtUtc.
  virtual int OffsetAtUtc(TDateTime Utc) = 0;
  virtual int OffsetAtLocal(TDateTime Local);
};

// Reads the system's zone data. The offset is 0 outside the years 100 to 9999 and for a date-time
// that is no number.
TTimeZone& SystemTimeZone() noexcept;
// Returns the zone in use before. The zone stays the caller's and must outlive its use.
TTimeZone& SetTimeZone(TTimeZone& Zone) noexcept;
TTimeZone& GetTimeZone() noexcept;

// The same offset at all times.
class TFixedTimeZone : public TTimeZone {
 public:
  explicit TFixedTimeZone(int OffsetMinutes) noexcept : FOffset(OffsetMinutes) {}
  int OffsetAtUtc(TDateTime) override { return FOffset; }
  int OffsetAtLocal(TDateTime) override { return FOffset; }

 private:
  int FOffset;
};

// Sets a clock, and a zone, as long as it lives.
class TClockScope {
 public:
  explicit TClockScope(TClock& Clock) noexcept : FPrevious(SetClock(Clock)) {}
  ~TClockScope() { SetClock(FPrevious); }
  TClockScope(const TClockScope&) = delete;
  TClockScope& operator=(const TClockScope&) = delete;

 private:
  TClock& FPrevious;
};
class TTimeZoneScope {
 public:
  explicit TTimeZoneScope(TTimeZone& Zone) noexcept : FPrevious(SetTimeZone(Zone)) {}
  ~TTimeZoneScope() { SetTimeZone(FPrevious); }
  TTimeZoneScope(const TTimeZoneScope&) = delete;
  TTimeZoneScope& operator=(const TTimeZoneScope&) = delete;

 private:
  TTimeZone& FPrevious;
};

// The present in local time.
TDateTime Now();
// Milliseconds since an arbitrary moment.
int64_t GetTickCount();
void Sleep(int Milliseconds);
// By the zone in use, at the date given: its rules of that year, not those of today.
TDateTime UtcToLocal(TDateTime Utc);
TDateTime LocalToUtc(TDateTime Local);

}  // namespace vx
