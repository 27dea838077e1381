#include "controls/uVxMaskEdit/detail/Steps.h"

#include <cmath>
#include <utility>

#include "controls/uVxMaskEdit/HourText.h"
#include "controls/uVxMaskEdit/detail/TimeKinds.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx::detail {
namespace {

// No date, which shows as the empty picture; the last day of all.
constexpr TDateTime kBeforeFirstDay = -DateDelta;
constexpr TDateTime kLastDay = 2958465;

// Where a step in months or in years leads to no date, and to the last day of all.
struct TBounds {
  TDateTime Low, High;
};
constexpr TBounds kYearBounds{-693229, 2958100}, kMonthBounds{-693562, 2958434};

bool StepInteger(const TMaskRules& Rules, const String& Text, int Delta, String& Result) {
  int value;
  if (!TIntegerKind::Read(Rules, Text, value) || !std::in_range<int>(int64_t{value} + Delta)) return false;
  Result = IntToStr(value + Delta);
  return true;
}

// The decimals are stepped by the digit under the cursor, at the end by the one before it.
bool StepFloat(const TMaskRules& Rules, const String& Text, int Cursor, int Delta, String& Result) {
  Extended value;
  if (!TFloatKind::Read(Rules, Text, value)) return false;
  const int separator = Pos({&Rules.iFormatSettings.DecimalSeparator, 1}, Text);
  Extended step = Delta;
  if (separator > 0 && Cursor >= separator) {
    const int digit = Cursor == Text.size() ? Cursor : Cursor + 1;
    step /= std::pow(Extended{10}, digit - separator);
  }
  if (!std::isfinite(value + step)) return false;
  Result = FloatToStr(value + step, Rules.iFormatSettings);
  return true;
}

int SteppedMonths(int Day, int Months, TBounds Bounds) {
  if (Months < 0 && Day <= Bounds.Low) return static_cast<int>(kBeforeFirstDay);
  if (Months > 0 && Day >= Bounds.High) return static_cast<int>(kLastDay);
  return static_cast<int>(IncMonth(Day, Months));
}

// Cursor as in a text that begins with the day.
int SteppedDate(int Day, int Cursor, int Delta) {
  if (Cursor < 3) return std::min(Day + Delta, static_cast<int>(kLastDay));
  if (Cursor >= 6) return SteppedMonths(Day, 12 * Delta, kYearBounds);
  return SteppedMonths(Day, Delta, kMonthBounds);
}

template <typename TKind>
bool StepDate(const TMaskRules& Rules, const String& Text, int Cursor, int Delta, String& Result) {
  int day;
  if (!TKind::Read(Rules, Text, day)) return false;
  Result = TKind::Write(Rules, SteppedDate(day, Cursor, Delta));
  return true;
}

bool StepHour(const TMaskRules& Rules, const String& Text, int Cursor, int Delta, String& Result) {
  int64_t minutes;
  if (!THourKind::Read(Rules, Text, minutes)) return false;
  const int separator = Pos(u":", Text);
  const bool isAtMinutes = separator > 0 && Cursor >= separator - 1;
  Result = THourKind::Write(Rules, minutes + (isAtMinutes ? Delta : Delta * 60));
  return true;
}

// Value stepped within 0 to Count - 1, going round.
int Wrapped(int Value, int Delta, int Count) noexcept { return (Value + Delta + Count) % Count; }

template <typename TKind>
bool StepTime(const TMaskRules& Rules, const String& Text, int Cursor, int Delta, String& Result) {
  int value;
  if (!TKind::Read(Rules, Text, value)) return false;
  const std::u16string_view separator(&Rules.iFormatSettings.TimeSeparator, 1);
  const int first = Pos(separator, Text), second = Pos(separator, Text, first + 1);
  int hours = value / 3600 % 24, minutes = value / 60 % 60, seconds = value % 60;
  if (first == 0 || Cursor < first) {
    hours = Wrapped(hours, Delta, 24);
  } else if (std::is_same_v<TKind, TTimeKind> || second == 0 || Cursor < second) {
    minutes = Wrapped(minutes, Delta, 60);
  } else {
    seconds = Wrapped(seconds, Delta, 60);
  }
  Result = TKind::Write(Rules, hours * 3600 + minutes * 60 + seconds);
  return true;
}

}  // namespace

bool StepText(const TMaskRules& Rules, const String& Text, int Cursor, int Delta, String& Result) {
  if (Text.empty()) return false;
  switch (Rules.iMaskMode) {
    case mmInteger:
      return StepInteger(Rules, Text, Delta, Result);
    case mmFloat:
    case mmCurrency:
    case mmPerc:
      return StepFloat(Rules, Text, Cursor, Delta, Result);
    case mmDate:
      return StepDate<TDateKind>(Rules, Text, Cursor, Delta, Result);
    case mmMonth:
      // Counted as if the day stood in front.
      return StepDate<TMonthKind>(Rules, Text, Cursor + 3, Delta, Result);
    case mmHour:
      return StepHour(Rules, Text, Cursor, Delta, Result);
    case mmTime:
      return StepTime<TTimeKind>(Rules, Text, Cursor, Delta, Result);
    case mmSecond:
      return StepTime<TSecondKind>(Rules, Text, Cursor, Delta, Result);
    default:
      return false;
  }
}

}  // namespace vx::detail
