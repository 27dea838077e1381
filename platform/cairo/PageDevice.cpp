#include "platform/cairo/PageDevice.h"

#include <cmath>

#include "platform/cairo/Painter.h"

namespace vx::drawing {

TPageDevice::TPageDevice(cairo_surface_t* Surface, TPoint Size, TPoint PixelsPerInch)
    : TFaceDevice(PixelsPerInch), FCairo(cairo_create(Surface)), FSize(Size) {
  cairo_scale(FCairo.get(), 72.0 / PixelsPerInch.X, 72.0 / PixelsPerInch.Y);
  cairo_save(FCairo.get());
  Check();
}

TRect TPageDevice::Bounds() const noexcept {
  return {0, 0, static_cast<int>(std::ceil(FSize.X / FScale)), static_cast<int>(std::ceil(FSize.Y / FScale))};
}

void TPageDevice::Check() {
  if (FFinished) RaiseClosed();
  CheckStatus(cairo_status(FCairo.get()));
}

// The state before the clip is kept below, so that each clip begins from there.
void TPageDevice::SetClip(const TRect* Clip, double Scale) noexcept {
  FScale = Scale;
  cairo_restore(FCairo.get());
  cairo_save(FCairo.get());
  cairo_scale(FCairo.get(), Scale, Scale);
  if (!Clip) return;
  cairo_rectangle(FCairo.get(), Clip->Left, Clip->Top, Clip->Width(), Clip->Height());
  cairo_clip(FCairo.get());
}

void TPageDevice::Fill(const TRect& Rect, TColor Color) {
  PaintFill(FCairo.get(), Rect, Color);
  Check();
}

void TPageDevice::Frame(const TRect& Rect, const TPen& Pen) {
  PaintFrame(FCairo.get(), Rect, Pen);
  Check();
}

void TPageDevice::Line(TPoint From, TPoint To, const TPen& Pen) {
  PaintLine(FCairo.get(), From, To, Pen);
  Check();
}

void TPageDevice::Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  PaintEllipse(FCairo.get(), Rect, Brush, Pen);
  Check();
}

void TPageDevice::Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) {
  PaintGradient(FCairo.get(), Rect, Gradient, InEllipse);
  Check();
}

void TPageDevice::Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) {
  PaintPicture(FCairo.get(), Rect, Bitmap, Source, Transparent);
  Check();
}

void TPageDevice::Text(const TTextRun& Run) {
  PaintText(FCairo.get(), *FFace, FStyle, Run, true);
  Check();
}

void TPageDevice::NewPage() {
  cairo_show_page(FCairo.get());
  Check();
}

}  // namespace vx::drawing
