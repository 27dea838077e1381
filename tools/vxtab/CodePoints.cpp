#include "tools/vxtab/CodePoints.h"

namespace vx::vxtab {

char32_t NextCodePoint(std::u16string_view Text, size_t& Pos) noexcept {
  char32_t unit = Text[Pos++];
  bool isPair = unit >= 0xD800 && unit < 0xDC00 && Pos < Text.size() && Text[Pos] >= 0xDC00 && Text[Pos] < 0xE000;
  return isPair ? 0x10000 + ((unit - 0xD800) << 10) + (Text[Pos++] - 0xDC00u) : unit;
}

void AppendUtf8(std::string& Target, char32_t CodePoint) {
  auto put = [&](char32_t byte) { Target += static_cast<char>(byte); };
  if (CodePoint < 0x80) return put(CodePoint);
  if (CodePoint < 0x800) {
    put(0xC0 | CodePoint >> 6);
  } else {
    if (CodePoint < 0x10000) {
      put(0xE0 | CodePoint >> 12);
    } else {
      put(0xF0 | CodePoint >> 18);
      put(0x80 | (CodePoint >> 12 & 63));
    }
    put(0x80 | (CodePoint >> 6 & 63));
  }
  put(0x80 | (CodePoint & 63));
}

}  // namespace vx::vxtab
