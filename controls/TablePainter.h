// Paints what a scene shows of its table, cell by cell as the grid decorator paints them.
//
// Example:
//   vx::TTablePainter painter(scene);
//   painter.Paint(canvas, {0, 0, 800, 600}, [](int, int) { return vx::TGridDrawStates(); });
//
// Only cells that touch the area are asked for; each keeps to its place. Nothing is kept between two calls.
#pragma once

#include <vector>

#include "controls/TableScene.h"
#include "platform/TStringGrid.h"
#include "platform/Types.h"

namespace vx {

class TTablePainter {
 public:
  // How a cell is to be painted: selected, under the mouse, pressed, with the focus.
  using TStates = FunctionRef<TGridDrawStates(int Col, int Row)>;

  // Not owned.
  explicit TTablePainter(const TTableScene& Scene) noexcept : FScene(Scene) {}

  // Paints the area, clipped to it: the cells, their lines, and clWindow where there are none. The scene has to be in
  // step with its table.
  void Paint(TCanvas& Canvas, const TRect& Area, TStates States) const;

 private:
  void PaintZone(TCanvas& Canvas, const TRect& Area, TAxisView::TZone ColZone, TAxisView::TZone RowZone,
                 TStates States) const;
  void PaintLines(TCanvas& Canvas, const TRect& Area, const std::vector<TAxisPiece>& Cols,
                  const std::vector<TAxisPiece>& Rows) const;

  const TTableScene& FScene;
};

}  // namespace vx
