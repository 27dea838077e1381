// Which cells a decoration is for; inline, as painting asks this of many decorations for each cell.
#pragma once

#include "rendering/uDecoration/TDecorationList.h"

namespace vx::detail {

// Sums of coordinates wrap around, as they may come from any text.
constexpr int WrappingSum(int A, int B) noexcept {
  return static_cast<int>(static_cast<unsigned>(A) + static_cast<unsigned>(B));
}
constexpr int WrappingDiff(int A, int B) noexcept {
  return static_cast<int>(static_cast<unsigned>(A) - static_cast<unsigned>(B));
}

inline int ToCol(int Col, const TDecorationList* Parent) noexcept {
  return Col < 0 && Parent != nullptr ? WrappingSum(Col, Parent->GetColCount()) : Col;
}
inline int ToRow(int Row, const TDecorationList* Parent) noexcept {
  return Row < 0 && Parent != nullptr ? WrappingSum(Row, Parent->GetRowCount()) : Row;
}

// Between the fixed borders; Right and Bottom belong to it.
inline TRect ContentOf(const TDecorationList& List) noexcept {
  const TRect& border = List.GetFixed();
  return {border.Left, border.Top, WrappingDiff(List.GetColCount(), WrappingSum(border.Right, 1)),
          WrappingDiff(List.GetRowCount(), WrappingSum(border.Bottom, 1))};
}

inline bool Contains(const TRect& Cells, int Col, int Row) noexcept {
  return Cells.Left <= Col && Col <= Cells.Right && Cells.Top <= Row && Row <= Cells.Bottom;
}

// TDecoration::Responsible.
inline bool Applies(const TDecoration& Decoration, int Col, int Row) noexcept {
  const TDecorationList* parent = Decoration.GetParent();
  const TRect& range = Decoration.GetRange();
  switch (Decoration.GetRangeType()) {
    case rtCell:
      return ToCol(range.Left, parent) == Col && ToRow(range.Top, parent) == Row;
    case rtColumn:
      return ToCol(range.Left, parent) <= Col && Col <= ToCol(range.Right, parent);
    case rtRow:
      return ToRow(range.Top, parent) <= Row && Row <= ToRow(range.Bottom, parent);
    case rtRect: {
      const int right = ToCol(range.Right, parent), bottom = ToRow(range.Bottom, parent);
      return ToCol(range.Left, parent) <= Col && ToRow(range.Top, parent) <= Row && (right < 0 || Col <= right) &&
             (bottom < 0 || Row <= bottom);
    }
    case rtAll:
      return true;
    case rtFixed:
      return parent != nullptr && !Contains(ContentOf(*parent), Col, Row);
    case rtContent:
      return parent != nullptr && Contains(ContentOf(*parent), Col, Row);
    case rtUnknown:
      break;
  }
  return false;
}

// What RangeRect covers along one axis.
struct TSpan {
  int First;
  int Last;
  bool Has(int Position) const noexcept { return First <= Position && Position <= Last; }
};
// Axis is rtColumn or rtRow.
inline TSpan SpanOf(const TDecoration& Decoration, TRangeType Axis) noexcept {
  const TRangeType type = Decoration.GetRangeType();
  if (type == Axis || type == rtRect) [[likely]] {
    const TDecorationList* parent = Decoration.GetParent();
    const TRect& range = Decoration.GetRange();
    if (Axis == rtColumn) return {ToCol(range.Left, parent), ToCol(range.Right, parent)};
    return {ToRow(range.Top, parent), ToRow(range.Bottom, parent)};
  }
  TRect cells;
  Decoration.RangeRect(cells);
  return Axis == rtColumn ? TSpan{cells.Left, cells.Right} : TSpan{cells.Top, cells.Bottom};
}

}  // namespace vx::detail
