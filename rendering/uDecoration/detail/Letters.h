// Sets of options as letters: the letter at an ordinal stands for the member of that ordinal.
#pragma once

#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx::detail {

inline constexpr std::u16string_view kDecorationOptionLetters = u"CZ";
inline constexpr std::u16string_view kListOptionLetters = u"FIVHGCRNDB";
inline constexpr std::u16string_view kTrimModeLetters = u"NCIHGEMORSWTDPFU";

// The letters of the members, by rising ordinal.
template <typename E>
String ToLetters(Set<E> Members, std::u16string_view Letters) {
  char16_t text[64];
  size_t size = 0;
  for (size_t i = 0; i < Letters.size(); ++i) {
    if (Members.Has(static_cast<E>(i))) text[size++] = Letters[i];
  }
  return std::u16string_view(text, size);
}
// The set of those letters in any order; everything else is passed over.
template <typename E>
Set<E> FromLetters(std::u16string_view Text, std::u16string_view Letters) noexcept {
  Set<E> members;
  for (char16_t unit : Text) {
    const size_t ordinal = Letters.find(unit);
    if (ordinal != Letters.npos) members.Include(static_cast<E>(ordinal));
  }
  return members;
}

}  // namespace vx::detail
