#include "desktop/TGaugeWidget.h"

#include <QTest>

#include "tests/support/Test.h"

namespace vx {
namespace {

struct TPaintCount : TGaugeWidget {
  TPaintCount() {
    Gauge().GetPaintObject().SetGlowState(ggsOff);
    resize(100, 20);
    show();
    QTest::qWait(30);
  }
  void paintEvent(QPaintEvent* Event) override {
    ++Count;
    TGaugeWidget::paintEvent(Event);
  }
  int BarEnd() {
    const QImage picture = grab().toImage();
    int x = 0;
    while (x < picture.width() && qGreen(picture.pixel(x, 18)) > qRed(picture.pixel(x, 18)) + 50) ++x;
    return x;
  }
  int Count = 0;
};

TEST(TGaugeWidget, MovesWhileTheMainThreadIsBusy) {
  TPaintCount widget;
  const int before = widget.Count;
  widget.Gauge().SetPosition(40);
  EXPECT_EQ(widget.Count, before + 1) << "no events have run";
  widget.Gauge().SetPosition(60);
  EXPECT_EQ(widget.BarEnd(), 60);
  widget.hide();
  const int hidden = widget.Count;
  widget.Gauge().SetPosition(80);
  EXPECT_EQ(widget.Count, hidden);
}

TEST(TGaugeWidget, ShowsWhatThePainterThreadBrings) {
  auto widget = std::make_unique<TPaintCount>();
  widget->Gauge().SetThreadPainted(true);
  widget->Gauge().GetPaintObject().SetGlowState(ggsOn);
  widget->Gauge().SetPosition(50);
  const int before = widget->Count;
  EXPECT_TRUE(QTest::qWaitFor([&] { return widget->Count > before + 5; })) << "the glow runs";
  widget->resize(200, 20);
  widget->Gauge().GetPaintObject().SetGlowState(ggsOff);
  EXPECT_TRUE(QTest::qWaitFor([&] { return widget->BarEnd() == 100; }));
  EXPECT_EQ(widget->grab().size(), QSize(200, 20));
  widget->Gauge().GetPaintObject().SetGlowState(ggsOn);
  QTest::qWait(60);
  widget.reset();  // while it is painted
  EXPECT_EQ(TVxPaintObjectThreadListed::GetListedCount(), 0);
}

}  // namespace
}  // namespace vx
