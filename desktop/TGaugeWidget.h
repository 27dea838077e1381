// A progress gauge in a window.
//
//   TGaugeWidget    shows a TVxGauge
//
// Example:
//   auto* gauge = new vx::TGaugeWidget(&window);            // the window's
//   gauge->Gauge().SetMax(rows.GetCount());
//   gauge->Gauge().GetPaintObject().SetPercentShow(true);
//   for (int row = 0; row < rows.GetCount(); ++row) {
//     Import(rows, row);
//     gauge->Gauge().SetPosition(row + 1);                  // moves on the screen, though no events run
//   }
//
// The gauge paints itself, as controls/uVxGauge.h tells. With Gauge().SetThreadPainted(true) the painter thread paints
// it on and on into a picture, of which the window shows the newest one whenever events run.
//
// While the main thread is busy, nothing that runs beside it reaches the screen: Qt's windows have no surface that
// another thread may draw on, on none of its platforms. What is seen then are the steps that the main thread itself
// brings: a position that moves the bar by a pixel is painted at once, up to fifty times a second. The glow stands
// still meanwhile, unless the job lets events run.
//
// There is no task bar in Qt 6: GetShowInTaskbar acts on nothing unless the program sets a sink of its own
// (SetTaskbarSink).
//
// For the main thread. Pitfalls:
//   - The gauge's OnInvalidate, its size and its window are the widget's; the place of the gauge is the whole widget.
//   - Its pixels are those of Qt before they are enlarged for a fine screen.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "controls/uVxGauge/TVxGauge.h"

namespace vx {

namespace detail {
class TGaugeSurface;
}

class TGaugeWidget : public QWidget {
  Q_OBJECT

 public:
  explicit TGaugeWidget(QWidget* Parent = nullptr);
  // Waits for a painting of the painter thread that is under way.
  ~TGaugeWidget() override;

  // The widget's.
  TVxGauge& Gauge() noexcept { return FGauge; }
  const TVxGauge& Gauge() const noexcept { return FGauge; }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* Event) override;
  void resizeEvent(QResizeEvent* Event) override;
  void showEvent(QShowEvent* Event) override;
  void hideEvent(QHideEvent* Event) override;

 private:
  void Invalidated(TObject* Sender);

  std::shared_ptr<detail::TGaugeSurface> FSurface;
  TVxGauge FGauge;
  QTimer FGlowTimer;
  QElapsedTimer FPainted;  // since the last painting
  bool FIsPainting = false;
};

}  // namespace vx
