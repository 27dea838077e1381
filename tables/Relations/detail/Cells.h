// Cells of one column of related rows, as they stand in the rows.
#pragma once

#include <span>
#include <string_view>

#include "tables/Relations/RelationRows.h"

namespace vx::detail {

// The index of a column; EArgumentException for one that the table does not have.
int IndexIn(const TFileCsv& Table, const TCellColumn& Column);
// The name of a column in a table that is made of Rows.
String NameIn(const TRelationRows& Rows, const TRelationColumn& Column);

// nullptr where the row does not have that cell.
inline const String* FindCell(const TVxStringList& Row, int Col) noexcept {
  const std::span<const String> cells = Row.Items();
  return static_cast<size_t>(Col) < cells.size() ? &cells[static_cast<size_t>(Col)] : nullptr;
}
inline std::u16string_view CellText(const TVxStringList& Row, int Col) noexcept {
  const String* cell = FindCell(Row, Col);
  return cell ? cell->view() : std::u16string_view();
}

// One column, by the numbers of its rows.
class TColumnCells {
 public:
  TColumnCells(const TRelationRows& Rows, const TRelationColumn& Column)
      : FRows(Rows),
        FTable(Rows.Table(Column.IsRight)),
        FCol(IndexIn(FTable, Column.Column)),
        FIsRight(Column.IsRight) {}

  int GetCol() const noexcept { return FCol; }
  const TFileCsv& GetTable() const noexcept { return FTable; }
  int RowOf(int Number) const noexcept { return FRows.RowOf(Number, FIsRight); }
  // nullptr where there is no such row or cell. EListError for a row that the table has no more.
  const String* Find(int Number) const {
    const int row = RowOf(Number);
    return row < 0 ? nullptr : FindCell(*FTable.GetLines(row), FCol);
  }

 private:
  const TRelationRows& FRows;
  const TFileCsv& FTable;
  int FCol;
  bool FIsRight;
};

}  // namespace vx::detail
