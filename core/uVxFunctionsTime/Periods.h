// Periods of days and spans of times: their German texts, and whether two of them overlap. A date-time of
// exactly 0 is an open end.
#pragma once

#include <cstdint>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// A period of days, as short as may be: u"bis 3.02.2015", u"von 3.02.2015", u"3.02.2015",
// u"Februar 2015", u"3.-17.02.2015", u"Jahr 2015", u"Jan-Mrz 2015", u"3.01.-17.02.2015",
// u"Jan 2014 -Mrz 2015", with a blank before the dash only, u"3.12.2014-17.02.2015". Empty if both ends
// are open. The names are those of the settings.
String VxDatePeriodToStr(TDateTime From, TDateTime To);
// The same as part of a file name: " * . / : < > ? \ | are underscores.
String VxDatePeriodToFilename(TDateTime From, TDateTime To);
// Both ends by a mask of FormatDateTime, an open one as Empty, with Separator between them.
String VxPeriodStr(TDateTime From, TDateTime To, std::u16string_view Format, std::u16string_view Separator,
                   std::u16string_view Empty);
// A span of times by VxTimeToStr24: u"08:00-16:30"; an end that reads 00:00 is open: u"von 08:00",
// u"bis 16:30", empty for both.
String VxTimePeriodToStr(TDateTime From, TDateTime To);
// The short form for shifts: u"8-16:30", u"22-24"; 1.0 is 24.
String VxTimePeriodToStr24(TDateTime From, TDateTime To);
// The length of a span of times, across midnight unless To is behind From: equal times are a full
// day, 1.0; but 0 if both are 0.
// By the clock alone; time that passed, parts of the night and over summer time: SplitPeriod (core/HourPeriods.h).
TDateTime VxTimesPeriod24(TDateTime From, TDateTime To) noexcept;

// Swaps the ends if From is behind To, and says whether it did. With OpenEnd a To whose whole days are
// not above 0 is open and stays.
bool ValidatePeriod(TDateTime& From, TDateTime& To, bool OpenEnd) noexcept;

enum TOverlappingDateOptions : uint8_t {
  odoOpenEnd,  // ends whose whole days are not above 0 are open
  odoSwap      // periods that run backwards are turned round by ValidatePeriod
};
using TOverlappingDateOptionsSet = Set<TOverlappingDateOptions>;

// The periods A and B have a day in common; the time of day does not count. Pitfall, which is wanted:
// with odoOpenEnd an open A2 makes it true even where B ends before A begins, while an open B2 only
// leaves out the end of B.
bool OverlappingDate(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2,
                     TOverlappingDateOptionsSet Options = {}) noexcept;
// The same with odoSwap; Swapped says whether a period was turned round.
bool OverlappingDate(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2, bool& Swapped, bool OpenEnd) noexcept;

// The spans of times A and B have more than a touching point in common. An overlap below one millisecond
// counts only if its two ends read differently, in milliseconds.
bool OverlappingTime(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2) noexcept;
// The length of the overlap; 0 if there is none by OverlappingTime.
TDateTime GetOverlappingTime(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2) noexcept;
// The spans overlap or touch.
bool DockingTime(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2) noexcept;

// Universal time as local time, by the rules of the time zone in use at that date.
TDateTime UtcTOLocalDateTime(TDateTime DateTime);

}  // namespace vx
