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

// All that says which cells a decoration is for.
struct TRegion {
  explicit TRegion(const TDecoration& Decoration) noexcept
      : Range(Decoration.GetRange()), Type(Decoration.GetRangeType()), Parent(Decoration.GetParent()) {}

  int Col(int Value) const noexcept { return Value < 0 && Parent ? WrappingSum(Value, Parent->GetColCount()) : Value; }
  int Row(int Value) const noexcept { return Value < 0 && Parent ? WrappingSum(Value, Parent->GetRowCount()) : Value; }

  TRect Range;
  TRangeType Type;
  const TDecorationList* Parent;
};

// Between the fixed borders; Right and Bottom belong to it.
inline TRect ContentOf(const TDecorationList& List) noexcept {
  const TRect& border = List.GetFixed();
  return {border.Left, border.Top, WrappingDiff(List.GetColCount(), WrappingSum(border.Right, 1)),
          WrappingDiff(List.GetRowCount(), WrappingSum(border.Bottom, 1))};
}

inline bool Contains(const TRect& Cells, int Col, int Row) noexcept {
  return Cells.Left <= Col && Col <= Cells.Right && Cells.Top <= Row && Row <= Cells.Bottom;
}

// TDecoration::RangeRect.
TRect CoveredBy(const TRegion& Region) noexcept;

// TDecoration::Responsible.
inline bool Applies(const TRegion& Region, int Col, int Row) noexcept {
  const TRect& range = Region.Range;
  switch (Region.Type) {
    case rtCell:
      return Region.Col(range.Left) == Col && Region.Row(range.Top) == Row;
    case rtColumn:
      return Region.Col(range.Left) <= Col && Col <= Region.Col(range.Right);
    case rtRow:
      return Region.Row(range.Top) <= Row && Row <= Region.Row(range.Bottom);
    case rtRect: {
      const int right = Region.Col(range.Right), bottom = Region.Row(range.Bottom);
      return Region.Col(range.Left) <= Col && Region.Row(range.Top) <= Row && (right < 0 || Col <= right) &&
             (bottom < 0 || Row <= bottom);
    }
    case rtAll:
      return true;
    case rtFixed:
      return Region.Parent && !Contains(ContentOf(*Region.Parent), Col, Row);
    case rtContent:
      return Region.Parent && Contains(ContentOf(*Region.Parent), Col, Row);
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
inline TSpan SpanOf(const TRegion& Region, TRangeType Axis) noexcept {
  const bool isCol = Axis == rtColumn;
  if (Region.Type == Axis || Region.Type == rtRect) [[likely]] {
    const TRect& range = Region.Range;
    if (isCol) return {Region.Col(range.Left), Region.Col(range.Right)};
    return {Region.Row(range.Top), Region.Row(range.Bottom)};
  }
  const TRect cells = CoveredBy(Region);
  return isCol ? TSpan{cells.Left, cells.Right} : TSpan{cells.Top, cells.Bottom};
}

}  // namespace vx::detail
