#include "desktop/QtPictures.h"

#include <algorithm>
#include <span>

#include "platform/TBitmap.h"

namespace vx {

namespace {

constexpr uint32_t kColors = 0x00FFFFFF;

// 0x00RRGGBB of 0x00BBGGRR.
uint32_t RowColor(TColor Color) noexcept { return (Color & 0xFF) << 16 | (Color & 0xFF00) | (Color >> 16 & 0xFF); }

}  // namespace

QImage ToQt(const TBitmap& Bitmap) {
  if (Bitmap.GetEmpty()) return {};
  const bool hasAlpha = Bitmap.GetTransparent() || Bitmap.GetAlphaFormat() != afIgnored;
  QImage image(Bitmap.GetWidth(), Bitmap.GetHeight(), hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  const uint32_t none = RowColor(Bitmap.GetTransparent() ? Bitmap.GetTransparentColor() : clNone);
  for (int y = 0; y < image.height(); ++y) {
    const std::span row(reinterpret_cast<uint32_t*>(image.scanLine(y)), static_cast<size_t>(image.width()));
    Bitmap.GetRow(y, row);
    if (!Bitmap.GetTransparent()) continue;
    std::replace_if(
        row.begin(), row.end(), [none](uint32_t pixel) { return (pixel & kColors) == none; }, 0U);
  }
  return image;
}

}  // namespace vx
