#include "platform/TCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Drawing.h"
#include "platform/TBitmap.h"
#include "platform/TCanvasDevice.h"

namespace vx {

namespace {

constexpr int kFarthest = 1 << 27;

int Held(int Position) noexcept { return std::clamp(Position, -kFarthest, kFarthest); }
TPoint Held(TPoint Place) noexcept { return {Held(Place.X), Held(Place.Y)}; }
TRect Held(const TRect& Rect) noexcept {
  return {Held(Rect.Left), Held(Rect.Top), Held(Rect.Right), Held(Rect.Bottom)};
}
// With its sides the right way round.
TRect Upright(const TRect& Rect) noexcept {
  const TRect held = Held(Rect);
  return {std::min(held.Left, held.Right), std::min(held.Top, held.Bottom), std::max(held.Left, held.Right),
          std::max(held.Top, held.Bottom)};
}
TPen Drawable(const TPen& Pen) noexcept { return {Pen.Color, std::clamp(Pen.Width, 1, kFarthest), Pen.Style}; }

// Whether both are drawn by the same letters.
bool SameFace(const TFont& A, const TFont& B) noexcept {
  return A.Size == B.Size && A.Style == B.Style && A.PixelsPerInch == B.PixelsPerInch && A.Name == B.Name;
}

}  // namespace

int FontPixels(const TFont& Font) noexcept {
  const int64_t twice = (int64_t{Font.Size} * Font.PixelsPerInch * 2 + 72) / 72;
  return static_cast<int>(std::clamp<int64_t>(twice / 2, 1, kFarthest));
}

TCanvas::TCanvas(std::unique_ptr<TCanvasDevice> Device) : FDevice(std::move(Device)) {
  FState.Font.PixelsPerInch = FDevice->Kind() == dkMetafile ? GetScreenPixelsPerInch().Y : FDevice->PixelsPerInch().Y;
}
TCanvas::~TCanvas() = default;

TDeviceKind TCanvas::GetKind() const noexcept { return FDevice->Kind(); }
TPoint TCanvas::GetPixelsPerInch() const noexcept { return FDevice->PixelsPerInch(); }

void TCanvas::SetFont(const TFont& Font) {
  const int pixelsPerInch = FState.Font.PixelsPerInch;
  if (Font.Size != FState.Font.Size || Font.Style != FState.Font.Style || Font.Name != FState.Font.Name) {
    FFontTold = false;
  }
  FState.Font = Font;
  FState.Font.PixelsPerInch = pixelsPerInch;
}

void TCanvas::SetFontPixelsPerInch(int PixelsPerInch) {
  FState.Font.PixelsPerInch = std::max(PixelsPerInch, 1);
  FFontTold = false;
}

void TCanvas::Restore(const TState& State) {
  if (!SameFace(State.Font, FState.Font)) FFontTold = false;
  FClipTold = false;
  FState = State;
}

// --- clip and scale

TRect TCanvas::GetClip() const noexcept {
  TellClip();
  return FState.Clipped ? IntersectRect(FState.Clip, FDevice->Bounds()) : FDevice->Bounds();
}

void TCanvas::SetClip(const TRect& Clip) noexcept {
  FState.Clip = Held(Clip);
  FState.Clipped = true;
  FClipTold = false;
}

void TCanvas::IntersectClip(const TRect& Clip) noexcept {
  SetClip(FState.Clipped ? IntersectRect(FState.Clip, Held(Clip)) : Held(Clip));
}

void TCanvas::ResetClip() noexcept {
  FState.Clipped = false;
  FClipTold = false;
}

void TCanvas::SetScale(double Scale) noexcept {
  FState.Scale = std::isfinite(Scale) && Scale > 0 ? Scale : 1;
  FClipTold = false;
}

bool TCanvas::TellClip() const noexcept {
  if (!FClipTold) FDevice->SetClip(FState.Clipped ? &FState.Clip : nullptr, FState.Scale);
  FClipTold = true;
  return !FState.Clipped || !FState.Clip.IsEmpty();
}

void TCanvas::TellFont() const {
  if (FFontTold) return;
  FDevice->SetFont(FState.Font);
  FFontTold = true;
}

// --- lines and areas

void TCanvas::MoveTo(int X, int Y) noexcept { FState.PenPos = Held(TPoint{X, Y}); }

void TCanvas::LineTo(int X, int Y) {
  const TPoint from = std::exchange(FState.PenPos, Held(TPoint{X, Y}));
  if (FState.Pen.Style == psClear || from == FState.PenPos || !TellClip()) return;
  FDevice->Line(from, FState.PenPos, Drawable(FState.Pen));
}

void TCanvas::Rectangle(const TRect& Rect) {
  const TRect rect = Upright(Rect);
  if (rect.IsEmpty() || !TellClip()) return;
  const TPen pen = Drawable(FState.Pen);
  const TBrush& brush = FState.Brush;
  const bool framed = pen.Style != psClear;
  if (brush.Style == bsSolid) {
    const bool oneColor = pen.Style == psSolid && pen.Color == brush.Color;
    const int64_t inset = pen.Style == psSolid && !oneColor ? pen.Width : 0;
    if (inset * 2 < rect.Width() && inset * 2 < rect.Height()) {
      const int by = static_cast<int>(inset);
      FDevice->Fill({rect.Left + by, rect.Top + by, rect.Right - by, rect.Bottom - by}, brush.Color);
    }
    if (oneColor) return;
  }
  if (framed) FDevice->Frame(rect, pen);
}

void TCanvas::Ellipse(const TRect& Rect) {
  const TRect rect = Upright(Rect);
  const bool filled = FState.Brush.Style == bsSolid;
  const bool framed = FState.Pen.Style != psClear;
  if (rect.IsEmpty() || (!filled && !framed) || !TellClip()) return;
  const TPen pen = Drawable(FState.Pen);
  FDevice->Ellipse(rect, filled ? &FState.Brush.Color : nullptr, framed ? &pen : nullptr);
}

void TCanvas::FillRect(const TRect& Rect) {
  const TRect rect = Held(Rect);
  if (rect.IsEmpty() || FState.Brush.Style == bsClear || !TellClip()) return;
  FDevice->Fill(rect, FState.Brush.Color);
}

void TCanvas::FrameRect(const TRect& Rect) {
  const TRect rect = Held(Rect);
  if (rect.IsEmpty() || FState.Brush.Style == bsClear || !TellClip()) return;
  FDevice->Frame(rect, {FState.Brush.Color});
}

void TCanvas::GradientRect(const TRect& Rect, const TGradient& Gradient) {
  const TRect rect = Held(Rect);
  if (!rect.IsEmpty() && TellClip()) FDevice->Gradient(rect, Gradient, false);
}

void TCanvas::GradientEllipse(const TRect& Rect, const TGradient& Gradient) {
  const TRect rect = Held(Rect);
  if (!rect.IsEmpty() && TellClip()) FDevice->Gradient(rect, Gradient, true);
}

// --- pictures

void TCanvas::Draw(int X, int Y, const TBitmap& Bitmap) {
  const TPoint at = Held(TPoint{X, Y});
  StretchDraw({at.X, at.Y, at.X + Bitmap.GetWidth(), at.Y + Bitmap.GetHeight()}, Bitmap);
}

void TCanvas::StretchDraw(const TRect& Rect, const TBitmap& Bitmap) {
  DrawPicture(Rect, Bitmap, {0, 0, Bitmap.GetWidth(), Bitmap.GetHeight()}, nullptr);
}

void TCanvas::TransparentBlt(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, TColor Transparent) {
  DrawPicture(Rect, Bitmap, Source, &Transparent);
}

void TCanvas::DrawPicture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) {
  const TRect rect = Held(Rect);
  const TRect source = IntersectRect(Source, {0, 0, Bitmap.GetWidth(), Bitmap.GetHeight()});
  if (rect.IsEmpty() || source.IsEmpty() || !TellClip()) return;
  FDevice->Picture(rect, Bitmap, source, Transparent);
}

