// The current cell and the selected ones. The unit's header tells the whole.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Graphics.h"
#include "platform/Keys.h"

namespace vx {

// Cells are places on the screen: X is a column counted from the left, Y a row on show. All that is told is held to
// the area, and ranges are rectangles of cells whose Right and Bottom are behind the last one.
//
// Example:
//   vx::TTableSelection selection;
//   selection.SetArea({0, 1, 5, 100});             // columns 0 to 4, rows 1 to 99
//   selection.MoveTo({2, 7});
//   selection.ExtendTo({3, 9});
//   selection.GetCellCount();                      // 6
//   selection.Key(vx::vkDown, {}, 20);             // the cell below the current one, alone
//   selection.GetCurrent().Y;                      // 10
class TTableSelection {
 public:
  // The cells that can be selected, such as all but the fixed ones. What lies outside is no longer selected, and the
  // current cell is held to it; in an empty area there is none.
  void SetArea(const TRect& Area);
  const TRect& GetArea() const noexcept { return FArea; }
  // Whether whole rows are selected; all but the current cell's is given up.
  void SetSelectsRows(bool Value);
  bool GetSelectsRows() const noexcept { return FSelectsRows; }

  // The cell that keys start from; (-1, -1) if there is none.
  TPoint GetCurrent() const noexcept { return FCurrent; }
  // The cell alone.
  void MoveTo(TPoint Cell);
  // From where the last range began to the cell, which is the current one then.
  void ExtendTo(TPoint Cell);
  // A further range that begins with the cell; of a selected cell, it is taken out instead. Current in either case.
  void Toggle(TPoint Cell);
  void SelectAll();
  // All rows of these columns, or all columns of these rows, First and Last among them; the current cell stays in its
  // row, or column. With Adds beside what is selected.
  void SelectColumns(int First, int Last, bool Adds = false);
  void SelectRows(int First, int Last, bool Adds = false);
  // The current cell alone: for when rows or columns have changed their places.
  void Collapse() { MoveTo(FCurrent); }

  // What a key does; false for one that is none of the selection's, and nothing has changed then. Arrows, Home and End
  // in the row, page keys by PageRows; with Ctrl to the edges of the area; with Shift the last range reaches there. Tab
  // and Shift+Tab go on in the next and the row before, Return one row down. Ctrl+A: all; Ctrl+Space and Shift+Space:
  // the columns or rows of the last range.
  bool Key(uint16_t Key, TShiftState Shift, int PageRows);

  bool IsSelected(TPoint Cell) const noexcept;
  // No cell is in two of them; in the order in which they were selected, as far as they are whole.
  std::vector<TRect> GetRanges() const;
  int64_t GetCellCount() const noexcept;
  // The smallest range with all selected cells; all zeros if none is selected.
  TRect GetBounds() const noexcept;

 private:
  TPoint Held(TPoint Cell) const noexcept;
  TRect RangeOf(TPoint A, TPoint B) const noexcept;
  TPoint Target(uint16_t Key, bool IsFar, int PageRows) const noexcept;
  TPoint NextCell(int Step) const noexcept;
  void SelectRange(const TRect& Range, bool Adds);
  void SelectWhole(bool IsColumns, const TRect& Range);
  void KeepLast();

  TRect FArea;
  TPoint FCurrent{-1, -1}, FAnchor{-1, -1};
  std::vector<TRect> FKept;  // apart from each other, but not from the last one
  TRect FLast;               // the range that grows and shrinks; empty for none
  bool FSelectsRows = false;
};

}  // namespace vx
