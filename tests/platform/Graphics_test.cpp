#include "platform/Graphics.h"

#include "tests/support/Test.h"

namespace {

using namespace vx;

#define C(name) \
  { u"cl" #name, cl##name }
const struct {
  String Name;
  TColor Color;
} kNames[] = {C(Black),
              C(Maroon),
              C(Green),
              C(Olive),
              C(Navy),
              C(Purple),
              C(Teal),
              C(Gray),
              C(Silver),
              C(Red),
              C(Lime),
              C(Yellow),
              C(Blue),
              C(Fuchsia),
              C(Aqua),
              C(White),
              C(MoneyGreen),
              C(SkyBlue),
              C(Cream),
              C(MedGray),
              C(None),
              C(Default),
              C(ScrollBar),
              C(Background),
              C(ActiveCaption),
              C(InactiveCaption),
              C(Menu),
              C(Window),
              C(WindowFrame),
              C(MenuText),
              C(WindowText),
              C(CaptionText),
              C(ActiveBorder),
              C(InactiveBorder),
              C(AppWorkSpace),
              C(Highlight),
              C(HighlightText),
              C(BtnFace),
              C(BtnShadow),
              C(GrayText),
              C(BtnText),
              C(InactiveCaptionText),
              C(BtnHighlight),
              C(3DDkShadow),
              C(3DLight),
              C(InfoText),
              C(InfoBk),
              C(HotLight),
              C(GradientActiveCaption),
              C(GradientInactiveCaption),
              C(MenuHighlight),
              C(MenuBar)};
#undef C

TEST(Graphics, EveryNameHasItsColour) {
  TColor found = 7;
  for (const auto& c : kNames) {
    EXPECT_TRUE(ColorToString(c.Color) == c.Name && IdentToColor(UpperCase(c.Name), found) && found == c.Color);
    EXPECT_TRUE(StringToColor(LowerCase(c.Name)) == c.Color && !IdentToColor(c.Name + u"x", found)) << c.Color;
  }
  String ident = u"kept";
  TColor color = 7;
  for (TColor none : {0x123456u, 0xFF000019u, 0xFF00001Fu, 0x020000FFu}) EXPECT_FALSE(ColorToIdent(none, ident));
  for (auto text : {u"", u"$FF", u"255", u" clRed", u"clRed ", u"clRe"}) EXPECT_FALSE(IdentToColor(text, color));
  EXPECT_TRUE(ident == u"kept" && color == 7 && ColorToString(0xFF000019) == u"$FF000019");
}

TEST(Graphics, SystemColorsStandForOthers) {
  std::vector<TColor> before, colors;
  for (TColor i = 0; i < SystemColorCount; ++i) before.push_back(ColorToRGB(clScrollBar + i));
  struct {
    TColor Color, RGB;
  } cases[] = {{clWindow, 0xFFFFFF}, {clWindowText, 0}, {0x02123456, 0x123456}, {clDefault, 0}, {clNone, 0xFFFFFF},
               {0xFE0000FF, 0xFF},   {0xFF00001F, 0},   {0xFF010005, 0},        {0xFFFFFFFF, 0}};
  for (const auto& c : cases) EXPECT_EQ(ColorToRGB(c.Color), c.RGB) << c.Color;
  SetSystemColors(std::vector<TColor>{0x010203});
  EXPECT_TRUE(ColorToRGB(clScrollBar) == 0x010203 && ColorToRGB(clBackground) == before[1]);
  for (TColor i = 0; i < 100; ++i) colors.push_back(0x100 + i);
  SetSystemColors(colors);
  for (TColor i = 0; i < SystemColorCount; ++i) EXPECT_EQ(ColorToRGB(clScrollBar + i), 0x100 + i);
  SetSystemColors(before);
}

}  // namespace
