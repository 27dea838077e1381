#include "platform/Currency.h"

#include <cmath>

#include "platform/Exceptions.h"

namespace vx {

namespace {

__extension__ using TWide = __int128;

[[noreturn]] void Overflow() { throw EOverflow(u"Currency overflow"); }

Currency Checked(TWide Units) {
  if (Units > INT64_MAX || Units < INT64_MIN) Overflow();
  return Currency::FromUnits(static_cast<int64_t>(Units));
}

// The nearest whole quotient, midpoints to the even one.
TWide Divided(TWide Dividend, TWide Divisor) {
  TWide quotient = Dividend / Divisor;
  TWide rest = Dividend % Divisor;
  TWide twice = 2 * (rest < 0 ? -rest : rest), whole = Divisor < 0 ? -Divisor : Divisor;
  bool isNegative = (Dividend < 0) != (Divisor < 0);
  if (twice > whole || (twice == whole && quotient % 2 != 0)) quotient += isNegative ? -1 : 1;
  return quotient;
}

}  // namespace

void Currency::RaiseOverflow() { Overflow(); }

Currency Currency::FromExtended(Extended Value) {
  Extended units = std::nearbyint(Value * Scale);
  // Not a comparison of the limit alone: 2^63 is exact, 2^63-1 may not be.
  if (!(units >= -9223372036854775808.0L && units < 9223372036854775808.0L)) Overflow();
  return FromUnits(static_cast<int64_t>(units));
}

Currency Currency::operator-() const { return Checked(-TWide{Units}); }
Currency& Currency::operator+=(Currency Other) { return *this = Checked(TWide{Units} + Other.Units); }
Currency& Currency::operator-=(Currency Other) { return *this = Checked(TWide{Units} - Other.Units); }

Currency& Currency::operator*=(Currency Other) { return *this = Checked(Divided(TWide{Units} * Other.Units, Scale)); }

Currency& Currency::operator/=(Currency Other) {
  if (Other.Units == 0) throw EZeroDivide(u"Currency divided by zero");
  return *this = Checked(Divided(TWide{Units} * Scale, Other.Units));
}

}  // namespace vx
