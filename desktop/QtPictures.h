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

namespace vx {

class TBitmap;

// A copy, with what the bitmap calls transparent left out; an image without pixels for one without.
QImage ToQt(const TBitmap& Bitmap);

}  // namespace vx
