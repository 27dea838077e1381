#include "tables/Relations/TJoin.h"

#include <algorithm>

#include "platform/Exceptions.h"
#include "tables/Relations/detail/Cells.h"

namespace vx {

TJoin::TJoin(const TRelationRows& Left, std::span<const TCellColumn> Columns, const TKeyIndex& Index, TJoinKind Kind)
    : FLeft(&Left.Table()), FRight(&Index.GetRows().Table()) {
  if (Left.IsJoin()) throw EArgumentException(u"A join of the rows of a join");
  if (Columns.size() != Index.GetColumns().size()) throw EArgumentException(u"A join by another number of columns");
  if (Index.IsStale()) throw EListError(u"A join by an index of a table that has changed since");
  std::vector<int> cols;
  for (const TCellColumn& column : Columns) cols.push_back(detail::IndexIn(*FLeft, column));
  std::vector<std::u16string_view> key(cols.size());
  std::vector<bool> isPartner(static_cast<size_t>(FRight->GetCount()));
  Pairs.reserve(static_cast<size_t>(Left.GetCount()));
  for (int row = Left.GetFirst(); row < Left.GetEnd(); ++row) {
    const TVxStringList& line = *FLeft->GetLines(row);
    bool hasKey = false;
    for (size_t i = 0; i < cols.size(); ++i) {
      key[i] = detail::CellText(line, cols[i]);
      hasKey = hasKey || !key[i].empty();
    }
    const int found = hasKey ? Index.IndexOf(key) : -1;
    if (found < 0) {
      LeftOnly.push_back(row);
      if (Kind == jkLeft) Pairs.push_back({row, -1});
      continue;
    }
    for (int right : Index.RowsAt(found)) {
      isPartner[static_cast<size_t>(right)] = true;
      Pairs.push_back({row, right});
    }
    if (Pairs.size() > INT32_MAX) throw EListError(u"A join of more pairs of rows than can be counted");
  }
  for (int row = Index.GetRows().GetFirst(); row < Index.GetRows().GetEnd(); ++row) {
    if (!isPartner[static_cast<size_t>(row)]) RightOnly.push_back(row);
  }
}

std::unique_ptr<THeadCsv> TJoin::ToTable(std::initializer_list<TRelationColumn> Columns) const {
  const TRelationRows rows = *this;
  std::vector<detail::TColumnCells> columns;
  std::vector<String> cells;
  for (const TRelationColumn& column : Columns) {
    columns.emplace_back(rows, column);
    cells.push_back(detail::NameIn(rows, column));
  }
  auto table = std::make_unique<THeadCsv>();
  table->SetCapacity(rows.GetCount() + 1);
  table->AddRow(cells);
  for (int number = 0; number < rows.GetEnd(); ++number) {
    for (size_t i = 0; i < cells.size(); ++i) {
      const String* cell = columns[i].Find(number);
      cells[i] = cell ? *cell : String();
    }
    table->AddRow(cells);
  }
  return table;
}

namespace {

std::span<const TCellColumn> Span(std::initializer_list<TCellColumn> Columns) noexcept {
  return {Columns.begin(), Columns.size()};
}

}  // namespace

TJoin InnerJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns, const TKeyIndex& Index) {
  return {Left, Span(Columns), Index, jkInner};
}

TJoin LeftJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns, const TKeyIndex& Index) {
  return {Left, Span(Columns), Index, jkLeft};
}

TJoin InnerJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns, const TRelationRows& Right,
                std::initializer_list<TCellColumn> RightColumns, TKeyOptions Options) {
  return InnerJoin(Left, Columns, TKeyIndex(Right, RightColumns, Options));
}

TJoin LeftJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns, const TRelationRows& Right,
               std::initializer_list<TCellColumn> RightColumns, TKeyOptions Options) {
  return LeftJoin(Left, Columns, TKeyIndex(Right, RightColumns, Options));
}

}  // namespace vx
