// A grid of texts, without a screen.
//
//   TStringGrid                         cells, their objects, sizes, selection, scroll place, mouse, painting
//   TGridOption, TGridOptions           its lines and what the user may do
//   TGridDrawState, TGridDrawStates     how a cell is to be painted
//   TDrawCellEvent, TSelectCellEvent    what its events tell
//
// Example:
//   vx::TStringGrid grid;
//   grid.SetColCount(3);
//   grid.SetRowCount(1000000);                  // costs no memory until cells are written
//   grid.SetCells(2, 7, u"Müller");
//   grid.GetCells(2, 7);                        // u"Müller"
//   grid.CellRect(2, 0).Left;                   // 130: two columns of 64 pixels and their lines
//   grid.MouseToCell(140, 3).X;                 // 2
//
// Columns come before rows. Fixed columns and rows at the left and the top do not scroll; all are fixed where there
// are fewer than that. Sizes are pixels without the line behind each column and row.
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfalls:
//   - A cell outside the grid reads as empty and is not written, and what a smaller grid loses does not come back.
//   - Objects beside cells are not owned.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/TControl.h"

namespace vx {

enum TGridOption : uint8_t {
  goFixedVertLine,
  goFixedHorzLine,
  goVertLine,
  goHorzLine,
  goRangeSelect,  // the user may select more than one cell
  goRowSizing,
  goColSizing,
  goEditing,
  goRowSelect  // whole rows are selected
};
using TGridOptions = Set<TGridOption>;

enum TGridDrawState : uint8_t {
  gdSelected,
  gdFocused,  // the current cell
  gdFixed,
  gdHotTrack,  // under the mouse
  gdPressed    // and the left button went down there
};
using TGridDrawStates = Set<TGridDrawState>;

using TDrawCellEvent = Method<void(TObject* Sender, int Col, int Row, const TRect& Rect, TGridDrawStates State)>;
using TSelectCellEvent = Method<void(TObject* Sender, int Col, int Row, bool& CanSelect)>;

class TStringGrid : public TControl {
 public:
  // 5 columns and rows, of which one is fixed; 320 x 120 pixels.
  TStringGrid() { SetBounds({0, 0, 320, 120}); }
  String ClassName() const override { return u"TStringGrid"; }

  // Counts below 0 count as 0.
  int GetColCount() const noexcept { return FColCount; }
  void SetColCount(int Value);
  int GetRowCount() const noexcept { return FRowCount; }
  void SetRowCount(int Value);
  // As they were set; never more than there are where cells are placed.
  int GetFixedCols() const noexcept { return FFixedCols; }
  void SetFixedCols(int Value);
  int GetFixedRows() const noexcept { return FFixedRows; }
  void SetFixedRows(int Value);
  bool IsFixed(int Col, int Row) const noexcept { return Col < FFixedCols || Row < FFixedRows; }

  // --- cells ---
  String GetCells(int Col, int Row) const;
  void SetCells(int Col, int Row, const String& Value);
  TObject* GetObjects(int Col, int Row) const;
  void SetObjects(int Col, int Row, TObject* Value);
  // The texts of a row and the objects of its cells, as far as any was written; those behind are empty. End with the
  // next change.
  std::span<const String> GetRowCells(int Row) const noexcept;
  std::span<TObject* const> GetRowObjects(int Row) const noexcept;

  // --- sizes, held to 0 to 2^24; 0 hides the column or row and its line ---
  int GetDefaultColWidth() const noexcept { return FDefaultColWidth; }
  // Sets all columns, or rows, to it.
  void SetDefaultColWidth(int Value);
  int GetDefaultRowHeight() const noexcept { return FDefaultRowHeight; }
  void SetDefaultRowHeight(int Value);
  int GetColWidths(int Col) const noexcept { return SizeAt(FColWidths, Col, FDefaultColWidth); }
  void SetColWidths(int Col, int Value);
  int GetRowHeights(int Row) const noexcept { return SizeAt(FRowHeights, Row, FDefaultRowHeight); }
  void SetRowHeights(int Row, int Value);
  // The line behind each column and row; 1 at first.
  int GetGridLineWidth() const noexcept { return FGridLineWidth; }
  void SetGridLineWidth(int Value);

  // --- scrolling: the first column and row that are not fixed ---
  int GetLeftCol() const noexcept { return FLeftCol; }
  void SetLeftCol(int Value);
  int GetTopRow() const noexcept { return FTopRow; }
  void SetTopRow(int Value);
  // How many columns or rows, fixed ones aside, are to be seen whole.
  int GetVisibleColCount() const noexcept;
  int GetVisibleRowCount() const noexcept;

