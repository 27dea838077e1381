// The library's pictures as Qt has them.
//
//   ToQt    a bitmap as an image
//
// Example:
//   vx::TBitmap arrow;
//   arrow.LoadFromResourceName(u"UP");
//   label.setPixmap(QPixmap::fromImage(vx::ToQt(arrow)));
//
// For any thread, as long as nobody changes the bitmap.
#pragma once

#include <QImage>

#include "platform/Graphics.h"

namespace vx {

class TBitmap;

// A copy without the pixels of the colour Transparent, or, for nullptr, those that the bitmap calls transparent. An
// image without pixels for a bitmap without.
QImage ToQt(const TBitmap& Bitmap, const TColor* Transparent = nullptr);

}  // namespace vx
