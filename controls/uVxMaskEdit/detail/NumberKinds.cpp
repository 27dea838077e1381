#include "controls/uVxMaskEdit/detail/NumberKinds.h"

#include <algorithm>
#include <cmath>

#include "controls/uVxMaskEdit/ValueText.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx::detail {
namespace {

constexpr int kPrecision = 18;        // digits of a number
constexpr int kHintDecimals = 9;      // where the field does not limit them
constexpr int kMostZeros = 255;       // in front
constexpr int kCurrencyDecimals = 4;  // of the smallest amount

TFloatFormat FormOf(const TMaskRules& Rules) noexcept { return Rules.iUseTausend ? ffNumber : ffFixed; }
int DigitsOf(const TMaskRules& Rules, int Unlimited) noexcept {
  return Rules.iDigitLimit ? std::clamp(Rules.iDecimaldigits, 0, kPrecision) : Unlimited;
}

// Without zeros at the end of the decimals.
String Trimmed(const String& Text, const TFormatSettings& Settings) {
  const std::u16string_view view = Text;
  if (view.find(Settings.DecimalSeparator) == view.npos || view.find(u'E') != view.npos) return Text;
  const size_t last = view.find_last_not_of(u'0');
  return Text.Slice(0, static_cast<int>(view[last] == Settings.DecimalSeparator ? last : last + 1));
}

bool ReadsAs(const String& Text, const TFormatSettings& Settings, Extended& Value) noexcept {
  return TextToFloat(Text, Value, Settings);
}

// The digits by which a number is known: all that can be shown, unless it was brought as a double that fewer tell.
int PrecisionOf(Extended Value, const TFormatSettings& Settings) {
  const auto asDouble = static_cast<double>(Value);
  Extended read = 0;
  if (!ReadsAs(FloatToStrF(Value, ffExponent, kPrecision, 0, Settings), Settings, read) || read == Value ||
      asDouble != Value)
    return kPrecision;
  for (int precision = 15; precision < kPrecision; ++precision) {
    if (ReadsAs(FloatToStrF(Value, ffExponent, precision, 0, Settings), Settings, read) &&
        static_cast<double>(read) == asDouble)
      return precision;
  }
  return kPrecision;
}

// The same for the fixed form, in which a whole number is not to become scientific for want of digits.
int FixedPrecisionOf(Extended Value, const TFormatSettings& Settings) {
  const bool mayWant = std::abs(Value) >= 1e15L && std::abs(Value) < 1e18L;
  return mayWant ? kPrecision : PrecisionOf(Value, Settings);
}

// With all decimals that it has. Where these are too many for the fixed form, in the scientific one.
String FreeText(const TMaskRules& Rules, Extended Value) {
  const TFormatSettings& settings = Rules.iFormatSettings;
  const int precision = FixedPrecisionOf(Value, settings);
  String text = Trimmed(FloatToStrF(Value, FormOf(Rules), precision, kPrecision, settings), settings);
  if (std::abs(Value) >= 1) return text;
  const String exact = FloatToStrF(Value, ffGeneral, precision, 0, settings);
  Extended read = 0, readExact = 0;
  return ReadsAs(text, settings, read) && ReadsAs(exact, settings, readExact) && read != readExact ? exact : text;
}

bool IsAnyNumberSet(const TMaskRules& Rules) noexcept { return Rules.iMMMin != 0 || Rules.iMMMax != 0; }

template <typename T>
TLimits<T> NumberLimits(const TMaskRules& Rules) noexcept {
  return LimitsOf<T>(Rules, IsAnyNumberSet(Rules), T(Rules.iMMMin), T(Rules.iMMMax));
}

bool CanSeparate(char16_t Unit) noexcept {
  return Unit > u' ' && !IsDigit(Unit) && Unit != u'+' && Unit != u'-' && LowerAscii(Unit) != u'e';
}

}  // namespace

