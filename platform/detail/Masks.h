// What the masks of numbers and of dates have in common: literals in quotes.
#pragma once

#include <string_view>

#include "platform/TextBuffer.h"

namespace vx::detail {

inline bool IsQuote(char16_t Unit) noexcept { return Unit == u'\'' || Unit == u'"'; }

// The place behind the literal that begins with the quote at First; of one that is not closed, the end
// of the mask.
inline size_t BehindLiteral(std::u16string_view Mask, size_t First) noexcept {
  const size_t close = Mask.find(Mask[First], First + 1);
  return close == Mask.npos ? Mask.size() : close + 1;
}

// Adds the literal that begins at First without its quotes, and returns the place behind it.
inline size_t AddLiteral(TTextBuffer& Buffer, std::u16string_view Mask, size_t First) {
  const size_t close = Mask.find(Mask[First], First + 1);
  Buffer.Add(Mask.substr(First + 1, close == Mask.npos ? close : close - First - 1));
  return close == Mask.npos ? Mask.size() : close + 1;
}

}  // namespace vx::detail
