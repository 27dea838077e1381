#include "platform/detail/Decimal.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>

namespace vx::detail {

namespace {

__extension__ using TWide = unsigned __int128;

constexpr int kPowers = 20;
constexpr uint64_t kPowerOf10[kPowers] = {1u,
                                          10u,
                                          100u,
                                          1000u,
                                          10000u,
                                          100000u,
                                          1000000u,
                                          10000000u,
                                          100000000u,
                                          1000000000u,
                                          10000000000u,
                                          100000000000u,
                                          1000000000000u,
                                          10000000000000u,
                                          100000000000000u,
                                          1000000000000000u,
                                          10000000000000000u,
                                          100000000000000000u,
                                          1000000000000000000u,
                                          10000000000000000000u};

int CountDigits(uint64_t Number) noexcept {
  int count = 1;
  while (count < kPowers && Number >= kPowerOf10[count]) ++count;
  return count;
}

uint64_t RoundedQuotient(uint64_t Number, uint64_t Power) noexcept {
  return Number / Power + (Number % Power >= Power / 2 ? 1 : 0);
}

// Mantissa * 2^Exponent, the highest bit of Mantissa set.
struct TBinary {
  uint64_t Mantissa;
  int Exponent;
};

TBinary BinaryOf(Extended Value) noexcept {
  static_assert(LDBL_MANT_DIG <= 64 || LDBL_MANT_DIG == 113);
  int exponent;
  Extended fraction = std::frexp(Value, &exponent);
  return {static_cast<uint64_t>(std::ldexp(fraction, 64)), exponent - 64};
}

// Value * 10^Scale to a whole number, midpoints up; false where that takes more than 128 bits.
bool ScaledExactly(TBinary Value, int Scale, uint64_t& Result) noexcept {
  if (Scale >= 0) {
    const int shift = -Value.Exponent;
    if (Scale >= kPowers || shift < 1 || shift > 127) return false;
    const TWide product = TWide{Value.Mantissa} * kPowerOf10[Scale];
    const TWide half = TWide{1} << (shift - 1);
    Result = static_cast<uint64_t>(product >> shift) + ((product & (2 * half - 1)) >= half ? 1 : 0);
    return true;
  }
  if (-Scale >= kPowers || Value.Exponent < -63 || Value.Exponent > 64) return false;
  // What stands behind the separator can't decide: half a power of ten is a whole number.
  const TWide whole =
      Value.Exponent < 0 ? TWide{Value.Mantissa >> -Value.Exponent} : TWide{Value.Mantissa} << Value.Exponent;
  const uint64_t power = kPowerOf10[-Scale];
  Result = static_cast<uint64_t>(whole / power) + (whole % power >= power / 2 ? 1 : 0);
  return true;
}

// The same by the decimal text of the value, for very large and very small ones.
uint64_t ScaledByText(Extended Value, int Precision, int& Point) noexcept {
  // No value but a true midpoint looks like one in so many digits.
  constexpr int kDigits = 60;
  char text[kDigits + 16];
  const char* const end = std::to_chars(text, text + sizeof text, Value, std::chars_format::scientific, kDigits).ptr;
  uint64_t number = static_cast<uint64_t>(text[0] - '0');
  for (int i = 1; i < Precision; ++i) number = number * 10 + static_cast<uint64_t>(text[i + 1] - '0');
  if (text[Precision + 1] >= '5') ++number;
  const char* exponent = std::find<const char*>(text, end, 'e') + 1;
  int power = 0;
  std::from_chars(exponent + 1, end, power);
  Point = (*exponent == '-' ? -power : power) + 1;
  return number;
}

}  // namespace

TDecimal TDecimal::Of(Extended Value, int Precision) noexcept {
  TDecimal result;
  if (Value == 0) return result;
  result.IsNegative = Value < 0;
  const Extended amount = std::fabs(Value);
  const TBinary binary = BinaryOf(amount);
  // The digits of the power of two below the value: right or one too few, wherever scaling is exact.
  result.Point = (((binary.Exponent + 63) * 78913) >> 18) + 1;
  bool isExact = LDBL_MANT_DIG <= 64 && ScaledExactly(binary, Precision - result.Point, result.Number);
  if (isExact && result.Number >= kPowerOf10[Precision]) {
    ++result.Point;
    isExact = ScaledExactly(binary, Precision - result.Point, result.Number);
  }
  if (!isExact) result.Number = ScaledByText(amount, Precision, result.Point);
  if (result.Number == kPowerOf10[Precision]) {  // rounded up to one digit more
    result.Number /= 10;
    ++result.Point;
  }
  result.Count = Precision;
  result.Normalize();
  return result;
}

TDecimal TDecimal::Of(Currency Value) noexcept {
  TDecimal result;
  result.IsNegative = Value.Units < 0;
  result.Number = result.IsNegative ? 0 - static_cast<uint64_t>(Value.Units) : static_cast<uint64_t>(Value.Units);
  result.Count = CountDigits(result.Number);
  result.Point = result.Count - 4;
  result.Normalize();
  return result;
}

void TDecimal::RoundToDigits(int Digits) noexcept {
  if (Digits >= Count) return;
  if (Digits < 0) {
    Number = 0;
  } else {
    Number = RoundedQuotient(Number, kPowerOf10[Count - Digits]);
    Count = Digits;
    if (Number == kPowerOf10[Digits]) {
      ++Point;
      ++Count;
    }
  }
  Normalize();
}

void TDecimal::Normalize() noexcept {
  if (Number == 0) {
    *this = TDecimal();
    return;
  }
  while (Number % 10 == 0) {
    Number /= 10;
    --Count;
  }
}

void TDecimal::WriteDigits(char16_t* Digits) const noexcept {
  uint64_t rest = Number;
  for (int i = Count - 1; i >= 0; --i) {
    Digits[i] = static_cast<char16_t>(u'0' + rest % 10);
    rest /= 10;
  }
}

}  // namespace vx::detail
