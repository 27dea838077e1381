// Rounding, comparing and dividing of numbers.
//
// Pitfall: floating point numbers are rounded as they are stored, without any tolerance. 1.005 times
// 100 may lie on either side of 100.5; amounts of money are rounded exactly by RoundCurrency.
#pragma once

#include <concepts>
#include <cstdint>
#include <utility>

#include "platform/Currency.h"
#include "platform/Types.h"

namespace vx {

// The nearest whole number, midpoints to the even one: 2.5 gives 2, 3.5 gives 4. EInvalidOp for what is
// no number or has a result outside 64 bits.
int64_t RoundMath(Extended Value);
// The nearest whole number, midpoints away from zero: 2.5 gives 3, -2.5 gives -3, 1.4999999 gives 1.
// EInvalidOp as with RoundMath.
int64_t RoundTrade(Extended Value);
// The nearest half, midpoints away from zero: 1.25 gives 1.5. Raises as RoundTrade of twice the Value.
Extended RoundHalf(Extended Value);
// Value at Places decimals, below 0 at tens, hundreds...; with Trade midpoints go away from zero, else to
// the even one: -1500 at -3 gives -2000. EInvalidOp as with RoundMath for Value times 10 to the power
// Places, and for a Places of about 4900 and more either way.
Extended RoundExtended(Extended Value, int Places, bool Trade);
// Value at Places decimals, exactly; midpoints go away from zero: 1.005 at 2 gives 1.01, 15 at -1 gives
// 20. With 4 places and more nothing changes. 0 stays 0 whatever Places is; for any other Value
// EInvalidArgument "RoundCurrency(,%d): invalid arg" below -3 places, and EOverflow where the result
// leaves the range of amounts.
// RoundCurrency(Price * Factor, 2) rounds twice; Product and Quotient (core/Money.h) round once.
Currency RoundCurrency(Currency Value, int Places);

// The whole numbers: neither bool nor a character is one.
template <typename T>
concept TWholeNumber =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

// 1 if A is above B, -1 if it is below, else 0; by the values, whatever the types.
constexpr int CompareInteger(int A, int B) noexcept { return (A > B) - (A < B); }
template <TWholeNumber TA, TWholeNumber TB>
constexpr int CompareInteger(TA A, TB B) noexcept {
  return std::cmp_greater(A, B) - std::cmp_less(A, B);
}
// The same; what is no number is neither above nor below anything.
constexpr int CompareDouble(double A, double B) noexcept { return (A > B) - (A < B); }

// Low <= Value < High: the upper bound is not part of the range. Whole numbers may be of several types.
constexpr bool between(int Value, int Low, int High) noexcept { return Low <= Value && Value < High; }
constexpr bool between(double Value, double Low, double High) noexcept { return Low <= Value && Value < High; }
template <TWholeNumber T, TWholeNumber TLow, TWholeNumber THigh>
constexpr bool between(T Value, TLow Low, THigh High) noexcept {
  return std::cmp_less_equal(Low, Value) && std::cmp_less(Value, High);
}

// The types of number that Clamp takes.
template <typename T>
concept TClampable = std::same_as<T, int> || std::same_as<T, int64_t> || std::same_as<T, uint32_t> ||
    std::same_as<T, float> || std::same_as<T, double> || std::same_as<T, Extended>;

// Value held to Low to High; High if Low is above High, Low for what is no number. The three are of one
// type, so that no bound is converted unseen.
template <TClampable T>
constexpr T Clamp(T Value, T Low, T High) noexcept {
  T raised = Value > Low ? Value : Low;
  return raised < High ? raised : High;
}

// The quotient of the absolute values, never negative: Divide(-7, 2, rem) is 3. Remainder is what is left
// of |A|, negated if exactly one of A and B is negative: -1. The type of Remainder chooses the form.
// EZeroDivide "[uVxFunctions.Devide]: Division durch 0!", spelled so, for a B of 0; EOverflow where the
// lowest number is divided by 1 or -1. Remainder stays as it is then.
int Divide(int A, int B, int& Remainder);
int64_t Divide(int64_t A, int64_t B, int64_t& Remainder);

}  // namespace vx
