// What stands behind a canvas that draws by a painter of Qt.
#pragma once

#include <QFont>
#include <QHash>
#include <QPainter>
#include <QRawFont>
#include <memory>
#include <vector>

#include "platform/TCanvasDevice.h"

namespace vx::detail {

// A font as it is measured and drawn: letters that need no shaping one by one, each as wide as its font says in whole
// pixels, and any other text by Qt's layout.
class TPainterFace {
 public:
  struct TLetter {
    quint32 Glyph = 0;
    int Advance = -1;  // below 0: needs shaping
  };
  explicit TPainterFace(const TFont& Font);
  TFontMetrics Metrics() const;
  TLetter Letter(char16_t Unit);
  bool IsSimple(std::u16string_view Text);
  int Width(std::u16string_view Text);
  // With its base line beginning at (0, 0).
  void Draw(QPainter& Painter, std::u16string_view Text);
  int GetEm() const noexcept { return FFont.pixelSize(); }

 private:
  QFont FFont;
  QRawFont FRaw;
  QHash<char16_t, TLetter> FLetters;
};

// Painter is not owned, and is drawn on as long as it is active.
class TPainterDevice final : public TCanvasDevice {
 public:
  TPainterDevice(QPainter& Painter, TPoint Size, TPoint PixelsPerInch, TDeviceKind Kind);
  ~TPainterDevice() override;

  TDeviceKind Kind() const noexcept override { return FKind; }
  TPoint PixelsPerInch() const noexcept override { return FPixelsPerInch; }
  TRect Bounds() const noexcept override;
  void SetClip(const TRect* Clip, double Scale) noexcept override;
  void Fill(const TRect& Rect, TColor Color) override;
  void Frame(const TRect& Rect, const TPen& Pen) override;
  void Line(TPoint From, TPoint To, const TPen& Pen) override;
  void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) override;
  void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) override;
  void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) override;
  void SetFont(const TFont& Font) override;
  TFontMetrics Metrics() override { return FFace->Metrics(); }
  int TextWidth(std::u16string_view Text) override { return FFace->Width(Text); }
  int Advance(char16_t Unit) override { return FFace->Letter(Unit).Advance; }
  void Text(const TTextRun& Run) override;

 private:
  void Stroke(QPointF From, QPointF To, const TPen& Pen);

  QPainter& FPainter;
  const TPoint FSize, FPixelsPerInch;
  const TDeviceKind FKind;
  double FScale = 1;
  TFont FFont;
  std::shared_ptr<TPainterFace> FFace;
  std::vector<std::pair<TFont, std::shared_ptr<TPainterFace>>> FFaces;  // those used last, the newest at the end
};

}  // namespace vx::detail
