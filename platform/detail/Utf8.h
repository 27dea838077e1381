// Characters of UTF-8, for all who read such bytes.
#pragma once

#include <cstddef>
#include <string_view>

namespace vx::detail {

// Stands for bytes that are no character; no character has this number.
inline constexpr char32_t kBrokenUtf8 = 0x110000;

// The character at Pos, which then stands behind it; kBrokenUtf8 for the longest beginning of one that goes wrong.
inline char32_t NextFromUtf8(std::string_view Bytes, size_t& Pos) noexcept {
  auto byte = [&](size_t i) { return static_cast<unsigned char>(Bytes[i]); };
  unsigned first = byte(Pos++);
  if (first < 0x80) return first;
  int more;
  unsigned low = 0x80, high = 0xBF;
  char32_t value;
  if (first >= 0xC2 && first <= 0xDF) {
    more = 1;
    value = first & 0x1F;
  } else if (first >= 0xE0 && first <= 0xEF) {
    more = 2;
    value = first & 0x0F;
    if (first == 0xE0) low = 0xA0;
    if (first == 0xED) high = 0x9F;
  } else if (first >= 0xF0 && first <= 0xF4) {
    more = 3;
    value = first & 0x07;
    if (first == 0xF0) low = 0x90;
    if (first == 0xF4) high = 0x8F;
  } else {
    return kBrokenUtf8;
  }
  for (; more > 0; --more) {
    if (Pos >= Bytes.size() || byte(Pos) < low || byte(Pos) > high) return kBrokenUtf8;
    value = value << 6 | (byte(Pos++) & 0x3F);
    low = 0x80;
    high = 0xBF;
  }
  return value;
}

// Writes the character at Target, U+FFFD for a broken one, and gives where it ends, one or two units on.
inline char16_t* PutCharacter(char16_t* Target, char32_t Character) noexcept {
  if (Character == kBrokenUtf8) Character = 0xFFFD;
  if (Character < 0x10000) {
    *Target++ = static_cast<char16_t>(Character);
  } else {
    *Target++ = static_cast<char16_t>(0xD800 + ((Character - 0x10000) >> 10));
    *Target++ = static_cast<char16_t>(0xDC00 + ((Character - 0x10000) & 0x3FF));
  }
  return Target;
}

}  // namespace vx::detail
