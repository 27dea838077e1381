// What stands behind a canvas: the few operations that a surface has to offer.
//
//   TCanvasDevice    the base of all surfaces
//   TTextRun         a text to draw
//
// Example (a surface that only counts), in outline:
//   class TCounter final : public vx::TCanvasDevice { ... void Fill(const TRect&, TColor) override { ++Fills; } ... };
//   vx::TCanvas canvas(std::make_unique<TCounter>());
//
// The canvas calls with finished figures: rectangles are not empty, positions lie within 2^27, widths of
// pens are at least 1, what a clear brush or pen would draw is not asked for. Colours arrive as they were
// given; the device resolves those of the system by ColorToRGB, last of all. All positions are in pixels
// before the scale.
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include <optional>
#include <string_view>

#include "platform/TCanvas.h"

namespace vx {

struct TTextRun {
  std::u16string_view Text;  // not empty
  TPoint Origin;             // where the base line begins
  TColor Color = clBlack;
  bool Upward = false;  // turned by 90 degrees about Origin
};

class TCanvasDevice {
 public:
  TCanvasDevice() = default;
  TCanvasDevice(const TCanvasDevice&) = delete;
  TCanvasDevice& operator=(const TCanvasDevice&) = delete;
  virtual ~TCanvasDevice() = default;

  virtual TDeviceKind Kind() const noexcept = 0;
  virtual TPoint PixelsPerInch() const noexcept = 0;
  // All that can be drawn on, in pixels before the scale.
  virtual TRect Bounds() const noexcept = 0;

  // From here on nothing outside Clip changes, and all is drawn larger by Scale. Null stands for no clip
  // but the bounds; Clip may reach beyond them, and is empty only when nothing follows.
  virtual void SetClip(const TRect* Clip, double Scale) noexcept = 0;
  virtual void Fill(const TRect& Rect, TColor Color) = 0;
  // A border of Pen.Width pixels inside Rect.
  virtual void Frame(const TRect& Rect, const TPen& Pen) = 0;
  // Without the point To.
  virtual void Line(TPoint From, TPoint To, const TPen& Pen) = 0;
  // The ellipse that touches the four sides; Pen or Brush may be null, not both.
  virtual void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) = 0;
  // In all of Rect or in its ellipse.
  virtual void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) = 0;
  // The part Source of Bitmap, inside it, stretched into Rect. Pixels of the colour Transparent are left
  // out; without it, those that the bitmap itself calls transparent.
  virtual void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) = 0;

  // The font of what is measured and drawn from here on. Its size is at its own PixelsPerInch.
  virtual void SetFont(const TFont& Font) = 0;
  virtual TFontMetrics Metrics() = 0;
  virtual int TextWidth(std::u16string_view Text) = 0;
  // The width of a unit that needs no shaping: a text of such units alone is as wide as all of them. -1 for any other.
  virtual int Advance(char16_t /*Unit*/) { return -1; }
  // Draws exactly as wide as TextWidth says, underlined or struck out as the font says.
  virtual void Text(const TTextRun& Run) = 0;
};

// The height of a font's em square in pixels: its points at its PixelsPerInch, rounded, at least 1.
int FontPixels(const TFont& Font) noexcept;

}  // namespace vx
