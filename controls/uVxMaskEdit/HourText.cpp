#include "controls/uVxMaskEdit/HourText.h"

#include <cstdint>
#include <utility>

#include "platform/Numbers.h"
#include "platform/TextBuffer.h"

namespace vx {
namespace {

// Takes a "-" in front off the text, and tells whether it was there.
bool TakeMinus(std::u16string_view& Text) noexcept {
  const bool isNegative = Text.starts_with(u'-');
  if (isNegative) Text.remove_prefix(1);
  return isNegative;
}

// Puts the missing parts of an hour text without sign to it; what follows a second ":" goes with it.
void Complete(TTextBuffer& Text, std::u16string_view Typed) {
  const size_t colon = Typed.find(u':');
  if (colon == Typed.npos) {
    const size_t hours = Typed.size() < 3 ? 0 : Typed.size() - 2;
    Text.Add(Typed.substr(0, hours));
    Text.Add(u':');
    Text.Add(Typed.substr(hours));
  } else {
    Text.Add(Typed.substr(0, Typed.find(u':', colon + 1)));
  }
}

struct THourParts {
  bool IsNegative;
  int64_t Hours;
  int Minutes;  // -59 to 59
};

// False for hours that are no whole number.
bool ReadParts(std::u16string_view Text, THourParts& Parts) {
  TTextBuffer typed, whole;
  Parts.IsNegative = TakeMinus(Text);
  if (!Parts.IsNegative && Text.starts_with(u'+')) {
    typed.Add(u'0');
    Text.remove_prefix(1);
  }
  if (Parts.IsNegative || Text.empty()) typed.Add(u'0');
  typed.Add(Text);
  Complete(whole, typed.View());

  const size_t colon = whole.View().find(u':');
  int hours = 0;
  if (colon > 0 && (!TryStrToInt(whole.View().substr(0, colon), hours) || hours < 0)) return false;
  const int minutes = StrToIntDef(whole.View().substr(colon + 1), 0);
  Parts.Hours = int64_t{hours} + minutes / 60;
  Parts.Minutes = minutes % 60;
  return true;
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

String CalStrToHourStr(std::u16string_view aText) {
  THourParts parts;
  if (!ReadParts(aText, parts)) return String(aText);
  const String hours = IntToStr(parts.Hours), minutes = IntToStr(parts.Minutes);
  return Concat({parts.IsNegative ? u"-" : u"", hours, minutes.size() < 2 ? u":0" : u":", minutes});
}

bool TryStrToMinutes(std::u16string_view aText, int64_t& aMinutes) {
  THourParts parts;
  if (!ReadParts(aText, parts) || (parts.IsNegative && parts.Hours < 0) || parts.Minutes < 0) return false;
  aMinutes = parts.Hours * 60 + parts.Minutes;
  if (parts.IsNegative) aMinutes = -aMinutes;
  return true;
}

String FormatToHour(int64_t aMinutes) {
  TTextBuffer text;
  if (aMinutes < 0) text.Add(u'-');
  const uint64_t minutes = aMinutes < 0 ? 0 - static_cast<uint64_t>(aMinutes) : static_cast<uint64_t>(aMinutes);
  text.AddNumber(minutes / 60);
  text.Add(u':');
  text.AddNumber(minutes % 60, 2);
  return text.ToString();
}

}  // namespace vx
