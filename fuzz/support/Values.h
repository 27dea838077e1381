// Numbers, dates and settings out of the fuzzer's bytes, and what checks of values share.
//
//   TValues    takes numbers from the front of an input
//   Raises     tells whether a call raises an E; what else it raises ends the program
#pragma once

#include <bit>
#include <cmath>
#include <limits>

#include "fuzz/support/Input.h"
#include "platform/Calendar.h"
#include "platform/FormatSettings.h"
#include "platform/Types.h"

namespace vx::fuzz {

class TValues {
 public:
  explicit TValues(TInput& Input) : FInput(Input) {}

  uint8_t Byte() { return FInput.Byte(); }
  // The first byte is the highest one.
  uint64_t Bits(int Bytes = 8) {
    uint64_t result = 0;
    for (int i = 0; i < Bytes; ++i) result = result << 8 | FInput.Byte();
    return result;
  }
  int Int() { return static_cast<int32_t>(Bits(4)); }
  int Small() { return static_cast<int8_t>(Byte()); }
  // A double of any bits, a moment of the years 1 to 9999, an amount of hours, a small decimal number, or one of
  // those with the least change.
  double Double() {
    unsigned kind = Byte();
    double result;
    switch (kind % 4) {
      case 0:
        return std::bit_cast<double>(Bits());
      case 1:
        result = static_cast<double>(Bits(3) % 3652059) - DateDelta + 1;
        result += (result < 0 ? -1.0 : 1.0) * static_cast<double>(Bits(4) % MSecsPerDay) / MSecsPerDay;
        break;
      case 2:
        result = Int() / 1440.0;
        break;
      default:
        result = Int() / std::pow(10.0, Byte() % 10);
    }
    if ((kind & 4) != 0) result = std::nextafter(result, HUGE_VAL);
    if ((kind & 8) != 0) result = std::nextafter(result, -HUGE_VAL);
    if ((kind & 16) != 0) result = std::trunc(result);
    return result;
  }
  // Also what lies between and beyond the doubles.
  Extended Number() {
    unsigned kind = Byte();
    Extended result = Double();
    if ((kind & 1) != 0) result *= 1 + std::ldexp(static_cast<Extended>(Byte()), -62);
    if ((kind & 2) != 0) result = std::ldexp(result, static_cast<int16_t>(Bits(2)));
    return result;
  }
  TFormatSettings Settings() {
    TFormatSettings result;
    constexpr char16_t kMarks[] = u",.: -/\0E";
    unsigned marks = static_cast<unsigned>(Bits(2));
    result.ThousandSeparator = kMarks[marks & 7];
    result.DateSeparator = kMarks[marks >> 3 & 7];
    result.TimeSeparator = kMarks[marks >> 6 & 7];
    if ((marks >> 9 & 1) != 0) result.DecimalSeparator = u'.';
    result.CurrencyFormat = Byte();
    result.NegCurrFormat = Byte();
    result.TwoDigitYearCenturyWindow = Byte();
    constexpr const char16_t* kForms[] = {u"dd.mm.yyyy", u"m/d/yy", u"yyyy-mm-dd", u"c", u"t ddddd", u"", u"\"x", u"e"};
    result.ShortDateFormat = kForms[marks >> 10 & 7];
    result.LongTimeFormat = (marks >> 13 & 1) != 0 ? u"tt c" : u"h:nn am/pm";
    return result;
  }

 private:
  TInput& FInput;
};

template <typename E, typename F>
bool Raises(F&& Call) {
  try {
    Call();
  } catch (const E&) {
    return true;
  }
  return false;
}

// Equal, or both no number.
template <typename T>
bool IsSame(const T& A, const T& B) {
  return A == B || (A != A && B != B);
}

}  // namespace vx::fuzz
