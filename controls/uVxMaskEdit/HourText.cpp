#include "controls/uVxMaskEdit/HourText.h"

#include <cstdint>
#include <utility>

#include "platform/Numbers.h"

namespace vx {
namespace {

// Takes a "-" in front off the text, and tells whether it was there.
bool TakeMinus(std::u16string_view& Text) noexcept {
  const bool isNegative = Text.starts_with(u'-');
  if (isNegative) Text.remove_prefix(1);
  return isNegative;
}

}  // namespace

bool StrToHM(std::u16string_view aText, int& aHours, int& aMinutes) noexcept {
  aHours = aMinutes = 0;
  const size_t colon = aText.find(u':');
  const std::u16string_view minutes = colon == aText.npos ? aText : aText.substr(colon + 1);
  if (minutes.find(u':') != minutes.npos) return false;
  if (colon != aText.npos) aHours = StrToIntDef(aText.substr(0, colon), 0);
  aMinutes = StrToIntDef(minutes, 0);
  return true;
}

bool toHour(std::u16string_view aText, Extended& aHours) noexcept {
  const bool isNegative = TakeMinus(aText);
  int hours, minutes;
  const bool isGood = StrToHM(aText, hours, minutes);
  aHours = hours + Extended(minutes) / 60;
  if (isNegative) aHours = -aHours;
  return isGood;
}

bool toMinute(std::u16string_view aText, int& aMinutes) noexcept {
  const bool isNegative = TakeMinus(aText);
  int hours, minutes;
  const bool isGood = StrToHM(aText, hours, minutes);
  const int64_t sum = int64_t{hours} * 60 + minutes;
  const bool isInt = std::in_range<int>(isNegative ? -sum : sum);
  aMinutes = isInt ? static_cast<int>(isNegative ? -sum : sum) : 0;
  return isGood && isInt;
}

}  // namespace vx
