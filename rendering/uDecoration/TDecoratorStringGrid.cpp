#include "rendering/uDecoration/TDecoratorStringGrid.h"

#include <typeinfo>
#include <utility>

#include "rendering/uDecoration/TButtonInfo.h"
#include "rendering/uDecoration/detail/TrimSizes.h"

namespace vx {
namespace {

class TGridCells final : public TCellSource {
 public:
  explicit TGridCells(const TStringGrid& Grid) noexcept : FGrid(Grid) {}
  int CellCols() const override { return FGrid.GetColCount(); }
  int CellRows() const override { return FGrid.GetRowCount(); }
  std::span<const String> RowTexts(int Row) override { return FGrid.GetRowCells(Row); }
  TObject* CellObject(int Col, int Row) override { return FGrid.GetObjects(Col, Row); }

 private:
  const TStringGrid& FGrid;
};

constexpr std::pair<TDecorationListOption, TGridOption> kLines[] = {{dloFixedVertLine, goFixedVertLine},
                                                                    {dloFixedHorzLine, goFixedHorzLine},
                                                                    {dloVertLine, goVertLine},
                                                                    {dloHorzLine, goHorzLine}};

void TakeCounts(const TStringGrid& Grid, TDecorationList& List) {
  List.SetColCount(Grid.GetColCount());
  List.SetRowCount(Grid.GetRowCount());
}

// The look of the cell that a button is in; nullptr where there is none.
std::unique_ptr<TDecoration> ButtonAt(const TStringGrid& Grid, TDecorationList& List, TPoint Cell) {
  if (Cell.X < 0) return nullptr;
  std::unique_ptr<TDecoration> look = List.VirtualListForCell(Cell.X, Cell.Y)->Compress();
  const bool isButton = look->GetFieldType() == vftButton && !Grid.GetCells(Cell.X, Cell.Y).empty();
  return isButton ? std::move(look) : nullptr;
}

}  // namespace

void TDecoratorStringGrid::Trim() {
  if (FGrid != nullptr && FDecorations != nullptr) Trim(*FGrid, *FDecorations);
}

void TDecoratorStringGrid::Trim(TStringGrid& Grid, TDecorationList& List) {
  TakeCounts(Grid, List);
  if (Grid.GetCanvas() == nullptr) return;
  TGridCells cells(Grid);
  const bool isPlain = typeid(*this) == typeid(TDecoratorStringGrid);
  const detail::TNeeds needs = detail::MeasureTable(*this, *Grid.GetCanvas(), List, cells, isPlain);
  const int line = Grid.GetGridLineWidth();
  WriteSizes(Grid,
             detail::TrimSizes(List, needs, {{Grid.GetWidth(), Grid.GetHeight()}, {line, line}, ReadSizes(Grid)}));
}

void TDecoratorStringGrid::ReadLayout(const TStringGrid& Grid, TDecorationList& List) const {
  TakeCounts(Grid, List);
  const TRect& fixed = List.GetFixed();
  List.SetFixed(Grid.GetFixedCols(), Grid.GetFixedRows(), fixed.Right, fixed.Bottom);
  TDecorationListOptions options = List.GetOptions();
  const auto set = [&](TDecorationListOption option, bool value) {
    value ? options.Include(option) : options.Exclude(option);
  };
  bool hasLines = false;
  for (const auto& [option, line] : kLines) {
    set(option, Grid.GetOptions().Has(line));
    hasLines = hasLines || Grid.GetOptions().Has(line);
  }
  set(dloGridLines, hasLines && Grid.GetGridLineWidth() > 0);
  set(dloRowSelect, Grid.GetOptions().Has(goRowSelect));
  List.SetOptions(options);
}

void TDecoratorStringGrid::WriteLayout(TStringGrid& Grid, const TDecorationList& List) const {
  const TControlUpdate update(Grid);
  Grid.SetFixedCols(List.GetFixed().Left);
  Grid.SetFixedRows(List.GetFixed().Top);
  TGridOptions options = Grid.GetOptions();
  const TDecorationListOptions from = List.GetOptions();
  const auto set = [&](TGridOption option, bool value) { value ? options.Include(option) : options.Exclude(option); };
  for (const auto& [option, line] : kLines) set(line, from.Has(option) && from.Has(dloGridLines));
  set(goRowSelect, from.Has(dloRowSelect));
  Grid.SetOptions(options);
  Grid.SetFont(List.GetFont());
  if (List.GetColor() != clWhite) Grid.SetColor(List.GetColor());
  if (List.GetFixedColor() != clWhite) Grid.SetFixedColor(List.GetFixedColor());
  Grid.SetDefaultDrawing(false);
}

TTableSizes TDecoratorStringGrid::ReadSizes(const TStringGrid& Grid) const {
  TTableSizes sizes;
  for (int col = 0; col < Grid.GetColCount(); ++col) sizes.ColWidths.push_back(Grid.GetColWidths(col));
  for (int row = 0; row < Grid.GetRowCount(); ++row) sizes.RowHeights.push_back(Grid.GetRowHeights(row));
  return sizes;
}

void TDecoratorStringGrid::WriteSizes(TStringGrid& Grid, const TTableSizes& Sizes) const {
  const TControlUpdate update(Grid);
  for (size_t i = 0; i < Sizes.ColWidths.size(); ++i) Grid.SetColWidths(static_cast<int>(i), Sizes.ColWidths[i]);
  for (size_t i = 0; i < Sizes.RowHeights.size(); ++i) Grid.SetRowHeights(static_cast<int>(i), Sizes.RowHeights[i]);
}

TDecorationDrawStates TDecoratorStringGrid::StatesOf(const TDecorationList& List, TGridDrawStates State) noexcept {
  TDecorationDrawStates states;
  if (State.Has(gdSelected)) states.Include(ddsSelected);
  if (State.Has(gdFocused) && List.GetOptions().Has(dloRowSelect)) states.Include(ddsFocused);
  if (State.Has(gdHotTrack)) states.Include(ddsMouseOver);
  if (State.Has(gdPressed)) states.Include(ddsMouseDown);
  return states;
}

void TDecoratorStringGrid::DrawGridCell(TStringGrid& Grid, TDecorationList& List, int Col, int Row, const TRect& Rect,
                                        TGridDrawStates State) {
  if (Grid.GetCanvas() == nullptr) return;
  TakeCounts(Grid, List);
  const auto cell = List.VirtualListForCell(Col, Row);
  const TCanvasState saved(*Grid.GetCanvas());
  DrawCell(*Grid.GetCanvas(), Rect, Grid.GetCells(Col, Row), Grid.GetObjects(Col, Row), *cell, StatesOf(List, State));
  DrawBorder(*Grid.GetCanvas(), Rect, *cell);
}

void TDecoratorStringGrid::MouseDown(TStringGrid& Grid, TDecorationList& List, TMouseButton Button,
                                     TShiftState /*Shift*/, int X, int Y) {
  if (Button != mbLeft) return;
  const TPoint cell = Grid.MouseToCell(X, Y);
  FPressed = ButtonAt(Grid, List, cell) ? cell : TPoint{-1, -1};
}

void TDecoratorStringGrid::MouseMove(TStringGrid& Grid, TDecorationList& List, TShiftState /*Shift*/, int X, int Y) {
  const TPoint cell = Grid.MouseToCell(X, Y);
  const auto look = ButtonAt(Grid, List, cell);
  Grid.SetHint(look ? TButtonInfo(look->GetFormatString(), Grid.GetCells(cell.X, cell.Y)).Hint : String());
}

TPoint TDecoratorStringGrid::MouseUp(TStringGrid& Grid, TDecorationList& List, TMouseButton Button,
                                     TShiftState /*Shift*/, int X, int Y) {
  if (Button != mbLeft) return {-1, -1};
  const TPoint pressed = std::exchange(FPressed, {-1, -1});
  const TPoint cell = Grid.MouseToCell(X, Y);
  return cell == pressed && ButtonAt(Grid, List, cell) ? cell : TPoint{-1, -1};
}

}  // namespace vx
