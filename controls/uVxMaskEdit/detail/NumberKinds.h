// The numbers that a field can hold: read from its text, held to its limits, and written as they stay.
#pragma once

#include <optional>

#include "controls/uVxMaskEdit/MaskTypes.h"
#include "platform/Currency.h"

namespace vx::detail {

// The text of a count of hours that a field begins with; as limits they are none.
inline constexpr int kMostHours = 99999;

template <typename T>
struct TLimits {
  std::optional<T> Low, High;
  // The upper limit counts where the lower one lies above it.
  T Clamped(T Value) const noexcept {
    if (Low && Value < *Low) Value = *Low;
    if (High && Value > *High) Value = *High;
    return Value;
  }
};
// Low and High as far as the field's mode of limits takes them.
template <typename T>
TLimits<T> LimitsOf(const TMaskRules& Rules, bool IsAnySet, std::optional<T> Low, std::optional<T> High) noexcept {
  if (Rules.iLimitMode == lmMax || (Rules.iLimitMode == lmNone && !IsAnySet)) Low.reset();
  if (Rules.iLimitMode == lmMin || (Rules.iLimitMode == lmNone && !IsAnySet)) High.reset();
  return {Low, High};
}

// Settings as a field of a day, month and year order can work with them: separators that are none, or that digits,
// signs and blanks could not be told from, are the German ones. No thousands separator is the decimal one.
TFormatSettings FieldSettings(const TFormatSettings& Settings);
// A German picture such as u"00.00.0000" or u"x,xx" with the separators of the settings.
String Picture(std::u16string_view German, const TFormatSettings& Settings);
// Zeros put in front of the digits of a number until there are as many as the field wants.
String PutIntegerDiggits(const TMaskRules& Rules, const String& Text);

// Each kind has: the type of its value; what an empty field is repaired to; what the hint shows for nothing and for
// what is no value; Read, Limits, Write and Hint.
struct TIntegerKind {
  using TValue = int;
  static constexpr const char16_t *Zero = u"0", *Nothing = u"0", *Bad = u"";
  static bool Read(const TMaskRules& Rules, std::u16string_view Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value) { return Write(Rules, Value); }
};

struct TFloatKind {
  using TValue = Extended;
  static constexpr const char16_t *Zero = u"0", *Nothing = u"0", *Bad = u"";
  static bool Read(const TMaskRules& Rules, std::u16string_view Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value);
};

struct TCurrencyKind {
  using TValue = Currency;
  static constexpr const char16_t *Zero = u"0", *Nothing = u"0,00", *Bad = u"x,xx";
  static bool Read(const TMaskRules& Rules, std::u16string_view Text, TValue& Value);
  static TLimits<TValue> Limits(const TMaskRules& Rules) noexcept;
  static String Write(const TMaskRules& Rules, TValue Value);
  static String Hint(const TMaskRules& Rules, TValue Value) { return Write(Rules, Value); }
};

}  // namespace vx::detail
