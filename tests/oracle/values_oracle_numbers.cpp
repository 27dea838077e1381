// Numbers to text against the digits of printf, and texts to numbers against strtold and strtoll.
//
// printf writes the exact decimal value in as many digits as asked for. All rounding is done here on
// those digits, midpoints away from zero: so the texts differ from printf's own at these only.
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "platform/FormatSettings.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "tests/oracle/values_oracle.h"

namespace vx::oracle {
namespace {

// The number 0.DDD... * 10^Point, without a sign.
struct TDigits {
  std::string Digits;
  int Point = 0;
};

// In so many digits nothing but a true midpoint looks like one.
TDigits DigitsOf(Extended Value) {
  char text[100];
  std::snprintf(text, sizeof text, "%.60Le", std::fabs(Value));
  return {text[0] + std::string(text + 2, 60), std::atoi(text + 63) + 1};
}

// The first Count digits, the rest rounded half away from zero.
TDigits Cut(TDigits Number, int Count) {
  if (Count < 0) return {};
  const size_t count = static_cast<size_t>(Count);
  bool carry = count < Number.Digits.size() && Number.Digits[count] >= '5';
  Number.Digits.resize(count, '0');
  for (size_t i = count; carry && i-- > 0;) {
    carry = Number.Digits[i] == '9';
    Number.Digits[i] = carry ? '0' : static_cast<char>(Number.Digits[i] + 1);
  }
  if (carry) Number = {"1" + Number.Digits, Number.Point + 1};
  return Number;
}

std::string FixedText(TDigits Number, bool Negative, int Decimals) {
  const bool isZero = Number.Digits.find_first_not_of('0') == std::string::npos;
  if (isZero) Number = {};
  if (Number.Point < 1) Number = {std::string(static_cast<size_t>(1 - Number.Point), '0') + Number.Digits, 1};
  Number.Digits.resize(static_cast<size_t>(Number.Point + Decimals), '0');
  if (Decimals > 0) Number.Digits.insert(static_cast<size_t>(Number.Point), 1, ',');
  return (Negative && !isZero ? "-" : "") + Number.Digits;
}

std::string GeneralText(Extended Value, int Precision) {
  TDigits number = Cut(DigitsOf(Value), Precision);
  std::string exponent;
  if (number.Point > Precision || number.Point < -4) {
    exponent = "E" + std::to_string(number.Point - 1);
    number.Point = 1;
  }
  std::string text = FixedText(number, std::signbit(Value), Precision + 5);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == ',') text.pop_back();
  return text + exponent;
}

// To Precision digits first, and what these say to so many decimals; in the general form where more than
// Most digits stand before the separator.
std::string FixedForm(Extended Value, int Precision, int Most, int Decimals) {
  const TDigits number = Cut(DigitsOf(Value), Precision);
  if (number.Point > Most) return GeneralText(Value, Precision);
  return FixedText(Cut(number, number.Point + Decimals), std::signbit(Value), Decimals);
}

Extended RandomNumber(TRandom& Random) {
  const Extended power = std::strtold(("1e" + std::to_string(Random.Int(0, 20))).c_str(), nullptr);
  const Extended mantissa = static_cast<Extended>(Random.Bits() | uint64_t{1} << 63);
  const Extended digits = static_cast<Extended>(Random.Range(0, 999999999999999) >> Random.Range(0, 49));
  const int kind = Random.Int(0, 7), places = Random.Int(1, 12);
  Extended result = std::ldexp(mantissa, kind == 0 ? Random.Int(-16508, 16320) : Random.Int(-143, 17));
  if (kind == 2) result = digits / power;
  if (kind == 3) result = static_cast<double>(digits / power);
  if (kind == 4) result = power + Random.Int(-9, 9) / (Random.Int(0, 1) == 0 ? 1.0L : 10.0L);
  // Midpoints: a 5 behind the last digit, of up to 19 digits; halves, quarters, eighths...; and a 5 behind the
  // last decimal, mostly just beside the middle.
  if (kind == 5) result = (digits * 10 + 5) * std::pow(10.0L, Random.Int(0, 3));
  if (kind == 6) result = digits + std::ldexp(static_cast<Extended>(Random.Bits() >> (64 - places) | 1), -places);
  if (kind == 7) result = (digits * 10 + 5) / power;
  if (Random.Int(0, 3) == 0) result = std::nextafter(result, Random.Int(0, 1) * std::numeric_limits<Extended>::max());
  return Random.Int(0, 1) == 0 ? result : -result;
}

void ComparePrinting(TComparison& To, TRandom& Random) {
  const Extended value = RandomNumber(Random);
  const int precision = Random.Int(0, 1) == 0 ? 15 : Random.Int(2, 18), digits = Random.Int(0, 18) >> Random.Int(0, 3);
  To.Same("FloatToStr", FloatToStr(value), Wide(GeneralText(value, 15)), value);
  To.Same("FloatToStrF ffFixed", FloatToStrF(value, ffFixed, precision, digits),
          Wide(FixedForm(value, precision, precision, digits)), value, precision, digits);
  To.Same("FormatFloat 0.00", FormatFloat(u"0.00", value), Wide(FixedForm(value, 15, 18, 2)), value);
}

// Text has "." as separator, for the library ",". An infinite Want is refused.
void CompareFloat(TComparison& To, std::string Text, Extended Want) {
  std::replace(Text.begin(), Text.end(), '.', ',');
  const std::u16string text = Wide(Text);
  const Extended none = -77.5L, want = std::isinf(Want) ? none : Want;
  Extended got = none;
  To.Same("TextToFloat", TextToFloat(text, got, GetFormatSettings()), !std::isinf(Want), text);
  To.Same("TextToFloat", got, want, text);
  To.Same("TextToFloat's sign", std::signbit(got), std::signbit(want), text);
}

// The text in the middle between two neighbours of 64 bits gives the even one, just beside it the nearer one.
// It is 2 to the power Shift times a number of 65 bits, or so many times smaller than it.
void CompareMiddle(TComparison& To, TRandom& Random, int Shift, bool IsFraction) {
  const uint64_t mantissa = Random.Bits() | uint64_t{1} << 63;
  std::string text = std::to_string(mantissa);
  for (int i = 0; i <= Shift; ++i) {
    int carry = i == 0 ? 1 : 0;  // doubled, plus 1
    for (size_t at = text.size(); at-- > 0; carry /= 10) {
      carry += (text[at] - '0') * (IsFraction && i > 0 ? 5 : 2);
      text[at] = static_cast<char>('0' + carry % 10);
    }
    if (carry > 0) text.insert(0, 1, static_cast<char>('0' + carry));
  }
  const size_t places = IsFraction ? static_cast<size_t>(Shift) : 0;
  if (text.size() <= places) text.insert(0, places + 1 - text.size(), '0');
  const int beside = text.back() == '0' ? 1 : Random.Int(-1, 1);
  if (beside < 0) --text.back();
  text.insert(text.size() - places, 1, '.');
  if (beside > 0) text += std::string(static_cast<size_t>(Random.Int(0, 20)), '0') + '1';
  const Extended want = static_cast<Extended>(mantissa) + (beside > 0 || (beside == 0 && mantissa % 2 == 1) ? 1 : 0);
  CompareFloat(To, text, std::ldexp(want, 1 + (IsFraction ? -Shift : Shift)));
}

// 1 to 25 digits; the first digit of a random number of bits would be small too often.
std::string DigitsText(TRandom& Random) {
  const std::string digits = std::to_string(Random.Bits()) + std::to_string(Random.Bits() | uint64_t{1} << 63);
  return digits.substr(1, static_cast<size_t>(Random.Int(1, 25)));
}

constexpr const char* kSigns[] = {"", "-", "+", "  -", "0", "-000000000000000000000000000000"};

std::string NumberText(TRandom& Random) {
  std::string result = DigitsText(Random);
  if (Random.Int(0, 1) == 0) result.insert(static_cast<size_t>(Random.Int(0, static_cast<int>(result.size()))), 1, '.');
  if (Random.Int(0, 9) == 0) result += std::string(static_cast<size_t>(Random.Int(0, 150)), '0');
  const int most = Random.Int(0, 2) == 0 ? 5100 : 40 << Random.Int(0, 3);
  if (Random.Int(0, 1) == 0) result += (Random.Int(0, 1) == 0 ? "E" : "e") + std::to_string(Random.Int(-most, most));
  return kSigns[Random.Int(0, 5)] + result;
}

// Also about the limits of all sizes, and seldom with a unit that is no digit.
std::string WholeText(TRandom& Random) {
  std::string digits = DigitsText(Random);
  const uint64_t near = (uint64_t{1} << Random.Int(0, 63)) + static_cast<uint64_t>(Random.Range(-3, 3));
  if (Random.Int(0, 1) == 0) digits = std::to_string(near);
  if (Random.Int(0, 7) == 0) digits = "184467440737095516" + std::to_string(Random.Int(0, 99));
  if (Random.Int(0, 19) == 0) digits.insert(static_cast<size_t>(Random.Int(0, 1)), 1, "z ,.A-"[Random.Int(0, 5)]);
  return kSigns[Random.Int(0, 5)] + digits;
}

void CompareWhole(TComparison& To, const std::string& Text, int Default) {
  errno = 0;
  char* end = nullptr;
  const long long want = std::strtoll(Text.c_str(), &end, 10);
  const bool good = errno == 0 && end != Text.c_str() && *end == 0, small = good && want == static_cast<int>(want);
  const std::u16string text = Wide(Text);
  To.Same("StrToInt64Def", StrToInt64Def(text, Default), good ? int64_t{want} : Default, text);
  To.Same("StrToIntDef", StrToIntDef(text, Default), small ? static_cast<int>(want) : Default, text);
  To.Same("IntToStr", IntToStr(want), Wide(std::to_string(want)), text);
}

}  // namespace

void CompareNumbers(TReport& Report) {
  TComparison printing(Report, "numbers-printed"), floats(Report, "TextToFloat"), wholes(Report, "StrToIntDef");
  TRandom random(80);
  for (int i = 0; i < 2000000 / Report.Part; ++i) {
    ComparePrinting(printing, random);
    const std::string text = NumberText(random);
    CompareFloat(floats, text, std::strtold(text.c_str(), nullptr));
    CompareWhole(wholes, WholeText(random), random.Int(-1000, 1000));
  }
  // Some have thousands of digits, of which each counts.
  for (int i = 0; i < 300000 / Report.Part; ++i) {
    const int most = i % 10000 == 0 ? 6000 : i % 1000 == 0 ? 1000 : i % 10 == 0 ? 100 : 25;
    CompareMiddle(floats, random, random.Int(0, most), random.Int(0, 3) > 0);
  }
  for (const char* text : {"-0", "-0.0e5", "0e9999", "-1e-99999", "1e99999", "1.8e-4951", "1.9e-4951"})
    CompareFloat(floats, text, std::strtold(text, nullptr));
}

}  // namespace vx::oracle
