// The cells of an offsettext: reading them one by one without a copy, and the sizes in front of them. Internal to
// the forms that are made of it.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "platform/Text.h"

namespace vx::detail {

// How many hexadecimal digits a number has; 1 for 0.
inline size_t HexDigits(uint64_t Value) noexcept {
  return Value == 0 ? 1 : (static_cast<size_t>(std::bit_width(Value)) + 3) / 4;
}
// Writes Value in as many digits and returns what is behind them.
inline char16_t* PutHex(char16_t* Target, uint64_t Value) noexcept {
  char16_t* const end = Target + HexDigits(Value);
  for (char16_t* digit = end; digit != Target; Value >>= 4) *--digit = u"0123456789ABCDEF"[Value & 15];
  return end;
}

// Gives the cells in their order.
class TOffsetReader {
 public:
  explicit TOffsetReader(std::u16string_view Text) noexcept : FText(Text) {}

  // False at the end; Cell is a part of the text. The look at a cell takes a time that does not depend on
  // its length.
  bool Next(std::u16string_view& Cell) noexcept {
    size_t start = FPos;
    while (FPos < FText.size() && FText[FPos] != kDegree && FText[FPos] != 0 && FPos - start <= kLongestPrefix) ++FPos;
    if (FPos - start > kLongestPrefix || FPos == FText.size() || FText[FPos] != kDegree) return TakeWhole(Cell);
    if (FPos > start || !FHasCell) {
      FLength = 0;
      for (size_t i = start; i < FPos; ++i) FLength = FLength << 4 | HexValue(FText[i]);
    }
    FHasCell = true;
    ++FPos;
    Cell = FText.substr(FPos, static_cast<size_t>(std::min<uint64_t>(FLength, FText.size() - FPos)));
    FPos += Cell.size();
    return true;
  }

 private:
  static constexpr size_t kLongestPrefix = 10;
  static constexpr char16_t kDegree = u'\u00B0';

  // Any unit that is no digit adds nothing but counts as a place.
  static uint64_t HexValue(char16_t Unit) noexcept {
    unsigned value = DigitValue(Unit);
    return value < 16 ? value : 0;
  }
  // A text without any cell that does not end at once is one cell itself.
  bool TakeWhole(std::u16string_view& Cell) noexcept {
    bool isWhole = !FHasCell && FPos > 0;
    Cell = FText;
    FText = {};
    FPos = 0;
    return isWhole;
  }

  std::u16string_view FText;
  size_t FPos = 0;
  uint64_t FLength = 0;
  bool FHasCell = false;
};

}  // namespace vx::detail
