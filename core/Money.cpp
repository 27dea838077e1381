#include "core/Money.h"

#include <algorithm>

#include "platform/Exceptions.h"
#include "platform/detail/Wide.h"

namespace vx {

namespace {

using detail::Multiplied;
using detail::PowerOfTen;
using detail::SizeOf;
using detail::TWide;

constexpr int kPlaces = 4, kLeastPlaces = -3;  // of a unit, and of the coarsest rounding

[[noreturn]] void Overflow() { throw EOverflow(u"Currency overflow"); }

// The units of one step.
uint64_t StepOf(int Places) {
  if (Places < kLeastPlaces) throw EInvalidArgument(u"Money rounded to less than -3 places");
  return PowerOfTen(kPlaces - std::min(Places, kPlaces));
}

// Dividend / Divisor units as an amount of whole steps.
Currency Rounded(TWide Dividend, uint64_t Divisor, bool IsNegative, int Places, TMoneyRounding Rounding) {
  const uint64_t step = StepOf(Places);
  if (Divisor == 0) throw EZeroDivide(u"Currency divided by zero");
  uint64_t size = 0;
  int64_t units = 0;
  if (!detail::RoundedQuotient(Dividend, Divisor, step, Rounding == mrMath, size) ||
      !detail::FromSize(size, IsNegative, units))
    Overflow();
  return Currency::FromUnits(units);
}

// The steps of an amount without a sign; EInvalidArgument if they don't make it up.
uint64_t StepsOf(Currency Amount, uint64_t Step) {
  const uint64_t size = SizeOf(Amount.Units);
  if (size % Step != 0) throw EInvalidArgument(u"Amount to be split has more decimals than its parts");
  return size / Step;
}

Currency PartOf(uint64_t Steps, uint64_t Step, bool IsNegative) {
  int64_t units = 0;
  (void)detail::FromSize(Steps * Step, IsNegative, units);  // a part is never further from 0 than the amount
  return Currency::FromUnits(units);
}

uint64_t SumOf(std::span<const int64_t> Weights) {
  uint64_t sum = 0;
  for (const int64_t weight : Weights) {
    if (weight < 0) throw EInvalidArgument(u"Amount split by a weight below 0");
    sum += static_cast<uint64_t>(weight);
    if (sum > static_cast<uint64_t>(INT64_MAX)) throw EOverflow(u"Sum of weights overflow");
  }
  if (sum == 0) throw EInvalidArgument(u"Amount split by no weight above 0");
  return sum;
}

}  // namespace

Currency Product(Currency Amount, TDecimalFactor Factor, int Places, TMoneyRounding Rounding) {
  return Rounded(Multiplied(SizeOf(Amount.Units), SizeOf(Factor.GetDigits())), PowerOfTen(Factor.GetDecimals()),
                 (Amount.Units < 0) != (Factor.GetDigits() < 0), Places, Rounding);
}

Currency Product(Currency Rate, THourAmount Hours, int Places, TMoneyRounding Rounding) {
  return Rounded(Multiplied(SizeOf(Rate.Units), SizeOf(Hours.Minutes)), 60, (Rate.Units < 0) != (Hours.Minutes < 0),
                 Places, Rounding);
}

Currency Quotient(Currency Amount, TDecimalFactor Divisor, int Places, TMoneyRounding Rounding) {
  return Rounded(Multiplied(SizeOf(Amount.Units), PowerOfTen(Divisor.GetDecimals())), SizeOf(Divisor.GetDigits()),
                 (Amount.Units < 0) != (Divisor.GetDigits() < 0), Places, Rounding);
}

Currency PercentOf(Currency Amount, TDecimalFactor Percent, int Places, TMoneyRounding Rounding) {
  return Product(Amount, TDecimalFactor::Percent(Percent), Places, Rounding);
}

Currency WithPercent(Currency Amount, TDecimalFactor Percent, int Places, TMoneyRounding Rounding) {
  return Product(Amount, 1 + TDecimalFactor::Percent(Percent), Places, Rounding);
}

Currency WithoutPercent(Currency Amount, TDecimalFactor Percent, int Places, TMoneyRounding Rounding) {
  return Quotient(Amount, 1 + TDecimalFactor::Percent(Percent), Places, Rounding);
}

TDecimalFactor Ratio(Currency Part, Currency Whole, int Decimals, TMoneyRounding Rounding) {
  if (Decimals < 0 || Decimals > TDecimalFactor::MaxDigits) throw EInvalidArgument(u"Ratio with invalid decimals");
  if (Whole.Units == 0) throw EZeroDivide(u"Currency divided by zero");
  uint64_t size = 0;
  int64_t digits = 0;
  if (!detail::RoundedQuotient(Multiplied(SizeOf(Part.Units), PowerOfTen(Decimals)), SizeOf(Whole.Units), 1,
                               Rounding == mrMath, size) ||
      !detail::FromSize(size, (Part.Units < 0) != (Whole.Units < 0), digits))
    Overflow();
  return TDecimalFactor::Of(digits, Decimals);
}

std::vector<Currency> SplitAmount(Currency Amount, int Count, int Places) {
  if (Count < 1) throw EInvalidArgument(u"Amount split into less than one part");
  const uint64_t step = StepOf(Places), steps = StepsOf(Amount, step), count = static_cast<uint64_t>(Count);
  const bool isNegative = Amount.Units < 0;
  std::vector<Currency> parts(static_cast<size_t>(Count), PartOf(steps / count, step, isNegative));
  std::fill_n(parts.begin(), steps % count, PartOf(steps / count + 1, step, isNegative));
  return parts;
}

std::vector<Currency> SplitAmount(Currency Amount, std::span<const int64_t> Weights, int Places) {
  const uint64_t step = StepOf(Places), steps = StepsOf(Amount, step), whole = SumOf(Weights);
  struct TShare {
    uint64_t Steps, Lost;
    size_t Index;
  };
  std::vector<TShare> shares(Weights.size());
  uint64_t left = steps;
  for (size_t i = 0; i < shares.size(); ++i) {
    uint64_t lost = 0;
    const uint64_t share = detail::Divided(Multiplied(steps, static_cast<uint64_t>(Weights[i])), whole, lost).Low;
    shares[i] = {share, lost, i};
    left -= share;
  }
  // Less than one step for each share that lost something, so the steps that are left are fewer than those.
  std::sort(shares.begin(), shares.end(),
            [](const TShare& a, const TShare& b) { return a.Lost != b.Lost ? a.Lost > b.Lost : a.Index < b.Index; });
  std::vector<Currency> parts(shares.size());
  for (size_t i = 0; i < shares.size(); ++i) {
    parts[shares[i].Index] = PartOf(shares[i].Steps + (i < left ? 1 : 0), step, Amount.Units < 0);
  }
  return parts;
}

}  // namespace vx
