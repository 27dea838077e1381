#include "desktop/detail/TablePicture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

#include "controls/NightColors.h"
#include "desktop/QtValues.h"

namespace vx::detail {

void TTablePicture::SetSize(QSize Size, double Scale, bool IsNight) {
  if (Size == FSize && Scale == FScale && IsNight == FIsNight && !FImage.isNull()) return;
  FSize = Size;
  FScale = Scale;
  FIsNight = IsNight;
  const auto pixels = [Scale](int size) { return std::max(static_cast<int>(std::ceil(size * Scale)), 1); };
  FImage = QImage();
  FBitmap = TBitmap(pf32bit, pixels(Size.width()), pixels(Size.height()));
  // All pixels are opaque, and say so, as Qt wants it.
  FBitmap.SetAlphaFormat(afPremultiplied);
  FImage = QImage(FBitmap.GetScanline(0), FBitmap.GetWidth(), FBitmap.GetHeight(), FBitmap.GetStride(),
                  QImage::Format_RGB32);
  FImage.setDevicePixelRatio(Scale);
  FDirty = QRegion();
  Invalidate();
}

void TTablePicture::Scroll(const QRect& Area, int DX, int DY) {
  const double stepX = DX * FScale, stepY = DY * FScale;
  const bool isWhole = stepX == std::floor(stepX) && stepY == std::floor(stepY);
  if (!isWhole || std::abs(DX) >= Area.width() || std::abs(DY) >= Area.height()) {
    Invalidate(Area);
    return;
  }
  const auto pixel = [this](int place) { return static_cast<int>(std::floor(place * FScale + 0.5)); };
  const int dx = static_cast<int>(stepX), dy = static_cast<int>(stepY);
  const int left = pixel(Area.left()), right = std::min(pixel(Area.right() + 1), FBitmap.GetWidth());
  const int top = pixel(Area.top()), bottom = std::min(pixel(Area.bottom() + 1), FBitmap.GetHeight());
  const int from = std::max(left, left - dx), to = std::min(right, right - dx);
  if (from < to) {
    const size_t bytes = static_cast<size_t>(to - from) * 4;
    uint8_t* bits = FBitmap.GetScanline(0);
    const auto row = [&](int y, int x) {
      return bits + static_cast<ptrdiff_t>(y) * FBitmap.GetStride() + static_cast<ptrdiff_t>(x) * 4;
    };
    for (int i = 0; i < bottom - top - std::abs(dy); ++i) {
      const int y = dy > 0 ? bottom - 1 - i : top + i;
      std::memmove(row(y, from + dx), row(y - dy, from), bytes);
    }
  }
  // What was to be painted goes along.
  const QRegion moved = (FDirty & Area).translated(DX, DY) & Area;
  FDirty = (FDirty - Area) + moved + (QRegion(Area) - Area.translated(DX, DY));
}

void TTablePicture::Refresh(FunctionRef<void(TCanvas&, const TRect&)> Paint) {
  if (FIsNight) {
    // A device of its own for each time, as the desktop's colours may have changed.
    TCanvas night(std::make_unique<TNightDevice>(FBitmap.GetCanvas().GetDevice()));
    Refresh(night, Paint);
  } else {
    Refresh(FBitmap.GetCanvas(), Paint);
  }
}

void TTablePicture::Refresh(TCanvas& Canvas, FunctionRef<void(TCanvas&, const TRect&)> Paint) {
  const TCanvasState saved(Canvas);
  Canvas.SetScale(FScale);
  // Pieces that lie apart by little are painted as one.
  if (FDirty.rectCount() > 8) FDirty = FDirty.boundingRect();
  FDirty &= QRect(QPoint(), FSize);
  for (const QRect& rect : FDirty) Paint(Canvas, FromQt(rect));
  FDirty = QRegion();
}

void TTablePicture::Show(QPainter& Painter, const QRegion& Region) const {
  Painter.setClipRegion(Region);
  Painter.drawImage(QPoint(), FImage);
}

}  // namespace vx::detail
