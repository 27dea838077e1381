#include "platform/Graphics.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/Text.h"
#include "tests/support/Print.h"

namespace vx {
namespace {

#define C(name) {u"cl" #name, cl##name}
const struct { String Name; TColor Color; } kNames[] = {C(Black), C(Maroon), C(Green), C(Olive), C(Navy), C(Purple),
    C(Teal), C(Gray), C(Silver), C(Red), C(Lime), C(Yellow), C(Blue), C(Fuchsia), C(Aqua), C(White), C(MoneyGreen),
    C(SkyBlue), C(Cream), C(MedGray), C(None), C(Default), C(ScrollBar), C(Background), C(ActiveCaption),
    C(InactiveCaption), C(Menu), C(Window), C(WindowFrame), C(MenuText), C(WindowText), C(CaptionText), C(ActiveBorder),
    C(InactiveBorder), C(AppWorkSpace), C(Highlight), C(HighlightText), C(BtnFace), C(BtnShadow), C(GrayText),
    C(BtnText), C(InactiveCaptionText), C(BtnHighlight), C(3DDkShadow), C(3DLight), C(InfoText), C(InfoBk), C(HotLight),
    C(GradientActiveCaption), C(GradientInactiveCaption), C(MenuHighlight), C(MenuBar)};
#undef C

TEST(Graphics, EveryNameHasItsColour) {
  for (const auto& c : kNames) {
    TColor color = 0x123456;
    EXPECT_FALSE(IdentToColor(c.Name + u"x", color) || IdentToColor(c.Name.Slice(0, c.Name.size() - 1), color));
    for (const String& name : {c.Name, UpperCase(c.Name), LowerCase(c.Name)}) {
      color = 0x123456;
      EXPECT_TRUE(IdentToColor(name, color) && color == c.Color && StringToColor(name) == c.Color) << name.ToUtf8();
    }
    String ident;
    EXPECT_TRUE(ColorToIdent(c.Color, ident) && ident == c.Name && ColorToString(c.Color) == c.Name) << c.Name.ToUtf8();
  }
  String ident = u"kept";
  for (TColor color : {0x123456u, 0xFF000019u, 0xFF00001Fu, 0x020000FFu, 0x1FFFFFFEu, 0xFFFFFFFFu}) {
    EXPECT_TRUE(!ColorToIdent(color, ident) && ident == u"kept") << color;
  }
  TColor color = 7;
  for (const char16_t* text : {u"", u"$FF", u"255", u" clRed", u"clRed "}) EXPECT_FALSE(IdentToColor(text, color));
  EXPECT_EQ(color, 7u);
}

TEST(Graphics, SystemColorsStandForOthers) {
  std::vector<TColor> before, colors;
  for (TColor i = 0; i < SystemColorCount; ++i) before.push_back(ColorToRGB(clScrollBar + i));
  EXPECT_TRUE(ColorToRGB(clWindow) == clWhite && ColorToRGB(clWindowText) == clBlack);
  struct { TColor Color, RGB; } cases[] = {{clRed, 0xFF}, {0x02123456, 0x123456}, {clNone, 0xFFFFFF}, {clDefault, 0},
      {0xFE0000FF, 0xFF}, {0xFF00001F, 0}, {0xFF010005, 0}, {0xFFFFFFFF, 0}};
  for (const auto& c : cases) EXPECT_EQ(ColorToRGB(c.Color), c.RGB) << c.Color;
  SetSystemColors(std::vector<TColor>{0x010203});
  EXPECT_TRUE(ColorToRGB(clScrollBar) == 0x010203 && ColorToRGB(clBackground) == before[1]);
  for (TColor i = 0; i < 100; ++i) colors.push_back(0x100 + i);
  SetSystemColors(colors);
  for (TColor i = 0; i < SystemColorCount; ++i) EXPECT_EQ(ColorToRGB(clScrollBar + i), 0x100 + i);
  SetSystemColors(before);
  for (TColor i = 0; i < SystemColorCount; ++i) EXPECT_EQ(ColorToRGB(clScrollBar + i), before[i]);
}

}  // namespace
}  // namespace vx
