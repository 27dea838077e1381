// The picture of a table in memory: pixels that are painted once and shown as often as wanted.
//
// The bitmap of the library and the image of Qt are the same bytes. What has been scrolled is moved within them, so
// that only what comes into sight is painted.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRegion>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/Types.h"

namespace vx::detail {

// Places are those of the window, before the device's pixels per pixel.
class TTablePicture {
 public:
  // A new size, scale or kind of colours makes all of it to be painted anew.
  void SetSize(QSize Size, double Scale, bool IsNight);
  void Invalidate() { Invalidate(QRect(QPoint(), FSize)); }
  void Invalidate(const QRect& Rect) { FDirty += Rect; }
  // The pixels of Area go by so many; what comes into it has to be painted.
  void Scroll(const QRect& Area, int DX, int DY);
  // Paints what has to be, piece by piece.
  void Refresh(FunctionRef<void(TCanvas& Canvas, const TRect& Area)> Paint);
  void Show(QPainter& Painter, const QRegion& Region) const;
  // Where texts are measured: before the scale.
  TCanvas& GetCanvas() { return FMeasuring.GetCanvas(); }

 private:
  void Refresh(TCanvas& Canvas, FunctionRef<void(TCanvas& Canvas, const TRect& Area)> Paint);

  TBitmap FBitmap;
  TBitmap FMeasuring{pf32bit, 1, 1};
  QImage FImage;  // on the pixels of the bitmap
  QRegion FDirty;
  QSize FSize;
  double FScale = 1;
  bool FIsNight = false;
};

}  // namespace vx::detail
