#include "core/uVxFunctionsTime/Compare.h"

#include <cmath>

#include "core/uVxFunctions/Rounding.h"
#include "core/uVxFunctionsTime/Encoding.h"
#include "core/uVxFunctionsTime/Parts.h"
#include "platform/Rounding.h"

namespace vx {

using namespace timeparts;

namespace {

TDateTime NearestDay(TDateTime DateTime) noexcept { return static_cast<TDateTime>(SimpleRoundTo(DateTime, 0)); }

TTime ComparedTime(TDateTime DateTime, bool Is24, bool IsFull) noexcept {
  TTime result = TimeOf(DateTime);
  if (Is24 && SameValue(DateTime, 1.0)) result.Hour = 24;
  if (!IsFull) result.Second = result.MSec = 0;
  return result;
}

}  // namespace

void DateTimeDefuzz(TDateTime& DateTime, bool AlsoLow) noexcept {
  const double fraction = FractionOf(DateTime);
  const bool isHigh = fraction > DateTimeDefuzzMax;
  if (!isHigh && !(AlsoLow && fraction < DateTimeDefuzzMin)) return;
  if (TimeOf(DateTime) != TTime{}) return;
  const double day = std::trunc(DateTime);
  DateTime = !isHigh ? day : DateTime > 0 ? day + 1 : day - 1;
}

TDateTime DateTimeDefuzzFunc(TDateTime DateTime, bool AlsoLow) noexcept {
  DateTimeDefuzz(DateTime, AlsoLow);
  return DateTime;
}

TDateTime DateTimeDefuzzFull(TDateTime DateTime, bool KeepSeconds, bool KeepMSec) noexcept {
  if (FractionOf(DateTime) > DateTimeDefuzzMax) return NearestDay(DateTime);
  const TTime time = TimeOf(DateTime);
  return std::trunc(DateTime) +
         VxEncodeTime(time.Hour, time.Minute, KeepSeconds ? time.Second : 0, KeepMSec ? time.MSec : 0);
}

int CompareDateTime(TDateTime A, TDateTime B, TDateTimeType Type) noexcept {
  if (FractionOf(A) > DateTimeDefuzzMax) A = NearestDay(A);
  if (FractionOf(B) > DateTimeDefuzzMax) B = NearestDay(B);
  if (SameValue(A, B)) return 0;
  const bool isFull = Type == dttDateTimeFull || Type == dttTimeFull || Type == dttTime24Full;
  const double window = Type == dttDate ? ThresholdDate : isFull ? ThresholdTimeFull : ThresholdTime;
  if (std::fabs(A - B) > window) return A > B ? 1 : -1;
  if (Type == dttDate || Type == dttDateTime || Type == dttDateTimeFull) {
    const int order = CompareInteger(DateOf(A).Number(), DateOf(B).Number());
    if (order != 0 || Type == dttDate) return order;
  }
  const bool is24 = Type == dttTime24 || Type == dttTime24Full;
  return CompareInteger(ComparedTime(A, is24, isFull).Number(), ComparedTime(B, is24, isFull).Number());
}

}  // namespace vx
