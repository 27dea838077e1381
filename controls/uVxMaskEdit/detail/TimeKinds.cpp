#include "controls/uVxMaskEdit/detail/TimeKinds.h"

#include <algorithm>
#include <cmath>

#include "controls/uVxMaskEdit/HourText.h"
#include "controls/uVxMaskEdit/detail/Completion.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"

namespace vx::detail {
namespace {

constexpr int kFirstDay = 1 - DateDelta;    // 01.01.0001
constexpr int kLastDay = 2958465;           // 31.12.9999
constexpr int kLastDayOfHints = 109939;     // 31.12.2200
constexpr Extended kMostMinutes = 1.2e11L;  // about as many hours as a whole number can be

bool IsSet(TDateTime Limit) noexcept { return !std::isnan(Limit) && Limit != 0; }

// The limits as whole numbers by the function Of.
template <typename T, typename TOf>
TLimits<T> TimeLimits(const TMaskRules& Rules, TOf Of) noexcept {
  const auto bound = [&](TDateTime limit) {
    return std::isnan(limit) ? std::optional<T>() : std::optional<T>(Of(limit));
  };
  return LimitsOf<T>(Rules, IsSet(Rules.iDTMin) || IsSet(Rules.iDTMax), bound(Rules.iDTMin), bound(Rules.iDTMax));
}

String DayText(const TMaskRules& Rules, std::u16string_view Mask, int Day) {
  return FormatDateTime(Mask, Day, Rules.iFormatSettings);
}

bool IsHinted(int Day) noexcept { return Day >= 0 && Day <= kLastDayOfHints; }

// A limit beyond a day is its nearer end.
int LimitSeconds(TDateTime Limit) noexcept { return SecondsOf(std::clamp(Limit, 0.0, 1.0)); }

bool ReadTime(const TMaskRules& Rules, const String& Text, bool WithSeconds, int& Seconds) {
  TTimeFields fields;
  if (!CompleteTime(Text, Rules.iFormatSettings.TimeSeparator, WithSeconds, fields)) {
    // Such as times with am or pm. Digits alone that are too many could mean anything.
    TDateTime time;
    if (std::all_of(Text.begin(), Text.end(), IsDigit) || !TryStrToTime(Text, time, Rules.iFormatSettings))
      return false;
    Seconds = SecondsOf(time);
    return true;
  }
  const int seconds = fields.Hours * 3600 + fields.Minutes * 60 + fields.Seconds;
  if (fields.Seconds >= 60 || seconds > kSecondsPerDay) return false;
  Seconds = seconds;
  return true;
}

String TimeText(const TMaskRules& Rules, int Seconds, bool WithSeconds) {
  TTextBuffer text;
  text.AddNumber(static_cast<uint64_t>(Seconds / 3600), 2);
  text.Add(Rules.iFormatSettings.TimeSeparator);
  text.AddNumber(static_cast<uint64_t>(Seconds / 60 % 60), 2);
  if (WithSeconds) {
    text.Add(Rules.iFormatSettings.TimeSeparator);
    text.AddNumber(static_cast<uint64_t>(Seconds % 60), 2);
  }
  return text.ToString();
}

}  // namespace

int MonthOf(int Day) noexcept {
  int year, month, day;
  DecodeDate(Day, year, month, day);
  return day > 0 ? Day - day + 1 : Day;
}

int DayOf(TDateTime DateTime) noexcept {
  if (std::isnan(DateTime)) return 0;
  return static_cast<int>(std::clamp(DateTime, double{kFirstDay}, double{kLastDay}));
}

int SecondsOf(TDateTime DateTime) noexcept {
  if (DateTimeDefuzzFunc(DateTime, true) == 1.0) return kSecondsPerDay;
  int hour, minute, second, msec;
  DecodeTime(DateTime, hour, minute, second, msec);
  return hour * 3600 + minute * 60 + second;
}

int64_t MinutesOf(Extended Minutes) noexcept {
  if (std::isnan(Minutes)) return 0;
  return std::llround(std::clamp(Minutes, -kMostMinutes, kMostMinutes));
}

String MonthAsDate(const String& Text, const TFormatSettings& Settings) {
  return Concat({u"01", {&Settings.DateSeparator, 1}, Text});
}

bool TDateKind::Read(const TMaskRules& Rules, const String& Text, TValue& Value) {
  TDateTime date;
  if (!TryStrToDate(CompleteDate(Text, Rules.iFormatSettings), date, Rules.iFormatSettings)) return false;
  Value = DayOf(date);
  return true;
}

TLimits<int> TDateKind::Limits(const TMaskRules& Rules) noexcept { return TimeLimits<int>(Rules, DayOf); }

String TDateKind::Write(const TMaskRules& Rules, TValue Value) { return DayText(Rules, u"dd/mm/yyyy", Value); }

String TDateKind::Hint(const TMaskRules& Rules, TValue Value) {
  return IsHinted(Value) ? Write(Rules, Value) : Picture(Bad, Rules.iFormatSettings);
}

bool TMonthKind::Read(const TMaskRules& Rules, const String& Text, TValue& Value) {
  const TFormatSettings& settings = Rules.iFormatSettings;
  TDateTime date;
  if (!TryStrToDate(MonthAsDate(CompleteMonth(Text, settings), settings), date, settings)) return false;
  Value = DayOf(date);
  return true;
}

TLimits<int> TMonthKind::Limits(const TMaskRules& Rules) noexcept {
  return TimeLimits<int>(Rules, [](TDateTime limit) { return MonthOf(DayOf(limit)); });
}

String TMonthKind::Write(const TMaskRules& Rules, TValue Value) { return DayText(Rules, u"mm/yyyy", Value); }

String TMonthKind::Hint(const TMaskRules& Rules, TValue Value) {
  return IsHinted(Value) ? Write(Rules, Value) : Picture(Bad, Rules.iFormatSettings);
}

bool TTimeKind::Read(const TMaskRules& Rules, const String& Text, TValue& Value) {
  if (!ReadTime(Rules, Text, false, Value)) return false;
  Value -= Value % 60;
  return true;
}

TLimits<int> TTimeKind::Limits(const TMaskRules& Rules) noexcept {
  return TimeLimits<int>(Rules, [](TDateTime limit) { return LimitSeconds(limit) / 60 * 60; });
}

String TTimeKind::Write(const TMaskRules& Rules, TValue Value) { return TimeText(Rules, Value, false); }

bool TSecondKind::Read(const TMaskRules& Rules, const String& Text, TValue& Value) {
  return ReadTime(Rules, Text, true, Value);
}

TLimits<int> TSecondKind::Limits(const TMaskRules& Rules) noexcept { return TimeLimits<int>(Rules, LimitSeconds); }

String TSecondKind::Write(const TMaskRules& Rules, TValue Value) { return TimeText(Rules, Value, true); }

bool THourKind::Read(const TMaskRules&, const String& Text, TValue& Value) { return TryStrToMinutes(Text, Value); }

TLimits<int64_t> THourKind::Limits(const TMaskRules& Rules) noexcept {
  auto limits = TimeLimits<int64_t>(Rules, [](TDateTime limit) { return MinutesOf(Extended(limit) * 1440); });
  // The limits in whole hours narrow those, unless they are the ones that every such field begins with.
  std::optional<int64_t> low, high;
  if (Rules.iMMMin != -kMostHours) low = MinutesOf(Rules.iMMMin * Extended{60});
  if (Rules.iMMMax != kMostHours) high = MinutesOf(Rules.iMMMax * Extended{60});
  const auto whole = LimitsOf<int64_t>(Rules, Rules.iMMMin != 0 || Rules.iMMMax != 0, low, high);
  if (whole.Low) limits.Low = limits.Low ? std::max(*limits.Low, *whole.Low) : *whole.Low;
  if (whole.High) limits.High = limits.High ? std::min(*limits.High, *whole.High) : *whole.High;
  return limits;
}

String THourKind::Write(const TMaskRules&, TValue Value) { return FormatToHour(Value); }

}  // namespace vx::detail
