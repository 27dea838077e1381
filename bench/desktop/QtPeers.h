// Tables of Qt's widgets over the same rows, as peers of TTableWidget.
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTableWidget>
#include <vector>

namespace vx {
class TFileCsv;
class TVxStringList;
}  // namespace vx

namespace vx::bench {

constexpr int kDateCol = 3;

// Reads the rows that the table has when it is made; dates of kDateCol are sorted as such. The first row is the head.
class TRowModel final : public QAbstractTableModel {
 public:
  explicit TRowModel(const TFileCsv& Table);
  int rowCount(const QModelIndex&) const override { return static_cast<int>(FRows.size()); }
  int columnCount(const QModelIndex&) const override { return 10; }
  QVariant data(const QModelIndex& Index, int Role) const override;
  QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;

 private:
  const TVxStringList* FHead;
  std::vector<const TVxStringList*> FRows;
};

// A view on a model that filters and sorts.
struct TQtView {
  explicit TQtView(const TFileCsv& Table);
  TRowModel Model;
  QSortFilterProxyModel Proxy;
  QTableView View;
};

// The items of Rows rows of the table.
void Fill(QTableWidget& Widget, const TFileCsv& Table, int Rows);

}  // namespace vx::bench