  // --- places ---
  // The cell in the client's pixels, without its lines; all zeros for a cell that can't be seen at all.
  TRect CellRect(int Col, int Row) const noexcept;
  // The cell at that place, lines included; (-1, -1) if there is none.
  TPoint MouseToCell(int X, int Y) const noexcept;

  // --- selection ---
  // The current cell; the first that is not fixed at first, (-1, -1) if there is none.
  int GetCol() const noexcept { return FCurrent.X; }
  int GetRow() const noexcept { return FCurrent.Y; }
  // Makes a cell the current one, and the only selected one, unless OnSelectCell refuses; false if it does or
  // if the cell is fixed or outside. Scrolls to it.
  bool SelectCell(int Col, int Row);
  // The selected cells; Right and Bottom are the last column and row, not what is behind them.
  TRect GetSelection() const noexcept;
  // Left and Top become the current cell. Sides are held to what is not fixed.
  void SetSelection(const TRect& Value);
  bool IsSelected(int Col, int Row) const noexcept;

  TGridOptions GetOptions() const noexcept { return FOptions; }
  void SetOptions(TGridOptions Value) { Change(FOptions, Value); }
  // False: cells are painted by OnDrawCell alone, before a ground in the grid's colour.
  bool GetDefaultDrawing() const noexcept { return FDefaultDrawing; }
  void SetDefaultDrawing(bool Value) { Change(FDefaultDrawing, Value); }
  TColor GetFixedColor() const noexcept { return FFixedColor; }
  void SetFixedColor(TColor Value) { Change(FFixedColor, Value); }

  // --- mouse and painting ---
  // The cell under the mouse, and the one where the left button went down; (-1, -1) for none.
  TPoint GetHotCell() const noexcept { return FHotCell; }
  TPoint GetPressedCell() const noexcept { return FPressedCell; }
  // A left button selects the cell; with Shift, and goRangeSelect, all from the current one on.
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseLeave() override;
  // The ground, the cells that can be seen, and the lines.
  void Paint() override;
  TGridDrawStates StateOf(int Col, int Row) const noexcept;
  // Paints a cell in the place of the grid, or, with DefaultDrawing, over it.
  const TDrawCellEvent& GetOnDrawCell() const noexcept { return FOnDrawCell; }
  void SetOnDrawCell(TDrawCellEvent Value) { Change(FOnDrawCell, Value); }
  // Before a cell becomes the current one.
  const TSelectCellEvent& GetOnSelectCell() const noexcept { return FOnSelectCell; }
  void SetOnSelectCell(TSelectCellEvent Value) noexcept { FOnSelectCell = Value; }
  // After LeftCol or TopRow have changed.
  const TNotifyEvent& GetOnTopLeftChanged() const noexcept { return FOnTopLeftChanged; }
  void SetOnTopLeftChanged(TNotifyEvent Value) noexcept { FOnTopLeftChanged = Value; }

 private:
  struct TRow {
    std::vector<String> Cells;  // as far as any was written
    std::unique_ptr<std::vector<TObject*>> Objects;
  };
  struct TAxis;
  TAxis Cols() const noexcept;
  TAxis Rows() const noexcept;
  bool IsInside(int Col, int Row) const noexcept { return Col >= 0 && Row >= 0 && Col < FColCount && Row < FRowCount; }
  static int SizeAt(const std::vector<int>& Sizes, int Index, int Default) noexcept {
    return static_cast<size_t>(Index) < Sizes.size() ? Sizes[static_cast<size_t>(Index)] : Default;
  }
  void SetSize(std::vector<int>& Sizes, int Index, int Count, int Default, int Value);
  TRow& RowFor(int Row);
  void HoldToGrid();
  void DrawPlain(int Col, int Row, const TRect& Rect, TGridDrawStates State);
  void DrawLines(const TAxis& Across, const TAxis& Down);

  int FColCount = 5, FRowCount = 5, FFixedCols = 1, FFixedRows = 1;
  int FDefaultColWidth = 64, FDefaultRowHeight = 24, FGridLineWidth = 1;
  int FLeftCol = 1, FTopRow = 1;
  std::vector<TRow> FRows;                   // as far as any was written
  std::vector<int> FColWidths, FRowHeights;  // as far as any was set
  TPoint FCurrent{1, 1}, FAnchor{1, 1};      // opposite corners of the selection
  TPoint FHotCell{-1, -1}, FPressedCell{-1, -1};
  TGridOptions FOptions{goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goRangeSelect};
  bool FDefaultDrawing = true;
  TColor FFixedColor = clBtnFace;
  TDrawCellEvent FOnDrawCell;
  TSelectCellEvent FOnSelectCell;
  TNotifyEvent FOnTopLeftChanged;
};

}  // namespace vx
