#include "tools/vxtab/Json.h"

#include <string_view>

namespace vx::vxtab {

namespace {

void AppendEscape(std::string& Target, char32_t Unit) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  Target += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) Target += kDigits[Unit >> shift & 15];
}

}  // namespace

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

void AppendJson(std::string& Target, std::u16string_view Text) {
  Target += '"';
  for (size_t pos = 0; pos < Text.size();) {
    char32_t point = NextCodePoint(Text, pos);
    switch (point) {
      case U'"':
        Target += "\\\"";
        break;
      case U'\\':
        Target += "\\\\";
        break;
      case U'\n':
        Target += "\\n";
        break;
      case U'\r':
        Target += "\\r";
        break;
      case U'\t':
        Target += "\\t";
        break;
      default:
        if (point < 0x20 || (point >= 0xD800 && point < 0xE000)) {
          AppendEscape(Target, point);
        } else {
          AppendUtf8(Target, point);
        }
    }
  }
  Target += '"';
}

}  // namespace vx::vxtab
