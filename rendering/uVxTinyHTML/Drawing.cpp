#include <algorithm>

#include "rendering/uVxTinyHTML/Layout.h"

namespace vx {

namespace {

constexpr std::u16string_view kMarker = u"[..]";

// Texts stand on their base line until the end of the block.
class TBaselineScope {
 public:
  explicit TBaselineScope(TCanvas& Canvas) : FCanvas(Canvas), FBefore(Canvas.GetTextVertical()) {
    FCanvas.SetTextVertical(tvBaseline);
  }
  ~TBaselineScope() { FCanvas.SetTextVertical(FBefore); }
  TBaselineScope(const TBaselineScope&) = delete;
  TBaselineScope& operator=(const TBaselineScope&) = delete;

 private:
  TCanvas& FCanvas;
  const TTextVertical FBefore;
};

// How far a line of LineWidth begins behind the left side of Rect.
int LeftOf(const TRect& Rect, int LineWidth, TAlignment Alignment) noexcept {
  const int left = static_cast<int>(std::max<int64_t>(int64_t{Rect.Width()} - LineWidth, INT32_MIN / 2));
  return Alignment == taLeftJustify ? 0 : Alignment == taRightJustify ? left : left / 2;
}

// The size of the font at the end of the text, in points.
int LastSize(const TDecoLines& Lines) {
  const TDecoLine& line = *Lines.Get(Lines.GetCount() - 1);
  return line.GetCount() == 0 ? line.GetSize() : line.Get(line.GetCount() - 1)->GetSize();
}

// The last line of a text that goes on: clipped, so that the marker has its place at the right.
void DrawCutLine(const TDecoLine& Line, const TRect& Rect, int Top, TAlignment Alignment, int MarkerWidth) {
  TRect clip{Rect.Left, Top, Rect.Right, Rect.Bottom};
  const int shift = LeftOf(Rect, Line.Width(), Alignment);
  clip.Left += shift;
  clip.Right += Alignment == taLeftJustify ? -MarkerWidth : shift;
  clip.Right = std::min(clip.Right, Rect.Right - MarkerWidth);
  Line.Draw(clip);
}

}  // namespace

bool HTML2Canvas(std::u16string_view Text, TCanvas& Canvas, const TRect& Rect, TAlignment Alignment, Extended Scale) {
  const TCanvasFontScope font(Canvas);
  const std::unique_ptr<TDecoLines> lines = ParseTinyHTML(Text, Canvas, {.Rect = Rect, .Scale = Scale});
  const int markerWidth = Canvas.TextWidth(kMarker);
  const int whole = lines->GetCount() - (lines->Overflow ? 1 : 0);
  if (lines->GetCount() == 0) return !lines->Overflow;
  {
    const TBaselineScope baseline(Canvas);
    int top = Rect.Top;
    for (int i = 0; i < whole; ++i) {
      const TDecoLine& line = *lines->Get(i);
      const int shift = Alignment == taLeftJustify ? 0 : LeftOf(Rect, line.Width(), Alignment);
      line.Draw(Rect.Left + shift, top);
      top += line.Height();
    }
    if (lines->Overflow) DrawCutLine(*lines->Get(whole), Rect, top, Alignment, markerWidth);
  }
  if (lines->Overflow) Canvas.TextOut(Rect.Right - markerWidth, Rect.Bottom - Canvas.TextHeight(u"0"), kMarker);
  return !lines->Overflow;
}

TRect HTML2CanvasSize(std::u16string_view Text, TCanvas& Canvas, bool Wrap, int LineCount, int Width, Extended Scale) {
  const std::unique_ptr<TDecoLines> lines = ParseTinyHTML(
      Text, Canvas, {.Rect = {0, 0, Wrap ? Width : 0, 0}, .Scale = Scale, .LineCount = LineCount, .SizeOnly = true});
  const TCanvasFontScope font(Canvas);
  TRect size;
  int64_t height = 0;
  for (int i = 0; i < lines->GetCount(); ++i) {
    size.Right = std::max(size.Right, lines->Get(i)->Width());
    height += lines->Get(i)->Height();
  }
  height += int64_t{std::max(LineCount - lines->GetCount(), 0)} * std::max(LastSize(*lines), 0);
  size.Bottom = static_cast<int>(std::min<int64_t>(height, INT32_MAX));
  return size;
}

}  // namespace vx
