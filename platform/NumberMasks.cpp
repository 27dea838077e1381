#include "platform/NumberMasks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "platform/Numbers.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Decimal.h"
#include "platform/detail/Masks.h"

namespace vx {

using detail::AddLiteral;
using detail::BehindLiteral;
using detail::IsQuote;
using detail::TDecimal;

namespace {

constexpr int kPrecision = 15;
constexpr int kCurrencyPrecision = 19;
constexpr int kMaxDigitsBefore = 18;
constexpr int kMaxExponentDigits = 4;

bool IsExponent(std::u16string_view Mask, size_t At) noexcept {
  return (Mask[At] == u'E' || Mask[At] == u'e') && At + 1 < Mask.size() &&
         (Mask[At + 1] == u'+' || Mask[At + 1] == u'-');
}

// The parts for positive, negative and zero numbers.
std::array<std::u16string_view, 3> PartsOf(std::u16string_view Mask) noexcept {
  std::array<std::u16string_view, 3> result;
  size_t part = 0, first = 0, at = 0;
  while (at < Mask.size() && part < result.size()) {
    if (IsQuote(Mask[at])) {
      at = BehindLiteral(Mask, at);
    } else if (Mask[at] == u';') {
      result[part++] = Mask.substr(first, at - first);
      first = ++at;
    } else {
      ++at;
    }
  }
  if (part < result.size()) result[part] = Mask.substr(first);
  return result;
}

// What one part of a mask asks for. Places are counted from the left.
struct TLayout {
  int Places = 0;
  int PlacesBefore = -1;  // before the decimal separator
  int LeastBefore = 0;    // digits that are always shown
  int LeastBehind = 0;
  bool HasThousands = false;
  bool IsScientific = false;
};

TLayout LayoutOf(std::u16string_view Part) noexcept {
  TLayout result;
  int firstZero = INT32_MAX, behindLastZero = 0;
  for (size_t at = 0; at < Part.size();) {
    const char16_t unit = Part[at];
    if (IsQuote(unit)) {
      at = BehindLiteral(Part, at);
      continue;
    }
    if (unit == u'0') {
      firstZero = std::min(firstZero, result.Places);
      behindLastZero = ++result.Places;
    } else if (unit == u'#') {
      ++result.Places;
    } else if (unit == u'.') {
      if (result.PlacesBefore < 0) result.PlacesBefore = result.Places;
    } else if (unit == u',') {
      result.HasThousands = true;
    } else if (IsExponent(Part, at)) {
      result.IsScientific = true;
      for (++at; at + 1 < Part.size() && Part[at + 1] == u'0';) ++at;
    }
    ++at;
  }
  if (result.PlacesBefore < 0) result.PlacesBefore = result.Places;
  result.LeastBefore = std::max(result.PlacesBefore - firstZero, 0);
  result.LeastBehind = std::max(behindLastZero - result.PlacesBefore, 0);
  return result;
}

// Writes one number by one part of a mask.
class TWriter {
 public:
  TWriter(const TDecimal& Number, const TLayout& Layout, const TFormatSettings& Settings) noexcept
      : FNumber(Number), FLayout(Layout), FSettings(Settings) {
    Number.WriteDigits(FDigits);
    FPlace = Layout.PlacesBefore;
    if (!Layout.IsScientific) {
      FPlace = std::max(FPlace, Number.Point);
      FExtra = Number.Point - Layout.PlacesBefore;
    }
  }

  String Write(std::u16string_view Part, bool ShowsMinus) {
    if (ShowsMinus) FBuffer.Add(u'-');
    for (size_t at = 0; at < Part.size();) {
      const char16_t unit = Part[at];
      if (IsQuote(unit)) {
        at = AddLiteral(FBuffer, Part, at);
      } else if (unit == u'0' || unit == u'#') {
        WritePlace();
        ++at;
      } else if (unit == u'.' || unit == u',') {
        ++at;
      } else if (IsExponent(Part, at)) {
        at = WriteExponent(Part, at);
      } else {
        FBuffer.Add(unit);
        ++at;
      }
    }
    return FBuffer.ToString();
  }