// --- texts

TRect TCanvas::TextGround(int X, int Y, std::u16string_view Text) const {
  const TFontMetrics metrics = FDevice->Metrics();
  const int above = FState.TextVertical == tvBaseline ? metrics.Ascent : 0;
  const int width = FDevice->TextWidth(Text);
  if (FState.TextUpward) return {X - above, Y - width, X - above + metrics.Height(), Y};
  return {X, Y - above, X + width, Y - above + metrics.Height()};
}

void TCanvas::DrawTextAt(int X, int Y, std::u16string_view Text) {
  const int below = FState.TextVertical == tvTop ? FDevice->Metrics().Ascent : 0;
  const TPoint origin = FState.TextUpward ? TPoint{X + below, Y} : TPoint{X, Y + below};
  FDevice->Text({Text, origin, FState.Font.Color, FState.TextUpward});
}

void TCanvas::TextOut(int X, int Y, std::u16string_view Text) {
  if (Text.empty() || !TellClip()) return;
  TellFont();
  const TPoint at = Held(TPoint{X, Y});
  if (FState.TextOpaque && FState.Brush.Style == bsSolid) {
    const TRect ground = TextGround(at.X, at.Y, Text);
    if (!ground.IsEmpty()) FDevice->Fill(ground, FState.Brush.Color);
  }
  DrawTextAt(at.X, at.Y, Text);
}

void TCanvas::TextRect(const TRect& Rect, int X, int Y, std::u16string_view Text) {
  struct TClipBack {
    TCanvas& Canvas;
    const bool Clipped = Canvas.FState.Clipped;
    const TRect Clip = Canvas.FState.Clip;
    ~TClipBack() {
      Canvas.FState.Clipped = Clipped;
      Canvas.FState.Clip = Clip;
      Canvas.FClipTold = false;
    }
  };
  if (FState.TextOpaque) FillRect(Rect);
  if (Text.empty()) return;
  const TClipBack clip{*this};
  IntersectClip(Rect);
  if (!TellClip()) return;
  TellFont();
  const TPoint at = Held(TPoint{X, Y});
  DrawTextAt(at.X, at.Y, Text);
}

int TCanvas::TextWidth(std::u16string_view Text) const {
  if (Text.empty()) return 0;
  TellFont();
  return FDevice->TextWidth(Text);
}

int TCanvas::TextHeight(std::u16string_view Text) const { return Text.empty() ? 0 : GetFontMetrics().Height(); }

int TCanvas::TextPrefixWidth(std::u16string_view Text, int Count) const {
  return TextWidth(
      Text.substr(0, static_cast<size_t>(std::clamp<int64_t>(Count, 0, static_cast<int64_t>(Text.size())))));
}

TFontMetrics TCanvas::GetFontMetrics() const {
  TellFont();
  return FDevice->Metrics();
}

}  // namespace vx
