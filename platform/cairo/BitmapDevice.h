// The surface of a bitmap. Of use to this component only.
#pragma once

#include <memory>

#include "platform/TBitmap.h"
#include "platform/cairo/FaceDevice.h"

namespace vx::drawing {

// Fills, straight lines, pictures in their size and letters with masks go straight into the rows; everything
// else is painted beside the bitmap and laid over it.
class TBitmapDevice final : public TFaceDevice {
 public:
  explicit TBitmapDevice(TBitmap& Bitmap);

  TDeviceKind Kind() const noexcept override { return dkScreen; }
  TRect Bounds() const noexcept override;
  void SetClip(const TRect* Clip, double Scale) noexcept override;
  void Fill(const TRect& Rect, TColor Color) override;
  void Frame(const TRect& Rect, const TPen& Pen) override;
  void Line(TPoint From, TPoint To, const TPen& Pen) override;
  void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) override;
  void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) override;
  void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) override;
  void Text(const TTextRun& Run) override;

 private:
  // A rectangle before the scale in pixels of the bitmap, and the part of it that may be drawn on.
  TRect Scaled(const TRect& Rect) const noexcept;
  TRect Visible(const TRect& Pixels) const noexcept;
  void FillPixels(const TRect& Pixels, TColor Color);
  // Calls Change(pixels, count, x) with the pixels of the part of row Y, 0xAARRGGBB in the bitmap's meaning.
  template <typename F>
  void EditRow(int Y, int Left, int Right, F Change);
  // Lays what Paint(cairo) paints within Area (before the scale) over the bitmap.
  template <typename F>
  void Overlay(const TRect& Area, F Paint);
  void OverlayTile(const TRect& Pixels, cairo_surface_t* Surface);
  void StretchPixels(const TRect& Pixels, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent);
  // The face whose masks are those of Text on the bitmap's pixels; nullptr where letters have none.
  TFace* MasksFor(std::u16string_view Text);
  void DrawLetters(TFace& Masks, std::u16string_view Text, TPoint Origin, TColor Color);
  template <int Bytes>
  void DrawMask(const TGlyph& Glyph, const TRect& Part, int X, int Y, uint32_t Pixel);
  void DrawMaskSlowly(const TGlyph& Glyph, const TRect& Part, int X, int Y, uint32_t Rgb);

  TBitmap& FBitmap;
  bool FClipped = false;
  TRect FClip;  // in pixels of the bitmap
  double FScale = 1;
  // FFace, as it is behind the scale.
  std::shared_ptr<TFace> FMasks, FMasksOf;
  double FMasksScale = 1;
};

}  // namespace vx::drawing
