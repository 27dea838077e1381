#include "core/HourAmount.h"

#include <cmath>

#include "core/detail/TextCursor.h"
#include "platform/Exceptions.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Wide.h"

namespace vx {

namespace {

using detail::TTextCursor;

[[noreturn]] void Overflow() { throw EOverflow(u"Hour amount overflow"); }

int64_t Sum(int64_t A, int64_t B) {
  if (B > 0 ? A > INT64_MAX - B : A < INT64_MIN - B) Overflow();
  return A + B;
}

// Value * Factor / Divisor to the nearest whole number; Factor and Divisor are above 0.
int64_t Scaled(int64_t Value, uint64_t Factor, uint64_t Divisor) {
  uint64_t size = 0;
  int64_t result = 0;
  const detail::TWide product = detail::Multiplied(detail::SizeOf(Value), Factor);
  if (!detail::RoundedQuotient(product, Divisor, 1, false, size) || !detail::FromSize(size, Value < 0, result))
    Overflow();
  return result;
}

// Hours * 60 + Minutes as the value; a fault outside its range.
bool Fill(TTextCursor& Cursor, uint64_t Hours, uint64_t Minutes, bool IsNegative, int64_t& Value) noexcept {
  detail::TWide size = detail::Multiplied(Hours, 60);
  size.Low += Minutes;
  if (size.Low < Minutes) ++size.High;
  return (size.High == 0 && detail::FromSize(size.Low, IsNegative, Value)) || Cursor.Fail(tfTooLarge);
}

// Behind the colon: two digits up to 59.
bool ReadMinutes(TTextCursor& Cursor, uint64_t Hours, bool IsNegative, int64_t& Value) noexcept {
  const char16_t* const place = Cursor.Here();
  const int minutes = Cursor.TakeExactly<2>();
  if (minutes > 59) return Cursor.FailAt(place, tfMinutes);
  if (minutes < 0) {
    if (Cursor.IsAtDigit()) Cursor.Skip();
    return Cursor.FailHere();
  }
  return Cursor.Ends() && Fill(Cursor, Hours, static_cast<uint64_t>(minutes), IsNegative, Value);
}

// Behind the whole hours, which may be missing if there are hundredths: a comma and one or two digits, or nothing.
bool ReadIndustry(TTextCursor& Cursor, uint64_t Hours, bool HasHours, bool IsNegative, int64_t& Value) noexcept {
  uint64_t hundredths = 0;
  if (Cursor.Take(u',')) {
    const int count = Cursor.TakeDigits(hundredths, 2);
    if (count == 0) return Cursor.FailHere();
    if (count == 1) hundredths *= 10;
    if (Cursor.IsAtDigit()) return Cursor.Fail(tfDecimals);
  } else if (!HasHours) {
    return Cursor.FailHere();
  }
  // The rest below an hour is rounded alone: an hour is a whole number of minutes.
  const auto minutes = static_cast<uint64_t>(THourAmount::FromIndustry(static_cast<int64_t>(hundredths)).Minutes);
  return Cursor.Ends() && Fill(Cursor, Hours, minutes, IsNegative, Value);
}

void AddSign(TTextBuffer& Text, int64_t Value, THourFormats Formats) {
  if (Value < 0) Text.Add(u'-');
  if (Value > 0 && Formats.Has(hofPlusSign)) Text.Add(u'+');
}

}  // namespace

THourAmount THourAmount::Of(int64_t Hours, int64_t Minutes) { return FromMinutes(Sum(Scaled(Hours, 60, 1), Minutes)); }

THourAmount THourAmount::FromDays(TDateTime Days) {
  const Extended minutes = std::round(static_cast<Extended>(Days) * 1440);
  if (std::isnan(minutes)) throw EInvalidOp(u"Hour amount of what is no number");
  if (minutes < -9223372036854775808.0L || minutes >= 9223372036854775808.0L) Overflow();
  return FromMinutes(static_cast<int64_t>(minutes));
}

int64_t THourAmount::ToIndustry() const { return Scaled(Minutes, 5, 3); }

THourAmount THourAmount::operator-() const {
  if (Minutes == INT64_MIN) Overflow();
  return FromMinutes(-Minutes);
}
THourAmount& THourAmount::operator+=(THourAmount Other) { return *this = FromMinutes(Sum(Minutes, Other.Minutes)); }
THourAmount& THourAmount::operator-=(THourAmount Other) {
  if (Other.Minutes < 0 ? Minutes > INT64_MAX + Other.Minutes : Minutes < INT64_MIN + Other.Minutes) Overflow();
  return *this = FromMinutes(Minutes - Other.Minutes);
}
THourAmount& THourAmount::operator*=(int64_t Count) {
  const detail::TWide size = detail::Multiplied(detail::SizeOf(Minutes), detail::SizeOf(Count));
  int64_t product = 0;
  if (size.High != 0 || !detail::FromSize(size.Low, (Minutes < 0) != (Count < 0), product)) Overflow();
  return *this = FromMinutes(product);
}

bool TryStrToHourAmount(std::u16string_view Text, THourAmount& Value, TTextFault& Fault,
                        THourReadOptions Options) noexcept {
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  const bool isNegative = cursor.TakeSign();
  cursor.BeginNumber();
  uint64_t hours = 0;
  const bool hasHours = cursor.TakeDigits(hours) > 0;
  if (cursor.HasFault()) return false;
  if (cursor.Take(u':')) return ReadMinutes(cursor, hours, isNegative, Value.Minutes);
  if (Options.Has(hroIndustry)) return ReadIndustry(cursor, hours, hasHours, isNegative, Value.Minutes);
  return cursor.FailHere();
}

bool TryStrToHourAmount(std::u16string_view Text, THourAmount& Value, THourReadOptions Options) noexcept {
  TTextFault fault;
  return TryStrToHourAmount(Text, Value, fault, Options);
}

THourAmount StrToHourAmount(std::u16string_view Text, THourReadOptions Options) {
  THourAmount result;
  TTextFault fault;
  if (!TryStrToHourAmount(Text, result, fault, Options))
    throw EConvertError(Concat({u"'", Text, u"' ist keine Stundenzahl: ", fault.GetText()}));
  return result;
}

String HourAmountToStr(THourAmount Value, THourFormats Formats) {
  const uint64_t minutes = detail::SizeOf(Value.Minutes);
  TTextBuffer text;
  AddSign(text, Value.Minutes, Formats);
  text.AddNumber(minutes / 60, Formats.Has(hofTwoDigits) ? 2 : 1);
  text.Add(u':');
  text.AddNumber(minutes % 60, 2);
  return text.ToString();
}

String HourAmountToIndustryStr(THourAmount Value, THourFormats Formats) {
  const uint64_t hundredths = detail::SizeOf(Value.ToIndustry());
  TTextBuffer text;
  AddSign(text, Value.Minutes, Formats);
  text.AddNumber(hundredths / 100, Formats.Has(hofTwoDigits) ? 2 : 1);
  text.Add(u',');
  text.AddNumber(hundredths % 100, 2);
  return text.ToString();
}

}  // namespace vx
