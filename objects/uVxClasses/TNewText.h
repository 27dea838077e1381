// A text that stands in braces among others, for lists and rows that are made of such.
//
//   TNewText   takes whatever becomes a String by itself, and refuses numbers and texts of bytes by a short message
//
// Example:
//   vx::TVxStringList list;
//   list.AddStrings({u"Anja", vx::IntToStr(5)});
//   list.GetCommatext();                            // u"Anja,5"
//
// Pitfall: without this class two values in braces could mean another thing: {u"a", 5} would be the five units that
// begin with the "a", and the 0 of {u"a", 0} an empty text.
#pragma once

#include <concepts>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/String.h"

namespace vx {

namespace detail {

// What callers take for a text but is none.
template <typename T>
concept NoText = !std::convertible_to<T, String> &&
                 (std::is_arithmetic_v<std::remove_cvref_t<T>> || std::convertible_to<T, std::string_view> ||
                  std::convertible_to<T, std::wstring_view>);

template <typename T>
inline constexpr bool IsText = false;

// The message of whoever refuses a T.
template <NoText T>
constexpr void RefuseNoText() {
  static_assert(IsText<T>,
                "a text is wanted: u\"...\", IntToStr of a whole number, String::FromUtf8 of texts of bytes");
}

}  // namespace detail

class TNewText {
 public:
  template <std::convertible_to<String> T>
  TNewText(T&& Text) : FText(std::forward<T>(Text)) {}
  template <detail::NoText T>
  TNewText(T&&) {
    detail::RefuseNoText<T>();
  }
  operator const String&() const noexcept { return FText; }

 private:
  String FText;
};

}  // namespace vx
