#include "controls/NightColors.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/TBitmap.h"
#include "platform/TRecordingCanvas.h"

namespace vx {
namespace {

constexpr TColor kNamed[] = {clBlack, clMaroon, clGreen,      clOlive,   clNavy,   clPurple, clTeal,
                             clGray,  clSilver, clRed,        clLime,    clYellow, clBlue,   clFuchsia,
                             clAqua,  clWhite,  clMoneyGreen, clSkyBlue, clCream,  clMedGray};

// A dark desktop for the length of a test.
struct TDarkDesktop {
  TDarkDesktop() {
    for (unsigned i = 0; i < SystemColorCount; ++i) Before.push_back(ColorToRGB(clScrollBar + i));
    std::vector<TColor> dark = Before;
    const auto set = [&](TColor system, TColor color) { dark[system & 0xFF] = color; };
    set(clWindow, 0x1E1E1E);
    set(clWindowText, 0xE6E6E6);
    set(clHighlight, 0x9C5D2A);
    set(clBtnFace, 0x353535);
    SetSystemColors(dark);
  }
  ~TDarkDesktop() { SetSystemColors(Before); }
  std::vector<TColor> Before;
};

TEST(NightColors, TextsCanBeReadOnEveryGround) {
  EXPECT_FALSE(IsNight());
  const TDarkDesktop desktop;
  EXPECT_TRUE(IsNight());
  EXPECT_NEAR(ContrastOf(clBlack, clWhite), 21, 1e-9);
  std::vector<TColor> grounds(std::begin(kNamed), std::end(kNamed)), texts = grounds;
  for (unsigned i = 0; i < SystemColorCount; ++i) grounds.push_back(clScrollBar + i);
  texts.push_back(clWindowText);
  texts.push_back(clHighlight);
  for (TColor ground : grounds) {
    const TColor seen = NightGround(ground);
    for (TColor text : texts) {
      EXPECT_GE(ContrastOf(NightText(text, seen), seen), kTextContrast)
          << ColorToString(text).ToUtf8() << " on " << ColorToString(ground).ToUtf8();
    }
    if (ground >> 24 != 0) continue;
    EXPECT_LT(ContrastOf(seen, clBlack), 6) << "no ground is light";
  }
  EXPECT_EQ(NightGround(clWhite), 0x1E1E1Eu);
  EXPECT_EQ(NightText(clWindowText, NightGround(clWhite)), 0xE6E6E6u) << "what can be read stays";
  EXPECT_EQ(NightGround(clHighlight), 0x9C5D2Au);
}

TEST(NightColors, ASurfacePaintsByThem) {
  const TDarkDesktop desktop;
  TRecordingCanvas day;
  TCanvas night(std::make_unique<TNightDevice>(day.GetDevice()));
  night.SetBrush({clWhite});
  night.FillRect({0, 0, 100, 20});
  night.SetBrush({clYellow});
  night.FillRect({50, 0, 100, 20});
  night.SetBrush({clWhite, bsClear});
  night.TextOut(2, 2, u"a");
  night.TextOut(52, 2, u"b");
  night.SetPen({clBlack});
  night.LineTo(9, 9);
  const auto name = [](TColor color) { return ColorToString(color); };
  EXPECT_EQ(day.GetText(), u"fill 0,0 100x20 $001E1E1E\nfill 50,0 50x20 " + name(NightGround(clYellow)) +
                               u"\ntext 2,2 7x14 \"a\" $00E6E6E6 Tahoma 8\ntext 52,2 7x14 \"b\" " +
                               name(NightText(clWindowText, NightGround(clYellow))) +
                               u" Tahoma 8\nline 0,0 to 9,9 clWhite\n");
}

}  // namespace
}  // namespace vx
