// What the status line tells of the selected cells: their number and exact sums.
//
// Example:
//   SelectionText(plan, widget.GetSelection(), widget.GetShownColumns());
//   // u"12 Zellen markiert, Stunden 7:30, Beträge 1.204,50, 1 nicht lesbar"
//
// Hours, amounts and numbers are told by the types of the columns; others are not added up. A sum of more cells than
// MostSummed is not made, so that the window answers, and of none there is no word.
#pragma once

#include <span>

#include "controls/TableEditing.h"

namespace vx::vxview {

inline constexpr int64_t MostSummed = 5'000'000;

// Columns are those of the table by their places on the screen. Empty for a single cell or none.
String SelectionText(const TTypeCsv& Table, const TTableSelection& Selection, std::span<const int> Columns);

}  // namespace vx::vxview
