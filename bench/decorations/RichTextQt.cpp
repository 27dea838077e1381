#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <cmath>

#include "bench/decorations/RichTextPeers.h"
#include "bench/support/Bench.h"

namespace vx::bench {

struct TQtText::TImpl {
  int Count = 1;
  char Name[6] = "bench";
  char* Arguments[2] = {Name, nullptr};
  QGuiApplication Application{Count, Arguments};
  QImage Image{kTextWidth, kTextHeight, QImage::Format_RGB32};
  QTextDocument Document;
};

TQtText::TQtText() {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  FImpl = std::make_unique<TImpl>();
  QFont font("DejaVu Sans Condensed");
  font.setPixelSize(kTextPixels);
  FImpl->Document.setDefaultFont(font);
  FImpl->Document.setDocumentMargin(0);
  FImpl->Document.setUndoRedoEnabled(false);
}
TQtText::~TQtText() = default;

double TQtText::Draw(const std::string& Html, int& Height) {
  const QString html = QString::fromStdString(Html);
  QPainter painter(&FImpl->Image);
  return Time([&] {
    FImpl->Document.setHtml(html);
    FImpl->Document.setTextWidth(kTextWidth);
    FImpl->Document.drawContents(&painter);
    Height = static_cast<int>(std::ceil(FImpl->Document.size().height()));
  });
}

}  // namespace vx::bench
