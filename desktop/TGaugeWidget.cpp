#include "desktop/TGaugeWidget.h"

#include <QPainter>
#include <QScopedValueRollback>

#include "desktop/QtPictures.h"
#include "desktop/detail/GaugeSurface.h"

namespace vx {

namespace {

constexpr int kGlowTicks = 20;

}  // namespace

TGaugeWidget::TGaugeWidget(QWidget* Parent)
    : QWidget(Parent), FSurface(std::make_shared<detail::TGaugeSurface>(*this)), FGauge(FSurface) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  FGauge.SetOnInvalidate(TNotifyEvent::Of<&TGaugeWidget::Invalidated>(*this));
  TFont font = FGauge.GetPaintObject().GetFont();
  font.Color = clBlack;  // the colours below it are no system colours, either
  FGauge.GetPaintObject().SetFont(font);
  FGlowTimer.setInterval(kGlowTicks);
  connect(&FGlowTimer, &QTimer::timeout, this, [this] {
    FGauge.GlowTimer();
    if (!FGauge.GetPaintObject().GetGlowRunning()) FGlowTimer.stop();
  });
}

TGaugeWidget::~TGaugeWidget() {
  FSurface->Detach();
  FGauge.SetOnInvalidate({});
}

QSize TGaugeWidget::sizeHint() const { return {185, 41}; }

// The bar has moved or looks different. A job that runs in this thread lets no events run, so what it brings is painted
// here, unless that was done a moment ago.
void TGaugeWidget::Invalidated(TObject* /*Sender*/) {
  if (isVisible() && !FGlowTimer.isActive() && FGauge.GetPaintObject().GetGlowRunning()) FGlowTimer.start();
  update();
  if (!isVisible() || FIsPainting || (FPainted.isValid() && FPainted.elapsed() < kGlowTicks)) return;
  repaint();
}

void TGaugeWidget::paintEvent(QPaintEvent* /*Event*/) {
  const QScopedValueRollback painting(FIsPainting, true);
  FPainted.start();
  FGauge.Paint();
  QImage picture;
  if (FGauge.GetThreadPainted()) picture = FSurface->GetPicture();
  const TRect& rect = FGauge.GetPaintObject().GetPaintRect();
  QPainter painter(this);
  if (!picture.isNull()) {
    painter.drawImage(0, 0, picture);
  } else if (FGauge.GetPaintObject().GetVisible() && !rect.IsEmpty()) {
    painter.drawImage(rect.Left, rect.Top, ToQt(FGauge.GetPaintObject().Paint()));
  }
}

void TGaugeWidget::resizeEvent(QResizeEvent* Event) {
  QWidget::resizeEvent(Event);
  FSurface->SetSize(size());
  FGauge.SetBounds({0, 0, width(), height()});
}

void TGaugeWidget::showEvent(QShowEvent* Event) {
  QWidget::showEvent(Event);
  FSurface->SetVisible(true);
  if (FGauge.GetPaintObject().GetGlowRunning()) FGlowTimer.start();
}

void TGaugeWidget::hideEvent(QHideEvent* Event) {
  QWidget::hideEvent(Event);
  FSurface->SetVisible(false);
  FGlowTimer.stop();
}

}  // namespace vx
