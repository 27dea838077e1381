#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>

#include "bench/controls/FilterPeers.h"
#include "bench/support/Bench.h"

namespace vx::bench {

namespace {

class TTable : public QAbstractTableModel {
 public:
  explicit TTable(const std::vector<std::u16string>* Columns) {
    for (int col = 0; col < 3; ++col) {
      for (const std::u16string& text : Columns[col]) FCells[col].push_back(QString::fromStdU16String(text));
    }
  }
  int rowCount(const QModelIndex& = {}) const override { return static_cast<int>(FCells[0].size()); }
  int columnCount(const QModelIndex& = {}) const override { return 3; }
  QVariant data(const QModelIndex& Index, int Role) const override {
    if (Role != Qt::DisplayRole) return {};
    return FCells[Index.column()][static_cast<size_t>(Index.row())];
  }

 private:
  std::vector<QString> FCells[3];
};

class TProxy : public QSortFilterProxyModel {
 public:
  QString Words[3];

 protected:
  bool filterAcceptsRow(int Row, const QModelIndex& Parent) const override {
    for (int col = 0; col < 3; ++col) {
      const QModelIndex index = sourceModel()->index(Row, col, Parent);
      if (!sourceModel()->data(index).toString().contains(Words[col], Qt::CaseInsensitive)) return false;
    }
    return true;
  }
};

}  // namespace

struct TQtFilter::TImpl {
  explicit TImpl(const std::vector<std::u16string>* Columns) : Table(Columns) {}
  TTable Table;
  TProxy Proxy;
};

TQtFilter::TQtFilter(const std::vector<std::u16string>* Columns, const std::u16string* Words)
    : FImpl(std::make_unique<TImpl>(Columns)) {
  for (int col = 0; col < 3; ++col) FImpl->Proxy.Words[col] = QString::fromStdU16String(Words[col]);
}
TQtFilter::~TQtFilter() = default;

// By a proxy that meets the table anew: to take rows out of one that shows them all moves all others for each run of
// them, which takes minutes for a million.
double TQtFilter::Filter(int& Rows) {
  FImpl->Proxy.setSourceModel(nullptr);
  return Time([&] {
    FImpl->Proxy.setSourceModel(&FImpl->Table);
    Rows = FImpl->Proxy.rowCount();
  });
}

}  // namespace vx::bench
