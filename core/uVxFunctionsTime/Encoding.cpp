#include "core/uVxFunctionsTime/Encoding.h"

#include <algorithm>
#include <limits>

#include "core/uVxFunctionsTime/Parts.h"

namespace vx {

using timeparts::DateOf;
using timeparts::TDate;
using timeparts::TimeOf;
using timeparts::TTime;

bool VxEncodeDate(int Year, int Month, int Day, TDateTime& DateTime) noexcept {
  DateTime = 0;
  return TryEncodeDate(Year, Month, Day, DateTime);
}

TDateTime VxEncodeDate(int Year, int Month, int Day) noexcept {
  TDateTime result = 0;
  TryEncodeDate(Year, Month, Day, result);
  return result;
}

bool VxEncodeTime(int Hour, int Minute, int Second, int MSec, TDateTime& DateTime) noexcept {
  DateTime = 0;
  return TryEncodeTime(Hour, Minute, Second, MSec, DateTime);
}

TDateTime VxEncodeTime(int Hour, int Minute, int Second, int MSec) noexcept {
  TDateTime result = 0;
  TryEncodeTime(Hour, Minute, Second, MSec, result);
  return result;
}

int VxDateToInt(TDateTime DateTime) noexcept { return DateOf(DateTime).Number(); }

int VxMonthToInt(TDateTime DateTime) noexcept {
  const TDate date = DateOf(DateTime);
  return date.Year * 100 + date.Month;
}

int VxTimeToInt(TDateTime DateTime) noexcept { return TimeOf(DateTime).Number(); }

bool VxIntToDate(int Value, TDateTime& DateTime) noexcept {
  return VxEncodeDate(Value / 10000, Value / 100 % 100, Value % 100, DateTime);
}

TDateTime VxIntToDate(int Value) noexcept { return VxEncodeDate(Value / 10000, Value / 100 % 100, Value % 100); }

TDateTime VxIntToTime(int Value) noexcept {
  return VxEncodeTime(Value / 10000000, Value / 100000 % 100, Value / 1000 % 100, Value % 1000);
}

TDateTime VxMinuteToTime(int Minutes) noexcept {
  const int hours = Minutes / 60;
  // The remainders have the sign of Minutes.
  const TDateTime time = VxEncodeTime(std::abs(hours % 24), std::abs(Minutes % 60), 0, 0) + std::abs(hours / 24);
  return Minutes < 0 ? -time : time;
}

int VxTimeToMinute(TDateTime DateTime) noexcept {
  const TTime time = TimeOf(DateTime);
  const int64_t minutes = timeparts::WholeDays(DateTime) * 1440 + time.Hour * 60 + time.Minute;
  using TLimits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<int64_t>(minutes, TLimits::min(), TLimits::max()));
}

}  // namespace vx
