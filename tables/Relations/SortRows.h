// A table's rows in the order of several columns.
#pragma once

#include <initializer_list>
#include <span>
#include <vector>

#include "core/uVxTypes.h"
#include "tables/CellSums.h"
#include "tables/CheckedCells.h"
#include "tables/uSort.h"

namespace vx {

// Values of these types are compared, read as strictly as ReadCell reads them:
//   vftInteger, vftStatus, vftFloat, vftFraction, vftDate, vftTime, vftDateTime, vftHour, vftCurrency, vftBoolean
// All other types stand as OrderRows has them, texts by AnsiCompareText, and any cell is of such a type.
struct TRowSort {
  TCellColumn Column;
  TVxFieldType Type = vftString;
  TSortOrder Order = TS_ASCENDING;  // with TS_NONE all rows are equal in it
};

// What had no value to sort by. It stands behind what has one, in either direction, in the order in which it was.
struct TSortFaults {
  int Empty = 0;                            // cells without a text or with blanks alone, and those of short rows
  std::vector<TUnreadableCell> Unreadable;  // other cells that are not of the type, with the rows where they stand now
  bool IsWhole() const noexcept { return Unreadable.empty(); }
};

// Puts the rows First to Last in the order of the first of Columns, those equal in it in the order of the next, and
// those equal in all in the order in which they stand. No row is dropped; all others stay where they are. First and
// Last as at TRelationRows. EArgumentException for a table that keeps an order of its own: a TSortCsv, and a TCsvView
// that may hide rows, whose Sort takes the hidden ones along.
TSortFaults SortRows(TFileCsv& Table, std::initializer_list<TRowSort> Columns, int First = -1, int Last = -1);
TSortFaults SortRows(TFileCsv& Table, std::span<const TRowSort> Columns, int First = -1, int Last = -1);

}  // namespace vx
