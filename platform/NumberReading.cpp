#include <algorithm>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {

namespace {

// Four digits at once. Lanes are the units of a 64-bit word, the first one lowest.
using TFourDigits = uint64_t;
constexpr bool kHasLanes = std::endian::native == std::endian::little;

TFourDigits LoadFour(const char16_t* First) noexcept {
  TFourDigits lanes;
  std::memcpy(&lanes, First, sizeof lanes);
  return lanes - 0x0030'0030'0030'0030u;
}

bool AreDigits(TFourDigits Lanes) noexcept {
  constexpr uint64_t kHigh = 0xFFF0'FFF0'FFF0'FFF0u;
  return ((Lanes | (Lanes + 0x0006'0006'0006'0006u)) & kHigh) == 0;
}

// The product gathers 1000, 100, 10 and 1 times the digits in the highest lane; no lower one overflows.
uint32_t ValueOf(TFourDigits Lanes) noexcept { return static_cast<uint32_t>((Lanes * 0x03E8'0064'000A'0001u) >> 48); }

// Count digits, 5 to 12, by groups of four, the last of which may overlap the one before.
bool ReadGroups(const char16_t* First, size_t Count, uint64_t& Value) noexcept {
  constexpr uint32_t kPowers[] = {1, 10, 100, 1000, 10000};
  const TFourDigits first = LoadFour(First), last = LoadFour(First + Count - 4);
  bool isGood = AreDigits(first) && AreDigits(last);
  uint64_t value = ValueOf(first);
  size_t rest = Count - 4;
  if (rest > 4) {
    const TFourDigits middle = LoadFour(First + 4);
    isGood = isGood && AreDigits(middle);
    value = value * 10000 + ValueOf(middle);
    rest -= 4;
  }
  Value = value * kPowers[rest] + ValueOf(last >> (16 * (4 - rest)) << (16 * (4 - rest)));
  return isGood;
}

// Digits alone, at least one.
inline bool ReadUnsigned(const char16_t* First, const char16_t* Last, uint64_t& Value) noexcept {
  const auto count = static_cast<size_t>(Last - First);
  if (kHasLanes && count > 4 && count <= 12) return ReadGroups(First, count, Value);
  uint64_t number = 0;
  for (; First != Last; ++First) {
    const unsigned digit = *First - unsigned{u'0'};
    if (digit > 9 || number > (UINT64_MAX - digit) / 10) return false;
    number = number * 10 + digit;
  }
  Value = number;
  return count > 0;
}

// Decimal digits with an optional sign, nothing else, and none too many for the type.
template <typename T>
bool ReadDigits(const char16_t* First, const char16_t* Last, T& Value) noexcept {
  if (First == Last) return false;
  const bool isNegative = *First == u'-';
  if (isNegative || *First == u'+') ++First;
  uint64_t number;
  if (!ReadUnsigned(First, Last, number)) return false;
  if (number > static_cast<uint64_t>(std::numeric_limits<T>::max()) + (isNegative ? 1 : 0)) return false;
  Value = static_cast<T>(isNegative ? 0 - number : number);
  return true;
}

template <typename T>
bool ReadHexDigits(std::u16string_view Text, T& Value) noexcept {
  if (Text.empty()) return false;
  uint64_t number = 0;
  for (char16_t unit : Text) {
    const unsigned digit = DigitValue(unit);
    if (digit > 15 || number >> (8 * sizeof(T) - 4) != 0) return false;
    number = number << 4 | digit;
  }
  Value = static_cast<T>(number);
  return true;
}

template <typename T>
bool ReadInteger(std::u16string_view Text, T& Value) noexcept {
  if (Text.empty()) return false;
  if (Text.front() == u' ') Text.remove_prefix(std::min(Text.find_first_not_of(u' '), Text.size()));
  if (Text.starts_with(u'$')) return ReadHexDigits(Text.substr(1), Value);
  if (Text.starts_with(u'0') && Text.size() > 1 && (Text[1] | 0x20) == u'x')
    return ReadHexDigits(Text.substr(2), Value);
  return ReadDigits(Text.data(), Text.data() + Text.size(), Value);
}

// Mantissa * 10^Exponent, and a little more in digits that found no place.
struct TScanned {
  uint64_t Mantissa = 0;
  int64_t Exponent = 0;
  unsigned FirstCut = 0;   // the first digit without a place
  bool IsMoreCut = false;  // other digits than 0 follow it
  bool IsNegative = false;
  std::u16string_view Digits;  // all of them, with the separator

  bool IsCut() const noexcept { return FirstCut != 0 || IsMoreCut; }
};

constexpr int kMantissaDigits = 19;
constexpr int64_t kHugeExponent = int64_t{1} << 40;  // more than any text has digits

// The exponent behind E, if there is one.
bool ScanExponent(std::u16string_view Text, int64_t& Exponent) noexcept {
  if (Text.empty()) return true;
  if (Text.front() != u'E' && Text.front() != u'e') return false;
  Text.remove_prefix(1);
  const bool isNegative = Text.starts_with(u'-');
  if (isNegative || Text.starts_with(u'+')) Text.remove_prefix(1);
  if (Text.empty()) return false;
  int64_t exponent = 0;
  for (char16_t unit : Text) {
    if (!IsDigit(unit)) return false;
    exponent = std::min(exponent * 10 + (unit - u'0'), kHugeExponent);
  }
  Exponent = isNegative ? -exponent : exponent;
  return true;
}

bool Scan(std::u16string_view Text, char16_t Separator, TScanned& Result) noexcept {
  while (!Text.empty() && Text.back() == u' ') Text.remove_suffix(1);
  while (!Text.empty() && Text.front() == u' ') Text.remove_prefix(1);
  const char16_t* unit = Text.data();
  const char16_t* const last = unit + Text.size();
  if (unit == last) return false;
  Result.IsNegative = *unit == u'-';
  if (Result.IsNegative || *unit == u'+') ++unit;
  const char16_t* const first = unit;
  const char16_t* separator = nullptr;
  uint64_t mantissa = 0;
  int room = kMantissaDigits;
  int64_t cut = 0;  // digits without a place before the separator, less those with one behind it
  bool isFirstCut = true;
  for (; unit != last; ++unit) {
    const unsigned digit = *unit - unsigned{u'0'};
    if (digit <= 9) {
      if (room > 0) {
        mantissa = mantissa * 10 + digit;
        if (mantissa != 0) --room;
        if (separator != nullptr) --cut;
      } else {
        if (isFirstCut) Result.FirstCut = digit;
        if (!isFirstCut && digit != 0) Result.IsMoreCut = true;
        isFirstCut = false;
        if (separator == nullptr) ++cut;
      }
    } else if (*unit == Separator && separator == nullptr) {
      separator = unit;
    } else {
      break;
    }
  }
  if (unit - first == (separator != nullptr ? 1 : 0)) return false;
  if (!ScanExponent({unit, static_cast<size_t>(last - unit)}, Result.Exponent)) return false;
  Result.Mantissa = mantissa;
  Result.Exponent += cut;
  Result.Digits = {first, static_cast<size_t>(unit - first)};
  return true;
}

constexpr int kExactPowers = LDBL_MANT_DIG >= 64 ? 27 : 22;
constexpr uint64_t kExactMantissa = LDBL_MANT_DIG >= 64 ? UINT64_MAX : uint64_t{1} << 53;

constexpr Extended kPowers[] = {1e0L,  1e1L,  1e2L,  1e3L,  1e4L,  1e5L,  1e6L,  1e7L,  1e8L,  1e9L,
                                1e10L, 1e11L, 1e12L, 1e13L, 1e14L, 1e15L, 1e16L, 1e17L, 1e18L, 1e19L,
                                1e20L, 1e21L, 1e22L, 1e23L, 1e24L, 1e25L, 1e26L, 1e27L};

// By the C library, exactly rounded. The text has no decimal separator, so the locale doesn't matter.
bool ConvertSlowly(const TScanned& Number, char16_t Separator, Extended& Value) noexcept {
  // No midpoint between two values has more digits; those beyond can only tell that the number is a
  // little above the ones before.
  constexpr int kDigits = 12000;
  char text[kDigits + 32];
  char* end = text;
  int64_t exponent = Number.Exponent;
  // The scan counted its exponent from its own last digit.
  int taken = 0;
  bool isCut = false;
  for (char16_t unit : Number.Digits) {
    if (unit == Separator || (taken == 0 && unit == u'0')) continue;
    if (taken < kDigits) {
      *end++ = static_cast<char>(unit);
      if (++taken > kMantissaDigits) --exponent;
    } else if (unit != u'0') {
      isCut = true;
    }
  }
  if (isCut) {
    *end++ = '1';
    --exponent;
  }
  *end++ = 'E';
  end = std::to_chars(end, end + 24, std::clamp<int64_t>(exponent, -20000, 20000)).ptr;
  *end = '\0';
  Value = std::strtold(text, nullptr);
  return std::isfinite(Value);
}

// Mantissa * 10^Exponent units, midpoints to the even one.
bool UnitsOf(const TScanned& Number, uint64_t& Units) noexcept {
  const int64_t exponent = Number.Exponent + 4;
  if (Number.Mantissa == 0 || exponent < -kMantissaDigits) {
    Units = 0;
  } else if (exponent >= 0) {
    Units = Number.Mantissa;
    // Only a mantissa that is full is cut, so it is the last unit that the digits behind it round.
    if (exponent == 0 && (Number.FirstCut > 5 || (Number.FirstCut == 5 && (Number.IsMoreCut || Units % 2 != 0))))
      ++Units;
    for (int64_t i = 0; i < exponent; ++i) {
      if (Units > UINT64_MAX / 10) return false;
      Units *= 10;
    }
  } else {
    uint64_t power = 1;
    for (int64_t i = exponent; i < 0; ++i) power *= 10;
    Units = Number.Mantissa / power;
    const uint64_t rest = Number.Mantissa % power, half = power / 2;
    if (rest > half || (rest == half && (Number.IsCut() || Units % 2 != 0))) ++Units;
  }
  return true;
}

}  // namespace

bool TryStrToInt(std::u16string_view Text, int& Value) noexcept { return ReadInteger(Text, Value); }
bool TryStrToInt64(std::u16string_view Text, int64_t& Value) noexcept { return ReadInteger(Text, Value); }

int StrToIntDef(std::u16string_view Text, int Default) noexcept {
  ReadInteger(Text, Default);
  return Default;
}

int64_t StrToInt64Def(std::u16string_view Text, int64_t Default) noexcept {
  ReadInteger(Text, Default);
  return Default;
}

int StrToInt(std::u16string_view Text) {
  int value = 0;
  if (!ReadInteger(Text, value)) RaiseConvertError(Text, u"integer value");
  return value;
}

int64_t StrToInt64(std::u16string_view Text) {
  int64_t value = 0;
  if (!ReadInteger(Text, value)) RaiseConvertError(Text, u"integer value");
  return value;
}

bool TextToFloat(std::u16string_view Text, Extended& Value, const TFormatSettings& Settings) noexcept {
  TScanned number;
  if (!Scan(Text, Settings.DecimalSeparator, number)) return false;
  Extended value = static_cast<Extended>(number.Mantissa);
  if (!number.IsCut() && number.Mantissa <= kExactMantissa && std::abs(number.Exponent) <= kExactPowers) {
    // Both are exact, so there is one rounding.
    if (number.Exponent < 0) {
      value /= kPowers[-number.Exponent];
    } else {
      value *= kPowers[number.Exponent];
    }
  } else if (number.Mantissa != 0 && !ConvertSlowly(number, Settings.DecimalSeparator, value)) {
    return false;
  }
  Value = number.IsNegative ? -value : value;
  return true;
}

bool TextToCurr(std::u16string_view Text, Currency& Value, const TFormatSettings& Settings) noexcept {
  TScanned number;
  uint64_t units;
  if (!Scan(Text, Settings.DecimalSeparator, number) || !UnitsOf(number, units)) return false;
  if (units > static_cast<uint64_t>(INT64_MAX) + (number.IsNegative ? 1 : 0)) return false;
  Value = Currency::FromUnits(static_cast<int64_t>(number.IsNegative ? 0 - units : units));
  return true;
}

Extended StrToFloat(std::u16string_view Text, const TFormatSettings& Settings) {
  Extended value = 0;
  if (!TextToFloat(Text, value, Settings)) RaiseConvertError(Text, u"floating point value");
  return value;
}

Extended StrToFloat(std::u16string_view Text) { return StrToFloat(Text, GetFormatSettings()); }

Currency StrToCurr(std::u16string_view Text, const TFormatSettings& Settings) {
  Currency value;
  if (!TextToCurr(Text, value, Settings)) RaiseConvertError(Text, u"floating point value");
  return value;
}

Currency StrToCurr(std::u16string_view Text) { return StrToCurr(Text, GetFormatSettings()); }

}  // namespace vx
