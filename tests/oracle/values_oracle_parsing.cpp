// Read numbers against strtold and strtoll.
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "platform/FormatSettings.h"
#include "platform/Numbers.h"
#include "values_oracle.h"

namespace vx::oracle {
namespace {

std::string DigitsText(TRandom& Random, int Count) {
  std::string result;
  for (int i = 0; i < Count; ++i) result += static_cast<char>('0' + Random.Range(0, 9));
  return result;
}

std::string ExponentText(TRandom& Random) {
  int64_t exponent = 0;
  switch (Random.Range(0, 9)) {
    case 0:
      exponent = Random.Range(-5100, 5100);
      break;
    case 1:  // about the largest and the smallest numbers, and below them
      exponent = Random.Range(0, 2) == 0 ? Random.Range(4900, 4940) : Random.Range(-4980, -4925);
      break;
    case 2:
    case 3:
      exponent = Random.Range(-40, 40);
      break;
    case 4:
      exponent = Random.Range(-400, 400);
      break;
    default:
      return {};
  }
  std::string result = Random.Range(0, 1) == 0 ? "E" : "e";
  if (exponent >= 0 && Random.Range(0, 1) == 0) result += '+';
  return result + std::to_string(exponent);
}

// Number * Factor, both whole; Factor is at most two million.
void Multiply(std::string& Number, int Factor) {
  int carry = 0;
  for (size_t i = Number.size(); i-- > 0; carry /= 10) {
    carry += (Number[i] - '0') * Factor;
    Number[i] = static_cast<char>('0' + carry % 10);
  }
  for (; carry > 0; carry /= 10) Number.insert(0, 1, static_cast<char>('0' + carry % 10));
}

// A text in the middle between two neighbours of 64 bits, or just beside it, and the one that it must give:
// the even one, or the nearer one.
struct TMiddle {
  std::string Text;
  Extended Want;
};

// 2 to the power Shift times a number of 65 bits, or so many times smaller than it.
TMiddle MakeMiddle(TRandom& Random, int Shift, bool IsFraction) {
  const uint64_t mantissa = Random.Bits() | uint64_t{1} << 63;
  bool isUp = mantissa % 2 == 1;
  std::string text = std::to_string(mantissa);
  Multiply(text, 2);
  ++text.back();
  constexpr int kStep = 9, kFiveToStep = 1953125, kTwoToStep = 512;
  int rest = Shift;
  for (; rest >= kStep; rest -= kStep) Multiply(text, IsFraction ? kFiveToStep : kTwoToStep);
  for (; rest > 0; --rest) Multiply(text, IsFraction ? 5 : 2);
  const size_t places = IsFraction ? static_cast<size_t>(Shift) : 0;
  if (text.size() <= places) text.insert(0, places + 1 - text.size(), '0');
  const int64_t beside = Random.Range(0, 3);
  if (beside == 0 && text.back() > '0') {
    --text.back();
    isUp = false;
  }
  text.insert(text.size() - places, 1, '.');
  if (beside == 1) {
    text += std::string(static_cast<size_t>(Random.Range(0, 20)), '0') + '1';
    isUp = true;
  }
  const Extended want = static_cast<Extended>(mantissa) + (isUp ? 1 : 0);
  return {text, std::ldexp(want, 1 + (IsFraction ? -Shift : Shift))};
}

// With "." as separator, which the texts for the library have as ",".
std::string NumberText(TRandom& Random) {
  std::string sign = Random.Range(0, 1) == 0 ? "" : Random.Range(0, 3) == 0 ? "+" : "-";
  std::string result = DigitsText(Random, static_cast<int>(Random.Range(1, 25)));
  if (Random.Range(0, 1) == 0) {
    result.insert(static_cast<size_t>(Random.Range(0, static_cast<int64_t>(result.size()))), 1, '.');
  } else if (Random.Range(0, 9) == 0) {
    result = "0." + std::string(static_cast<size_t>(Random.Range(0, 30)), '0') + result;
  } else if (Random.Range(0, 9) == 0) {
    result += std::string(static_cast<size_t>(Random.Range(0, 150)), '0');
  }
  return sign + result + ExponentText(Random);
}

// The value bytes of the type, without those that only fill it up.
bool SameBits(Extended A, Extended B) {
  constexpr size_t kBytes = std::numeric_limits<Extended>::digits == 64 ? 10 : sizeof(Extended);
  return std::memcmp(&A, &B, kBytes) == 0;
}

void CompareFloat(TComparison& To, const std::string& Text, Extended Want, const TFormatSettings& Settings) {
  To.Case();
  std::u16string german(Text.begin(), Text.end());
  for (char16_t& unit : german) {
    if (unit == u'.') unit = u',';
  }
  const std::u16string_view text = german;
  const Extended none = -77.5L;
  Extended got = none;
  const bool good = !std::isinf(Want);
  To.Same("TextToFloat", TextToFloat(text, got, Settings), good, text);
  if (!SameBits(got, good ? Want : none)) To.Same("TextToFloat", Show(got), Show(good ? Want : none), text);
}

void CompareFloat(TComparison& To, const std::string& Text, const TFormatSettings& Settings) {
  CompareFloat(To, Text, std::strtold(Text.c_str(), nullptr), Settings);
}

std::string WholeText(TRandom& Random) {
  std::string result(static_cast<size_t>(Random.Range(0, 7) == 0 ? Random.Range(1, 3) : 0), ' ');
  if (Random.Range(0, 2) == 0) result += Random.Range(0, 2) == 0 ? '+' : '-';
  switch (Random.Range(0, 7)) {
    case 0:
      result += std::to_string(uint64_t{1} << Random.Range(0, 63));
      break;
    case 1:  // about the limits
      result += std::to_string((uint64_t{1} << (Random.Range(0, 1) == 0 ? 31 : 63)) +
                               static_cast<uint64_t>(Random.Range(-3, 3)));
      break;
    case 2:
      result += std::string(static_cast<size_t>(Random.Range(0, 25)), '0') + std::to_string(Random.Bits() >> 32);
      break;
    case 3:  // about the limit of the unsigned numbers, where wrapping ends
      result += "184467440737095516" + std::to_string(Random.Range(0, 99));
      break;
    default:
      result += DigitsText(Random, static_cast<int>(Random.Range(1, 25)));
  }
  if (Random.Range(0, 19) == 0)
    result.insert(static_cast<size_t>(Random.Range(0, 2) % 2), 1, "z ,.A-"[Random.Range(0, 5)]);
  if (Random.Range(0, 19) == 0) result += "z ,.A-"[Random.Range(0, 5)];
  return result;
}

void CompareWhole(TComparison& To, const std::string& Text, int Default) {
  To.Case();
  errno = 0;
  char* end = nullptr;
  const long long want = std::strtoll(Text.c_str(), &end, 10);
  const bool good = errno == 0 && end != Text.c_str() && *end == 0;
  const bool small = good && want >= std::numeric_limits<int>::min() && want <= std::numeric_limits<int>::max();
  const TWide text(Text);
  To.Same("StrToInt64Def", StrToInt64Def(text, Default), good ? int64_t{want} : Default, text);
  To.Same("StrToIntDef", StrToIntDef(text, Default), small ? static_cast<int>(want) : Default, text);
  if (!good) return;
  const TWide printed(std::to_string(want));
  To.Same("IntToStr", IntToStr(want), printed, text);
}

// Hexadecimal digits are the bits of a number of 32 or 64 bits.
void CompareHex(TComparison& To, TRandom& Random) {
  static constexpr char kDigits[] = "0123456789abcdefABCDEF";
  To.Case();
  std::string digits(static_cast<size_t>(Random.Range(0, 3) == 0 ? Random.Range(1, 12) : 0), '0');
  const int64_t count = Random.Range(digits.empty() ? 1 : 0, 18);
  for (int64_t i = 0; i < count; ++i) digits += kDigits[Random.Range(0, 21)];
  errno = 0;
  const unsigned long long want = std::strtoull(digits.c_str(), nullptr, 16);
  const bool good = errno == 0, small = good && want <= std::numeric_limits<uint32_t>::max();
  const char* const prefixes[] = {"$", "0x", "0X"};
  const TWide text(prefixes[Random.Range(0, 2)] + digits);
  const int none = -77;
  To.Same("StrToInt64Def", StrToInt64Def(text, none), good ? static_cast<int64_t>(want) : none, text);
  To.Same("StrToIntDef", StrToIntDef(text, none), small ? static_cast<int>(static_cast<uint32_t>(want)) : none, text);
}

// A whole number of which one digit is replaced by something that is none, also by units of which the low
// byte is a digit.
void CompareSpoiled(TComparison& To, TRandom& Random, const TFormatSettings& Settings) {
  To.Case();
  std::u16string units;
  for (int64_t i = Random.Range(2, 19); i > 0; --i) units += static_cast<char16_t>(u'0' + Random.Range(1, 9));
  const int64_t digit = Random.Range(0, 9);
  const int64_t others[] = {0,
                            0x130 + digit,
                            0x3030 + digit,
                            0xFF10 + digit,
                            0x660 + digit,
                            '/',
                            ':',
                            ';',
                            Random.Range(58, 64),
                            Random.Range(0x80, 0xFFFF)};
  const char16_t other = static_cast<char16_t>(others[digit]);
  units[static_cast<size_t>(Random.Range(0, static_cast<int64_t>(units.size()) - 1))] = other;
  const std::u16string_view text = units;
  Extended value = -77;
  Currency amount = -77;
  To.Same("StrToIntDef", StrToIntDef(text, -77), -77, text);
  To.Same("StrToInt64Def", StrToInt64Def(text, -77), int64_t{-77}, text);
  To.Same("TextToFloat", TextToFloat(text, value, Settings), false, text);
  To.Same("TextToFloat", value, Extended{-77}, text);
  To.Same("TextToCurr", TextToCurr(text, amount, Settings), false, text);
  To.Same("TextToCurr", amount, Currency(-77), text);
}

}  // namespace

void CompareParsing(TReport& Report) {
  TComparison floats(Report, "TextToFloat", "texts"), wholes(Report, "StrToIntDef", "texts");
  TComparison hex(Report, "StrToIntDef-hexadecimal", "texts"), spoiled(Report, "no-digits", "texts");
  TComparison middles(Report, "TextToFloat-middles", "texts");
  TRandom random(80);
  const TFormatSettings settings;
  for (int i = 0; i < 2000000; ++i) {
    CompareFloat(floats, NumberText(random), settings);
    CompareWhole(wholes, WholeText(random), static_cast<int>(random.Range(-1000, 1000)));
    if (i % 4 == 0) CompareHex(hex, random);
    if (i % 4 == 1) CompareSpoiled(spoiled, random, settings);
  }
  // Some have thousands of digits, of which each counts.
  for (int i = 0; i < 500000; ++i) {
    const int most = i % 10000 == 0 ? 6000 : i % 1000 == 0 ? 1000 : i % 10 == 0 ? 100 : 25;
    const TMiddle middle = MakeMiddle(random, static_cast<int>(random.Range(0, most)), random.Range(0, 3) > 0);
    CompareFloat(middles, middle.Text, middle.Want, settings);
  }
  for (const char* text : {"0", "-0", "0.0", "-0.0e5", "0e9999", "1e-99999", "-1e-99999", "1e99999", "3.6e-4951",
                           "1.8e-4951", "1.9e-4951", "1.18973149535723176502e4932", "1.18973149535723176509e4932",
                           "3.36210314311209350626e-4932", "3.3621031431120935062e-4932"}) {
    CompareFloat(floats, text, settings);
  }
}

}  // namespace vx::oracle
