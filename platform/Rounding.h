// Rounding and comparing of floating point numbers.
//
//   PowerOf10         powers of ten
//   SimpleRoundTo     to a decimal place, midpoints away from zero
//   SameValue         equality within a tolerance
//
// Example:
//   vx::SimpleRoundTo(2.5L, 0);       // 3
//   vx::SimpleRoundTo(1250, 2);       // 1300: place 2 are the hundreds
//   vx::SameValue(0.1 + 0.2, 0.3);    // true
//
// Threads: any number may call these at once.
#pragma once

#include "platform/Types.h"

namespace vx {

// 10 to the power Exponent, exact up to 27; infinite from about 4900 on.
Extended PowerOf10(unsigned Exponent) noexcept;

// Value to the nearest multiple of 10 to the power Digit, midpoints away from zero: Digit 0 gives whole
// numbers, -2 hundredths. Digit is held to -37 to 37. What is no number or infinite stays.
Extended SimpleRoundTo(Extended Value, int Digit = -2) noexcept;

// A and B differ by no more than Epsilon. An Epsilon of 0 stands for the smaller of the two amounts
// times 1E-12, at least 1E-12. What is infinite is only equal to itself.
bool SameValue(double A, double B, double Epsilon = 0) noexcept;

}  // namespace vx
