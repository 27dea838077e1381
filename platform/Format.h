// Values put into a pattern.
//
//   Format           texts and numbers in the places of a pattern
//   TFormatArg       one value, made from a text, a number or an amount by itself
//
// Example, with German settings:
//   vx::Format(u"%s: %d Zeilen, %.2f h", {name, count, 7.5});  // u"Meier: 12 Zeilen, 7,50 h"
//   vx::Format(u"%-4s|%3.3d", {u"c", 7});                      // u"c   |007"
//   vx::Format(u"%1:s %0:s", {u"a", u"b"});                    // u"b a"
//
// A place is "%", optionally the index of its value and ":", optionally "-" for left-bound, a width, "."
// and a precision, and a letter in any case:
//   s    a text; at most precision code units
//   d u  a whole number, with or without sign; at least precision digits
//   x    a whole number, hexadecimal
//   f n  a number with precision decimals (2), without or with thousands separators
//   e g  a number, scientific or as short as may be, with precision digits (15)
//   m    an amount by the settings' form of money
// "%%" is "%". An index is counted from 0, and the places behind it go on from there. Width and
// precision may be "*": the value before says them.
//
// Threads: any number may call these at once; the program's settings are to stand still meanwhile.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <variant>

#include "platform/Currency.h"
#include "platform/FormatSettings.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// Refers to a text; the text must outlive the call it is made for.
struct TFormatArg {
  TFormatArg(std::u16string_view Text) : Value(Text) {}
  TFormatArg(const String& Text) : Value(Text.view()) {}
  TFormatArg(const char16_t* Text) : Value(std::u16string_view(Text)) {}
  template <std::integral T>
  TFormatArg(T Number) : Value(static_cast<int64_t>(Number)), Bits(sizeof(T) > 4 ? 64 : 32) {}
  template <std::floating_point T>
  TFormatArg(T Number) : Value(static_cast<Extended>(Number)) {}
  TFormatArg(Currency Amount) : Value(Amount) {}

  std::variant<std::u16string_view, int64_t, Extended, Currency> Value;
  int Bits = 64;  // of a whole number without sign: -1 as %x is FFFFFFFF
};

// Pattern with its places filled by Values. EConvertError "Format '%s' invalid or incompatible with
// argument" for a place that is none and for a value of another kind, "No argument for format '%s'"
// where there are too few of them; values left over are not used.
String Format(std::u16string_view Pattern, std::initializer_list<TFormatArg> Values);
String Format(std::u16string_view Pattern, std::initializer_list<TFormatArg> Values, const TFormatSettings& Settings);

}  // namespace vx
