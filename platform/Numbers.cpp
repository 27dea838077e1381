#include "platform/Numbers.h"

#include <algorithm>
#include <cmath>

#include "platform/TextBuffer.h"
#include "platform/detail/Decimal.h"

namespace vx {

using detail::TDecimal;

namespace {

constexpr int kMaxPrecision = 18;
constexpr int kMaxDecimals = 18;
constexpr int kGeneralPrecision = 15;
constexpr int kCurrencyPrecision = 19;
constexpr int kLeastGeneralPoint = -4;  // of 0.00001

// $ stands for the sign of the currency, 1 for the amount; by the numbers of the settings.
constexpr std::u16string_view kPositiveForms[] = {u"$1", u"1$", u"$ 1", u"1 $"};
constexpr std::u16string_view kNegativeForms[] = {u"($1)", u"-$1",  u"$-1",   u"$1-",  u"(1$)", u"-1$",
                                                  u"1-$",  u"1$-",  u"-1 $",  u"-$ 1", u"1 $-", u"$ 1-",
                                                  u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};

// The digits of a number, and zeros around them.
class TDigits {
 public:
  explicit TDigits(const TDecimal& Number) noexcept : FCount(Number.Count) { Number.WriteDigits(FDigits); }
  // The digit at Index, counted from 0 from the first one on; 0 outside.
  char16_t operator[](int Index) const noexcept { return Index >= 0 && Index < FCount ? FDigits[Index] : u'0'; }

 private:
  char16_t FDigits[20];
  int FCount;
};

// The amount of Number without its sign, with Decimals decimals.
void AddFixed(TTextBuffer& Buffer, const TDecimal& Number, int Decimals, char16_t Thousand,
              const TFormatSettings& Settings) {
  const TDigits digits(Number);
  if (Number.Point <= 0) Buffer.Add(u'0');
  for (int i = 0; i < Number.Point; ++i) {
    if (Thousand != 0 && i > 0 && (Number.Point - i) % 3 == 0) Buffer.Add(Thousand);
    Buffer.Add(digits[i]);
  }
  if (Decimals > 0) Buffer.Add(Settings.DecimalSeparator);
  for (int i = 0; i < Decimals; ++i) Buffer.Add(digits[Number.Point + i]);
}

// Amount, which has no sign of its own, with the sign of the currency.
void AddCurrency(TTextBuffer& Buffer, bool IsNegative, std::u16string_view Amount, const TFormatSettings& Settings) {
  const std::u16string_view form = IsNegative ? kNegativeForms[std::min<size_t>(Settings.NegCurrFormat, 15)]
                                              : kPositiveForms[std::min<size_t>(Settings.CurrencyFormat, 3)];
  for (char16_t unit : form) {
    if (unit == u'1') {
      Buffer.Add(Amount);
    } else if (unit == u'$') {
      Buffer.Add(Settings.CurrencyString);
    } else {
      Buffer.Add(unit);
    }
  }
}

// Digits digits in all, Decimals of them shown at least behind the separator.
void AddScientific(TTextBuffer& Buffer, const TDecimal& Number, int Decimals, bool ShowsPlus, int ExponentDigits,
                   const TFormatSettings& Settings) {
  const TDigits digits(Number);
  Buffer.Add(digits[0]);
  Decimals = std::max(Decimals, Number.Count - 1);
  if (Decimals > 0) Buffer.Add(Settings.DecimalSeparator);
  for (int i = 1; i <= Decimals; ++i) Buffer.Add(digits[i]);
  const int exponent = Number.Count == 0 ? 0 : Number.Point - 1;
  Buffer.Add(u'E');
  if (exponent < 0) {
    Buffer.Add(u'-');
  } else if (ShowsPlus) {
    Buffer.Add(u'+');
  }
  Buffer.AddNumber(static_cast<uint64_t>(std::abs(exponent)), ExponentDigits);
}

void AddGeneral(TTextBuffer& Buffer, const TDecimal& Number, int Precision, int ExponentDigits,
                const TFormatSettings& Settings) {
  if (Number.Point > Precision || Number.Point < kLeastGeneralPoint) {
    AddScientific(Buffer, Number, 0, false, ExponentDigits, Settings);
  } else {
    AddFixed(Buffer, Number, std::max(Number.Count - Number.Point, 0), 0, Settings);
  }
}

bool IsFixed(TFloatFormat Form) noexcept { return Form == ffFixed || Form == ffNumber || Form == ffCurrency; }

String Written(TDecimal Number, TFloatFormat Form, int Precision, int Digits, const TFormatSettings& Settings) {
  Digits = std::clamp(Digits, 0, IsFixed(Form) ? kMaxDecimals : 4);
  if (IsFixed(Form)) {
    if (Number.Point > Precision) {
      Form = ffGeneral;
      Digits = 0;
    } else {
      Number.RoundToDecimals(Digits);
    }
  }
  TTextBuffer buffer;
  if (Number.IsNegative && Form != ffCurrency) buffer.Add(u'-');
  switch (Form) {
    case ffExponent:
      AddScientific(buffer, Number, Precision - 1, true, Digits, Settings);
      break;
    case ffFixed:
      AddFixed(buffer, Number, Digits, 0, Settings);
      break;
    case ffNumber:
      AddFixed(buffer, Number, Digits, Settings.ThousandSeparator, Settings);
      break;
    case ffCurrency: {
      TTextBuffer amount;
      AddFixed(amount, Number, Digits, Settings.ThousandSeparator, Settings);
      AddCurrency(buffer, Number.IsNegative, amount.ToString(), Settings);
      break;
    }
    default:
      AddGeneral(buffer, Number, Precision, Digits, Settings);
      break;
  }
  return buffer.ToString();
}

// An amount of money without its sign, written from its end on.
class TAmountText {
 public:
  TAmountText(uint64_t Units, int Decimals, char16_t Thousand, char16_t Separator) noexcept {
    for (; Decimals > 4; --Decimals) *--FFirst = u'0';
    switch (Decimals) {
      case 3:
        Units = (Units + 5) / 10;
        break;
      case 2:
        Units = (Units + 50) / 100;
        break;
      case 1:
        Units = (Units + 500) / 1000;
        break;
      case 0:
        Units = (Units + 5000) / 10000;
        break;
      default:
        break;
    }
    FIsZero = Units == 0;
    for (int i = 0; i < Decimals; ++i) Units = WriteDigit(Units);
    if (FFirst != FText + kCapacity) *--FFirst = Separator;
    Units = WriteDigit(Units);
    for (int i = 1; Units != 0; ++i) {
      if (Thousand != 0 && i % 3 == 0) *--FFirst = Thousand;
      Units = WriteDigit(Units);
    }
  }
  bool IsZero() const noexcept { return FIsZero; }
  std::u16string_view View() const noexcept { return {FFirst, static_cast<size_t>(FText + kCapacity - FFirst)}; }
  void AddMinus() noexcept { *--FFirst = u'-'; }

