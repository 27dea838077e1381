#include "platform/Graphics.h"

#include <algorithm>
#include <array>

#include "platform/Exceptions.h"
#include "platform/Text.h"

namespace vx {

namespace {

struct TNamedColor {
  std::u16string_view Name;
  TColor Color;
};

constexpr TNamedColor kNamedColors[] = {
    {u"clBlack", clBlack},
    {u"clMaroon", clMaroon},
    {u"clGreen", clGreen},
    {u"clOlive", clOlive},
    {u"clNavy", clNavy},
    {u"clPurple", clPurple},
    {u"clTeal", clTeal},
    {u"clGray", clGray},
    {u"clSilver", clSilver},
    {u"clRed", clRed},
    {u"clLime", clLime},
    {u"clYellow", clYellow},
    {u"clBlue", clBlue},
    {u"clFuchsia", clFuchsia},
    {u"clAqua", clAqua},
    {u"clWhite", clWhite},
    {u"clMoneyGreen", clMoneyGreen},
    {u"clSkyBlue", clSkyBlue},
    {u"clCream", clCream},
    {u"clMedGray", clMedGray},
    {u"clNone", clNone},
    {u"clDefault", clDefault},
    {u"clScrollBar", clScrollBar},
    {u"clBackground", clBackground},
    {u"clActiveCaption", clActiveCaption},
    {u"clInactiveCaption", clInactiveCaption},
    {u"clMenu", clMenu},
    {u"clWindow", clWindow},
    {u"clWindowFrame", clWindowFrame},
    {u"clMenuText", clMenuText},
    {u"clWindowText", clWindowText},
    {u"clCaptionText", clCaptionText},
    {u"clActiveBorder", clActiveBorder},
    {u"clInactiveBorder", clInactiveBorder},
    {u"clAppWorkSpace", clAppWorkSpace},
    {u"clHighlight", clHighlight},
    {u"clHighlightText", clHighlightText},
    {u"clBtnFace", clBtnFace},
    {u"clBtnShadow", clBtnShadow},
    {u"clGrayText", clGrayText},
    {u"clBtnText", clBtnText},
    {u"clInactiveCaptionText", clInactiveCaptionText},
    {u"clBtnHighlight", clBtnHighlight},
    {u"cl3DDkShadow", cl3DDkShadow},
    {u"cl3DLight", cl3DLight},
    {u"clInfoText", clInfoText},
    {u"clInfoBk", clInfoBk},
    {u"clHotLight", clHotLight},
    {u"clGradientActiveCaption", clGradientActiveCaption},
    {u"clGradientInactiveCaption", clGradientInactiveCaption},
    {u"clMenuHighlight", clMenuHighlight},
    {u"clMenuBar", clMenuBar},
};

// A plain light desktop.
constexpr TColor kLightDesktop[SystemColorCount] = {
    0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000, 0x000000, 0xB4B4B4,
    0xFCF7F4, 0xABABAB, 0xFF9933, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x544E43, 0xFFFFFF, 0x696969,
    0xE3E3E3, 0x000000, 0xE1FFFF, 0x000000, 0xCC6600, 0xEAD1B9, 0xF2E4D7, 0xFF9933, 0xF0F0F0};

std::array<TColor, SystemColorCount>& Desktop() noexcept {
  static std::array<TColor, SystemColorCount> colors = std::to_array(kLightDesktop);
  return colors;
}

bool ReadDigits(std::u16string_view Digits, unsigned Base, uint64_t Limit, uint64_t& Value) noexcept {
  if (Digits.empty()) return false;
  uint64_t value = 0;
  for (char16_t unit : Digits) {
    const unsigned digit = DigitValue(unit);
    if (digit >= Base) return false;
    value = value * Base + digit;
    if (value > Limit) return false;
  }
  Value = value;
  return true;
}

}  // namespace

TColor ColorToRGB(TColor Color) noexcept {
  if (Color >> 24 != 0xFF) return Color & 0x00FFFFFF;
  const TColor index = Color & 0x00FFFFFF;
  return index < Desktop().size() ? Desktop()[index] : clBlack;
}

void SetSystemColors(std::span<const TColor> Colors) noexcept {
  for (size_t i = 0; i < std::min(Colors.size(), Desktop().size()); ++i) Desktop()[i] = Colors[i] & 0x00FFFFFF;
}

bool ColorToIdent(TColor Color, String& Ident) {
  for (const TNamedColor& named : kNamedColors) {
    if (named.Color != Color) continue;
    Ident = named.Name;
    return true;
  }
  return false;
}

bool IdentToColor(std::u16string_view Ident, TColor& Color) noexcept {
  for (const TNamedColor& named : kNamedColors) {
    if (!SameAscii(named.Name, Ident)) continue;
    Color = named.Color;
    return true;
  }
  return false;
}

String ColorToString(TColor Color) {
  String ident;
  if (ColorToIdent(Color, ident)) return ident;
  char16_t text[9] = {u'$'};
  for (int i = 0; i < 8; ++i) text[1 + i] = u"0123456789ABCDEF"[Color >> (28 - 4 * i) & 15];
  return std::u16string_view(text, 9);
}

bool TryStringToColor(std::u16string_view Text, TColor& Color) noexcept {
  if (IdentToColor(Text, Color)) return true;
  if (Text.empty()) return false;
  bool isNegative = Text[0] == u'-';
  bool isHex = Text[0] == u'$';
  uint64_t value = 0;
  uint64_t limit = isNegative ? uint64_t{0x80000000} : uint64_t{0xFFFFFFFF};
  if (!ReadDigits(Text.substr(isNegative || isHex ? 1 : 0), isHex ? 16 : 10, limit, value)) return false;
  Color = static_cast<TColor>(isNegative ? 0 - value : value);
  return true;
}

TColor StringToColor(std::u16string_view Text) {
  TColor color = 0;
  if (!TryStringToColor(Text, color)) {
    throw EConvertError(Concat({u"'", Text, u"' is not a colour"}));
  }
  return color;
}

}  // namespace vx
