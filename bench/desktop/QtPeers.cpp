#include "bench/desktop/QtPeers.h"

#include <QDate>

#include "desktop/QtValues.h"
#include "tables/uFileCsv.h"

namespace vx::bench {

TRowModel::TRowModel(const TFileCsv& Table) : FHead(Table.GetLines(0)) {
  for (int row = 1; row < Table.GetCount(); ++row) FRows.push_back(Table.GetLines(row));
}

QVariant TRowModel::data(const QModelIndex& Index, int Role) const {
  if (Role != Qt::DisplayRole && Role != Qt::UserRole) return {};
  const QString text = ToQt(FRows[static_cast<size_t>(Index.row())]->Get(Index.column()));
  if (Role == Qt::UserRole && Index.column() == kDateCol) return QDate::fromString(text, "dd.MM.yyyy");
  return text;
}

QVariant TRowModel::headerData(int Section, Qt::Orientation Orientation, int Role) const {
  if (Orientation != Qt::Horizontal || Role != Qt::DisplayRole) return {};
  return ToQt(FHead->Get(Section));
}

TQtView::TQtView(const TFileCsv& Table) : Model(Table) {
  Proxy.setSourceModel(&Model);
  Proxy.setSortRole(Qt::UserRole);
  Proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
  View.setModel(&Proxy);
  View.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void Fill(QTableWidget& Widget, const TFileCsv& Table, int Rows) {
  Widget.setRowCount(Rows);
  Widget.setColumnCount(10);
  for (int row = 0; row < Rows; ++row) {
    for (int col = 0; col < 10; ++col)
      Widget.setItem(row, col, new QTableWidgetItem(ToQt(Table.GetCell(col, row + 1))));
  }
}

}  // namespace vx::bench
