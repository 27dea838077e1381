// A number as decimal digits: what all writers of numbers share.
#pragma once

#include <cstdint>

#include "platform/Currency.h"
#include "platform/Types.h"

namespace vx::detail {

// 0.d1d2d3... * 10^Point with the digits of Number; zero has Count 0, Point 0 and no sign.
struct TDecimal {
  uint64_t Number = 0;
  int Count = 0;  // digits of Number, up to 19
  int Point = 0;  // digits before the decimal separator; below 0: zeros behind it
  bool IsNegative = false;

  // Value, which must be finite, with Precision digits (1 to 18), midpoints away from zero; no zeros at
  // the end.
  static TDecimal Of(Extended Value, int Precision) noexcept;
  // All digits of an amount.
  static TDecimal Of(Currency Value) noexcept;
  // Rounded to Digits digits in all, or to Decimals behind the separator, midpoints away from zero.
  void RoundToDigits(int Digits) noexcept;
  void RoundToDecimals(int Decimals) noexcept { RoundToDigits(Point + Decimals); }
  // Writes the Count digits.
  void WriteDigits(char16_t* Digits) const noexcept;

 private:
  void Normalize() noexcept;
};

}  // namespace vx::detail
