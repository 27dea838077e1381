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
  using QSortFilterProxyModel::invalidateFilter;
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
  explicit TImpl(const std::vector<std::u16string>* Columns) : Table(Columns) {
    Proxy.setSourceModel(&Table);
    Proxy.rowCount();
  }
  TTable Table;
  TProxy Proxy;
};

TQtFilter::TQtFilter(const std::vector<std::u16string>* Columns, const std::u16string* Words)
    : FImpl(std::make_unique<TImpl>(Columns)) {
  for (int col = 0; col < 3; ++col) FImpl->Proxy.Words[col] = QString::fromStdU16String(Words[col]);
}
TQtFilter::~TQtFilter() = default;

double TQtFilter::Filter(int& Rows) {
  const double seconds = Time([&] {
    FImpl->Proxy.invalidateFilter();
    Rows = FImpl->Proxy.rowCount();
  });
  const auto words = std::to_array(FImpl->Proxy.Words);
  for (QString& word : FImpl->Proxy.Words) word.clear();
  FImpl->Proxy.invalidateFilter();
  for (size_t col = 0; col < 3; ++col) FImpl->Proxy.Words[col] = words[col];
  return seconds;
}

}  // namespace vx::bench
