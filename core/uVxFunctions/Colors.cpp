#include "core/uVxFunctions/Colors.h"

#include <algorithm>

#include "platform/Numbers.h"

namespace vx {

namespace {

constexpr TColor kHighByte = 0xFF000000;
constexpr uint32_t kHashBits = 0x0FFFFFFF;

}  // namespace

uint8_t ColorAverage(TColor Color) noexcept {
  const TColor rgb = ColorToRGB(Color);
  const unsigned sum = 299 * (rgb & 0xFF) + 587 * (rgb >> 8 & 0xFF) + 114 * (rgb >> 16 & 0xFF);
  const unsigned whole = sum / 1000, rest = sum % 1000;
  return static_cast<uint8_t>(whole + (rest > 500 || (rest == 500 && whole % 2 != 0) ? 1 : 0));
}

bool ColorIsDark(TColor Color) noexcept { return ColorAverage(Color) < 130; }

TColor ColorToGray(TColor Color) noexcept { return (Color & kHighByte) | ColorAverage(Color) * TColor{0x010101}; }

TColor ColorIncrement(TColor Color, int Amount, bool DropHigh) noexcept {
  const TColor rgb = ColorToRGB(Color);
  TColor result = DropHigh ? 0 : Color & kHighByte;
  for (int shift : {0, 8, 16}) {
    const int channel = static_cast<int>(rgb >> shift & 0xFF) + Amount / 3;
    result |= static_cast<TColor>(std::clamp(channel, 0, 255)) << shift;
  }
  return result;
}

uintptr_t ColorAndHash(TColor Color, uintptr_t Hash) noexcept {
  const auto hash = static_cast<uint32_t>(Hash);
  const uint32_t count = (hash >> 28) + 1;
  return count << 28 | (((hash & kHashBits) + (ColorToRGB(Color) ^ count)) & kHashBits);
}

TColor StringToColorDef(std::u16string_view Text, TColor Default) {
  if (Text.empty()) return Default;
  TColor color = 0;
  if (IdentToColor(Text, color)) return color;
  String hexadecimal;
  if (Text.front() == u'#') Text = hexadecimal = u"$" + String(Text.substr(1));
  int number = 0;
  if (TryStrToInt(Text, number)) return static_cast<TColor>(number);
  int64_t wide = 0;
  if (TryStrToInt64(Text, wide) && wide >= 0 && wide <= UINT32_MAX) return static_cast<TColor>(wide);
  return ColorToRGB(Default);
}

}  // namespace vx
