#include "core/uVxFunctions/Rounding.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include "platform/Exceptions.h"
#include "platform/Format.h"
#include "platform/Rounding.h"

namespace vx {
namespace {

constexpr int kPlacesMin = -3;
constexpr int kPlacesAll = 4;
// Rounded to steps of so many units; the sum of a magnitude and half a step has 64 bits.
template <uint64_t kStep>
uint64_t RoundedTo(uint64_t Units) noexcept {
  return (Units + kStep / 2) / kStep * kStep;
}
// From kPlacesMin places on.
constexpr uint64_t (*kRoundings[])(uint64_t) noexcept = {RoundedTo<10000000>, RoundedTo<1000000>, RoundedTo<100000>,
                                                         RoundedTo<10000>,    RoundedTo<1000>,    RoundedTo<100>,
                                                         RoundedTo<10>};

// Whether Value, rounded either way, has 64 bits. False for what is no number.
bool FitsRounded(Extended Value) noexcept { return Value >= -0x1p63L && Value < 0x1p63L - 0.5L; }

[[noreturn]] void RaiseInvalidOp(std::u16string_view Routine) {
  throw EInvalidOp(Format(u"%s: no number or outside 64 bits", {Routine}));
}

template <typename T>
std::make_unsigned_t<T> Magnitude(T Value) noexcept {
  auto bits = static_cast<std::make_unsigned_t<T>>(Value);
  return Value < 0 ? 0 - bits : bits;
}

template <typename T>
T DivideMagnitudes(T A, T B, T& Remainder) {
  if (B == 0) throw EZeroDivide(u"[uVxFunctions.Devide]: Division durch 0!");
  auto quotient = Magnitude(A) / Magnitude(B);
  if (quotient > Magnitude(std::numeric_limits<T>::max())) {
    throw EOverflow(u"[uVxFunctions.Divide]: quotient out of range");
  }
  T rest = static_cast<T>(Magnitude(A) % Magnitude(B));
  Remainder = (A < 0) != (B < 0) ? -rest : rest;
  return static_cast<T>(quotient);
}

}  // namespace

int64_t RoundMath(Extended Value) {
  if (!FitsRounded(Value)) RaiseInvalidOp(u"RoundMath");
  return std::llrint(Value);
}

int64_t RoundTrade(Extended Value) {
  if (!FitsRounded(Value)) RaiseInvalidOp(u"RoundTrade");
  int64_t whole = static_cast<int64_t>(Value);
  if (std::fabs(Value - static_cast<Extended>(whole)) >= 0.5L) whole += Value < 0 ? -1 : 1;
  return whole;
}

Extended RoundHalf(Extended Value) { return static_cast<Extended>(RoundTrade(Value * 2)) / 2; }

Extended RoundExtended(Extended Value, int Places, bool Trade) {
  const Extended power = PowerOf10(Magnitude(Places));
  if (std::isinf(power)) RaiseInvalidOp(u"RoundExtended");
  // Divided, as the powers below 1 are not exact: midpoints would miss.
  Extended scaled = Places < 0 ? Value / power : Value * power;
  Extended whole = static_cast<Extended>(Trade ? RoundTrade(scaled) : RoundMath(scaled));
  return Places < 0 ? whole * power : whole / power;
}

Currency RoundCurrency(Currency Value, int Places) {
  if (Places >= kPlacesAll || Value.Units == 0) return Value;
  if (Places < kPlacesMin) throw EInvalidArgument(Format(u"RoundCurrency(,%d): invalid arg", {Places}));
  const uint64_t units = kRoundings[Places - kPlacesMin](Magnitude(Value.Units));
  if (units > Magnitude(std::numeric_limits<int64_t>::max())) {
    throw EOverflow(Format(u"RoundCurrency(,%d): result out of range", {Places}));
  }
  const auto result = static_cast<int64_t>(units);
  return Currency::FromUnits(Value.Units < 0 ? -result : result);
}

int Divide(int A, int B, int& Remainder) { return DivideMagnitudes(A, B, Remainder); }

int64_t Divide(int64_t A, int64_t B, int64_t& Remainder) { return DivideMagnitudes(A, B, Remainder); }

}  // namespace vx
