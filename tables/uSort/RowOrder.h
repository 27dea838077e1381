// Many rows put in order, with the keys made once for each row.
#pragma once

#include <span>
#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "tables/uSort/Compare.h"

namespace vx {

// The indexes of Rows in the order of the first of Columns, rows equal in it in the order of the next, and
// rows equal in all of them in the order in which they stand: what a stable sort by CustomSortProcStr gives.
// Of each column's direction the sign counts, and with 0 all rows are equal in it. A row without a column
// has an empty text there. n log n, whatever the cells are.
//
// Pitfall: texts of unlike forms, which are not comparable in a consistent way (see CompareTime), are put in
// some order that is the same each time.
std::vector<int> OrderRows(std::span<const TVxStringList* const> Rows, std::span<const TSortColumn> Columns);

// The same ascending by the code units of one column. Every row has to have it; EStringListError
// (SListIndexError) otherwise.
std::vector<int> OrderRowsByUnits(std::span<const TVxStringList* const> Rows, int Column);

}  // namespace vx
