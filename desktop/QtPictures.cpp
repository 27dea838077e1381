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

QImage ToQt(const TBitmap& Bitmap, const TColor* Transparent) {
  if (Bitmap.GetEmpty()) return {};
  const bool isKeyed = Transparent != nullptr || Bitmap.GetTransparent();
  const TAlphaFormat alpha = Bitmap.GetAlphaFormat();
  const QImage::Format format = alpha == afPremultiplied        ? QImage::Format_ARGB32_Premultiplied
                                : isKeyed || alpha != afIgnored ? QImage::Format_ARGB32
                                                                : QImage::Format_RGB32;
  QImage image(Bitmap.GetWidth(), Bitmap.GetHeight(), format);
  const uint32_t none = RowColor(ColorToRGB(Transparent != nullptr ? *Transparent : Bitmap.GetTransparentColor()));
  for (int y = 0; y < image.height(); ++y) {
    const std::span row(reinterpret_cast<uint32_t*>(image.scanLine(y)), static_cast<size_t>(image.width()));
    Bitmap.GetRow(y, row);
    if (!isKeyed) continue;
    std::replace_if(
        row.begin(), row.end(), [none](uint32_t pixel) { return (pixel & kColors) == none; }, 0U);
  }
  return image;
}

}  // namespace vx
