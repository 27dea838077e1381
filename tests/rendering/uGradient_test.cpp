#include "rendering/uGradient.h"

#include "platform/TRecordingCanvas.h"
#include "tests/support/Test.h"

namespace {

TEST(Gradient, GoesTheWayOfItsFlagUnlessSwitchedOff) {
  TRecordingCanvas canvas;
  const TBrush brush = canvas.GetBrush();
  for (bool enabled : {true, false}) {
    SetGradientsEnabled(enabled);
    for (int flag : {1, 0}) PaintGradient(canvas, {1, 2, 11, 22}, clRed, flag, clNavy);
  }
  SetGradientsEnabled(true);
  EXPECT_EQ(canvas.GetText(),
            u"gradient 1,2 10x20 clRed to clNavy down\ngradient 1,2 10x20 clRed to clNavy right\n"
            u"fill 1,2 10x20 $0040007F\nfill 1,2 10x20 $0040007F\n");
  EXPECT_EQ(canvas.GetBrush(), brush);
}

TEST(Gradient, ColoursBetweenColours) {
  EXPECT_EQ(AverageGradient(0x00FF0001, clWindow), 0xFF7F80u);
  const TCases<TColor, int, TColor> cases = {
      {0x808080, 30, 0x888888},   {0x808080, -1000, 0},    {0x000000, 500, 0x808080},
      {0xFFFFFF, 30, 0xFFFFFF},   {0x0000FF, 0, 0x0000FF}, {0x0000FF, 250, 0x8080FF},
      {0x0000FF, -250, 0x000080}, {0x304060, 0, 0x304060}, {clWindow, 0, 0xFFFFFF}};
  for (const auto& [color, amount, result] : cases)
    EXPECT_EQ(ColorAdjustLuma(color, amount), result) << color << ' ' << amount;
}

}  // namespace
