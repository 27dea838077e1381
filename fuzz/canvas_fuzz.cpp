// Operations of a canvas in any order with any figures: none ends the program, on a bitmap of any format nothing
// outside the clip changes, and what was measured before an operation is measured after it.
#include <cmath>
#include <cstring>

#include "fuzz/support/Input.h"
#include "platform/Drawing.h"
#include "platform/TBitmap.h"
#include "platform/TRecordingCanvas.h"
#ifdef VX_HAS_DRAWING
#include "platform/cairo/CairoDrawing.h"

// fontconfig keeps its patterns by distances, which look like lost memory.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }
#endif

namespace vx::fuzz {

namespace {

constexpr int kWidth = 72, kHeight = 56;
constexpr TRect kClip{12, 10, 50, 37};

// Mostly near the surface, at times as far as an int goes.
int Place(TInput& Input) {
  const int byte = Input.Byte();
  if (byte < 200) return byte - 60;
  if (byte < 250) return (byte - 225) * 1000003;
  return byte % 2 ? INT32_MAX - byte : INT32_MIN + byte;
}
TRect Rect(TInput& Input) {
  const int left = Place(Input), top = Place(Input), width = Place(Input), height = Place(Input);
  const auto far = [](int side, int by) { return static_cast<int>(std::min<int64_t>(int64_t{side} + by, INT32_MAX)); };
  return {left, top, width < 0 ? width : far(left, width), height < 0 ? height : far(top, height)};
}
TColor Color(TInput& Input) { return Input.Byte() % 2 ? clBtnFace : Input.Byte() * 0x10307U; }

TBitmap Picture(TInput& Input) {
  const int shape = Input.Byte();
  TBitmap bitmap(shape % 2 ? pf32bit : pf8bit, shape % 9, shape / 9);
  bitmap.SetTransparent(shape % 5 == 0);
  if (shape % 3 == 0) bitmap.SetAlphaFormat(afDefined);
  return bitmap;
}

void SetState(TCanvas& Canvas, TInput& Input) {
  Canvas.SetPen({Color(Input), Place(Input), static_cast<TPenStyle>(Input.Byte() % 4)});
  Canvas.SetBrush({Color(Input), static_cast<TBrushStyle>(Input.Byte() % 2)});
  const int style = Input.Byte();
  TFont font{style % 3 ? u"Tahoma" : u"Nobody", Color(Input), {}, style % 7 ? style % 20 : Place(Input) % 300};
  for (const TFontStyle each : {fsBold, fsItalic, fsUnderline, fsStrikeOut}) {
    if (style >> (each + 3) & 1) font.Style.Include(each);
  }
  Canvas.SetFont(font);
  Canvas.SetTextUpward(style % 5 == 0);
  Canvas.SetTextVertical(style % 2 ? tvTop : tvBaseline);
}

void DrawOne(TCanvas& Canvas, TInput& Input) {
  switch (Input.Byte() % 14) {
    case 0:
      return SetState(Canvas, Input);
    case 1:
      return Canvas.FillRect(Rect(Input));
    case 2:
      return Canvas.FrameRect(Rect(Input));
    case 3:
      return Canvas.Rectangle(Rect(Input));
    case 4:
      return Canvas.Ellipse(Rect(Input));
    case 5: {
      const TRect rect = Rect(Input);
      const int kind = Input.Byte();
      const TGradient gradient{Color(Input), Color(Input), static_cast<TGradientDirection>(kind % 2), kind % 3 == 0};
      return kind % 5 ? Canvas.GradientRect(rect, gradient) : Canvas.GradientEllipse(rect, gradient);
    }
    case 6:
      Canvas.MoveTo(Place(Input), Place(Input));
      [[fallthrough]];
    case 7:
      return Canvas.LineTo(Place(Input), Place(Input));
    case 8:
      return Canvas.Draw(Place(Input), Place(Input), Picture(Input));
    case 9:
      return Canvas.StretchDraw(Rect(Input), Picture(Input));
    case 10:
      return Canvas.TransparentBlt(Rect(Input), Picture(Input), Rect(Input), Color(Input));
    case 11:
      return Canvas.IntersectClip(Rect(Input));
    case 12:
      return Canvas.TextOut(Place(Input), Place(Input), Input.Text());
    default:
      return Canvas.TextRect(Rect(Input), Place(Input), Place(Input), Input.Text());
  }
}

void DrawAll(TCanvas& Canvas, TInput Input) {
  const int width = Canvas.TextWidth(u"Müller e\u0301"), ascent = Canvas.GetFontMetrics().Ascent;
  for (int count = 0; count < 30; ++count) {
    const TCanvasState saved(Canvas);
    for (int depth = Input.Byte() % 4; depth >= 0; --depth) DrawOne(Canvas, Input);
  }
  Check(Canvas.TextWidth(u"Müller e\u0301") == width, "a text is measured as before");
  Check(Canvas.GetFontMetrics().Ascent == ascent, "the font is what it was");
}

void CheckOnBitmap(TInput Input) {
  constexpr TPixelFormat formats[] = {pfDevice, pf24bit, pf32bit, pf1bit, pf4bit, pf8bit, pf15bit, pf16bit};
  constexpr double scales[] = {1, 1, 1.5, 0.5, 2.75};
  TBitmap bitmap(formats[Input.Byte() % 8], kWidth, kHeight);
  if (Input.Byte() % 2) bitmap.SetAlphaFormat(afDefined);
  for (int y = 0; y < kHeight; ++y) std::memset(bitmap.GetScanline(y), y * 37, static_cast<size_t>(bitmap.GetStride()));
  const TBitmap before = bitmap;

  const double scale = scales[Input.Byte() % 5];
  const auto scaled = [scale](int side) { return static_cast<int>(std::floor(side * scale + 0.5)); };
  TCanvas& canvas = bitmap.GetCanvas();
  canvas.SetScale(scale);
  canvas.SetClip(kClip);
  DrawAll(canvas, Input);
  std::vector<uint32_t> was(kWidth), is(kWidth);
  for (int y = 0; y < kHeight; ++y) {
    before.GetRow(y, was);
    bitmap.GetRow(y, is);
    if (y >= scaled(kClip.Top) && y < scaled(kClip.Bottom)) {
      for (int x = scaled(kClip.Left); x < std::min(scaled(kClip.Right), kWidth); ++x)
        is[static_cast<size_t>(x)] = was[static_cast<size_t>(x)];
    }
    Check(is == was, "nothing outside the clip changes");
  }
}

}  // namespace

FUZZ(Input) {
  TRecordingCanvas recorder;
  DrawAll(recorder, Input);
  const String lines = recorder.GetText();
  recorder.Clear();
  DrawAll(recorder, Input);
  Check(recorder.GetText() == lines, "the same operations give the same lines");
#ifdef VX_HAS_DRAWING
  InstallDrawing();
  CheckOnBitmap(Input);
#else
  (void)CheckOnBitmap;
#endif
}

}  // namespace vx::fuzz
