#include "rendering/uDecoration/TDecoratorCanvas.h"

#include <algorithm>
#include <typeinfo>

#include "platform/FreeBuffers.h"
#include "platform/Lazy.h"
#include "rendering/uDecoration/TDecoratorListView.h"
#include "rendering/uDecoration/TDecoratorStringGrid.h"
#include "rendering/uDecoration/detail/Decorators.h"
#include "rendering/uDecoration/detail/TrimSizes.h"

namespace vx {
namespace {

// A column or a row on the canvas.
struct TPiece {
  int Index, Begin, Size;
};

// What can be seen of one direction from Begin to End: Fixed ones at first, then those from First on, each with so many
// pixels of a line behind it.
std::vector<TPiece> PiecesOf(const std::vector<int>& Sizes, int Count, int Fixed, int First, int Begin, int End,
                             int Line) {
  std::vector<TPiece> pieces;
  Fixed = std::clamp(Fixed, 0, Count);
  First = std::max(First, Fixed);
  int64_t begin = Begin;
  for (int i = Fixed > 0 ? 0 : First; i < Count && begin < End; i = i + 1 == Fixed ? First : i + 1) {
    const int size = static_cast<size_t>(i) < Sizes.size() ? std::max(Sizes[static_cast<size_t>(i)], 0) : 0;
    if (size == 0) continue;
    pieces.push_back({i, static_cast<int>(begin), std::min(size, 1 << 27)});
    begin += int64_t{pieces.back().Size} + Line;
  }
  return pieces;
}

struct TLayout {
  std::vector<TPiece> Cols, Rows;
  TLayout(const TRect& Rect, const TDecorationList& List, const TTableSizes& Sizes, TPoint First, TPoint Counts)
      : Cols(PiecesOf(Sizes.ColWidths, Counts.X, List.GetFixed().Left, First.X, Rect.Left, Rect.Right,
                      TDecoratorCanvas::LineOf(List))),
        Rows(PiecesOf(Sizes.RowHeights, Counts.Y, List.GetFixed().Top, First.Y, Rect.Top, Rect.Bottom,
                      TDecoratorCanvas::LineOf(List))) {}
};

void DrawLines(TCanvas& Canvas, const TRect& Rect, const TDecorationList& List, const TLayout& Layout) {
  const TDecorationListOptions options = List.GetOptions();
  const int line = TDecoratorCanvas::LineOf(List);
  if (line == 0 || Layout.Cols.empty() || Layout.Rows.empty()) return;
  const auto endOf = [line](const std::vector<TPiece>& pieces, int end) {
    return std::min(pieces.back().Begin + pieces.back().Size + line, end);
  };
  const int right = endOf(Layout.Cols, Rect.Right), bottom = endOf(Layout.Rows, Rect.Bottom);
  Canvas.SetBrush({clSilver});
  for (const TPiece& col : Layout.Cols) {
    const bool isFixed = List.FixedCell(col.Index, -1, {alLeft, alRight});
    if (col.Begin + col.Size >= Rect.Right || !options.Has(isFixed ? dloFixedVertLine : dloVertLine)) continue;
    Canvas.FillRect({col.Begin + col.Size, Rect.Top, col.Begin + col.Size + line, bottom});
  }
  for (const TPiece& row : Layout.Rows) {
    const bool isFixed = List.FixedCell(-1, row.Index, {alTop, alBottom});
    if (row.Begin + row.Size >= Rect.Bottom || !options.Has(isFixed ? dloFixedHorzLine : dloHorzLine)) continue;
    Canvas.FillRect({Rect.Left, row.Begin + row.Size, right, row.Begin + row.Size + line});
  }
}

}  // namespace

void TDecoratorCanvas::Trim() {
  if (FBox == nullptr || FBox->GetCanvas() == nullptr || FDecorations == nullptr || FCells == nullptr) return;
  FSizes = TrimDevice(*FBox->GetCanvas(), {FBox->GetWidth(), FBox->GetHeight()}, *FDecorations, *FCells, FSizes);
}

TTableSizes TDecoratorCanvas::TrimDevice(TCanvas& Canvas, TPoint Room, TDecorationList& List, TCellSource& Cells,
                                         const TTableSizes& Present) {
  List.SetColCount(Cells.CellCols());
  List.SetRowCount(Cells.CellRows());
  const bool isPlain = typeid(*this) == typeid(TDecoratorCanvas);
  const detail::TNeeds needs = detail::MeasureTable(*this, Canvas, List, Cells, isPlain);
  return detail::TrimSizes(List, needs, {Room, {LineOf(List), LineOf(List)}, Present});
}

void TDecoratorCanvas::DrawTable(TCanvas& Canvas, const TRect& Rect, TDecorationList& List, TCellSource& Cells,
                                 const TTableSizes& Sizes, TPoint First) {
  List.SetColCount(Cells.CellCols());
  List.SetRowCount(Cells.CellRows());
  const TLayout layout(Rect, List, Sizes, First, {Cells.CellCols(), Cells.CellRows()});
  const TCanvasState saved(Canvas);
  Canvas.IntersectClip(Rect);
  const auto cell = List.DuplicateHead();
  for (const TPiece& row : layout.Rows) {
    const std::span<const String> texts = Cells.RowTexts(row.Index);
    for (const TPiece& col : layout.Cols) {
      const auto index = static_cast<size_t>(col.Index);
      List.VirtualListForCell(col.Index, row.Index, *cell);
      const TRect place{col.Begin, row.Begin, col.Begin + col.Size, row.Begin + row.Size};
      DrawCell(Canvas, place, index < texts.size() ? texts[index] : String(), Cells.CellObject(col.Index, row.Index),
               *cell, {});
      DrawBorder(Canvas, place, *cell);
    }
  }
  DrawLines(Canvas, Rect, List, layout);
}

TPoint TDecoratorCanvas::CellAt(const TRect& Rect, const TDecorationList& List, const TTableSizes& Sizes, TPoint Place,
                                TPoint First) noexcept {
  const TLayout layout(Rect, List, Sizes, First,
                       {static_cast<int>(Sizes.ColWidths.size()), static_cast<int>(Sizes.RowHeights.size())});
  const auto find = [line = LineOf(List)](const std::vector<TPiece>& pieces, int place, int end) {
    for (const TPiece& piece : pieces) {
      if (place < end && place >= piece.Begin && place < piece.Begin + piece.Size + line) return piece.Index;
    }
    return -1;
  };
  const TPoint cell{find(layout.Cols, Place.X, Rect.Right), find(layout.Rows, Place.Y, Rect.Bottom)};
  return cell.X < 0 || cell.Y < 0 ? TPoint{-1, -1} : cell;
}

// --- the decorators that all share ---

namespace {

struct TDecorators {
  TDecorators() { OnFreeBuffers(foServices, &uDecoration::FreeBuffersForLeakPrevention); }
  TDecoratorStringGrid Grid;
  TDecoratorListView List;
  TDecoratorCanvas Canvas;
};

constinit TLazy<TDecorators> Decorators;

}  // namespace

void detail::FreeDecorators() noexcept { Decorators.Free(); }

TDecoratorStringGrid& DecoratorStringGrid() { return Decorators.Get().Grid; }

TDecoratorListView& DecoratorListView() { return Decorators.Get().List; }

TDecoratorCanvas& DecoratorCanvas() { return Decorators.Get().Canvas; }

}  // namespace vx
