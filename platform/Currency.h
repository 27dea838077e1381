// Amounts of money.
//
//   Currency         a 64-bit count of 1/10000, with exact arithmetic
//
// Example:
//   vx::Currency price = vx::Currency::FromUnits(125000);   // 12.5
//   price += 3;                                             // 15.5
//   price * price;                                          // 240.25
//   price.ToExtended();                                     // 15.5L
//
// Whole numbers become amounts by themselves; floating point numbers only through FromExtended and
// ToExtended. Products and quotients are rounded to the nearest 1/10000, midpoints to the even one.
// What leaves the range of -922337203685477.5808 to 922337203685477.5807 raises EOverflow and changes
// nothing; a division by 0 raises EZeroDivide. Products by decimal factors, rounded once: core/Money.h.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/Types.h"

namespace vx {

struct Currency {
  // Units in one of the currency.
  static constexpr int64_t Scale = 10000;

  int64_t Units = 0;

  constexpr Currency() noexcept = default;
  // The whole amount Value; EOverflow where it has too many digits.
  template <std::integral T>
  constexpr Currency(T Value) : Units(Scaled(Value)) {}

  static constexpr Currency FromUnits(int64_t Units) noexcept {
    Currency result;
    result.Units = Units;
    return result;
  }
  // The nearest amount, midpoints to the even one; EOverflow outside the range and for what is no
  // number.
  static Currency FromExtended(Extended Value);
  constexpr Extended ToExtended() const noexcept { return static_cast<Extended>(Units) / Scale; }

  // The whole part, cut towards 0, and what is left of it: -1.5 has -1 and -0.5.
  constexpr int64_t Whole() const noexcept { return Units / Scale; }
  constexpr Currency Fraction() const noexcept { return FromUnits(Units % Scale); }

  Currency operator-() const;
  Currency& operator+=(Currency Other);
  Currency& operator-=(Currency Other);
  Currency& operator*=(Currency Other);
  Currency& operator/=(Currency Other);
  friend Currency operator+(Currency A, Currency B) { return A += B; }
  friend Currency operator-(Currency A, Currency B) { return A -= B; }
  friend Currency operator*(Currency A, Currency B) { return A *= B; }
  friend Currency operator/(Currency A, Currency B) { return A /= B; }
  friend constexpr auto operator<=>(Currency A, Currency B) noexcept = default;  // NOLINT(modernize-use-nullptr)

 private:
  template <std::integral T>
  static constexpr int64_t Scaled(T Value) {
    constexpr int64_t kLimit = std::numeric_limits<int64_t>::max() / Scale;
    if (std::cmp_greater(Value, kLimit) || std::cmp_less(Value, -kLimit)) RaiseOverflow();
    return static_cast<int64_t>(Value) * Scale;
  }
  [[noreturn]] static void RaiseOverflow();
};

}  // namespace vx
