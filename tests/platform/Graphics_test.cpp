#include "platform/Graphics.h"

#include "platform/TextForms.h"
#include "tests/support/Test.h"

namespace {

TEST(Graphics, EveryNameHasItsColour) {
  // Names without "cl" and their numbers.
  const TCells words = ReadSerialize(
      u"Black 0 Maroon 80 Red FF Green 8000 Olive 8080 Lime FF00 Yellow FFFF Navy 800000 Purple 800080 Teal "
      u"808000 Gray 808080 MedGray A4A0A0 Silver C0C0C0 MoneyGreen C0DCC0 SkyBlue F0CAA6 Cream F0FBFF Blue "
      u"FF0000 Fuchsia FF00FF Aqua FFFF00 White FFFFFF None 1FFFFFFF Default 20000000 ScrollBar FF000000 "
      u"Background FF000001 ActiveCaption FF000002 InactiveCaption FF000003 Menu FF000004 Window FF000005 "
      u"WindowFrame FF000006 MenuText FF000007 WindowText FF000008 CaptionText FF000009 ActiveBorder FF00000A "
      u"InactiveBorder FF00000B AppWorkSpace FF00000C Highlight FF00000D HighlightText FF00000E BtnFace FF00000F "
      u"BtnShadow FF000010 GrayText FF000011 BtnText FF000012 InactiveCaptionText FF000013 BtnHighlight FF000014 "
      u"3DDkShadow FF000015 3DLight FF000016 InfoText FF000017 InfoBk FF000018 HotLight FF00001A "
      u"GradientActiveCaption FF00001B GradientInactiveCaption FF00001C MenuHighlight FF00001D MenuBar FF00001E",
      u' ', u'"');
  ASSERT_EQ(words.size(), 2 * 52u);
  TColor found = 7;
  for (size_t i = 0; i < words.size(); i += 2) {
    const String name = u"cl" + words[i];
    const auto color = static_cast<TColor>(StrToInt64(u"$" + words[i + 1]));
    EXPECT_EQ(
        (std::tuple{ColorToString(color), IdentToColor(UpperCase(name), found), found, StringToColor(LowerCase(name))}),
        std::tuple(name, true, color, color));
    EXPECT_FALSE(IdentToColor(name + u"x", found)) << name;
  }
  String ident = u"kept";
  TColor color = 7;
  for (TColor none : {0x123456u, 0xFF000019u, 0xFF00001Fu, 0x020000FFu}) EXPECT_FALSE(ColorToIdent(none, ident));
  for (auto text : {u"", u"$FF", u"255", u" clRed", u"clRed ", u"clRe"}) EXPECT_FALSE(IdentToColor(text, color));
  EXPECT_EQ((TFacts{ident, color, ColorToString(0xFF000019)}), "kept 7 $FF000019");
}

TEST(Graphics, SystemColorsStandForOthers) {
  std::vector<TColor> before, colors;
  for (TColor i = 0; i < SystemColorCount; ++i) before.push_back(ColorToRGB(clScrollBar + i));
  const TCases<TColor, TColor> cases = {{clWindow, 0xFFFFFF}, {clWindowText, 0},  {0x02123456, 0x123456},
                                        {clDefault, 0},       {clNone, 0xFFFFFF}, {0xFE0000FF, 0xFF},
                                        {0xFF00001F, 0},      {0xFF010005, 0},    {0xFFFFFFFF, 0}};
  for (const auto& [color, rGB] : cases) EXPECT_EQ(ColorToRGB(color), rGB) << color;
  SetSystemColors(std::vector<TColor>{0x010203});
  EXPECT_EQ(std::pair(ColorToRGB(clScrollBar), ColorToRGB(clBackground)), std::pair(TColor{0x010203}, before[1]));
  for (TColor i = 0; i < 100; ++i) colors.push_back(0x100 + i);
  SetSystemColors(colors);
  for (TColor i = 0; i < SystemColorCount; ++i) EXPECT_EQ(ColorToRGB(clScrollBar + i), 0x100 + i);
  SetSystemColors(before);
}

}  // namespace
