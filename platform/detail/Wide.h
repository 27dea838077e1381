// Products of 64-bit numbers, divided again and rounded once. Internal to the arithmetic of amounts.
//
//   TWide             a whole number of 128 bits without a sign
//   SizeOf, FromSize  a number with a sign taken apart and put together
//   PowerOfTen        the powers of ten in 64 bits
//   Multiplied        a product, exact
//   Divided           a quotient and what is left
//   RoundedQuotient   a quotient to the nearest multiple of a step
#pragma once

#include <bit>
#include <cstdint>

namespace vx::detail {

struct TWide {
  uint64_t High = 0, Low = 0;
  friend constexpr auto operator<=>(TWide A, TWide B) noexcept = default;  // NOLINT(modernize-use-nullptr)
};

constexpr uint64_t SizeOf(int64_t Value) noexcept {
  return Value < 0 ? 0 - static_cast<uint64_t>(Value) : static_cast<uint64_t>(Value);
}
// Whether a number of that size and sign has a place in 64 bits; Value gets it.
constexpr bool FromSize(uint64_t Size, bool IsNegative, int64_t& Value) noexcept {
  if (Size > static_cast<uint64_t>(INT64_MAX) + (IsNegative ? 1 : 0)) return false;
  Value = static_cast<int64_t>(IsNegative ? 0 - Size : Size);
  return true;
}

// 10 to the power Exponent, 0 to 19.
constexpr uint64_t PowerOfTen(int Exponent) noexcept {
  uint64_t power = 1;
  for (int i = 0; i < Exponent; ++i) power *= 10;
  return power;
}

constexpr TWide Multiplied(uint64_t A, uint64_t B) noexcept {
  const uint64_t aHigh = A >> 32, aLow = A & UINT32_MAX, bHigh = B >> 32, bLow = B & UINT32_MAX;
  const uint64_t low = aLow * bLow, first = aHigh * bLow + (low >> 32), second = aLow * bHigh + (first & UINT32_MAX);
  return {aHigh * bHigh + (first >> 32) + (second >> 32), second << 32 | (low & UINT32_MAX)};
}

// The digit of base 2^32 that Divisor, whose highest bit is set, goes into High:Digit, which becomes what is left.
constexpr uint64_t DivideDigit(uint64_t& High, uint64_t Digit, uint64_t Divisor) noexcept {
  const uint64_t first = Divisor >> 32, second = Divisor & UINT32_MAX;
  uint64_t quotient = High / first, rest = High % first;
  while (quotient >> 32 != 0 || quotient * second > (rest << 32 | Digit)) {
    --quotient;
    rest += first;
    if (rest >> 32 != 0) break;
  }
  High = (High << 32 | Digit) - quotient * Divisor;
  return quotient;
}

// Dividend / Divisor, which is not 0; Rest gets what is left.
constexpr TWide Divided(TWide Dividend, uint64_t Divisor, uint64_t& Rest) noexcept {
  if (Dividend.High == 0) {
    Rest = Dividend.Low % Divisor;
    return {0, Dividend.Low / Divisor};
  }
  const int shift = std::countl_zero(Divisor);
  uint64_t rest = Dividend.High % Divisor, low = Dividend.Low << shift;
  if (shift > 0) rest = rest << shift | Dividend.Low >> (64 - shift);
  const uint64_t first = DivideDigit(rest, low >> 32, Divisor << shift);
  const uint64_t second = DivideDigit(rest, low & UINT32_MAX, Divisor << shift);
  Rest = rest >> shift;
  return {Dividend.High / Divisor, first << 32 | second};
}

// The multiple of Step nearest to Dividend / Divisor, of two that are as near the one further from 0 or, with ToEven,
// the even multiple. False where it is above 64 bits. Step is 1 or even, and neither is 0.
constexpr bool RoundedQuotient(TWide Dividend, uint64_t Divisor, uint64_t Step, bool ToEven,
                               uint64_t& Result) noexcept {
  uint64_t fine = 0, rest = 0;
  const TWide quotient = Divided(Divided(Dividend, Divisor, fine), Step, rest);
  if (quotient.High != 0 || quotient.Low == UINT64_MAX) return false;
  // What is left is rest + fine / Divisor; of a Step of 1 it is the fraction alone.
  const uint64_t left = Step == 1 ? fine : rest, whole = Step == 1 ? Divisor : Step;
  const bool isMore = left > whole - left || (Step != 1 && left == whole - left && fine != 0);
  const bool isHalf = left == whole - left && !isMore;
  const bool isRaised = isMore || (isHalf && (!ToEven || quotient.Low % 2 != 0));
  const TWide result = Multiplied(quotient.Low + (isRaised ? 1 : 0), Step);
  Result = result.Low;
  return result.High == 0;
}

}  // namespace vx::detail
