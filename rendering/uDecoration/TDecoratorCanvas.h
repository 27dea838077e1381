// The decorator of bare canvases and paint boxes: a table laid out and painted from cells that somebody has.
//
// Example:
//   void Paint(vx::TCanvas& canvas, const vx::TRect& rect, vx::TDecorationList& list, vx::TCellSource& cells) {
//     vx::TDecoratorCanvas& decorator = vx::DecoratorCanvas();
//     vx::TTableSizes sizes = decorator.TrimDevice(canvas, {rect.Width(), rect.Height()}, list, cells);
//     decorator.DrawTable(canvas, rect, list, cells, sizes);
//   }
//
// Pitfall: SetComponent, SetDecorations and SetCells only note what Trim() without arguments is about; whoever frees
// one of them takes it away again.
#pragma once

#include "platform/TPaintBox.h"
#include "rendering/uDecoration/TCellSource.h"
#include "rendering/uDecoration/TDecorator.h"
#include "rendering/uDecoration/TTableSizes.h"

namespace vx {

class TDecoratorCanvas : public TDecorator {
 public:
  String ClassName() const override { return u"TDecoratorCanvas"; }
  TObject* GetComponent() const override { return FBox; }
  // nullptr for anything but a TPaintBox.
  void SetComponent(TObject* aComponent) override { FBox = dynamic_cast<TPaintBox*>(aComponent); }
  TDecorationList* GetDecorations() const noexcept { return FDecorations; }
  void SetDecorations(TDecorationList* Value) noexcept { FDecorations = Value; }
  TCellSource* GetCells() const noexcept { return FCells; }
  void SetCells(TCellSource* Value) noexcept { FCells = Value; }
  // Of the box, the decorations and the cells that were set, in the room of the box; the result is GetSizes. Nothing if
  // one of them or the box's canvas is missing.
  void Trim() override;
  const TTableSizes& GetSizes() const noexcept { return FSizes; }

  // The pixels of the line behind each column and row: 1 with dloGridLines, else 0.
  static int LineOf(const TDecorationList& List) noexcept { return List.GetOptions().Has(dloGridLines) ? 1 : 0; }

  // The sizes by the trim modes (TTableSizes.h); a room of 0 is no limit. Present are those that tmNone keeps. The
  // list's counts become those of the cells.
  TTableSizes TrimDevice(TCanvas& Canvas, TPoint Room, TDecorationList& List, TCellSource& Cells,
                         const TTableSizes& Present = {});
  // Paints what fits into the rectangle, clipped to it: the fixed columns and rows at the left and the top, the others
  // from First on (a cell; fixed ones count as the first that is not), and the lines that the list's options have,
  // behind each column and row. Missing sizes count as 0, which hides.
  void DrawTable(TCanvas& Canvas, const TRect& Rect, TDecorationList& List, TCellSource& Cells,
                 const TTableSizes& Sizes, TPoint First = {});
  // The cell at a place of DrawTable, (-1, -1) for none.
  static TPoint CellAt(const TRect& Rect, const TDecorationList& List, const TTableSizes& Sizes, TPoint Place,
                       TPoint First = {}) noexcept;

 private:
  TPaintBox* FBox = nullptr;
  TDecorationList* FDecorations = nullptr;
  TCellSource* FCells = nullptr;
  TTableSizes FSizes;
};

// The one that all share; made at first use, and freed by uDecoration::FreeBuffersForLeakPrevention.
TDecoratorCanvas& DecoratorCanvas();

}  // namespace vx
