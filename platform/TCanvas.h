// A surface to draw on: the one painter of cells and controls, whatever stands behind it.
//
//   TCanvas         the state (font, brush, pen, clip, alignment) and all operations
//   TCanvasState    puts the state of a canvas back at the end of a block
//   TCanvasLock     holds a canvas for one thread for the length of a block
//   TBrush, TPen, TGradient, TTextVertical, TDeviceKind    what it is told by
//
// Example:
//   void Cell(vx::TCanvas& canvas, const vx::TRect& rect, const vx::String& text) {
//     vx::TCanvasState saved(canvas);
//     canvas.SetBrush({vx::clInfoBk});
//     canvas.FillRect(rect);
//     canvas.SetBrush({vx::clInfoBk, vx::bsClear});     // the text leaves the ground as it is
//     canvas.TextRect(rect, rect.Right - canvas.TextWidth(text), rect.Top, text);
//   }
//
// Positions are whole pixels, X growing to the right and Y downwards, held to -2^27 to 2^27. The right
// and bottom side of a rectangle lie behind its last pixel; an empty one draws nothing. What lies outside
// the clip is never touched.
//
// Pitfalls:
//   - A line leaves out its last point, so that lines that follow one another meet no pixel twice.
//   - TextOut fills the place of its text with the brush unless the brush is bsClear.
//   - FrameRect draws with the brush, Rectangle with the pen.
//   - Widths are whole pixels a character: the width of a text is the sum over its parts where no part
//     needs shaping, and a scale of the device doesn't change it.
#pragma once

#include <memory>
#include <mutex>
#include <string_view>

#include "platform/Graphics.h"

namespace vx {

class TBitmap;
class TCanvasDevice;

enum TBrushStyle : uint8_t { bsSolid, bsClear };
struct TBrush {
  TColor Color = clWhite;
  TBrushStyle Style = bsSolid;
  friend bool operator==(const TBrush&, const TBrush&) noexcept = default;
};

enum TPenStyle : uint8_t { psSolid, psDash, psDot, psClear };
struct TPen {
  TColor Color = clBlack;
  int Width = 1;  // pixels; below 1 counts as 1
  TPenStyle Style = psSolid;
  friend bool operator==(const TPen&, const TPen&) noexcept = default;
};

enum TGradientDirection : uint8_t { gdHorizontal, gdVertical };
struct TGradient {
  TColor From = clWhite;  // at the left or the top
  TColor To = clBlack;    // at the other end; with Bell in the middle, and From at both ends
  TGradientDirection Direction = gdVertical;
  bool Bell = false;  // the way from From to To and back is shaped like a bell
  friend bool operator==(const TGradient&, const TGradient&) noexcept = default;
};

// What the Y of a text is: its top, or the line that its letters stand on.
enum TTextVertical : uint8_t { tvTop, tvBaseline };

enum TDeviceKind : uint8_t { dkScreen, dkPrinter, dkMetafile };

// Figures of the canvas's font, in pixels.
struct TFontMetrics {
  int Ascent = 0;    // above the base line
  int Descent = 0;   // below it
  int Overhang = 0;  // what a synthesised bold or slanted letter takes beyond its width
  int Height() const noexcept { return Ascent + Descent; }
  friend bool operator==(const TFontMetrics&, const TFontMetrics&) noexcept = default;
};

class TCanvas {
 public:
  explicit TCanvas(std::unique_ptr<TCanvasDevice> Device);
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;
  virtual ~TCanvas();

  TCanvasDevice& GetDevice() const noexcept { return *FDevice; }
  TDeviceKind GetKind() const noexcept;
  // Of the device; X across, Y down.
  TPoint GetPixelsPerInch() const noexcept;

  // Size is in points at the PixelsPerInch of the canvas's font: the device's, on a metafile the screen's.
  // SetFont keeps them whatever those of Font are.
  const TFont& GetFont() const noexcept { return FState.Font; }
  void SetFont(const TFont& Font);
  void SetFontPixelsPerInch(int PixelsPerInch);
  const TBrush& GetBrush() const noexcept { return FState.Brush; }
  void SetBrush(const TBrush& Brush) noexcept { FState.Brush = Brush; }
  const TPen& GetPen() const noexcept { return FState.Pen; }
  void SetPen(const TPen& Pen) noexcept { FState.Pen = Pen; }
  TPoint GetPenPos() const noexcept { return FState.PenPos; }
  TTextVertical GetTextVertical() const noexcept { return FState.TextVertical; }
  void SetTextVertical(TTextVertical Vertical) noexcept { FState.TextVertical = Vertical; }
  // Texts run upwards, from Y on, with their tops to the left: turned by 90 degrees about (X, Y).
  bool GetTextUpward() const noexcept { return FState.TextUpward; }
  void SetTextUpward(bool Upward) noexcept { FState.TextUpward = Upward; }
  // True (at first): a solid brush fills the ground of texts. False: it never does.
  bool GetTextOpaque() const noexcept { return FState.TextOpaque; }
  void SetTextOpaque(bool Opaque) noexcept { FState.TextOpaque = Opaque; }

