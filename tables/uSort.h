// Typed comparison of cell texts, and rows put in order by it.
//
//   TSortColumn, TSortOrder              which column, read as what, in which direction
//   Compare, CompareDate and their kin   two cell texts
//   CustomSortProc, CustomSortProcStr    two items of a list view, two rows
//   OrderRows, OrderRowsByUnits          many rows at once
//
// Example:
//   const vx::TSortColumn by[] = {{.Index = 2, .SortType = vx::vftDate, .SortDirection = -1},
//                                 {.Index = 0, .SortType = vx::vftString, .SortDirection = 1}};
//   std::vector<int> order = vx::OrderRows(rows, by);      // rows[order[0]] comes first
//
// Comparisons never fail: a text that is no such value counts 0, false, or no date. Dates and times are
// compared by their characters where both have the usual form, and read only where they have not.
//
// Threads: any number may put the same rows in order, which nobody changes meanwhile.
//
// Pitfalls:
//   - So texts of unlike forms may compare otherwise than their values: u"9:30" stands behind u"10:00".
//   - A default TSortColumn has the direction 0, and everything is equal for it.
#pragma once

#include "tables/uSort/Compare.h"
#include "tables/uSort/RowOrder.h"
