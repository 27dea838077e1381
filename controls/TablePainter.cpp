#include "controls/TablePainter.h"

#include "platform/TCanvas.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "rendering/uDecoration/TDecoratorStringGrid.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {
namespace {

// How far a head reaches beyond its place.
constexpr int kReach = 2;

TRect Grown(const TRect& Rect, int By) noexcept {
  return {Rect.Left - By, Rect.Top - By, Rect.Right + By, Rect.Bottom + By};
}

}  // namespace

void TTablePainter::Paint(TCanvas& Canvas, const TRect& Area, TStates States) const {
  using enum TAxisView::TZone;
  const TCanvasState saved(Canvas);
  Canvas.IntersectClip(Area);
  const TPoint end = FScene.End();
  Canvas.SetBrush({clWindow});
  Canvas.FillRect({std::max(end.X, Area.Left), Area.Top, Area.Right, Area.Bottom});
  Canvas.FillRect({Area.Left, std::max(end.Y, Area.Top), Area.Right, Area.Bottom});
  if (FScene.GetTable() == nullptr) return;
  for (const auto rows : {zoMiddle, zoFirst, zoLast}) {
    for (const auto cols : {zoMiddle, zoFirst, zoLast}) PaintZone(Canvas, Area, cols, rows, States);
  }
}

void TTablePainter::PaintZone(TCanvas& Canvas, const TRect& Area, TAxisView::TZone ColZone, TAxisView::TZone RowZone,
                              TStates States) const {
  const TAxisView colsView = FScene.ColsView(), rowsView = FScene.RowsView();
  const TRect zone = IntersectRect(Area, {colsView.ZoneBegin(ColZone), rowsView.ZoneBegin(RowZone),
                                          colsView.ZoneEnd(ColZone), rowsView.ZoneEnd(RowZone)});
  if (zone.IsEmpty()) return;
  const std::vector<TAxisPiece> cols = colsView.Pieces(ColZone, zone.Left - kReach, zone.Right + kReach);
  const std::vector<TAxisPiece> rows = rowsView.Pieces(RowZone, zone.Top - kReach, zone.Bottom + kReach);
  TTypeCsv& table = *FScene.GetTable();
  TDecorationList& list = table.GetDecorations();
  const int line = FScene.Columns().GetLine();
  const auto cell = list.DuplicateHead();
  const TCanvasState saved(Canvas);
  for (const TAxisPiece& row : rows) {
    const std::span<const String> texts = table.RowTexts(row.Index);
    for (const TAxisPiece& piece : cols) {
      const int col = FScene.Columns().TableCol(piece.Index);
      const TRect place{piece.Place, row.Place, piece.Place + piece.Size - line, row.Place + row.Size - line};
      const TRect seen = IntersectRect(zone, FScene.IsHead(row.Index) ? Grown(place, kReach) : place);
      if (seen.IsEmpty()) continue;
      Canvas.SetClip(seen);
      list.VirtualListForCell(col, row.Index, *cell);
      const auto index = static_cast<size_t>(col);
      DecoratorStringGrid().DrawCell(Canvas, place, index < texts.size() ? texts[index] : String(),
                                     table.CellObject(col, row.Index), *cell,
                                     TDecoratorStringGrid::StatesOf(list, States(col, row.Index)));
      TDecorator::DrawBorder(Canvas, place, *cell);
    }
  }
  Canvas.SetClip(zone);
  PaintLines(Canvas, zone, cols, rows);
}

void TTablePainter::PaintLines(TCanvas& Canvas, const TRect& Area, const std::vector<TAxisPiece>& Cols,
                               const std::vector<TAxisPiece>& Rows) const {
  const int line = FScene.Columns().GetLine();
  if (line == 0 || Cols.empty() || Rows.empty()) return;
  const TDecorationList& list = FScene.GetTable()->GetDecorations();
  const TDecorationListOptions options = list.GetOptions();
  const TColor ground = list.GetColor();
  const auto paint = [&](bool isShown, const TRect& place) {
    Canvas.SetBrush({isShown ? clSilver : ground});
    Canvas.FillRect(IntersectRect(place, Area));
  };
  const int bottom = Rows.back().Place + Rows.back().Size, right = Cols.back().Place + Cols.back().Size;
  for (const TAxisPiece& col : Cols) {
    const bool isFixed = list.FixedCell(FScene.Columns().TableCol(col.Index), -1, {alLeft, alRight});
    const int end = col.Place + col.Size;
    paint(options.Has(isFixed ? dloFixedVertLine : dloVertLine), {end - line, Area.Top, end, bottom});
  }
  for (const TAxisPiece& row : Rows) {
    const bool isFixed = list.FixedCell(-1, row.Index, {alTop, alBottom});
    const int end = row.Place + row.Size;
    paint(options.Has(isFixed ? dloFixedHorzLine : dloHorzLine), {Area.Left, end - line, right, end});
  }
}

}  // namespace vx
