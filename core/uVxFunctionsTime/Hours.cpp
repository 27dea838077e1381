#include "core/uVxFunctionsTime/Hours.h"

#include <cmath>
#include <limits>

#include "core/uVxFunctions/Rounding.h"
#include "core/uVxFunctionsTime/Compare.h"
#include "core/uVxFunctionsTime/Encoding.h"
#include "core/uVxFunctionsTime/Parts.h"
#include "platform/NumberMasks.h"
#include "platform/Rounding.h"

namespace vx {

using namespace timeparts;

namespace {

// Rounded and held to the range of int; 0 for what is no number.
int RoundedInt(Extended Value) noexcept {
  using TLimits = std::numeric_limits<int>;
  const Extended rounded = SimpleRoundTo(Value, 0);
  if (rounded >= TLimits::max()) return TLimits::max();
  if (rounded <= TLimits::min()) return TLimits::min();
  return std::isnan(rounded) ? 0 : static_cast<int>(rounded);
}

}  // namespace

Extended VxHourToDecimal(TDateTime Hour) noexcept {
  const TTime time = TimeOf(Hour);
  return std::fabs(std::trunc(static_cast<Extended>(Hour))) * 24 + time.Hour + time.Minute / 60.0L;
}

String VxHourMinToStr(TDateTime Hour) {
  if (Hour == 0) return u"0:00";
  DateTimeDefuzz(Hour, false);
  const TTime time = TimeOf(Hour);
  int minutes = time.Hour * 60 + time.Minute;
  if (time.Second + (time.MSec >= 500 ? 1 : 0) >= 30) ++minutes;
  const int64_t hours = std::abs(WholeDays(Hour)) * 24 + minutes / 60;
  minutes %= 60;
  char16_t text[24];
  char16_t* const end = text + 24;
  char16_t* place = PutTwoDigits(end, minutes);
  *--place = u':';
  place = PutNumber(place, static_cast<uint64_t>(hours), 2);
  if (Hour < 0 && (hours != 0 || minutes != 0)) *--place = u'-';
  return std::u16string_view(place, static_cast<size_t>(end - place));
}

String VxHourToComma(TDateTime Hour) {
  if (Hour == 0) return u"0,00";
  return FormatFloat(u"0.00", RoundTrade(static_cast<Extended>(Hour) * 2400) / 100.0L);
}

TDateTime VxTruncTime(TDateTime DateTime) noexcept {
  const TTime time = TimeOf(DateTime);
  return std::trunc(DateTime) + VxEncodeTime(time.Hour, time.Minute, 0, 0);
}

int VxMinuteToIndustry(int Minutes) noexcept { return RoundedInt(Minutes / 3.0L * 5); }
int VxIndustryToMinute(int IndustryMinutes) noexcept { return RoundedInt(IndustryMinutes / 5.0L * 3); }

double VxHourToIndustry(TDateTime Hour) noexcept {
  const TDateTime value = DateTimeDefuzzFunc(Hour, true);
  const TTime time = TimeOf(value);
  return std::trunc(value) * 24 + time.Hour + VxMinuteToIndustry(time.Minute) / 100.0;
}

TDateTime VxIndustryToHour(double IndustryHours) {
  const int64_t whole = WholeDays(IndustryHours);
  const Extended fraction = static_cast<Extended>(IndustryHours) - std::trunc(static_cast<Extended>(IndustryHours));
  int minutes = VxIndustryToMinute(RoundedInt(fraction * 100));
  int hours = static_cast<int>(whole % 24) + minutes / 60;
  minutes %= 60;
  const int64_t days = whole / 24 + hours / 24;
  TDateTime result = EncodeTime(hours % 24, minutes, 0, 0) + static_cast<double>(days);
  DateTimeDefuzz(result, true);
  return result;
}

int VxIndustryHourToMinute(double IndustryHours) noexcept { return RoundedInt(IndustryHours * 100.0L); }
double VxIndustryMinuteToHour(int IndustryMinutes) noexcept { return IndustryMinutes / 100.0; }

}  // namespace vx
