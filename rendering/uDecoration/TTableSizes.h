// The sizes of a table's columns and rows, and how they are found.
//
// TrimModes say how sizes follow from what the cells ask for. Those of the list hold for all columns and rows; those of
// a decoration of columns or rows (rtColumn, rtRow) for these besides, and those of rtAll like the list's. Decorations
// of other kinds are not asked. Without any mode a column is as wide as its widest cell, a row as high as its highest
// one, and never below GetMinColWidth and GetMinRowHeight. In this order:
//   tmHide                 the column, or row, gets no size; of a list or of rtAll it means nothing
//   tmNone                 it keeps the size that it has
//   tmHideEmptyColumn      a column gets no size if none of its cells has a text but blanks, or a picture
//   tmHideEmptyColContent  the same without regard to fixed rows; fixed columns stay
//   tmHideEmptyRow, tmHideEmptyRowContent    the same of rows
//   tmBalanceWidth         columns of the content, hidden ones aside, become as wide as the widest of them
//   tmBalanceHeight        the same of rows
//   tmCanvasWidthMax       if all are wider than the room, the widest of these get narrower, to one common width, until
//                          all fit; no column below GetMinColWidth, or 1 pixel
//   tmShowFullFixed        nor below what its cells in fixed rows, such as its name, ask for; rows likewise
//   tmCanvasWidthMin       if all are narrower than the room, these get what is left in equal parts, the first ones a
//                          pixel more; fixed columns only where there are no others
//   tmCanvasHeightMax, tmCanvasHeightMin    the same of rows
// tmNumberProtection, tmFitImage and tmTrueCommatext belong to the cells, see TDecorator.
//
// Widths go through the list's CallbackTrimmingHoriz in the end: Values are what the columns ask for, and of CalcValues
// X is the least width of a column and Y its width, which the callback may change; MaxSize is the room, 0 for no limit.
#pragma once

#include <vector>

#include "rendering/uDecoration/DecorationTypes.h"

namespace vx {

// In pixels, without the lines between; those that are missing are not known.
struct TTableSizes {
  std::vector<int> ColWidths;
  std::vector<int> RowHeights;
  friend bool operator==(const TTableSizes&, const TTableSizes&) noexcept = default;
};

}  // namespace vx
