#include "core/DecimalFactor.h"

#include <algorithm>

#include "core/detail/TextCursor.h"
#include "platform/Exceptions.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Wide.h"

namespace vx {

namespace {

using detail::PowerOfTen;
using detail::TTextCursor;

// Digits behind those in front of the separator; zeros at their end don't count.
bool ReadDecimals(TTextCursor& Cursor, uint64_t& Digits, int& Decimals) noexcept {
  size_t count = 0, needed = 0;
  for (; Cursor.IsAtDigit(count); ++count) {
    if (Cursor.Peek(count) != u'0') needed = count + 1;
  }
  if (count == 0) return Cursor.FailHere();
  if (needed > TDecimalFactor::MaxDigits) {
    Cursor.Skip(TDecimalFactor::MaxDigits);
    return Cursor.Fail(tfDecimals);
  }
  Decimals = static_cast<int>(needed);
  Cursor.TakeDigits(Digits, Decimals);
  Cursor.Skip(count - needed);
  return true;
}

}  // namespace

TDecimalFactor::TDecimalFactor(int64_t Digits, int Decimals) noexcept : FDigits(Digits), FDecimals(Decimals) {
  while (FDecimals > 0 && FDigits % 10 == 0) {
    FDigits /= 10;
    --FDecimals;
  }
}

void TDecimalFactor::RaiseOverflow() { throw EOverflow(u"Decimal factor overflow"); }

TDecimalFactor TDecimalFactor::Of(int64_t Digits, int Decimals) {
  if (Decimals < 0 || Decimals > MaxDigits) throw EInvalidArgument(u"Decimal factor with invalid decimals");
  if (Digits > kMost || Digits < -kMost) RaiseOverflow();
  return {Digits, Decimals};
}

TDecimalFactor TDecimalFactor::Percent(TDecimalFactor Value) {
  int64_t digits = Value.FDigits;
  int decimals = Value.FDecimals + 2;
  for (; decimals > MaxDigits; --decimals, digits /= 10) {
    if (digits % 10 != 0) RaiseOverflow();
  }
  return {digits, decimals};
}

TDecimalFactor TDecimalFactor::operator-() const noexcept { return {-FDigits, FDecimals}; }

TDecimalFactor operator+(TDecimalFactor A, TDecimalFactor B) {
  if (A.FDecimals < B.FDecimals) std::swap(A, B);
  const detail::TWide size = detail::Multiplied(detail::SizeOf(B.FDigits), PowerOfTen(A.FDecimals - B.FDecimals));
  // Beyond twice the most there is, no other factor brings the sum back.
  if (size.High != 0 || size.Low > 2 * static_cast<uint64_t>(TDecimalFactor::kMost)) TDecimalFactor::RaiseOverflow();
  const auto other = static_cast<int64_t>(size.Low);
  const TDecimalFactor sum(A.FDigits + (B.FDigits < 0 ? -other : other), A.FDecimals);
  return TDecimalFactor::Of(sum.FDigits, sum.FDecimals);
}

std::strong_ordering operator<=>(TDecimalFactor A, TDecimalFactor B) noexcept {
  if ((A.FDigits < 0) != (B.FDigits < 0)) return A.FDigits <=> B.FDigits;
  const int decimals = std::max(A.FDecimals, B.FDecimals);
  const detail::TWide a = detail::Multiplied(detail::SizeOf(A.FDigits), PowerOfTen(decimals - A.FDecimals));
  const detail::TWide b = detail::Multiplied(detail::SizeOf(B.FDigits), PowerOfTen(decimals - B.FDecimals));
  return A.FDigits < 0 ? b <=> a : a <=> b;
}

bool TryStrToDecimalFactor(std::u16string_view Text, TDecimalFactor& Value, TTextFault& Fault,
                           char16_t DecimalSeparator) noexcept {
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  const bool isNegative = cursor.TakeSign();
  cursor.BeginNumber();
  uint64_t digits = 0;
  int decimals = 0;
  if (cursor.TakeDigits(digits) == 0) return cursor.FailHere();
  if (cursor.Take(DecimalSeparator) && !ReadDecimals(cursor, digits, decimals)) return false;
  cursor.SkipBlanks();
  const bool isPercent = cursor.Take(u'%');
  if (!cursor.Ends()) return false;
  if (isPercent) decimals += 2;
  while (decimals > 0 && digits % 10 == 0) {
    digits /= 10;
    --decimals;
  }
  if (decimals > TDecimalFactor::MaxDigits) return cursor.Fail(tfDecimals);
  if (digits >= PowerOfTen(TDecimalFactor::MaxDigits)) return cursor.Fail(tfTooLarge);
  const auto size = static_cast<int64_t>(digits);
  Value = TDecimalFactor::Of(isNegative ? -size : size, decimals);
  return true;
}

TDecimalFactor StrToDecimalFactor(std::u16string_view Text, char16_t DecimalSeparator) {
  TDecimalFactor result;
  TTextFault fault;
  if (!TryStrToDecimalFactor(Text, result, fault, DecimalSeparator))
    throw EConvertError(Concat({u"'", Text, u"' ist kein Faktor: ", fault.GetText()}));
  return result;
}

String DecimalFactorToStr(TDecimalFactor Value, char16_t DecimalSeparator) {
  const uint64_t size = detail::SizeOf(Value.GetDigits()), power = PowerOfTen(Value.GetDecimals());
  TTextBuffer text;
  if (Value.GetDigits() < 0) text.Add(u'-');
  text.AddNumber(size / power);
  if (Value.GetDecimals() > 0) {
    text.Add(DecimalSeparator);
    text.AddNumber(size % power, Value.GetDecimals());
  }
  return text.ToString();
}

}  // namespace vx
