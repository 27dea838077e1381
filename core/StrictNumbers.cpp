#include "core/StrictNumbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "core/detail/TextCursor.h"

namespace vx {

namespace {

using detail::TTextCursor;

constexpr size_t kMostUnits = 400;  // more than any double needs

// 10^0 to 10^22, all exact.
constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr uint64_t kExact = uint64_t{1} << std::numeric_limits<double>::digits;

// The digits of a number as they come, and, as long as it is exact, their value.
class TDigits {
 public:
  // Behind the sign; returns how many digits there are.
  int Take(TTextCursor& Cursor) noexcept {
    int count = 0;
    for (; Cursor.IsAtDigit() && FCount < kMostUnits; ++count, Cursor.Skip()) {
      const unsigned digit = Cursor.Peek() - unsigned{u'0'};
      FIsExact = FIsExact && FValue <= (kExact - 9) / 10;
      FValue = FValue * 10 + digit;  // of no use once it wraps
      FUnits[FCount++] = static_cast<char>('0' + digit);
    }
    return count;
  }
  void AddPoint() noexcept {
    if (FCount < kMostUnits) FUnits[FCount++] = '.';
  }
  bool IsFull() const noexcept { return FCount == kMostUnits; }
  // With so many decimals; false for a number that is too large.
  bool Get(int Decimals, double& Value) const noexcept {
    if (FIsExact && Decimals < static_cast<int>(std::size(kPowers))) {
      Value = static_cast<double>(FValue) / kPowers[Decimals];  // of two exact numbers, rounded once
      return true;
    }
    const auto [end, error] = std::from_chars(FUnits, FUnits + FCount, Value, std::chars_format::fixed);
    if (error == std::errc()) return true;
    if (std::any_of(FUnits, std::find(FUnits, FUnits + FCount, '.'), [](char unit) { return unit != '0'; }))
      return false;
    Value = 0;  // nearer to it than to any other
    return true;
  }

 private:
  char FUnits[kMostUnits];
  size_t FCount = 0;
  uint64_t FValue = 0;
  bool FIsExact = true;
};

}  // namespace

bool TryStrToInt64Strict(std::u16string_view Text, int64_t& Value, TTextFault& Fault) noexcept {
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  const bool isNegative = cursor.TakeSign();
  cursor.BeginNumber();
  uint64_t size = 0;
  if (cursor.TakeDigits(size) == 0) return cursor.FailHere();
  if (!cursor.Ends()) return false;
  if (size > static_cast<uint64_t>(INT64_MAX) + (isNegative ? 1 : 0)) return cursor.Fail(tfTooLarge);
  Value = static_cast<int64_t>(isNegative ? 0 - size : size);
  return true;
}

bool TryStrToDoubleStrict(std::u16string_view Text, double& Value, TTextFault& Fault,
                          char16_t DecimalSeparator) noexcept {
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  const bool isNegative = cursor.TakeSign();
  cursor.BeginNumber();
  TDigits digits;
  int decimals = 0;
  if (digits.Take(cursor) == 0) return cursor.FailHere();
  if (cursor.Take(DecimalSeparator)) {
    digits.AddPoint();
    decimals = digits.Take(cursor);
    if (decimals == 0 && !digits.IsFull()) return cursor.FailHere();
  }
  if (digits.IsFull()) return cursor.Fail(tfTooLarge);
  if (!cursor.Ends()) return false;
  double value = 0;
  if (!digits.Get(decimals, value)) return cursor.Fail(tfTooLarge);
  Value = isNegative ? -value : value;
  return true;
}

bool TryStrToBoolStrict(std::u16string_view Text, bool& Value, TTextFault& Fault) noexcept {
  static constexpr std::u16string_view kWords[][2] = {{u"n", u"j"},         {u"nein", u"ja"},    {u"no", u"yes"},
                                                      {u"falsch", u"wahr"}, {u"false", u"true"}, {u"n", u"y"}};
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  const char16_t* const place = cursor.Here();
  const bool isOne = cursor.Take(u'1');
  if ((isOne || cursor.Take(u'0')) && cursor.IsAtEnd()) {
    Value = isOne;
    return true;
  }
  cursor.GoTo(place);
  for (const auto& words : kWords) {
    for (const bool value : {false, true}) {
      if (cursor.TakeWord(words[value]) && cursor.IsAtEnd()) {
        Value = value;
        return true;
      }
      cursor.GoTo(place);
    }
  }
  return cursor.Fail(tfUnexpected);
}

bool TryDoubleToStrStrict(double Value, String& Text, char16_t DecimalSeparator) {
  if (!std::isfinite(Value)) return false;
  char units[kMostUnits];
  const char* end = std::to_chars(units, units + sizeof units, Value, std::chars_format::fixed).ptr;
  Text = String::Build(static_cast<size_t>(end - units), [&](char16_t* out) {
    for (const char* unit = units; unit != end; ++unit)
      *out++ = *unit == '.' ? DecimalSeparator : static_cast<char16_t>(*unit);
  });
  return true;
}

}  // namespace vx
