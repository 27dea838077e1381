// Amounts of money against integers of 128 bits.
#include <cstdint>
#include <limits>
#include <string>

#include "core/uVxFunctions/CurrencyText.h"
#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Rounding.h"
#include "platform/Currency.h"
#include "platform/Exceptions.h"
#include "platform/FormatSettings.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "values_oracle.h"

namespace vx::oracle {
namespace {

constexpr int64_t kMost = std::numeric_limits<int64_t>::max();

TInt128 Size(TInt128 Value) { return Value < 0 ? -Value : Value; }

TInt128 PowerOfTen(int Exponent) {
  TInt128 result = 1;
  for (int i = 0; i < Exponent; ++i) result *= 10;
  return result;
}

// The multiple of Step nearest to Value; of two that are as near, the one further from 0.
TInt128 HalfAway(TInt128 Value, TInt128 Step) {
  const TInt128 rest = Size(Value) % Step, lower = Size(Value) - rest;
  const TInt128 size = rest >= Step - rest ? lower + Step : lower;
  return Value < 0 ? -size : size;
}

void CompareRounding(TComparison& To, TInt128 Units, int Places) {
  const TInt128 want = HalfAway(Units, PowerOfTen(4 - Places));
  if (Size(Units) > kMost) return;
  To.Case();
  const Currency value = Currency::FromUnits(static_cast<int64_t>(Units));
  if (Size(want) > kMost) {
    bool refused = false;
    try {
      RoundCurrency(value, Places);
    } catch (const EOverflow&) {
      refused = true;
    }
    To.Same("RoundCurrency overflows", refused, true, value, Places);
    return;
  }
  To.Same("RoundCurrency", RoundCurrency(value, Places).Units, static_cast<int64_t>(want), value, Places);
}

// An amount of Units with Digits decimals; with a separator behind every third digit if Thousands.
std::string AmountText(TInt128 Units, int Digits, bool Thousands) {
  const TInt128 rounded = Digits < 4 ? HalfAway(Units, PowerOfTen(4 - Digits)) : Units;
  std::string whole = std::to_string(static_cast<uint64_t>(Size(rounded) / 10000));
  std::string decimals = std::to_string(static_cast<uint64_t>(Size(rounded) % 10000));
  decimals.insert(0, 4 - decimals.size(), '0');
  decimals.resize(static_cast<size_t>(Digits), '0');
  if (Thousands) {
    for (int i = static_cast<int>(whole.size()) - 3; i > 0; i -= 3) whole.insert(static_cast<size_t>(i), 1, '.');
  }
  return (rounded < 0 ? "-" : "") + whole + (Digits > 0 ? "," : "") + decimals;
}

void CompareText(TComparison& To, int64_t Units, int Digits) {
  To.Case();
  const Currency value = Currency::FromUnits(Units);
  const TWide fixed = AmountText(Units, Digits, false), number = AmountText(Units, Digits, true);
  To.Same("CurrToStrF ffFixed", CurrToStrF(value, ffFixed, Digits), fixed, value, Digits);
  To.Same("CurrToStrF ffNumber", CurrToStrF(value, ffNumber, Digits), number, value, Digits);
  To.Same("CurrToStrF ffCurrency", CurrToStrF(value, ffCurrency, Digits),
          TWide(AmountText(Units, Digits, true)) + String(u" €"), value, Digits);
  To.Same("FormatCurr 0.00", FormatCurr(u"0.00", value), TWide(AmountText(Units, 2, false)), value);
  To.Same("FormatCurr #,##0.00", FormatCurr(u"#,##0.00", value), TWide(AmountText(Units, 2, true)), value);
  const TWide exact = AmountText(Units, 4, false), divided = AmountText(Units, 4, true);
  std::string shortest = AmountText(Units, 4, false);
  shortest.erase(shortest.find_last_not_of('0') + 1);
  if (shortest.back() == ',') shortest.pop_back();
  const String text = CurrToStr(value);
  To.Same("CurrToStr", text, TWide(shortest), value);
  To.Same("StrToCurr", StrToCurr(text), value, text);
  To.Same("StrToCurr", StrToCurr(exact), value, exact);
  Currency back = 1;
  To.Same("TryStrToCurr", TryStrToCurr(divided, back), true, divided);
  To.Same("TryStrToCurr", back, value, divided);
  To.Same("StrToCurrDef", StrToCurrDef(divided, 1), value, divided);
  To.Same("StrToCurrHeavy", StrToCurrHeavy(TWide(AmountText(Units, 4, true)) + String(u" €"), 1), value, divided);
}

// The amount of Digits with so many Decimals and an exponent, after Blanks blanks.
void CompareReading(TComparison& To, TInt128 Digits, int Decimals, int Exponent, int Blanks,
                    const TFormatSettings& Settings) {
  To.Case();
  std::string text;
  TInt128 rest = Size(Digits);
  for (int i = 0; rest != 0 || i < Decimals + 1; rest /= 10) {
    text.insert(0, 1, static_cast<char>('0' + static_cast<int>(rest % 10)));
    if (++i == Decimals) text.insert(0, 1, ',');
  }
  text.insert(0, (std::string(static_cast<size_t>(Blanks), ' ') + (Digits < 0 ? "-" : "")));
  if (Exponent != 0) text += 'E' + std::to_string(Exponent);
  // The nearest unit, of two the even one.
  const int shift = Exponent + 4 - Decimals;
  TInt128 want = shift < 0 ? Size(Digits) / PowerOfTen(-shift) : Size(Digits) * PowerOfTen(shift);
  if (shift < 0) {
    const TInt128 low = Size(Digits) % PowerOfTen(-shift), high = PowerOfTen(-shift) - low;
    if (low > high || (low == high && want % 2 == 1)) ++want;
  }
  const bool good = want <= kMost + TInt128{Digits < 0};
  const Currency none = Currency::FromUnits(-77);
  Currency value = none;
  const TWide wide(text);
  To.Same("TextToCurr", TextToCurr(wide, value, Settings), good, wide);
  const int64_t units = static_cast<int64_t>(Digits < 0 ? -want : want);
  To.Same("TextToCurr", value, good ? Currency::FromUnits(units) : none, wide);
}

void CompareReading(TComparison& To, TRandom& Random, const TFormatSettings& Settings) {
  const int kind = static_cast<int>(Random.Range(0, 3)), blanks = static_cast<int>(Random.Range(0, 2));
  int decimals = static_cast<int>(Random.Range(0, 14)), exponent = 0;
  TInt128 digits = Random.OfAnySize();
  if (kind == 0) {  // midpoints
    digits = digits / 10 * 10 + 5;
    decimals = 5;
  } else if (kind == 1) {  // about the limits, and midpoints there
    digits = (TInt128{kMost} + Random.Range(-2, 2)) * 10000 + Random.Range(0, 2) * 5000 + Random.Range(-1, 1);
    if (Random.Range(0, 1) == 0) digits = -digits;
    decimals = 8;
  } else if (kind == 2) {  // more digits than any amount has
    digits = digits * Random.Range(1, 1000000000000000) + Random.Range(0, 9);
    decimals += 8;
  } else {
    exponent = static_cast<int>(Random.Range(-12, 12));
  }
  CompareReading(To, digits, decimals, exponent, blanks, Settings);
}

}  // namespace

void CompareCurrency(TReport& Report) {
  TRandom random(10000);
  {
    TComparison rounding(Report, "RoundCurrency", "amounts");
    for (int i = 0; i < 10000000; ++i) {
      CompareRounding(rounding, random.OfAnySize(), static_cast<int>(random.Range(-3, 3)));
    }
    for (int places = -3; places <= 3; ++places) {
      for (int units = -2000000; units <= 2000000; ++units) CompareRounding(rounding, units, places);
      const TInt128 step = PowerOfTen(4 - places);
      for (int i = -100000; i <= 100000; ++i) {
        for (int beside = -1; beside <= 1; ++beside) CompareRounding(rounding, i * step + step / 2 + beside, places);
      }
      for (int i = 0; i < 1000; ++i) {
        CompareRounding(rounding, TInt128{kMost} - i * step / 20, places);
        CompareRounding(rounding, -TInt128{kMost} + i * step / 20, places);
      }
    }
  }
  TComparison texts(Report, "amount-texts", "amounts"), reading(Report, "amounts-read", "texts");
  const TFormatSettings settings;
  for (int i = 0; i < 1000000; ++i) {
    CompareText(texts, random.OfAnySize(), static_cast<int>(random.Range(0, 8)));
    CompareReading(reading, random, settings);
  }
  for (int units = -20000; units <= 20000; ++units) {
    for (int digits = 0; digits <= 5; ++digits) CompareText(texts, units, digits);
  }
  for (int64_t i = 0; i < 20000; ++i) {
    CompareText(texts, kMost - i, static_cast<int>(i % 5));
    CompareText(texts, -kMost - 1 + i, static_cast<int>(i % 5));
  }
}

}  // namespace vx::oracle
