#include "core/uVxFunctions.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

TEST(Colors, BrightnessChangesAndTexts) {
  struct {
    TColor Color, Average;
  } cases[] = {{0, 0},         {clWhite, 255},  {clRed, 76},     {clBlue, 29},     {0x00FAFA, 222},
               {0x00009E, 47}, {clWindow, 255}, {0xFF0000FF, 0}, {0x12FFFFFF, 255}};
  for (const auto& c : cases) EXPECT_EQ(ColorAverage(c.Color), c.Average) << c.Color;
  for (const auto& c : cases) EXPECT_EQ(ColorToGray(c.Color), (c.Color & 0xFF000000) + c.Average * 0x010101);
  EXPECT_TRUE(ColorIsDark(0x818181) && !ColorIsDark(0x828282));
  struct {
    TColor Color;
    int Amount;
    bool DropHigh;
    TColor Result;
  } steps[] = {{0x102030, -40, true, 0x031323},     {0x050A0D, -40, true, 0},
               {0xF8FD01, 11, false, 0xFBFF04},     {clWindow, -100, true, 0xDEDEDE},
               {clWindow, -100, false, 0xFFDEDEDE}, {0x808080, INT32_MAX, true, 0xFFFFFF},
               {0x808080, INT32_MIN, true, 0}};
  for (const auto& c : steps) EXPECT_EQ(ColorIncrement(c.Color, c.Amount, c.DropHigh), c.Result) << c.Amount;
  EXPECT_EQ(ColorAndHash(0x123456, 0), 0x10123457u);
  EXPECT_EQ(ColorAndHash(clWindow, 0x1FFFFFFF), 0x20FFFFFCu) << "the sum wraps below the counter";
  EXPECT_EQ(ColorAndHash(0x000001, ~uintptr_t{0} << 28), 0x00000011u) << "the counter starts over within 32 bits";
  struct {
    String Text;
    TColor Color;
  } texts[] = {{u"", clWindow},
               {u"CLRED", clRed},
               {u"#0000FF", 0x0000FF},
               {u"##1", clWhite},
               {u"$FFFFFFFF", 0xFFFFFFFF},
               {u"#ff00000f", clBtnFace},
               {u"$FFFFFFFF00000000", clWhite},
               {u"-1", 0xFFFFFFFF},
               {u"4278190080", clScrollBar},
               {u"-2147483649", clWhite},
               {u"red", clWhite}};
  for (const auto& c : texts) EXPECT_EQ(StringToColorDef(c.Text, clWindow), c.Color) << c.Text.ToUtf8();
}

TEST(Layout, TextsInBothLanguagesAndRects) {
  struct {
    TAlign Align;
    String Word, Letter, German;
  } aligns[] = {{alNone, u"None", u"", u"aloben"},     {alTop, u"Top", u"T", u"OBEN"},
                {alBottom, u"Bottom", u"B", u"unten"}, {alLeft, u"Left", u"L", u"LinKS"},
                {alRight, u"Right", u"R", u"rechts"},  {alClient, u"Client", u"C", u"Klient"}};
  for (const auto& c : aligns) {
    EXPECT_TRUE(AlignToStr(c.Align) == c.Word && AlignToString(c.Align) == u"al" + c.Word) << c.Word.ToUtf8();
    EXPECT_TRUE(StrToAlign(c.Word, alCustom) == c.Align && AlignSetToString({c.Align}) == c.Letter) << c.Word.ToUtf8();
    for (const String& text : {c.Word, u"al" + c.Word, c.German}) EXPECT_EQ(StringToAlign(text), c.Align);
  }
  EXPECT_EQ(AlignToStr(alCustom) + AlignToString(alCustom), u"CustomalNone");
  EXPECT_TRUE(StrToAlign(u"left", alCustom) == alCustom && StrToAlign(u"Custom", alTop) == alCustom);
  for (const char16_t* none : {u"al", u"", u"alaltop", u"lef", u"Custom"}) EXPECT_EQ(StringToAlign(none), alNone);
  EXPECT_EQ(AlignSetToString({alNone, alClient, alBottom, alCustom, alRight, alTop, alLeft}), u"LTRBC");
  EXPECT_EQ(StringToAlignSet(u"xCltR T"), (TAlignSet{alClient, alRight, alTop}));
  EXPECT_EQ(FontStylesToString({fsStrikeOut, fsUnderline, fsBold, fsItalic}), u"BIUS");
  EXPECT_EQ(StringToFontStyles(u"S-Bi"), (TFontStyles{fsStrikeOut, fsBold}));
  TRect rect{10, 20, 30, 40};
  EXPECT_EQ(RectMargins(rect, 2, 3, 1), (TRect{4, 18, 36, 42}));
  EXPECT_EQ(RectMargins(rect, INT32_MIN, INT32_MIN, 1), (TRect{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN + 40}));
  EXPECT_TRUE(InRect(10, 20, rect) && InRect(30, 40, rect));
  EXPECT_FALSE(InRect(9, 20, rect) || InRect(31, 40, rect) || InRect(20, 19, rect) || InRect(20, 41, rect));
  InitRect(rect, 7);
  EXPECT_EQ(rect, (TRect{7, 7, 7, 7}));
}

}  // namespace
