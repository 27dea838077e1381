// The text of a gauge.
#include <algorithm>

#include "controls/uVxGauge/TVxPaintObject.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "platform/TCanvas.h"

namespace vx {

namespace {

// Text, or as much of its beginning as fits into Width pixels with ".." behind it.
String FittedText(const TCanvas& Canvas, const String& Text, int64_t Width) {
  if (Canvas.TextWidth(Text) <= Width) return Text;
  constexpr std::u16string_view kMore = u"..";
  const int64_t room = Width - Canvas.TextWidth(kMore);
  if (room < 0) return {};
  int fits = 0, tooLong = Text.size();
  while (tooLong - fits > 1) {
    const int middle = fits + (tooLong - fits) / 2;
    (Canvas.TextPrefixWidth(Text, middle) <= room ? fits : tooLong) = middle;
  }
  std::u16string_view start = Text.view().substr(0, static_cast<size_t>(fits));
  if (!start.empty() && (start.back() & 0xFC00) == 0xD800) start.remove_suffix(1);
  return Concat({start, kMore});
}

}  // namespace

String TVxPaintObject::GetText() const {
  String text;
  const auto add = [&text](std::u16string_view Blanks, const String& Part) {
    text = text.empty() ? Part : Concat({text, Blanks, Part});
  };
  if (iCaptionShow) add({}, iCaption);
  if (iPercentShow) add(u"  ", Concat({FormatFloat(u"###,##0.00", CalcPercent(iPosition, iMax, iMin)), u"%"}));
  if (iValueShow) {
    const std::u16string_view blanks = iPercentShow && iCaptionAlignment != taRightJustify ? u"   " : u" ";
    add(blanks, Concat({FloatToStr(iPosition - iMin), u" von ", FloatToStr(iMax - iMin)}));
  }
  return text;
}

void TVxPaintObject::PaintText(TBitmap& Bitmap) const {
  const String whole = GetText();
  if (whole.empty()) return;
  TCanvas& canvas = Bitmap.GetCanvas();
  const TCanvasLock lock(canvas);
  const TCanvasState saved(canvas);
  canvas.SetFont(iFont);
  canvas.SetBrush({clWhite, bsClear});
  const int width = Bitmap.GetWidth(), height = Bitmap.GetHeight();
  const String text = FittedText(canvas, whole, width - int64_t{2} * iCaptionMargin);
  int64_t left = iCaptionMargin;
  if (iCaptionAlignment == taRightJustify) left = int64_t{width} - iCaptionMargin - canvas.TextWidth(text);
  if (iCaptionAlignment == taCenter) left = (width - canvas.TextWidth(text)) / 2;
  const int x = static_cast<int>(std::clamp(left, int64_t{INT32_MIN} / 2, int64_t{INT32_MAX} / 2));
  const int y = (height - canvas.TextHeight(text)) / 2;
  const auto write = [&](int Offset, TColor Color) {
    TFont font = iFont;
    font.Color = Color;
    canvas.SetFont(font);
    canvas.TextRect({0, 0, width, height}, x + Offset, y + Offset, text);
  };
  if (iCaptionShadow) write(1, iCaptionShadowColor);
  write(0, iFont.Color);
}

}  // namespace vx
