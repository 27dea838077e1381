// The decorator of string grids.
//
// Example:
//   vx::TStringGrid grid;
//   vx::TDecorationList list;
//   vx::TRecordingCanvas canvas;
//   grid.SetCanvas(&canvas);
//   grid.SetCells(1, 1, u"Müller");
//   vx::DecoratorStringGrid().WriteLayout(grid, list);   // fixed border, lines, font, colours
//   vx::DecoratorStringGrid().Trim(grid, list);          // columns and rows become as large as their cells ask
//   grid.GetColWidths(1);                                // 43
//
// Pitfall: SetComponent and SetDecorations only note what Trim() without arguments is about; whoever frees one of them
// takes it away again.
#pragma once

#include "platform/TStringGrid.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/TTableSizes.h"

namespace vx {

class TDecoratorStringGrid : public TDecorator {
 public:
  String ClassName() const override { return u"TDecoratorStringGrid"; }
  // Heads that can be clicked have no edge stripes in a grid.
  bool ColumnClickSelection() const override { return false; }
  TObject* GetComponent() const override { return FGrid; }
  // nullptr for anything but a TStringGrid.
  void SetComponent(TObject* aComponent) override { FGrid = dynamic_cast<TStringGrid*>(aComponent); }
  TDecorationList* GetDecorations() const noexcept { return FDecorations; }
  void SetDecorations(TDecorationList* Value) noexcept { FDecorations = Value; }
  // Of the grid and the decorations that were set; nothing if one is missing.
  void Trim() override;

  // Sizes columns and rows by the trim modes (TTableSizes.h); the room is that of the grid. The list's counts become
  // the grid's. Nothing if the grid has no canvas.
  void Trim(TStringGrid& Grid, TDecorationList& List);
  // The list gets the grid's counts, fixed columns at the left and rows at the top, lines, and whether rows are
  // selected whole.
  void ReadLayout(const TStringGrid& Grid, TDecorationList& List) const;
  // The grid gets these, and the list's font and colours; a white one leaves the grid's. Its cells are painted by
  // OnDrawCell alone then.
  void WriteLayout(TStringGrid& Grid, const TDecorationList& List) const;
  // Widths and heights of all columns and rows; writing takes as many as are given.
  TTableSizes ReadSizes(const TStringGrid& Grid) const;
  void WriteSizes(TStringGrid& Grid, const TTableSizes& Sizes) const;

  // Paints a cell of the grid on its canvas, as OnDrawCell tells it. Nothing without a canvas.
  void DrawGridCell(TStringGrid& Grid, TDecorationList& List, int Col, int Row, const TRect& Rect,
                    TGridDrawStates State);
  // What DrawGridCell makes of the grid's: the current cell has the focus where whole rows are selected.
  static TDecorationDrawStates StatesOf(const TDecorationList& List, TGridDrawStates State) noexcept;

  // What the grid's events tell. A move puts the hint of the button under the mouse, or none, into the grid. MouseUp
  // gives the cell whose button was clicked by the left button, (-1, -1) for none.
  void MouseDown(TStringGrid& Grid, TDecorationList& List, TMouseButton Button, TShiftState Shift, int X, int Y);
  void MouseMove(TStringGrid& Grid, TDecorationList& List, TShiftState Shift, int X, int Y);
  TPoint MouseUp(TStringGrid& Grid, TDecorationList& List, TMouseButton Button, TShiftState Shift, int X, int Y);

 private:
  TStringGrid* FGrid = nullptr;
  TDecorationList* FDecorations = nullptr;
  TPoint FPressed{-1, -1};  // where the left button went down on a button
};

// The one that all share; made at first use, and freed by uDecoration::FreeBuffersForLeakPrevention.
TDecoratorStringGrid& DecoratorStringGrid();

}  // namespace vx
