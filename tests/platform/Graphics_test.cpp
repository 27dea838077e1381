#include "platform/Graphics.h"

#include "tests/support/Test.h"

namespace {

const TCases<String, TColor> kNames = {
    {u"clMaroon", clMaroon},         {u"clBlack", clBlack},
    {u"clGreen", clGreen},           {u"clNavy", clNavy},
    {u"clOlive", clOlive},           {u"clTeal", clTeal},
    {u"clPurple", clPurple},         {u"clGray", clGray},
    {u"clSilver", clSilver},         {u"clRed", clRed},
    {u"clYellow", clYellow},         {u"clLime", clLime},
    {u"clFuchsia", clFuchsia},       {u"clBlue", clBlue},
    {u"clWhite", clWhite},           {u"clAqua", clAqua},
    {u"clMoneyGreen", clMoneyGreen}, {u"clNone", clNone},
    {u"clSkyBlue", clSkyBlue},       {u"clBackground", clBackground},
    {u"clCream", clCream},           {u"clActiveCaption", clActiveCaption},
    {u"clMedGray", clMedGray},       {u"clInactiveCaption", clInactiveCaption},
    {u"clDefault", clDefault},       {u"clMenu", clMenu},
    {u"clScrollBar", clScrollBar},   {u"clWindowFrame", clWindowFrame},
    {u"clWindow", clWindow},         {u"clWindowText", clWindowText},
    {u"clMenuText", clMenuText},     {u"clCaptionText", clCaptionText},
    {u"clHighlight", clHighlight},   {u"clActiveBorder", clActiveBorder},
    {u"clBtnFace", clBtnFace},       {u"clInactiveBorder", clInactiveBorder},
    {u"clBtnShadow", clBtnShadow},   {u"clAppWorkSpace", clAppWorkSpace},
    {u"clGrayText", clGrayText},     {u"clHighlightText", clHighlightText},
    {u"clBtnText", clBtnText},       {u"clInactiveCaptionText", clInactiveCaptionText},
    {u"cl3DLight", cl3DLight},       {u"clBtnHighlight", clBtnHighlight},
    {u"clInfoText", clInfoText},     {u"cl3DDkShadow", cl3DDkShadow},
    {u"clInfoBk", clInfoBk},         {u"clGradientActiveCaption", clGradientActiveCaption},
    {u"clHotLight", clHotLight},     {u"clGradientInactiveCaption", clGradientInactiveCaption},
    {u"clMenuBar", clMenuBar},       {u"clMenuHighlight", clMenuHighlight}};

TEST(Graphics, EveryNameHasItsColour) {
  TColor found = 7;
  for (const auto& [name, color] : kNames) {
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
