// What every surface keeps, whatever stands behind its canvas.

#include "platform/TextBounds.h"
#include "platform/cairo/CairoDrawing.h"
#include "tests/platform/cairo/Devices.h"
#include "tests/support/Canvas.h"
#include "tests/support/Test.h"

namespace vx::test {

void PrintTo(const TDevice& Device, std::ostream* Stream) { *Stream << Device.Name; }

namespace {

class Contract : public testing::TestWithParam<TDevice> {
 protected:
  Contract() { InstallDrawing(); }
  // Skips the rest of the test for what can't be looked at.
  static std::optional<TBitmap> Seen(const std::function<void(TCanvas&)>& Draw) { return GetParam().Seen(Draw); }
};

#define SEEN_OR_SKIP(name, ...)                                        \
  const std::optional<TBitmap> name##_seen = Seen(__VA_ARGS__);        \
  if (!name##_seen) GTEST_SKIP() << "nothing here makes this visible"; \
  const TBitmap& name = *name##_seen

// The bytes of the rows, for comparisons of whole pictures.
std::vector<std::string> Rows(const TBitmap& Bitmap) {
  std::vector<std::string> rows;
  for (int y = 0; y < Bitmap.GetHeight(); ++y) {
    rows.emplace_back(reinterpret_cast<const char*>(Bitmap.GetScanline(y)), static_cast<size_t>(Bitmap.GetWidth()) * 3);
  }
  return rows;
}

// A square with a cross, 10 pixels wide, its corners white and transparent.
TBitmap Cross() {
  TBitmap bitmap(pf24bit, 10, 10);
  for (int i = 0; i < 10; ++i) {
    for (int k : {4, 5}) {
      std::fill_n(bitmap.GetScanline(i) + 3 * k, 3, uint8_t{0});
      std::fill_n(bitmap.GetScanline(k) + 3 * i, 3, uint8_t{0});
    }
  }
  return bitmap;
}

// Each operation, everywhere.
void DrawAll(TCanvas& Canvas) {
  const TCanvasState saved(Canvas);
  const TBitmap cross = Cross();
  for (const int step : {0, 37, 74}) {
    Canvas.SetBrush({clBlue}), Canvas.SetPen({clBlack, 1 + step / 20, step == 37 ? psDash : psSolid});
    Canvas.FillRect({step, -5, step + 20, 30});
    Canvas.Rectangle({-9, step, 140, step + 9});
    Canvas.FrameRect({step, step, 200, 200});
    Canvas.Ellipse({step, 5, step + 60, 70});
    Canvas.GradientRect({step, 40, step + 30, 70}, {clBlack, clBlue});
    Canvas.GradientEllipse({step, 10, step + 30, 40}, {clBlack, clBlue, gdHorizontal, true});
    Canvas.MoveTo(-10, step), Canvas.LineTo(200, 90 - step);
    Canvas.MoveTo(step, -10), Canvas.LineTo(step, 200);
    Canvas.Draw(step, 15, cross);
    Canvas.StretchDraw({step, 30, step + 50, 79}, cross);
    Canvas.TransparentBlt({step, 0, step + 10, 10}, cross, {0, 0, 10, 10}, clWhite);
    Canvas.TextOut(step - 20, 25, u"Müller, Jörg");
    Canvas.SetBrush({clBlue, bsClear});
    Canvas.TextOut(step - 20, 50, u"שרה महेश e\u0301 😀");
    Canvas.SetTextUpward(true);
    Canvas.TextOut(step, 79, u"aufwärts");
    Canvas.SetTextUpward(false);
    Canvas.TextRect({step, 10, step + 500, 60}, step, 12, u"Straße");
  }
}

TEST_P(Contract, NothingOutsideTheClipChanges) {
  const auto ground = [](TCanvas& canvas) { canvas.GradientRect({0, 0, 120, 80}, {clWhite, clRed}); };
  SEEN_OR_SKIP(before, ground);
  const TRect clip{31, 21, 92, 58};
  for (const double scale : {1.0, 2.0}) {
    const TBitmap after = *Seen([&](TCanvas& canvas) {
      ground(canvas);
      canvas.SetScale(scale), canvas.SetClip({0, 0, 119, 79});
      canvas.IntersectClip(scale == 1 ? clip : TRect{16, 11, 46, 29});
      DrawAll(canvas);
    });
    int changed = 0;
    for (int y = 0; y < 80; ++y) {
      for (int x = 0; x < 120; ++x) {
        const bool same = PixelAt(before, x, y) == PixelAt(after, x, y);
        const bool inside = x >= clip.Left && x < clip.Right && y >= clip.Top && y < clip.Bottom;
        changed += !same;
        ASSERT_LE(!same, inside) << x << "," << y << " at scale " << scale;
      }
    }
    EXPECT_GT(changed, 200) << scale;
  }
}

TEST_P(Contract, StateComesBack) {
  const auto draw = [](TCanvas& canvas) {
    canvas.SetFont({u"Tahoma", clBlack, {fsBold}, 10}), canvas.SetBrush({clWhite, bsClear});
    canvas.TextOut(5, 5, u"Größe ה");
    canvas.Rectangle({40, 30, 80, 60});
    canvas.LineTo(100, 70);
  };
  SEEN_OR_SKIP(plain, draw);
  const TBitmap after = *Seen([&](TCanvas& canvas) {
    {
      const TCanvasState saved(canvas);
      canvas.SetClip({0, 0, 0, 0}), canvas.SetScale(3), canvas.SetTextUpward(true), canvas.SetFontPixelsPerInch(200);
      canvas.TextOut(1, 1, u"x");
      canvas.MoveTo(9, 9);
    }
    draw(canvas);
  });
  EXPECT_EQ(Rows(after), Rows(plain));
}

constexpr TRect kSquare{10, 20, 30, 40}, kPlace{20, 30, 30, 40}, kCross{0, 0, 10, 10};

TEST_P(Contract, ShapesCoverTheirPixels) {
  const TCases<const char*, void (*)(TCanvas&), TRect, std::vector<TPoint>, std::vector<TPoint>> cases = {
      {"fill", [](TCanvas& c) { c.FillRect(Box(10, 20, 30, 25)); }, {10, 20, 30, 25}, {{10, 20}, {29, 24}}, {}},
      {"line to the right", [](TCanvas& c) { c.MoveTo(10, 20), c.LineTo(15, 20); }, {10, 20, 15, 21}, {{14, 20}}, {}},
      {"line to the left", [](TCanvas& c) { c.MoveTo(15, 20), c.LineTo(10, 20); }, {11, 20, 16, 21}, {{15, 20}}, {}},
      {"line upward", [](TCanvas& c) { c.MoveTo(15, 20), c.LineTo(15, 10); }, {15, 11, 16, 21}, {{15, 11}}, {}},
      {"broad line",
       [](TCanvas& c) { Pen(c, clBlack, 3), c.MoveTo(15, 20), c.LineTo(25, 20); },
       {15, 19, 25, 22},
       {{15, 19}},
       {}},
      {"frame", [](TCanvas& c) { c.FrameRect(kSquare); }, kSquare, {{10, 20}, {29, 39}}, {{11, 21}, {28, 38}}},
      {"rectangle",
       [](TCanvas& c) { Brush(c, clWhite), Pen(c, clBlack, 2), c.Rectangle(kSquare); },
       kSquare,
       {{11, 21}, {28, 38}},
       {{12, 22}, {27, 37}}},
      {"picture", [](TCanvas& c) { c.Draw(20, 30, Cross()); }, kPlace, {{24, 30}, {25, 39}}, {{20, 30}, {23, 33}}},
      {"part of a picture",
       [](TCanvas& c) { c.TransparentBlt(Box(20, 30, 22, 40), Cross(), Box(4, 0, 6, 10), clWhite); },
       {20, 30, 22, 40},
       {{20, 30}},
       {}},
      {"left-out colour",
       [](TCanvas& c) { c.FillRect(Box(20, 30, 24, 34)), c.TransparentBlt(kPlace, Cross(), kCross, clWhite); },
       kPlace,
       {{20, 30}, {24, 36}},
       {{27, 37}}},
      {"ellipse", [](TCanvas& c) { c.Ellipse(kSquare); }, kSquare, {{20, 30}, {20, 21}}, {{10, 20}, {29, 39}}},
      {"scaled fill",
       [](TCanvas& c) { c.SetScale(2), c.FillRect(Box(5, 10, 15, 12)); },
       {10, 20, 30, 24},
       {{29, 23}},
       {}},
      {"gradient",
       [](TCanvas& c) {
         c.GradientRect(kSquare, TGradient{clBlack, 0x00404040, gdHorizontal});
       },
       kSquare,
       {{10, 30}, {29, 30}},
       {}}};
  for (const auto& [name, draw, ink, blacks, whites] : cases) {
    SEEN_OR_SKIP(seen, [draw = draw](TCanvas& canvas) { Brush(canvas, clBlack), draw(canvas); });
    EXPECT_EQ(InkOf(seen), ink) << name;
    for (const TPoint at : blacks) EXPECT_LT(PixelAt(seen, at.X, at.Y) & 255, 80U) << name << at.X << "," << at.Y;
    for (const TPoint at : whites) EXPECT_GT(PixelAt(seen, at.X, at.Y) & 255, 200U) << name << at.X << "," << at.Y;
  }
}

TEST_P(Contract, TextsAreAsWideAsMeasured) {
  for (const char16_t* text :
       {u"HHHHHHH", u"Иванова", u"Ελένη", u"ששששש", u"नमनम", u"E\u0301E\u0301E\u0301", u"王王王"}) {
    for (const double scale : {1.0, 1.5}) {
      int width = 0, height = 0, prefixes = 0;
      SEEN_OR_SKIP(seen, [&](TCanvas& canvas) {
        canvas.SetScale(scale), canvas.SetBrush({clWhite, bsClear});
        width = canvas.TextWidth(text);
        height = canvas.TextHeight(text);
        prefixes = canvas.TextPrefixWidth(text, 99);
        canvas.TextOut(10, 10, text);
      });
      const String name(text);
      const TRect ink = InkOf(seen);
      EXPECT_EQ(prefixes, width) << name.ToUtf8();
      EXPECT_NEAR(ink.Left, 10 * scale, 3 * scale) << name.ToUtf8();
      EXPECT_NEAR(ink.Right, (10 + width) * scale, 3 * scale) << name.ToUtf8();
      EXPECT_GE(ink.Top, (10 - 2) * scale) << name.ToUtf8();
      EXPECT_LE(ink.Bottom, (10 + height + 2) * scale) << name.ToUtf8();
    }
  }
}

TEST_P(Contract, WidthsOfLettersBoundTexts) {
  (void)Seen([](TCanvas& canvas) {
    int known = 0;
    std::mt19937 random(3);
    for (const TFontStyles style : {TFontStyles{}, TFontStyles{fsBold}, TFontStyles{fsItalic}}) {
      canvas.SetFont({.Style = style, .Size = 9});
      const TTextBounds bounds(canvas);
      for (int i = 0; i < 300; ++i) {
        String text = u"AVTofi";
        for (int n = 0; n < 8; ++n) text += static_cast<char16_t>(random() % (i % 2 == 0 ? 0x80 : 0x190));
        if (bounds.Of(text) == TTextBounds::Unknown) continue;
        EXPECT_EQ(bounds.Of(text), canvas.TextWidth(text)) << text;
        ++known;
      }
    }
    EXPECT_GT(known, 0);
  });
}

TEST_P(Contract, TheGroundOfATextIsItsMeasure) {
  for (const bool upward : {false, true}) {
    for (const char16_t* text : {u"Wert", u"שרה"}) {
      TRect ground;
      SEEN_OR_SKIP(seen, [&](TCanvas& canvas) {
        canvas.SetFont({u"Tahoma", clBlack, {fsUnderline}, 10}), canvas.SetBrush({clBlack});
        canvas.SetTextUpward(upward);
        canvas.TextOut(30, 60, text);
        const int width = canvas.TextWidth(text), height = canvas.TextHeight(text);
        ground = upward ? TRect{30, 60 - width, 30 + height, 60} : TRect{30, 60, 30 + width, 60 + height};
      });
      EXPECT_EQ(InkOf(seen), ground) << upward << String(text).ToUtf8();
    }
  }
}

TEST_P(Contract, SystemColoursResolveLast) {
  const TColor highlight = ColorToRGB(clHighlight);
  std::vector<TColor> dark(SystemColorCount);
  for (int i = 0; i < SystemColorCount; ++i)
    dark[static_cast<size_t>(i)] = ColorToRGB(0xFF000000 + static_cast<TColor>(i));
  const std::vector<TColor> light = dark;
  dark[clHighlight & 255] = clBlack;
  SetSystemColors(dark);
  const auto seen = Seen([](TCanvas& canvas) {
    canvas.SetBrush({clHighlight});
    canvas.FillRect({0, 0, 120, 80});
  });
  SetSystemColors(light);
  ASSERT_EQ(ColorToRGB(clHighlight), highlight);
  EXPECT_EQ(seen ? PixelAt(*seen, 60, 40) : 0U, 0U);
}

INSTANTIATE_TEST_SUITE_P(Devices, Contract, testing::ValuesIn(Devices()),
                         [](const auto& device) { return device.param.Name; });

TEST(DrawingThreads, CanvasesOfDifferentBitmapsShareNothing) {
  InstallDrawing();
  const auto draw = [] {
    TBitmap bitmap(pf24bit, 120, 80);
    for (int i = 0; i < 10; ++i) DrawAll(bitmap.GetCanvas());
    return Rows(bitmap);
  };
  std::vector<std::vector<std::string>> pictures(4);
  std::vector<std::thread> threads;
  for (auto& picture : pictures) threads.emplace_back([&] { picture = draw(); });
  for (auto& thread : threads) thread.join();
  const auto alone = draw();
  for (const auto& picture : pictures) EXPECT_EQ(picture, alone);
}

}  // namespace
}  // namespace vx::test
