// The dates, times and counts of hours that a field can hold; what each kind has is told in NumberKinds.h.
#pragma once

#include "controls/uVxMaskEdit/detail/NumberKinds.h"

namespace vx::detail {

// Midnight at the end of a day, as a time in its own right.
inline constexpr int kSecondsPerDay = 86400;

// Days since 30.12.1899.
struct TDateKind {
  using TValue = int;
  static constexpr const char16_t *Zero = u"00.00.0000", *Nothing = Zero, *Bad = u"xx.xx.xxxx";
  static bool Read(const TMaskRules& Rules, const String& Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value);
};

// The day on which the month begins.
struct TMonthKind {
  using TValue = int;
  static constexpr const char16_t *Zero = u"00.0000", *Nothing = Zero, *Bad = u"xx.xxxx";
  static bool Read(const TMaskRules& Rules, const String& Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value);
};

// Seconds since midnight, up to kSecondsPerDay; whole minutes.
struct TTimeKind {
  using TValue = int;
  static constexpr const char16_t *Zero = u"00:00", *Nothing = Zero, *Bad = u"xx:xx";
  static bool Read(const TMaskRules& Rules, const String& Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value) { return Write(Rules, Value); }
};

struct TSecondKind {
  using TValue = int;
  static constexpr const char16_t *Zero = u"00:00:00", *Nothing = Zero, *Bad = u"xx:xx:xx";
  static bool Read(const TMaskRules& Rules, const String& Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value) { return Write(Rules, Value); }
};

// Minutes.
struct THourKind {
  using TValue = int64_t;
  static constexpr const char16_t *Zero = u"0:00", *Nothing = Zero, *Bad = u"";
  static bool Read(const TMaskRules& Rules, const String& Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value) { return Write(Rules, Value); }
};

// The first day of the month of a day.
int MonthOf(int Day) noexcept;
// The day of a date-time, held to the years 1 to 9999; 0 for what is no number.
int DayOf(TDateTime DateTime) noexcept;
// The seconds of a time of day; kSecondsPerDay for 1.0, to the millisecond.
int SecondsOf(TDateTime DateTime) noexcept;
// A whole number of minutes, held to what a text of hours can tell; 0 for what is no number.
int64_t MinutesOf(Extended Minutes) noexcept;
// A month is read as the date of its first day.
String MonthAsDate(const String& Text, const TFormatSettings& Settings);

}  // namespace vx::detail
