#include "rendering/uDecoration/detail/CellPainter.h"

namespace vx::detail {
namespace {

// Decimals, numerator and denominator.
constexpr std::u16string_view kFractions[] = {u"5012", u"2514", u"7534", u"3313", u"6723",
                                              u"2015", u"4025", u"6035", u"8045"};

std::u16string_view FractionOf(std::u16string_view Decimals) noexcept {
  for (std::u16string_view fraction : kFractions) {
    if (fraction.substr(0, 2) == Decimals) return fraction.substr(2);
  }
  return {};
}

// The numerator at the top left, the denominator at the bottom right.
void PaintDigits(TCanvas& Canvas, const TRect& Rect, std::u16string_view Digits) {
  const TFont font = Canvas.GetFont();
  const TBrush brush = Canvas.GetBrush();
  TFont small = font;
  small.Size = static_cast<int>(int64_t{font.Size} * 3 / 4);
  Canvas.SetFont(small);
  Canvas.SetBrush({brush.Color, bsClear});
  const std::u16string_view below = Digits.substr(1);
  Canvas.TextOut(Rect.Left, Rect.Top, Digits.substr(0, 1));
  Canvas.TextOut(Rect.Right - Canvas.TextWidth(below), Rect.Bottom - Canvas.TextHeight(below), below);
  Canvas.SetFont(font);
  Canvas.SetBrush(brush);
}

void PaintStroke(TCanvas& Canvas, const TRect& Rect) {
  const int inset = Rect.Width() / 10;
  const auto line = [&](int shift) {
    TDecorator::DrawLine(Canvas, Rect.Left + inset + shift, Rect.Bottom - inset, Rect.Right - inset + shift,
                         Rect.Top + inset, Canvas.GetFont().Color);
  };
  line(0);
  if (inset <= 5) return;
  line(-1);
  line(1);
}

}  // namespace

bool HasFractionGlyph(std::u16string_view Text) noexcept {
  return Text.size() >= 2 && !FractionOf(Text.substr(Text.size() - 2)).empty();
}

void PaintFraction(TCanvas& Canvas, TPoint At, std::u16string_view Text) {
  if (!HasFractionGlyph(Text)) return Canvas.TextOut(At.X, At.Y, Text);
  const size_t whole = Text.size() - 2;
  const std::u16string_view units = Text.substr(0, whole);
  TRect rect = RectAt(At, {Canvas.TextWidth(Text), Canvas.TextHeight(Text)});
  if (!units.empty()) {
    Canvas.TextOut(At.X, At.Y, units);
    rect.Left = Moved(rect.Left, Canvas.TextWidth(units) + Canvas.TextWidth(u",") / 2);
  } else if (Canvas.GetTextOpaque()) {
    const TPen pen = Canvas.GetPen();
    Canvas.SetPen({Canvas.GetBrush().Color});
    Canvas.Rectangle(rect);
    Canvas.SetPen(pen);
  }
  PaintDigits(Canvas, rect, FractionOf(Text.substr(whole)));
  PaintStroke(Canvas, rect);
}

}  // namespace vx::detail
