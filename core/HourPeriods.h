// Periods of work cut into parts: by midnights, weeks, months and the hours of the night, over changes of summer time.
//
//   THourPeriod   from one moment of local time to another
//   SplitPeriod   its parts, each with its hours by the clock and as time that passed
//   ClockHours, ElapsedHours   the same of the whole
//
// Example:
//   const vx::TDateTime day = vx::EncodeDate(2026, 3, 28);      // summer time begins in the night
//   const vx::THourPeriod shift{day + vx::EncodeTime(21, 0, 0, 0), day + 1 + vx::EncodeTime(6, 30, 0, 0)};
//   vx::HourAmountToStr(vx::ClockHours(shift));                 // u"9:30"
//   vx::HourAmountToStr(vx::ElapsedHours(shift));               // u"8:30"
//   vx::THourAmount night, sunday;
//   for (const vx::TPeriodPart& part : vx::SplitPeriod(shift, {vx::pcMidnight, vx::pcNight})) {
//     if (part.IsNight) night += part.Elapsed;
//     if (part.WeekDay == 7) sunday += part.Elapsed;
//   }
//   vx::HourAmountToStr(night);                                 // u"8:00"
//   vx::HourAmountToStr(sunday);                                // u"5:30"
//
// Moments are date-times, read to the nearest minute. The zone is the German one unless another is given, never the
// machine's. A time that the clock skips is the moment of the change; one that comes twice is the first, unless the
// period says that its end is the second. A cut in a doubled hour is made where its time comes first within the period.
//
// Threads: each has its own values, and any number may read the same one.
//
// Pitfalls: the hours by the clock of a part that ends in a doubled hour may be below 0; the elapsed ones never are.
// Parts make up the whole, by the clock and elapsed.
#pragma once

#include <cstdint>
#include <vector>

#include "core/HourAmount.h"
#include "platform/Clock.h"
#include "platform/GermanTimeZone.h"
#include "platform/Types.h"

namespace vx {

struct THourPeriod {
  TDateTime From = 0, To = 0;
  // Of a time that comes twice in the night in which summer time ends, the second; without meaning for any other.
  bool IsFromSecond = false, IsToSecond = false;
};

enum TPeriodCut : uint8_t {
  pcMidnight,  // at 0:00 of each day; so each part has one weekday
  pcWeek,      // at 0:00 of each Monday
  pcMonth,     // at 0:00 of each first of a month
  pcNight      // where the night begins and ends
};
using TPeriodCuts = Set<TPeriodCut>;

// The hours of the night, or any other window of the clock, in minutes of the day: From belongs to it, To does not. A
// From behind To goes across midnight.
struct TClockWindow {
  int From = 20 * 60, To = 6 * 60;
};

struct TPeriodPart {
  TDateTime From = 0, To = 0;  // local time
  int WeekDay = 0;             // of From: 1 for Monday to 7 for Sunday
  bool IsNight = false;        // with pcNight: lies in the window
  THourAmount Clock;           // To less From, as the clock shows them
  THourAmount Elapsed;         // the time that passed
};

// The parts in their order; none for a period of no length. EInvalidArgument for a period that ends before it begins,
// for ends outside the years 1 to 9999, and for a window whose ends are equal or outside 0 to 1440.
std::vector<TPeriodPart> SplitPeriod(const THourPeriod& Period, TPeriodCuts Cuts, TClockWindow Night = {},
                                     TTimeZone& Zone = GermanTimeZone());

// The whole period; EInvalidArgument as SplitPeriod.
THourAmount ClockHours(const THourPeriod& Period, TTimeZone& Zone = GermanTimeZone());
THourAmount ElapsedHours(const THourPeriod& Period, TTimeZone& Zone = GermanTimeZone());

}  // namespace vx
