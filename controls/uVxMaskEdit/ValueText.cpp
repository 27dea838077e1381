#include "controls/uVxMaskEdit/ValueText.h"

#include <cmath>

#include "controls/uVxMaskEdit/detail/NumberKinds.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "platform/TextBuffer.h"

namespace vx {

namespace {

// Value as IsRead tells; 0 where it was not.
template <typename T>
bool OrNone(bool IsRead, T& Value) {
  if (!IsRead) Value = T{};
  return IsRead;
}

// Text without thousands separators; what has some is put together in Buffer.
std::u16string_view EliminateTsd(std::u16string_view Text, const TFormatSettings& Settings, TTextBuffer& Buffer) {
  const char16_t separator = Settings.ThousandSeparator;
  const bool isUsed = separator != 0 && separator != Settings.DecimalSeparator;
  if (!isUsed || Text.find(separator) == Text.npos) return Text;
  for (char16_t unit : Text) {
    if (unit != separator) Buffer.Add(unit);
  }
  return Buffer.View();
}

}  // namespace

bool ToInteger(std::u16string_view aText, int& aValue, const TFormatSettings& aSettings) {
  TTextBuffer buffer;
  return OrNone(TryStrToInt(EliminateTsd(aText, aSettings, buffer), aValue), aValue);
}

bool ToFloat(std::u16string_view aText, Extended& aValue, const TFormatSettings& aSettings) {
  TTextBuffer buffer;
  return OrNone(TextToFloat(EliminateTsd(aText, aSettings, buffer), aValue, aSettings), aValue);
}

bool ToDouble(std::u16string_view aText, double& aValue, const TFormatSettings& aSettings) {
  Extended value;
  const bool isRead = ToFloat(aText, value, aSettings);
  aValue = static_cast<double>(value);
  return OrNone(isRead && std::isfinite(aValue), aValue);
}

bool ToCurrency(std::u16string_view aText, Currency& aValue, const TFormatSettings& aSettings) {
  TTextBuffer buffer;
  return OrNone(TextToCurr(EliminateTsd(aText, aSettings, buffer), aValue, aSettings), aValue);
}

bool ToDate(std::u16string_view aText, TDateTime& aValue, const TFormatSettings& aSettings) {
  return OrNone(TryStrToDate(aText, aValue, aSettings), aValue);
}

bool ToTime(std::u16string_view aText, TDateTime& aValue, const TFormatSettings& aSettings) {
  const bool isEndOfDay =
      aText == detail::Picture(u"24:00", aSettings).view() || aText == detail::Picture(u"24:00:00", aSettings).view();
  if (isEndOfDay) aValue = 1;
  return isEndOfDay || OrNone(TryStrToTime(aText, aValue, aSettings), aValue);
}

}  // namespace vx
