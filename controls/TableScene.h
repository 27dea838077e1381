// A typed table as it stands on a screen, without the screen: sizes, scroll place, which cell is where.
//
// Example:
//   vx::TTableScene scene;
//   scene.SetTable(&table);
//   scene.SetRoom({800, 600});
//   scene.MeasureSample(canvas);                          // widths by the first rows
//   scene.ScrollTo(scene.OffsetToSee(0, 500));
//   vx::TPoint cell = scene.CellAt({40, 70});             // column and row of the table
//
// Pitfalls:
//   - The table is not owned, and nothing tells when it goes: SetTable(nullptr) first.
//   - Nor does anything tell that rows came or went; Sync finds that out by their numbers, and whoever reads places
//     after a change calls it before.
#pragma once

#include <cstdint>

#include "controls/TableColumns.h"
#include "platform/Graphics.h"

namespace vx {

class TCanvas;
class TTypeCsv;
struct TTableSizes;

// Columns and rows are those of the table, pixels those of the screen from the table's left top corner. Nothing is kept
// for a row but the height of one that is not as high as most.
class TTableScene {
 public:
  struct TOffset {
    int64_t X = 0, Y = 0;
    friend bool operator==(const TOffset&, const TOffset&) noexcept = default;
  };

  TTypeCsv* GetTable() const noexcept { return FTable; }
  // All columns in their order, of one width. The offset is 0.
  void SetTable(TTypeCsv* Value);
  // Takes over numbers and lines from the table. True if one of them has changed.
  bool Sync();

  // --- sizes ---
  // Widths by the fixed rows and the first ones of the content, heights alike: rows of the content get the one that
  // most of these ask for. Takes no longer for a longer table.
  void MeasureSample(TCanvas& Canvas);
  // By all rows. Heights as MeasureSample.
  void FitColumns(TCanvas& Canvas);
  // One column by all rows.
  void FitColumn(TCanvas& Canvas, int Col);
  // Each row as high as it asks for, until the next MeasureSample, UnfitRows, or rows that come or go.
  void FitRows(TCanvas& Canvas);
  void UnfitRows();
  TTableColumns& Columns() noexcept { return FColumns; }
  const TTableColumns& Columns() const noexcept { return FColumns; }
  // With its line.
  int GetRowHeight() const noexcept { return FRows.GetCommonSize(); }

  // --- places ---
  TPoint GetRoom() const noexcept { return FRoom; }
  void SetRoom(TPoint Value) noexcept { FRoom = Value; }
  TOffset GetOffset() const noexcept { return FOffset; }
  TOffset MaxOffset() const noexcept { return {ColsView().MaxOffset(), RowsView().MaxOffset()}; }
  // Held to what there is.
  void ScrollTo(TOffset Value) noexcept;
  TOffset OffsetToSee(int Col, int Row) const noexcept;
  // (-1, -1) for none; (column, -1) below the last row, (-1, row) beside the last column.
  TPoint CellAt(TPoint Place) const noexcept;
  // Without its lines; empty for a hidden column or no cell. What lies below fixed cells is not cut off.
  TRect CellRect(int Col, int Row) const noexcept;
  // What can be seen of the cells that are not fixed.
  TRect MiddleRect() const noexcept;
  // Behind the last column and row that can be seen.
  TPoint End() const noexcept;
  bool IsHead(int Row) const noexcept;

  // By places of columns, see TTableColumns.
  TAxisView ColsView() const noexcept;
  TAxisView RowsView() const noexcept;

 private:
  void TakeHeights(const TTableSizes& Sizes, int Sampled);
  // Of the fixed rows at the bottom, whose decorations a sample does not meet.
  void MeasureBottom(TCanvas& Canvas);
  // So many rows, those that are fixed as high as before, all others alike.
  void ResetHeights(int Rows, const TRect& Fixed);

  TTypeCsv* FTable = nullptr;
  TTableColumns FColumns;
  TTableAxis FRows;
  TRect FFixed;
  bool FRowsFit = false;
  TPoint FRoom;
  TOffset FOffset;
};

}  // namespace vx