TFormatSettings FieldSettings(const TFormatSettings& Settings) {
  TFormatSettings field = Settings;
  field.TwoDigitYearCenturyWindow = 80;
  field.ShortDateFormat = String(u"dd/mm/yyyy");
  if (!CanSeparate(field.DecimalSeparator)) field.DecimalSeparator = u',';
  if (!CanSeparate(field.DateSeparator)) field.DateSeparator = u'.';
  if (!CanSeparate(field.TimeSeparator)) field.TimeSeparator = u':';
  const char16_t thousands = field.ThousandSeparator;
  if (thousands == field.DecimalSeparator || (thousands != u' ' && !CanSeparate(thousands)))
    field.ThousandSeparator = 0;
  return field;
}

String Picture(std::u16string_view German, const TFormatSettings& Settings) {
  return String::Build(German.size(), [&](char16_t* units) {
    for (char16_t unit : German) {
      *units++ = unit == u'.'   ? Settings.DateSeparator
                 : unit == u':' ? Settings.TimeSeparator
                 : unit == u',' ? Settings.DecimalSeparator
                                : unit;
    }
  });
}

String PutIntegerDiggits(const TMaskRules& Rules, const String& Text) {
  if (Rules.iZerosInFront <= 0) return Text;
  const std::u16string_view view = Text;
  const size_t sign = view.starts_with(u'-') ? 1 : 0;
  int digits = 0;
  for (char16_t unit : view.substr(sign)) {
    if (IsDigit(unit)) {
      ++digits;
    } else if (unit != Rules.iFormatSettings.ThousandSeparator) {
      break;
    }
  }
  const int missing = std::min(Rules.iZerosInFront, kMostZeros) - digits;
  if (digits == 0 || missing <= 0) return Text;
  return Concat({view.substr(0, sign), String(missing, u'0'), view.substr(sign)});
}

bool TIntegerKind::Read(const TMaskRules& Rules, std::u16string_view Text, TValue& Value) {
  return ToInteger(Text, Value, Rules.iFormatSettings);
}

TLimits<int> TIntegerKind::Limits(const TMaskRules& Rules) noexcept { return NumberLimits<int>(Rules); }

String TIntegerKind::Write(const TMaskRules& Rules, TValue Value) {
  return Rules.iUseTausend ? FloatToStrF(Value, ffNumber, kPrecision, 0, Rules.iFormatSettings) : IntToStr(Value);
}

bool TFloatKind::Read(const TMaskRules& Rules, std::u16string_view Text, TValue& Value) {
  return ToFloat(Text, Value, Rules.iFormatSettings);
}

TLimits<Extended> TFloatKind::Limits(const TMaskRules& Rules) noexcept { return NumberLimits<Extended>(Rules); }

String TFloatKind::Write(const TMaskRules& Rules, TValue Value) {
  if (!Rules.iDigitLimit) return FreeText(Rules, Value);
  return FloatToStrF(Value, FormOf(Rules), FixedPrecisionOf(Value, Rules.iFormatSettings), DigitsOf(Rules, 0),
                     Rules.iFormatSettings);
}

String TFloatKind::Hint(const TMaskRules& Rules, TValue Value) {
  return FloatToStrF(Value, FormOf(Rules), kPrecision, DigitsOf(Rules, kHintDecimals), Rules.iFormatSettings);
}

bool TCurrencyKind::Read(const TMaskRules& Rules, std::u16string_view Text, TValue& Value) {
  return ToCurrency(Text, Value, Rules.iFormatSettings);
}

TLimits<Currency> TCurrencyKind::Limits(const TMaskRules& Rules) noexcept { return NumberLimits<Currency>(Rules); }

String TCurrencyKind::Write(const TMaskRules& Rules, TValue Value) {
  const TFormatSettings& settings = Rules.iFormatSettings;
  const String text = CurrToStrF(Value, FormOf(Rules), DigitsOf(Rules, kCurrencyDecimals), settings);
  return Rules.iDigitLimit ? text : Trimmed(text, settings);
}

}  // namespace vx::detail
