#include "bench/painting/QtTable.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>

#include "bench/support/Bench.h"

namespace vx::bench {

namespace {

class TPlainDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    Painter->fillRect(Option.rect, Index.row() % 2 != 0 ? QColor(242, 242, 242) : QColor(Qt::white));
    const QRect text = Option.rect.adjusted(1, 0, -1, 0);
    Painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                      Option.fontMetrics.elidedText(Index.data().toString(), Qt::ElideRight, text.width()));
  }
};

}  // namespace

struct TQtTable::TImpl {
  int Count = 1;
  char Name[6] = "bench";
  char* Arguments[2] = {Name, nullptr};
  QApplication Application{Count, Arguments};
  QStandardItemModel Model;
  QTableView View;
  TPlainDelegate Delegate;
  QImage Image;
};

TQtTable::TQtTable(const std::vector<std::vector<std::string>>& Rows, int CellWidth, int CellHeight) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  FImpl = std::make_unique<TImpl>();
  const int rows = static_cast<int>(Rows.size()), cols = static_cast<int>(Rows[0].size());
  FImpl->Model.setRowCount(rows);
  FImpl->Model.setColumnCount(cols);
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      FImpl->Model.setItem(
          row, col,
          new QStandardItem(QString::fromStdString(Rows[static_cast<size_t>(row)][static_cast<size_t>(col)])));
    }
  }
  QTableView& view = FImpl->View;
  QFont font("DejaVu Sans Condensed");
  font.setPixelSize(13);
  view.setFont(font);
  view.setModel(&FImpl->Model);
  view.setItemDelegate(&FImpl->Delegate);
  view.horizontalHeader()->hide();
  view.verticalHeader()->hide();
  view.verticalHeader()->setMinimumSectionSize(1);
  view.horizontalHeader()->setMinimumSectionSize(1);
  view.horizontalHeader()->setDefaultSectionSize(CellWidth);
  view.verticalHeader()->setDefaultSectionSize(CellHeight);
  view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setFrameShape(QFrame::NoFrame);
  view.resize(cols * CellWidth, rows * CellHeight);
  FImpl->Image = QImage(view.size(), QImage::Format_RGB32);
  view.show();
  FImpl->Application.processEvents();
}
TQtTable::~TQtTable() = default;

double TQtTable::Render() {
  return Time([&] { FImpl->View.viewport()->render(&FImpl->Image); });
}

}  // namespace vx::bench
