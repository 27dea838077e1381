#include "platform/Rounding.h"

#include <algorithm>
#include <cmath>

namespace vx {

Extended PowerOf10(unsigned Exponent) noexcept {
  Extended result = 1;
  for (Extended power = 10; Exponent != 0; Exponent >>= 1, power *= power) {
    if ((Exponent & 1) != 0) result *= power;
  }
  return result;
}

Extended SimpleRoundTo(Extended Value, int Digit) noexcept {
  if (!std::isfinite(Value)) return Value;
  const Extended factor = PowerOf10(static_cast<unsigned>(std::abs(std::clamp(Digit, -37, 37))));
  Extended scaled = Digit < 0 ? Value * factor : Value / factor;
  if (std::isinf(scaled)) return Value;  // has no such decimals
  Extended rounded = std::round(scaled);
  return Digit < 0 ? rounded / factor : rounded * factor;
}

bool SameValue(double A, double B, double Epsilon) noexcept {
  constexpr double kResolution = 1E-12;
  if (Epsilon == 0) Epsilon = std::max(std::min(std::fabs(A), std::fabs(B)) * kResolution, kResolution);
  return A == B || (std::fabs(A - B) <= Epsilon && std::isfinite(A) && std::isfinite(B));
}

}  // namespace vx
