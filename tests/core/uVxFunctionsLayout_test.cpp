#include "core/uVxFunctions.h"
#include "tests/support/Test.h"

namespace {

TEST(Colors, BrightnessChangesAndTexts) {
  const TCases<TColor, TColor> cases = {{0, 0},          {clWhite, 255},  {clRed, 76},
                                        {clBlue, 29},    {0x00FAFA, 222}, {0x00009E, 47},
                                        {clWindow, 255}, {0xFF0000FF, 0}, {0x12FFFFFF, 255}};
  for (const auto& [color, average] : cases)
    EXPECT_EQ(std::tuple(ColorAverage(color), ColorToGray(color)),
              std::tuple(average, (color & 0xFF000000) + average * 0x010101))
        << color;
  EXPECT_EQ((TFacts{ColorIsDark(0x818181), ColorIsDark(0x828282)}), "yes no");
  const TCases<TColor, int, bool, TColor> steps = {
      {0x102030, -40, true, 0x031323},     {0x050A0D, -40, true, 0},
      {0xF8FD01, 11, false, 0xFBFF04},     {clWindow, -100, true, 0xDEDEDE},
      {clWindow, -100, false, 0xFFDEDEDE}, {0x808080, INT32_MAX, true, 0xFFFFFF},
      {0x808080, INT32_MIN, true, 0}};
  for (const auto& [color, amount, dropHigh, result] : steps)
    EXPECT_EQ(ColorIncrement(color, amount, dropHigh), result) << amount;
  EXPECT_EQ(ColorAndHash(0x123456, 0), 0x10123457u);
  EXPECT_EQ(ColorAndHash(clWindow, 0x1FFFFFFF), 0x20FFFFFCu) << "the sum wraps below the counter";
  EXPECT_EQ(ColorAndHash(0x000001, ~uintptr_t{0} << 28), 0x00000011u) << "the counter starts over within 32 bits";
  const TCases<String, TColor> texts = {
      {u"CLRED", clRed}, {u"#0000FF", 0x0000FF},    {u"$FFFFFFFF", 0xFFFFFFFF},   {u"", clWindow},
      {u"##1", clWhite}, {u"#ff00000f", clBtnFace}, {u"4278190080", clScrollBar}, {u"$FFFFFFFF00000000", clWhite},
      {u"red", clWhite}, {u"-1", 0xFFFFFFFF},       {u"-2147483649", clWhite}};
  for (const auto& [text, color] : texts) EXPECT_EQ(StringToColorDef(text, clWindow), color) << text;
}

TEST(Layout, TextsInBothLanguagesAndRects) {
  const TCases<TAlign, String, String, String> aligns = {
      {alNone, u"None", u"", u"aloben"}, {alTop, u"Top", u"T", u"OBEN"},       {alBottom, u"Bottom", u"B", u"unten"},
      {alLeft, u"Left", u"L", u"LinKS"}, {alRight, u"Right", u"R", u"rechts"}, {alClient, u"Client", u"C", u"Klient"}};
  for (const auto& [align, word, letter, german] : aligns) {
    EXPECT_EQ(std::tuple(AlignToStr(align), AlignToString(align), AlignSetToString({align})),
              std::tuple(word, u"al" + word, letter));
    EXPECT_EQ(StrToAlign(word, alCustom), align) << word;
    for (const String& text : {word, u"al" + word, german}) EXPECT_EQ(StringToAlign(text), align);
  }
  EXPECT_EQ(AlignToStr(alCustom) + AlignToString(alCustom), u"CustomalNone");
  EXPECT_EQ(StrToAlign(u"left", alCustom), alCustom);
  EXPECT_EQ(StrToAlign(u"Custom", alTop), alCustom);
  for (const char16_t* none : {u"al", u"", u"alaltop", u"lef", u"Custom"}) EXPECT_EQ(StringToAlign(none), alNone);
  EXPECT_EQ(AlignSetToString({alNone, alClient, alBottom, alCustom, alRight, alTop, alLeft}), u"LTRBC");
  EXPECT_EQ(StringToAlignSet(u"xCltR T"), (TAlignSet{alClient, alRight, alTop}));
  EXPECT_EQ(FontStylesToString({fsStrikeOut, fsUnderline, fsBold, fsItalic}), u"BIUS");
  EXPECT_EQ(StringToFontStyles(u"S-Bi"), (TFontStyles{fsStrikeOut, fsBold}));
  TRect rect{10, 20, 30, 40};
  EXPECT_EQ(RectMargins(rect, 2, 3, 1), (TRect{4, 18, 36, 42}));
  EXPECT_EQ(RectMargins(rect, INT32_MIN, INT32_MIN, 1), (TRect{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN + 40}));
  for (auto [x, y] : {std::pair(10, 20), {30, 40}}) EXPECT_TRUE(InRect(x, y, rect)) << x;
  for (auto [x, y] : {std::pair(9, 20), {31, 40}, {20, 19}, {20, 41}})
    EXPECT_FALSE(InRect(x, y, rect)) << x << ' ' << y;
  InitRect(rect, 7);
  EXPECT_EQ(rect, (TRect{7, 7, 7, 7}));
}

}  // namespace
