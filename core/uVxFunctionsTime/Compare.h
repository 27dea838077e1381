// Snapping date-times to the days they mean, and comparing them at a chosen precision. A float that should
// be a whole day or a whole millisecond usually is not one.
#pragma once

#include <cstdint>

#include "platform/Types.h"

namespace vx {

// What counts in a comparison. Types without Full stop at the minute. In the 24 types exactly 1.0 is 24:00.
enum TDateTimeType : uint8_t { dttDate, dttDateTime, dttDateTimeFull, dttTime, dttTimeFull, dttTime24, dttTime24Full };

// A fraction below it, 0:00:00.001, may stand for a whole day.
inline constexpr TDateTime DateTimeDefuzzMin = 1.0 / 86400000;
// A fraction above it, 23:59:59.999, may stand for the next whole day.
inline constexpr TDateTime DateTimeDefuzzMax = 86399999.0 / 86400000;
// Only values that lie no farther apart than this are compared field by field: one day for dttDate, one
// minute for types that stop at the minute, one millisecond for the full ones.
inline constexpr TDateTime ThresholdDate = 1.0;
inline constexpr TDateTime ThresholdTime = 60000.0 / 86400000;
inline constexpr TDateTime ThresholdTimeFull = 1.0 / 86400000;

// Makes a whole day of a value that reads as 00:00:00.000 and whose fraction is above DateTimeDefuzzMax
// (the next day away from 0) or, with AlsoLow, below DateTimeDefuzzMin. Everything else stays.
void DateTimeDefuzz(TDateTime& DateTime, bool AlsoLow) noexcept;
// The same as result.
TDateTime DateTimeDefuzzFunc(TDateTime DateTime, bool AlsoLow) noexcept;
// The whole days plus hour and minute as they read, and the seconds and milliseconds that are to be kept.
// A fraction above DateTimeDefuzzMax gives the nearest whole day. Pitfall: the time is added also to a
// negative value: -1.25 gives -0.75.
TDateTime DateTimeDefuzzFull(TDateTime DateTime, bool KeepSeconds, bool KeepMSec) noexcept;

// -1, 0 or 1 for A before, at and behind B: 10:00:20 and 10:00:40 are 0 as dttTime, -1 as dttTimeFull.
// A fraction above DateTimeDefuzzMax counts as the nearest whole day. A value that has no fields, being no
// number or out of range, counts as fields of 0 unless it lies clearly apart.
int CompareDateTime(TDateTime A, TDateTime B, TDateTimeType Type) noexcept;

}  // namespace vx