  // The part that may be drawn on, never more than the device has.
  TRect GetClip() const noexcept;
  void SetClip(const TRect& Clip) noexcept;
  void IntersectClip(const TRect& Clip) noexcept;
  void ResetClip() noexcept;
  // What the device multiplies all positions and sizes by; measuring and the clip are told in pixels
  // before that. 1 at first; a scale not above 0 counts as 1.
  double GetScale() const noexcept { return FState.Scale; }
  void SetScale(double Scale) noexcept;

  void MoveTo(int X, int Y) noexcept;
  // A line of the pen from its place to (X, Y), which becomes its place.
  void LineTo(int X, int Y);
  // The interior by the brush, the border, inside the rectangle, by the pen; sides may stand the wrong way
  // round.
  void Rectangle(const TRect& Rect);
  void Ellipse(const TRect& Rect);
  void FillRect(const TRect& Rect);
  // A border of one pixel by the brush.
  void FrameRect(const TRect& Rect);
  void GradientRect(const TRect& Rect, const TGradient& Gradient);
  void GradientEllipse(const TRect& Rect, const TGradient& Gradient);

  // A bitmap in its size, or stretched into a rectangle. Transparent pixels of a transparent bitmap are
  // left out, and the fourth byte of a bitmap with transparency counts.
  void Draw(int X, int Y, const TBitmap& Bitmap);
  void StretchDraw(const TRect& Rect, const TBitmap& Bitmap);
  // The part Source of the bitmap stretched into Rect, without the pixels of the colour Transparent.
  void TransparentBlt(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, TColor Transparent);

  void TextOut(int X, int Y, std::u16string_view Text);
  // TextOut clipped to Rect, of which the brush, unless it is bsClear, fills all.
  void TextRect(const TRect& Rect, int X, int Y, std::u16string_view Text);

  // Of the text in the canvas's font, in pixels. An empty text is 0 wide and 0 high, every other one as
  // high as the font. Code units below 32 count as blanks.
  int TextWidth(std::u16string_view Text) const;
  int TextHeight(std::u16string_view Text) const;
  // The width of the first Count code units of Text, Count held to the text.
  int TextPrefixWidth(std::u16string_view Text, int Count) const;
  TFontMetrics GetFontMetrics() const;

  // Holds the canvas for the calling thread, as often as wanted; each Lock needs its Unlock.
  void Lock() { FMutex.lock(); }
  void Unlock() { FMutex.unlock(); }
  bool TryLock() { return FMutex.try_lock(); }

 private:
  friend class TCanvasState;
  struct TState {
    TFont Font;
    TBrush Brush;
    TPen Pen;
    TPoint PenPos;
    TTextVertical TextVertical = tvTop;
    bool TextUpward = false;
    bool TextOpaque = true;
    bool Clipped = false;
    TRect Clip;
    double Scale = 1;
  };
  void Restore(const TState& State);
  // Tell the device clip and scale, or the font, if they changed since it was told. False for an empty clip.
  bool TellClip() const noexcept;
  void TellFont() const;
  void DrawPicture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent);
  void DrawTextAt(int X, int Y, std::u16string_view Text);
  TRect TextGround(int X, int Y, std::u16string_view Text) const;

  const std::unique_ptr<TCanvasDevice> FDevice;
  TState FState;
  mutable bool FFontTold = false;
  mutable bool FClipTold = true;
  std::recursive_mutex FMutex;
};

// Takes the state of a canvas (all that has a setter, and the place of the pen) and puts it back in the end.
class TCanvasState {
 public:
  explicit TCanvasState(TCanvas& Canvas) : FCanvas(Canvas), FState(Canvas.FState) {}
  ~TCanvasState() { FCanvas.Restore(FState); }
  TCanvasState(const TCanvasState&) = delete;
  TCanvasState& operator=(const TCanvasState&) = delete;

 private:
  TCanvas& FCanvas;
  TCanvas::TState FState;
};

class TCanvasLock {
 public:
  explicit TCanvasLock(TCanvas& Canvas) : FCanvas(Canvas) { FCanvas.Lock(); }
  ~TCanvasLock() { FCanvas.Unlock(); }
  TCanvasLock(const TCanvasLock&) = delete;
  TCanvasLock& operator=(const TCanvasLock&) = delete;

 private:
  TCanvas& FCanvas;
};

}  // namespace vx
