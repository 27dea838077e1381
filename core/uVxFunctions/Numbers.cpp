#include "core/uVxFunctions/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {
namespace {

// The number that all digits of Text make; false if there is none or it does not fit.
template <typename T>
bool ReadDigits(std::u16string_view Text, T& Value) noexcept {
  T number = 0;
  bool any = false;
  for (char16_t unit : Text) {
    if (!IsDigit(unit)) continue;
    T digit = static_cast<T>(unit - u'0');
    if (number > (std::numeric_limits<T>::max() - digit) / 10) return false;
    number = number * 10 + digit;
    any = true;
  }
  if (any) Value = number;
  return any;
}

// Reads the plain amounts: a sign, up to 14 digits, up to 4 decimals, and Divider (0 for none) anywhere
// behind the sign. False says nothing about others.
bool ReadPlainCurr(std::u16string_view Text, char16_t Divider, char16_t Decimal, Currency& Value) noexcept {
  constexpr int kWholeMax = 14, kDecimalsMax = 4;
  constexpr int64_t kScales[] = {10000, 1000, 100, 10, 1};
  if (Text.empty() || IsDigit(Divider)) return false;
  bool negative = Text.front() == u'-';
  if (negative || Text.front() == u'+') Text.remove_prefix(1);
  uint64_t number = 0;  // without a meaning once there are too many digits
  size_t digits = 0, whole = std::u16string_view::npos;
  for (char16_t unit : Text) {
    if (IsDigit(unit)) {
      number = number * 10 + (unit - unsigned{u'0'});
      ++digits;
    } else if (unit == Divider && unit != 0) {
      continue;
    } else if (unit == Decimal && whole > digits) {
      whole = digits;
    } else {
      return false;
    }
  }
  whole = std::min(whole, digits);
  if (digits == 0 || whole > kWholeMax || digits - whole > kDecimalsMax) return false;
  int64_t units = static_cast<int64_t>(number) * kScales[digits - whole];
  Value = Currency::FromUnits(negative ? -units : units);
  return true;
}

String Without(const String& Text, char16_t Unit) {
  std::u16string_view text = Text;
  auto count = std::count(text.begin(), text.end(), Unit);
  if (count == 0) return Text;
  return String::Build(text.size() - static_cast<size_t>(count),
                       [&](char16_t* out) { std::remove_copy(text.begin(), text.end(), out, Unit); });
}

// Text without any Divider (0 for none) as an amount; false, with Value unchanged, if it is none.
bool ReadCurr(std::u16string_view Text, char16_t Divider, Currency& Value) {
  const TFormatSettings& settings = GetFormatSettings();
  if (ReadPlainCurr(Text, Divider, settings.DecimalSeparator, Value)) return true;
  if (Divider == 0 || Text.find(Divider) == std::u16string_view::npos) return TextToCurr(Text, Value, settings);
  std::array<char16_t, 64> kept;
  if (Text.size() > kept.size()) return TextToCurr(Without(Text, Divider), Value, settings);
  char16_t* end = std::remove_copy(Text.begin(), Text.end(), kept.data(), Divider);
  return TextToCurr({kept.data(), static_cast<size_t>(end - kept.data())}, Value, settings);
}

}  // namespace

String BoolToStr(bool Value) { return Value ? u"1" : u"0"; }

bool StrToBool(std::u16string_view Text) noexcept {
  constexpr std::u16string_view kTrue[] = {u"1", u"J", u"Y", u"JA", u"YES", u"TRUE", u"WAHR"};
  return std::any_of(std::begin(kTrue), std::end(kTrue), [Text](std::u16string_view word) {
    return std::equal(Text.begin(), Text.end(), word.begin(), word.end(),
                      [](char16_t a, char16_t b) { return UpperCase(a) == b; });
  });
}

String BoolToStrDef(const String& TrueText, const String& FalseText, bool Value) {
  return Value ? TrueText : FalseText;
}

int StrToIntHeavy(std::u16string_view Text, int Default) noexcept {
  ReadDigits(Text, Default);
  return Default;
}

int64_t StrToInt64Heavy(std::u16string_view Text, int64_t Default) noexcept {
  ReadDigits(Text, Default);
  return Default;
}

Extended StrToExtDef(std::u16string_view Text, Extended Default) noexcept {
  bool ok;
  return StrToExtDef(Text, Default, ok);
}

Extended StrToExtDef(std::u16string_view Text, Extended Default, bool& Ok) noexcept {
  Ok = !Text.empty() && TextToFloat(Text, Default, GetFormatSettings());
  return Default;
}

double StrToDoubleDef(std::u16string_view Text, double Default) noexcept {
  bool ok;
  return StrToDoubleDef(Text, Default, ok);
}

double StrToDoubleDef(std::u16string_view Text, double Default, bool& Ok) noexcept {
  Ok = false;
  if (Text.empty()) return Default;
  char16_t first = Text.front(), last = Text.back();
  if (!IsDigit(first) && first != u'+' && first != u',' && first != u'-') return Default;
  if (!IsDigit(last) && last != u',') return Default;
  Extended value;
  if (!TextToFloat(Text, value, GetFormatSettings())) return Default;
  double result = static_cast<double>(value);
  Ok = std::isfinite(result);
  return Ok ? result : Default;
}

String DeleteThousandDivider(const String& Text) {
  char16_t divider = GetFormatSettings().ThousandSeparator;
  return divider == 0 ? Text : Without(Text, divider);
}

bool TryStrToCurr(std::u16string_view Text, Currency& Value) {
  Value = Currency();
  return !Text.empty() && ReadCurr(Text, GetFormatSettings().ThousandSeparator, Value);
}

Currency StrToCurrDef(std::u16string_view Text, Currency Default) {
  Currency value;
  return TryStrToCurr(Text, value) ? value : Default;
}

Currency StrToCurrHeavy(std::u16string_view Text, Currency Default) {
  while (!Text.empty() && !IsDigit(Text.back())) Text.remove_suffix(1);
  if (!Text.empty()) ReadCurr(Text, u'.', Default);
  return Default;
}

}  // namespace vx
