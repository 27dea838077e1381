#include "platform/TCanvas.h"

#include "platform/Drawing.h"
#include "platform/TBitmap.h"
#include "platform/TRecordingCanvas.h"
#include "tests/support/Canvas.h"
#include "tests/support/Test.h"

namespace {

using TStep = void (*)(TCanvas&);

// What the steps leave in the lines, without the last line break.
String Drawn(TStep Step, const TRecordingSurface& Surface = {}) {
  TRecordingCanvas canvas(Surface);
  Step(canvas);
  const String& text = canvas.GetText();
  return text.Slice(0, text.size() - 1);
}

void Font(TCanvas& Canvas, int Size, TFontStyles Style = {}, TColor Color = clWindowText) {
  Canvas.SetFont({u"Tahoma", Color, Style, Size});
}

TEST(TCanvas, OperationsReachTheDevice) {
  const TCases<const char*, TStep, String> cases = {
      {"a line leaves out its end, the pen goes on from there",
       [](TCanvas& c) { c.MoveTo(1, 2), c.LineTo(5, 2), c.LineTo(5, 2), c.LineTo(5, 9); },
       u"line 1,2 to 5,2 clBlack\nline 5,2 to 5,9 clBlack"},
      {"a clear pen moves only",
       [](TCanvas& c) { Pen(c, clRed, 1, psClear), c.LineTo(5, 5), Pen(c, clRed, 0, psDot), c.LineTo(6, 5); },
       u"line 5,5 to 6,5 clRed dot"},
      {"a rectangle: inside the brush, border the pen, sides turned round",
       [](TCanvas& c) { Pen(c, clRed, 2), c.Rectangle(Box(20, 10, 0, 0)); },
       u"fill 2,2 16x6 clWhite\nframe 0,0 20x10 clRed 2"},
      {"one colour, one fill", [](TCanvas& c) { Pen(c, clWhite), c.Rectangle(Box(0, 0, 9, 9)); },
       u"fill 0,0 9x9 clWhite"},
      {"only the border, only the inside",
       [](TCanvas& c) {
         Brush(c, clRed, bsClear), c.Rectangle(Box(0, 0, 9, 9));
         Brush(c, clRed), Pen(c, clRed, 1, psClear), c.Rectangle(Box(0, 0, 9, 9));
       },
       u"frame 0,0 9x9 clBlack\nfill 0,0 9x9 clRed"},
      {"a pen wider than the rectangle", [](TCanvas& c) { Pen(c, clRed, 5), c.Rectangle(Box(0, 0, 9, 9)); },
       u"frame 0,0 9x9 clRed 5"},
      {"the ground shows between dashes", [](TCanvas& c) { Pen(c, clRed, 1, psDash), c.Rectangle(Box(0, 0, 9, 9)); },
       u"fill 0,0 9x9 clWhite\nframe 0,0 9x9 clRed dash"},
      {"FrameRect by the brush, nothing by a clear one",
       [](TCanvas& c) { c.FrameRect(Box(0, 0, 9, 9)), Brush(c, clRed, bsClear), c.FrameRect(Box(0, 0, 9, 9)); },
       u"frame 0,0 9x9 clWhite"},
      {"an ellipse",
       [](TCanvas& c) { c.Ellipse(Box(0, 0, 9, 5)), Brush(c, clRed, bsClear), c.Ellipse(Box(9, 5, 0, 0)); },
       u"ellipse 0,0 9x5 fill clWhite pen clBlack\nellipse 0,0 9x5 pen clBlack"},
      {"gradients",
       [](TCanvas& c) {
         c.GradientRect(Box(0, 0, 9, 5), {clWhite, 0x00F4F2F1});
         c.GradientEllipse(Box(0, 0, 9, 5), {clWhite, clBtnFace, gdHorizontal, true});
       },
       u"gradient 0,0 9x5 clWhite to $00F4F2F1 down\ngradient 0,0 9x5 clWhite to clBtnFace right bell ellipse"},
      {"pictures",
       [](TCanvas& c) {
         const TBitmap bitmap(pf24bit, 8, 6);
         c.Draw(3, 4, bitmap), c.StretchDraw(Box(0, 0, 16, 6), bitmap),
             c.TransparentBlt(Box(0, 0, 4, 4), bitmap, {4, 4, 99, 99}, clFuchsia);
       },
       u"picture 3,4 8x6\npicture 0,0 16x6 of 0,0 8x6\npicture 0,0 4x4 of 4,4 4x2 without clFuchsia"},
      {"a text on its ground, then without one",
       [](TCanvas& c) { c.TextOut(3, 4, u"Müll"), c.SetTextOpaque(false), c.TextOut(3, 4, u"M\"\n\\"); },
       u"fill 3,4 26x14 clWhite\ntext 3,4 26x14 \"Müll\" clWindowText Tahoma 8\n"
       u"text 3,4 29x14 \"M\\\"\\x0A\\\\\" clWindowText Tahoma 8"},
      {"on the base line, upward, in styles",
       [](TCanvas& c) {
         Brush(c, clWhite, bsClear), c.SetTextVertical(tvBaseline), Font(c, 12, {fsBold, fsUnderline}, clRed);
         c.TextOut(50, 50, u"ab"), c.SetTextUpward(true), c.TextOut(50, 50, u"ab");
         c.SetTextVertical(tvTop), Brush(c, clWhite), c.TextOut(50, 50, u"ab");
       },
       u"text 50,34 22x20 \"ab\" clRed Tahoma 12 bold underline\n"
       u"text 34,28 20x22 \"ab\" clRed Tahoma 12 bold underline upward\nfill 50,28 20x22 clWhite\n"
       u"text 50,28 20x22 \"ab\" clRed Tahoma 12 bold underline upward"},
      {"TextRect fills its rectangle and clips to it",
       [](TCanvas& c) { c.TextRect(Box(0, 0, 20, 9), 2, 1, u"ab"), c.FillRect(Box(0, 0, 5, 5)); },
       u"fill 0,0 20x9 clWhite\ntext 2,1 14x14 \"ab\" clWindowText Tahoma 8 in 0,0 20x9\nfill 0,0 5x5 clWhite"},
      {"clips meet, an empty one hides all",
       [](TCanvas& c) {
         c.SetClip(Box(0, 0, 50, 50)), c.IntersectClip(Box(10, 10, 90, 20)), c.FillRect(Box(0, 0, 5, 5));
         c.TextRect(Box(40, 0, 60, 15), 40, 0, u"a"), c.IntersectClip(Box(90, 90, 99, 99)),
             c.FillRect(Box(0, 0, 99, 99));
         c.ResetClip(), c.SetScale(1.5), c.FillRect(Box(0, 0, 5, 5));
       },
       u"fill 0,0 5x5 clWhite in 10,10 40x10\nfill 40,0 20x15 clWhite in 10,10 40x10\n"
       u"text 40,0 7x14 \"a\" clWindowText Tahoma 8 in 40,10 10x5\nfill 0,0 5x5 clWhite scale 1,5"},
      {"nothing to draw",
       [](TCanvas& c) {
         c.FillRect(Box(5, 0, 5, 9)), c.FrameRect(Box(9, 9, 0, 0)), c.Rectangle(Box(3, 0, 3, 9)), c.TextOut(0, 0, u"");
         c.GradientRect(Box(0, 0, 0, 0), {}), c.StretchDraw(Box(0, 0, 9, 9), TBitmap()), c.Ellipse(Box(0, 1, 9, 1));
         c.FillRect(Box(INT_MIN, INT_MIN, INT_MAX, INT_MAX));
       },
       u"fill -134217728,-134217728 268435456x268435456 clWhite"}};
  for (const auto& [name, step, lines] : cases) EXPECT_EQ(Drawn(step), lines) << name;
}

TEST(TCanvas, MeasuresByTheRulesOfItsMetrics) {
  TRecordingCanvas canvas;
  const TCases<String, int, TFontStyles, int, int, int, int> cases = {{u"", 8, {}, 0, 11, 3, 0},
                                                                      {u"Müll", 8, {}, 26, 11, 3, 0},
                                                                      {u"Müll", 8, {fsBold}, 30, 11, 3, 1},
                                                                      {u"a\u0301", 8, {}, 7, 11, 3, 0},
                                                                      {u"😀", 8, {fsUnderline}, 7, 11, 3, 0},
                                                                      {u"..", 12, {fsItalic}, 10, 16, 4, 1},
                                                                      {u"\r\n\t", 8, {}, 12, 11, 3, 0},
                                                                      {u"ab", 0, {}, 2, 1, 0, 0},
                                                                      {u"a", -5, {}, 1, 1, 0, 0}};
  for (const auto& row : cases) {
    const auto& [text, size, style, width, ascent, descent, overhang] = row;
    Font(canvas, size, style);
    const auto metrics = canvas.GetFontMetrics();
    EXPECT_EQ(std::tuple(text, size, style, canvas.TextWidth(text), metrics.Ascent, metrics.Descent, metrics.Overhang),
              row);
    EXPECT_EQ(canvas.TextHeight(text), text.empty() ? 0 : ascent + descent) << text << size;
  }
  Font(canvas, 8);
  for (const auto& [count, width] : {std::pair(-1, 0), {0, 0}, {1, 11}, {3, 22}, {4, 26}, {99, 26}}) {
    EXPECT_EQ(canvas.TextPrefixWidth(u"Müll", count), width) << count;
  }
  canvas.SetScale(3);
  EXPECT_EQ(canvas.TextWidth(u"Müll"), 26) << "a scale changes no measure";
}

TEST(TCanvas, AScopePutsAllStateBack) {
  TRecordingCanvas canvas;
  canvas.SetFont({u"Arial", clRed, {fsBold}, 9}), canvas.SetPen({clLime, 3, psDot}), canvas.SetBrush({clBlue});
  canvas.MoveTo(7, 8);
  canvas.SetClip({0, 0, 40, 40});
  const auto draw = [&canvas] {
    canvas.Clear();
    canvas.TextOut(1, 2, u"x");
    canvas.LineTo(0, 0);
    canvas.MoveTo(7, 8);
    return canvas.GetText();
  };
  const String before = draw();
  {
    const TCanvasState saved(canvas);
    canvas.SetFont({u"Tahoma", clBlack, {}, 20}), canvas.SetFontPixelsPerInch(300), canvas.SetPen({});
    canvas.SetBrush({clWhite, bsClear}), canvas.SetTextUpward(true), canvas.SetTextVertical(tvBaseline);
    canvas.SetTextOpaque(false);
    canvas.ResetClip();
    canvas.SetScale(2);
    EXPECT_NE(draw(), before);
    canvas.MoveTo(1, 1);
  }
  EXPECT_EQ(canvas.GetPenPos(), (TPoint{7, 8}));
  EXPECT_EQ(canvas.GetFont(), (TFont{u"Arial", clRed, {fsBold}, 9}));
  EXPECT_EQ(draw(), before);
}

TEST(TCanvas, FontsTakeThePixelsPerInchOfTheCanvas) {
  const TPoint screen = GetScreenPixelsPerInch();
  const TCases<TDeviceKind, int, int> cases = {{dkScreen, 96, 7}, {dkPrinter, 600, 40}, {dkMetafile, 96, 7}};
  for (const auto& [kind, pixelsPerInch, width] : cases) {
    TRecordingCanvas canvas({{0, 0, 100, 100}, kind == dkScreen ? screen : TPoint{300, 600}, kind});
    canvas.SetFont({u"Tahoma", clBlack, {}, 8, 72});
    EXPECT_EQ(canvas.GetKind(), kind);
    EXPECT_EQ(canvas.GetFont().PixelsPerInch, pixelsPerInch);
    EXPECT_EQ(canvas.TextWidth(u"a"), width) << "of " << pixelsPerInch;
  }
}

TEST(TCanvas, ClipsAreToldInPixelsBeforeTheScale) {
  TRecordingCanvas canvas(TRecordingSurface{{0, 0, 101, 60}});
  canvas.SetScale(2);
  EXPECT_EQ(canvas.GetClip(), (TRect{0, 0, 51, 30}));
  canvas.IntersectClip({-5, 10, 20, 99});
  EXPECT_EQ(canvas.GetClip(), (TRect{0, 10, 20, 30}));
  for (double bad : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
    canvas.SetScale(bad);
    EXPECT_EQ(canvas.GetScale(), 1) << bad;
  }
}

TEST(Drawing, WithoutABackendWhatNeedsOneSaysSo) {
  const auto before = SetDrawingBackend(nullptr);
  TBitmap bitmap(pf24bit, 2, 2);
  const std::function<void()> calls[] = {[&] { bitmap.GetCanvas(); }, [&] { LoadPictureFile(u"a.png", bitmap); },
                                         [&] { EncodePng(bitmap); }, [&] { SavePngFile(bitmap, u"a.png"); }};
  for (const auto& call : calls) {
    EXPECT_EQ(test::RaisedBy<EInvalidGraphicOperation>(call),
              u"Nothing is installed that draws on bitmaps and reads picture files");
  }
  SetDrawingBackend(before);
}

TEST(Drawing, PixelsPerInchCanBeReplaced) {
  const TPoint screen = GetScreenPixelsPerInch(), printer = GetPrinterPixelsPerInch();
  EXPECT_EQ(screen, (TPoint{96, 96}));
  EXPECT_EQ(printer, (TPoint{600, 600}));
  SetScreenPixelsPerInch({144, 0});
  EXPECT_EQ(GetScreenPixelsPerInch(), (TPoint{144, 1}));
  SetScreenPixelsPerInch(screen);
}

}  // namespace
