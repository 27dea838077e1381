#include "desktop/detail/GaugeSurface.h"

#include <QMetaObject>
#include <QPainter>

#include "desktop/QtPictures.h"
#include "platform/TBitmap.h"

namespace vx::detail {

void TGaugeSurface::Detach() noexcept {
  FIsVisible = false;
  const std::lock_guard lock(FMutex);
  FWidget = nullptr;
}

void TGaugeSurface::SetSize(QSize Size) {
  const std::lock_guard lock(FMutex);
  FSize = Size;
  FPicture = {};
}

QImage TGaugeSurface::GetPicture() const {
  const std::lock_guard lock(FMutex);
  return FPicture;
}

bool TGaugeSurface::BitBlt(int X, int Y, const TBitmap& Picture) {
  const QImage image = ToQt(Picture);
  const std::lock_guard lock(FMutex);
  if (FWidget == nullptr || FSize.isEmpty()) return false;
  if (X < 0 || Y < 0 || X + image.width() > FSize.width() || Y + image.height() > FSize.height()) return false;
  if (FPicture.isNull()) {
    FPicture = QImage(FSize, QImage::Format_ARGB32_Premultiplied);
    FPicture.fill(Qt::transparent);
  }
  QPainter(&FPicture).drawImage(X, Y, image);
  if (FIsTold) return true;
  FIsTold = true;
  QMetaObject::invokeMethod(
      FWidget,
      [this, widget = FWidget] {
        {
          const std::lock_guard inner(FMutex);
          FIsTold = false;
        }
        widget->update();
      },
      Qt::QueuedConnection);
  return true;
}

}  // namespace vx::detail
