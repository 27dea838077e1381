#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStaticText>

#include "bench/drawing/Peers.h"
#include "bench/support/Bench.h"

namespace vx::bench {

struct TQtPeer::TImpl {
  int Count = 1;
  char Name[6] = "bench";
  char* Arguments[2] = {Name, nullptr};
  QGuiApplication Application{Count, Arguments};
  QImage Image{kCellWidth, kCellHeight* kRows, QImage::Format_RGB32};
  QFont Font{"DejaVu Sans Condensed"};
  std::vector<QString> Names;
  std::vector<QStaticText> Static;
};

TQtPeer::TQtPeer(const std::vector<std::string>& Names) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  FImpl = std::make_unique<TImpl>();
  FImpl->Font.setPixelSize(kFontPixels);
  for (const std::string& name : Names) {
    FImpl->Names.push_back(QString::fromStdString(name));
    FImpl->Static.emplace_back(FImpl->Names.back());
    FImpl->Static.back().setTextFormat(Qt::PlainText);
    FImpl->Static.back().prepare({}, FImpl->Font);
  }
}
TQtPeer::~TQtPeer() = default;

double TQtPeer::Width() {
  const QFontMetrics metrics(FImpl->Font);
  int sum = 0;
  const double seconds = Time([&] {
    for (const QString& name : FImpl->Names) sum += metrics.horizontalAdvance(name);
  });
  Expect(sum > 0, "widths of QFontMetrics");
  return seconds;
}

double TQtPeer::DrawStatic() {
  QPainter painter(&FImpl->Image);
  painter.setFont(FImpl->Font);
  return Time([&] {
    int row = 0;
    for (const QStaticText& text : FImpl->Static) {
      painter.fillRect(0, row * kCellHeight, kCellWidth, kCellHeight, Qt::white);
      painter.drawStaticText(2, row * kCellHeight + 2, text);
      row = (row + 1) % kRows;
    }
  });
}

double TQtPeer::DrawElided() {
  QPainter painter(&FImpl->Image);
  painter.setFont(FImpl->Font);
  const QFontMetrics metrics(FImpl->Font);
  return Time([&] {
    int row = 0;
    for (const QString& name : FImpl->Names) {
      painter.fillRect(0, row * kCellHeight, kCellWidth, kCellHeight, Qt::white);
      painter.drawText(2, row * kCellHeight + 12, metrics.elidedText(name, Qt::ElideRight, kCellWidth - 4));
      row = (row + 1) % kRows;
    }
  });
}

double TQtPeer::Fill() {
  QPainter painter(&FImpl->Image);
  return Time([&] {
    for (size_t i = 0; i < FImpl->Names.size(); ++i) {
      painter.fillRect(0, static_cast<int>(i % kRows) * kCellHeight, kCellWidth, kCellHeight,
                       i % 2 ? Qt::white : Qt::gray);
    }
  });
}

}  // namespace vx::bench
