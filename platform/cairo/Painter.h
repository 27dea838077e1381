// What devices draw by Cairo, alike on every surface. Positions are those of the device before its scale, which
// the context knows. Of use to this component only.
#pragma once

#include <cairo.h>

#include <vector>

#include "platform/TCanvasDevice.h"
#include "platform/cairo/Face.h"

namespace vx::drawing {

void PaintFill(cairo_t* Cairo, const TRect& Rect, TColor Color);
void PaintFrame(cairo_t* Cairo, const TRect& Rect, const TPen& Pen);
void PaintLine(cairo_t* Cairo, TPoint From, TPoint To, const TPen& Pen);
void PaintEllipse(cairo_t* Cairo, const TRect& Rect, const TColor* Brush, const TPen* Pen);
void PaintGradient(cairo_t* Cairo, const TRect& Rect, const TGradient& Gradient, bool InEllipse);
void PaintPicture(cairo_t* Cairo, const TRect& Rect, const TBitmap& Bitmap, const TRect& Source,
                  const TColor* Transparent);
// With AsText letters are told together with what they are read as, for files that keep texts.
void PaintText(cairo_t* Cairo, TFace& Face, TFontStyles Style, const TTextRun& Run, bool AsText);

// The lines of a horizontal pen of one colour as a rectangle; empty for a pen that needs more.
TRect StraightLine(TPoint From, TPoint To, const TPen& Pen) noexcept;
// The lines under and through a text of such a style, as areas.
std::vector<TRect> TextLines(const TFace& Face, TFontStyles Style, const TTextRun& Run, int Width);
// The share of To at a place from 0 to 1 along a gradient.
double GradientShare(const TGradient& Gradient, double Place) noexcept;
// The colour between two that have been resolved, as 0x00BBGGRR.
TColor MixColors(TColor From, TColor To, double Share) noexcept;
int FaceTextWidth(TFace& Face, std::u16string_view Text);
// Pixels as Cairo takes them: colours multiplied by their opacity. Those left out are clear.
TSurface PictureSurface(const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent);
// The colours of a row of a bitmap as 0xAARRGGBB, not multiplied, with left-out pixels clear.
class TPictureRows {
 public:
  TPictureRows(const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent);
  // All of the bitmap, whatever it calls transparent.
  explicit TPictureRows(const TBitmap& Bitmap);
  // Of the row Source.Top + Row; ends with the next call.
  const uint32_t* Row(int Row);
  // Whether all pixels are fully there.
  bool IsOpaque() const noexcept { return FOpaque; }

 private:
  const TBitmap& FBitmap;
  TRect FSource;
  bool FKeyed = false;
  uint32_t FKey = 0;
  bool FOpaque;
  std::vector<uint32_t> FRow;
};

}  // namespace vx::drawing
