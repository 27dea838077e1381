// A surface that Cairo draws on directly: the page of a file. Of use to this component only.
#pragma once

#include <cairo.h>

#include <memory>

#include "platform/cairo/FaceDevice.h"

namespace vx::drawing {

// Throws EInvalidGraphicOperation from each operation once it is finished.
class TPageDevice final : public TFaceDevice {
 public:
  // Pages of Size pixels, each a 72nd inch divided by the pixels per inch large.
  TPageDevice(cairo_surface_t* Surface, TPoint Size, TPoint PixelsPerInch);

  TDeviceKind Kind() const noexcept override { return dkPrinter; }
  TRect Bounds() const noexcept override;
  void SetClip(const TRect* Clip, double Scale) noexcept override;
  void Fill(const TRect& Rect, TColor Color) override;
  void Frame(const TRect& Rect, const TPen& Pen) override;
  void Line(TPoint From, TPoint To, const TPen& Pen) override;
  void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) override;
  void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) override;
  void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) override;
  void Text(const TTextRun& Run) override;

  void NewPage();
  // Nothing more can be drawn.
  void Finish() noexcept { FFinished = true; }

 private:
  void Check();

  TCairo FCairo;
  const TPoint FSize;
  double FScale = 1;
  bool FFinished = false;
};

}  // namespace vx::drawing
