// How a cell stands in quotes, for all that write commatexts and their kin.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/Scan.h"

namespace vx::detail {

// Whether a cell of the serial form has to stand in quotes. A code unit 0 ends the look.
inline bool NeedsQuotes(std::u16string_view Cell, char16_t Delimiter, char16_t Quote) noexcept {
  const char16_t* end = Cell.data() + Cell.size();
  const char16_t* found = scan::FindBlankOr(Cell.data(), end, Delimiter, Quote);
  return found != end && *found != 0;
}

// Hands Take(text, count) the stretches that one after the other are Text with every Quote doubled.
template <typename TTake>
void ForEachDoubled(std::u16string_view Text, char16_t Quote, TTake Take) {
  const char16_t* pos = Text.data();
  const char16_t* end = pos + Text.size();
  while (pos != end) {
    const char16_t* quote = scan::FindUnit(pos, end, Quote);
    const char16_t* next = quote == end ? end : quote + 1;
    Take(pos, static_cast<size_t>(next - pos));
    if (quote != end) Take(quote, size_t{1});
    pos = next;
  }
}

}  // namespace vx::detail
