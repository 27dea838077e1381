#include "controls/uVxFilter/detail/FilterPaint.h"

#include "platform/TCanvas.h"

namespace vx::detail {

namespace {

TRect Middle(const TRect& Rect, int Width, int Height) {
  const int left = Rect.Left + (Rect.Width() - Width) / 2, top = Rect.Top + (Rect.Height() - Height) / 2;
  return {left, top, left + Width, top + Height};
}

void Box(TCanvas& Canvas, const TRect& Rect) {
  Canvas.SetBrush({clWindow});
  Canvas.FillRect(Rect);
  Canvas.SetBrush({clBtnShadow});
  Canvas.FrameRect(Rect);
}

void Tick(TCanvas& Canvas, const TRect& Box) {
  Canvas.SetPen({clWindowText, 2});
  Canvas.MoveTo(Box.Left + 3, Box.Top + 6);
  Canvas.LineTo(Box.Left + 6, Box.Top + 9);
  Canvas.LineTo(Box.Left + 11, Box.Top + 3);
}

}  // namespace

void PaintText(TCanvas& Canvas, const TRect& Rect, const String& Text, TColor Color) {
  if (Text.empty() || Rect.Width() <= 0) return;
  TFont font = Canvas.GetFont();
  font.Color = Color;
  Canvas.SetFont(font);
  Canvas.SetBrush({clWindow, bsClear});
  Canvas.TextRect(Rect, Rect.Left + 2, Rect.Top + (Rect.Height() - Canvas.TextHeight(Text)) / 2, Text);
}

void PaintArrow(TCanvas& Canvas, const TRect& Rect) {
  const TRect arrow = Middle(Rect, 7, 4);
  Canvas.SetPen({clWindowText});
  for (int i = 0; i < 4; ++i) {
    Canvas.MoveTo(arrow.Left + i, arrow.Top + i);
    Canvas.LineTo(arrow.Right - i, arrow.Top + i);
  }
}

void PaintCheckBox(TCanvas& Canvas, const TRect& Rect, bool Checked) {
  const TRect box = Middle(Rect, 13, 13);
  Box(Canvas, box);
  if (Checked) Tick(Canvas, box);
}

void PaintMultiSelect(TCanvas& Canvas, const TRect& Rect, bool Down) {
  if (Down) {
    Canvas.SetBrush({clHighlight});
    Canvas.FillRect(Rect);
  }
  const TRect all = Middle(Rect, 14, 14);
  Box(Canvas, {all.Left, all.Top, all.Right - 3, all.Bottom - 3});
  Box(Canvas, {all.Left + 3, all.Top + 3, all.Right, all.Bottom});
  Canvas.SetPen({clWindowText});
  Canvas.MoveTo(all.Left + 5, all.Top + 8);
  Canvas.LineTo(all.Left + 8, all.Top + 11);
  Canvas.LineTo(all.Left + 12, all.Top + 5);
}

}  // namespace vx::detail
