// Sums of amounts that no order of the amounts can make overflow.
//
//   TExactSum     the sum of amounts of one type, whose units are kept in 128 bits
//   TMoneySum     of Currency
//   THourSum      of THourAmount
//
// Example:
//   vx::TMoneySum sum;
//   sum.Add(vx::Currency::FromUnits(INT64_MAX));
//   sum.Add(1);                                  // too much for an amount
//   vx::Currency total = 7;
//   sum.TryGet(total);                           // false
//   sum.Add(-2);
//   sum.TryGet(total);                           // true
//
// Threads: each adds up in a sum of its own, and any number may read the same one.
//
// Pitfall: only the result can be outside the range of amounts, so ask TryGet, or let Get raise.
#pragma once

#include <cstdint>

#include "core/HourAmount.h"
#include "platform/Currency.h"
#include "platform/Exceptions.h"

namespace vx {

template <typename T, int64_t T::*Units>
class TExactSum {
 public:
  constexpr void Add(T Amount) noexcept { Add(Amount.*Units < 0 ? -1 : 0, static_cast<uint64_t>(Amount.*Units)); }
  constexpr void Add(const TExactSum& Other) noexcept { Add(Other.FHigh, Other.FLow); }
  // False, with Sum unchanged, where the sum is outside the range of T.
  [[nodiscard]] constexpr bool TryGet(T& Sum) const noexcept {
    const auto low = static_cast<int64_t>(FLow);
    if (FHigh != (low < 0 ? -1 : 0)) return false;
    Sum.*Units = low;
    return true;
  }
  // The same; EOverflow.
  T Get() const {
    T sum;
    if (!TryGet(sum)) throw EOverflow(u"The sum leaves the range of amounts");
    return sum;
  }

 private:
  constexpr void Add(int64_t High, uint64_t Low) noexcept {
    FLow += Low;
    FHigh += High + (FLow < Low ? 1 : 0);
  }
  int64_t FHigh = 0;  // the 64 bits above FLow, with the sign
  uint64_t FLow = 0;
};

using TMoneySum = TExactSum<Currency, &Currency::Units>;
using THourSum = TExactSum<THourAmount, &THourAmount::Minutes>;

}  // namespace vx