 private:
  uint64_t WriteDigit(uint64_t Units) noexcept {
    *--FFirst = static_cast<char16_t>(u'0' + Units % 10);
    return Units / 10;
  }

  static constexpr int kCapacity = 48;
  char16_t FText[kCapacity];
  char16_t* FFirst = FText + kCapacity;
  bool FIsZero;
};

String WrittenAmount(Currency Value, TFloatFormat Form, int Digits, const TFormatSettings& Settings) {
  const bool isNegative = Value.Units < 0;
  const uint64_t units = isNegative ? 0 - static_cast<uint64_t>(Value.Units) : static_cast<uint64_t>(Value.Units);
  const char16_t thousand = Form == ffFixed ? u'\0' : Settings.ThousandSeparator;
  TAmountText text(units, std::clamp(Digits, 0, kMaxDecimals), thousand, Settings.DecimalSeparator);
  const bool showsMinus = isNegative && !text.IsZero();
  if (Form != ffCurrency) {
    if (showsMinus) text.AddMinus();
    return text.View();
  }
  TTextBuffer buffer;
  AddCurrency(buffer, showsMinus, text.View(), Settings);
  return buffer.ToString();
}

}  // namespace

String IntToStr(int64_t Value) {
  TTextBuffer buffer;
  if (Value < 0) buffer.Add(u'-');
  buffer.AddNumber(Value < 0 ? 0 - static_cast<uint64_t>(Value) : static_cast<uint64_t>(Value));
  return buffer.ToString();
}

String FloatToStrF(Extended Value, TFloatFormat Form, int Precision, int Digits, const TFormatSettings& Settings) {
  if (std::isnan(Value)) return u"NAN";
  if (std::isinf(Value)) return Value < 0 ? u"-INF" : u"INF";
  Precision = std::clamp(Precision, 2, kMaxPrecision);
  return Written(TDecimal::Of(Value, Precision), Form, Precision, Digits, Settings);
}

String FloatToStrF(Extended Value, TFloatFormat Form, int Precision, int Digits) {
  return FloatToStrF(Value, Form, Precision, Digits, GetFormatSettings());
}

String FloatToStr(Extended Value, const TFormatSettings& Settings) {
  return FloatToStrF(Value, ffGeneral, kGeneralPrecision, 0, Settings);
}

String FloatToStr(Extended Value) { return FloatToStr(Value, GetFormatSettings()); }

String CurrToStrF(Currency Value, TFloatFormat Form, int Digits, const TFormatSettings& Settings) {
  return IsFixed(Form) ? WrittenAmount(Value, Form, Digits, Settings)
                       : Written(TDecimal::Of(Value), Form, kCurrencyPrecision, Digits, Settings);
}

String CurrToStrF(Currency Value, TFloatFormat Form, int Digits) {
  return CurrToStrF(Value, Form, Digits, GetFormatSettings());
}

String CurrToStr(Currency Value, const TFormatSettings& Settings) { return CurrToStrF(Value, ffGeneral, 0, Settings); }
String CurrToStr(Currency Value) { return CurrToStr(Value, GetFormatSettings()); }

}  // namespace vx