 private:
  // The digits of one place; of the first one also those that have no place before it.
  void WritePlace() {
    for (; FExtra > 0; --FExtra) WriteDigit();
    if (FExtra < 0) {
      ++FExtra;
      if (FPlace <= FLayout.LeastBefore) {
        WriteUnit(u'0');
      } else {
        --FPlace;
      }
    } else {
      WriteDigit();
    }
  }

  void WriteDigit() {
    if (FNext < FNumber.Count) {
      WriteUnit(FDigits[FNext++]);
    } else if (FPlace > -FLayout.LeastBehind) {
      WriteUnit(u'0');
    } else {
      --FPlace;
    }
  }

  void WriteUnit(char16_t Digit) {
    if (FPlace == 0) FBuffer.Add(FSettings.DecimalSeparator);
    FBuffer.Add(Digit);
    if (FLayout.HasThousands && FPlace > 1 && FPlace % 3 == 1 && FSettings.ThousandSeparator != 0) {
      FBuffer.Add(FSettings.ThousandSeparator);
    }
    --FPlace;
  }

  // Returns the place behind the exponent in the mask.
  size_t WriteExponent(std::u16string_view Part, size_t At) {
    const int exponent = FNumber.Count == 0 ? 0 : FNumber.Point - FLayout.PlacesBefore;
    FBuffer.Add(Part[At]);
    const bool showsPlus = Part[At + 1] == u'+';
    int zeros = 0;
    for (At += 2; At < Part.size() && Part[At] == u'0'; ++At) ++zeros;
    if (exponent < 0) {
      FBuffer.Add(u'-');
    } else if (showsPlus) {
      FBuffer.Add(u'+');
    }
    FBuffer.AddNumber(static_cast<uint64_t>(std::abs(exponent)), std::clamp(zeros, 1, kMaxExponentDigits));
    return At;
  }

  const TDecimal& FNumber;
  const TLayout& FLayout;
  const TFormatSettings& FSettings;
  char16_t FDigits[20];
  TTextBuffer FBuffer;
  int FNext = 0;   // digit of the number
  int FExtra = 0;  // digits without a place; below 0, places without a digit
  int FPlace;      // of the next digit, 1 before the separator, 0 and less behind it
};

// Number by Mask; by Fallback where the mask has no form for it.
template <typename TFallback>
String Formatted(std::u16string_view Mask, const TDecimal& Number, int Precision, const TFormatSettings& Settings,
                 TFallback Fallback) {
  const auto parts = PartsOf(Mask);
  size_t part = Number.Count == 0 ? 2 : Number.IsNegative ? 1 : 0;
  for (TDecimal number = Number;; part = 2) {
    const bool isFirst = part == 0 || parts[part].empty();
    const std::u16string_view mask = parts[isFirst ? 0 : part];
    const TLayout layout = LayoutOf(mask);
    if (mask.empty() || (number.Point > kMaxDigitsBefore && !layout.IsScientific)) return Fallback();
    if (layout.IsScientific) {
      number.RoundToDigits(std::clamp(layout.Places, 1, Precision));
    } else {
      number.RoundToDecimals(layout.Places - layout.PlacesBefore);
    }
    if (number.Count == 0 && part != 2) continue;
    return TWriter(number, layout, Settings).Write(mask, number.IsNegative && isFirst);
  }
}

}  // namespace

String FormatFloat(std::u16string_view Mask, Extended Value, const TFormatSettings& Settings) {
  auto fallback = [&] { return FloatToStr(Value, Settings); };
  if (!std::isfinite(Value)) return fallback();
  return Formatted(Mask, TDecimal::Of(Value, kPrecision), kPrecision, Settings, fallback);
}

String FormatFloat(std::u16string_view Mask, Extended Value) { return FormatFloat(Mask, Value, GetFormatSettings()); }

String FormatCurr(std::u16string_view Mask, Currency Value, const TFormatSettings& Settings) {
  auto fallback = [&] { return CurrToStr(Value, Settings); };
  return Formatted(Mask, TDecimal::Of(Value), kCurrencyPrecision, Settings, fallback);
}

String FormatCurr(std::u16string_view Mask, Currency Value) { return FormatCurr(Mask, Value, GetFormatSettings()); }

}  // namespace vx
