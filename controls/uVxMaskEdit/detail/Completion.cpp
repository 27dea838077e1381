#include "controls/uVxMaskEdit/detail/Completion.h"

#include <algorithm>

#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Text.h"

namespace vx::detail {
namespace {

String Today(std::u16string_view Mask) { return FormatDateTime(Mask, Now()); }

size_t Count(std::u16string_view Text, char16_t Unit) {
  return static_cast<size_t>(std::count(Text.begin(), Text.end(), Unit));
}

// A whole number below 100000; 0 for an empty text.
bool ReadField(std::u16string_view Text, int& Value) noexcept {
  Value = 0;
  for (char16_t unit : Text) {
    if (!IsDigit(unit) || Value >= 10000) return false;
    Value = Value * 10 + (unit - u'0');
  }
  return true;
}

// Hours, minutes and seconds without separators; the last ones are two digits each.
bool SplitDigits(std::u16string_view Text, bool WithSeconds, std::u16string_view (&Parts)[3]) noexcept {
  if (Text.size() > (WithSeconds ? 6u : 4u)) return false;
  const size_t hours = Text.size() - (Text.size() < 3 ? 0 : Text.size() < 5 ? 2 : 4);
  Parts[0] = Text.substr(0, hours);
  Parts[1] = Text.substr(hours, 2);
  if (Text.size() > 4) Parts[2] = Text.substr(hours + 2);
  return true;
}

bool SplitFields(std::u16string_view Text, char16_t Separator, std::u16string_view (&Parts)[3]) noexcept {
  for (std::u16string_view& part : Parts) {
    const size_t end = Text.find(Separator);
    part = Text.substr(0, end);
    if (end == Text.npos) return true;
    Text.remove_prefix(end + 1);
  }
  return false;
}

}  // namespace

String CompleteDate(const String& Text, const TFormatSettings& Settings) {
  const std::u16string_view text = Text, separator(&Settings.DateSeparator, 1);
  const bool isOpen = text.ends_with(separator);
  switch (Count(text, Settings.DateSeparator)) {
    case 0:
      if (text.size() == 2) return Concat({text, separator, Today(u"mm")});
      if (text.size() == 3 || text.size() == 4) return Concat({text.substr(0, 2), separator, text.substr(2)});
      if (text.size() < 5 || text.size() > 8) return Text;
      return Concat({text.substr(0, 2), separator, text.substr(2, 2), separator, text.substr(4)});
    case 1:
      return isOpen ? Text + Today(u"mm") : Text;
    case 2:
      return isOpen ? Text + Today(u"yyyy") : Text;
    default:
      return Text;
  }
}

String CompleteMonth(const String& Text, const TFormatSettings& Settings) {
  const std::u16string_view text = Text, separator(&Settings.DateSeparator, 1);
  switch (Count(text, Settings.DateSeparator)) {
    case 0:
      if (text.size() == 2) return Concat({text, separator, Today(u"yyyy")});
      if (text.size() < 3 || text.size() > 6) return Text;
      return Concat({text.substr(0, 2), separator, text.substr(2)});
    case 1:
      return text.ends_with(separator) ? Text + Today(u"yyyy") : Text;
    default:
      return Text;
  }
}

bool CompleteTime(std::u16string_view Text, char16_t Separator, bool WithSeconds, TTimeFields& Fields) noexcept {
  std::u16string_view parts[3];
  const bool hasSeparator = Text.find(Separator) != Text.npos;
  if (!(hasSeparator ? SplitFields(Text, Separator, parts) : SplitDigits(Text, WithSeconds, parts))) return false;
  TTimeFields fields;
  if (!ReadField(parts[0], fields.Hours) || !ReadField(parts[1], fields.Minutes) ||
      !ReadField(parts[2], fields.Seconds))
    return false;
  Fields = {fields.Hours + fields.Minutes / 60, fields.Minutes % 60, fields.Seconds};
  return true;
}

}  // namespace vx::detail
