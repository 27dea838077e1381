// What the painter thread paints into: a picture that a widget shows.
#pragma once

#include <QImage>
#include <QWidget>
#include <atomic>
#include <mutex>

#include "controls/uVxGauge/GaugeTypes.h"

namespace vx::detail {

// Outlives its widget while the painter thread has it. The lock is held for copying pixels, never while waiting.
class TGaugeSurface final : public TGaugeWindow {
 public:
  explicit TGaugeSurface(QWidget& Widget) noexcept : FWidget(&Widget) {}

  // --- for the widget's thread ---
  void Detach() noexcept;
  void SetVisible(bool Value) noexcept { FIsVisible = Value; }
  // Without a picture until the painter brings the next one.
  void SetSize(QSize Size);
  // The newest picture; null if there is none of this size.
  QImage GetPicture() const;

  // --- for any thread ---
  bool IsWindowVisible() override { return FIsVisible; }
  bool BitBlt(int X, int Y, const TBitmap& Picture) override;

 private:
  mutable std::mutex FMutex;
  QWidget* FWidget;  // null once it is gone
  QImage FPicture;
  QSize FSize;
  bool FIsTold = false;  // the widget hears of a new picture as soon as events run
  std::atomic<bool> FIsVisible{false};
};

}  // namespace vx::detail
