#include "controls/TableEditing/TTableSelection.h"

#include <algorithm>

namespace vx {

namespace {

int64_t CellsOf(const TRect& Range) noexcept { return Range.IsEmpty() ? 0 : int64_t{Range.Width()} * Range.Height(); }

bool IsIn(const TRect& Range, TPoint Cell) noexcept {
  return Cell.X >= Range.Left && Cell.X < Range.Right && Cell.Y >= Range.Top && Cell.Y < Range.Bottom;
}

// Appends what is left of Range without Hole: what lies above, beside and below.
void AppendWithout(std::vector<TRect>& Target, const TRect& Range, const TRect& Hole) {
  const TRect both = IntersectRect(Range, Hole);
  if (both.IsEmpty()) return Target.push_back(Range);
  for (const TRect& part :
       {TRect{Range.Left, Range.Top, Range.Right, both.Top}, TRect{Range.Left, both.Top, both.Left, both.Bottom},
        TRect{both.Right, both.Top, Range.Right, both.Bottom},
        TRect{Range.Left, both.Bottom, Range.Right, Range.Bottom}}) {
    if (!part.IsEmpty()) Target.push_back(part);
  }
}

std::vector<TRect> Without(const std::vector<TRect>& Ranges, const TRect& Hole) {
  std::vector<TRect> left;
  for (const TRect& range : Ranges) AppendWithout(left, range, Hole);
  return left;
}

}  // namespace

void TTableSelection::SetArea(const TRect& Area) {
  FArea = Area.IsEmpty() ? TRect{} : Area;
  for (TRect& range : FKept) range = IntersectRect(range, FArea);
  std::erase_if(FKept, [](const TRect& range) { return range.IsEmpty(); });
  FLast = IntersectRect(FLast, FArea);
  FCurrent = Held(FCurrent);
  FAnchor = Held(FAnchor);
  if (FKept.empty() && FLast.IsEmpty()) Collapse();
}

void TTableSelection::SetSelectsRows(bool Value) {
  FSelectsRows = Value;
  Collapse();
}

TPoint TTableSelection::Held(TPoint Cell) const noexcept {
  if (FArea.IsEmpty()) return {-1, -1};
  return {std::clamp(Cell.X, FArea.Left, FArea.Right - 1), std::clamp(Cell.Y, FArea.Top, FArea.Bottom - 1)};
}

TRect TTableSelection::RangeOf(TPoint A, TPoint B) const noexcept {
  if (FArea.IsEmpty()) return {};
  TRect range{std::min(A.X, B.X), std::min(A.Y, B.Y), std::max(A.X, B.X) + 1, std::max(A.Y, B.Y) + 1};
  if (FSelectsRows) range.Left = FArea.Left, range.Right = FArea.Right;
  return range;
}

void TTableSelection::MoveTo(TPoint Cell) {
  FCurrent = FAnchor = Held(Cell);
  FKept.clear();
  FLast = RangeOf(FCurrent, FCurrent);
}

void TTableSelection::ExtendTo(TPoint Cell) {
  FCurrent = Held(Cell);
  FLast = RangeOf(FAnchor, FCurrent);
}

void TTableSelection::KeepLast() {
  if (FLast.IsEmpty()) return;
  FKept = Without(FKept, FLast);
  FKept.push_back(FLast);
  FLast = {};
}

void TTableSelection::Toggle(TPoint Cell) {
  KeepLast();
  FCurrent = FAnchor = Held(Cell);
  const TRect range = RangeOf(FCurrent, FCurrent);
  if (IsSelected(FCurrent)) {
    FKept = Without(FKept, range);
  } else {
    FLast = range;
  }
}

void TTableSelection::SelectRange(const TRect& Range, bool Adds) {
  if (Adds) {
    KeepLast();
  } else {
    FKept.clear();
  }
  FLast = IntersectRect(Range, FArea);
}

void TTableSelection::SelectAll() {
  FAnchor = {FArea.Left, FArea.Top};
  SelectRange(FArea, false);
}

void TTableSelection::SelectColumns(int First, int Last, bool Adds) {
  if (First > Last) std::swap(First, Last);
  SelectRange({First, FArea.Top, Last + 1, FArea.Bottom}, Adds);
  FAnchor = Held({FCurrent.X <= First ? Last : First, FArea.Top});
  FCurrent = Held({std::clamp(FCurrent.X, First, Last), FCurrent.Y});
}

void TTableSelection::SelectRows(int First, int Last, bool Adds) {
  if (First > Last) std::swap(First, Last);
  SelectRange({FArea.Left, First, FArea.Right, Last + 1}, Adds);
  FAnchor = Held({FArea.Left, FCurrent.Y <= First ? Last : First});
  FCurrent = Held({FCurrent.X, std::clamp(FCurrent.Y, First, Last)});
}

bool TTableSelection::IsSelected(TPoint Cell) const noexcept {
  return IsIn(FLast, Cell) || std::ranges::any_of(FKept, [&](const TRect& range) { return IsIn(range, Cell); });
}

std::vector<TRect> TTableSelection::GetRanges() const {
  std::vector<TRect> ranges = Without(FKept, FLast);
  if (!FLast.IsEmpty()) ranges.push_back(FLast);
  return ranges;
}

int64_t TTableSelection::GetCellCount() const noexcept {
  int64_t count = CellsOf(FLast);
  for (const TRect& range : FKept) count += CellsOf(range) - CellsOf(IntersectRect(range, FLast));
  return count;
}

TRect TTableSelection::GetBounds() const noexcept {
  TRect bounds = FLast;
  for (const TRect& range : FKept) {
    if (bounds.IsEmpty()) bounds = range;
    bounds = {std::min(bounds.Left, range.Left), std::min(bounds.Top, range.Top), std::max(bounds.Right, range.Right),
              std::max(bounds.Bottom, range.Bottom)};
  }
  return bounds;
}

// --- keys ---

// The cell that one of the keys for going leads to from the current one; not held to the area.
TPoint TTableSelection::Target(uint16_t Key, bool IsFar, int PageRows) const noexcept {
  constexpr int far = 1 << 30;
  const auto [x, y] = FCurrent;
  const int page = std::max(1, PageRows);
  switch (Key) {
    case vkLeft:
      return {IsFar ? -far : x - 1, y};
    case vkRight:
      return {IsFar ? far : x + 1, y};
    case vkUp:
      return {x, IsFar ? -far : y - 1};
    case vkDown:
      return {x, IsFar ? far : y + 1};
    case vkHome:
      return {-far, IsFar ? -far : y};
    case vkEnd:
      return {far, IsFar ? far : y};
    case vkPrior:
      return {x, IsFar ? -far : y - page};
    case vkNext:
      return {x, IsFar ? far : y > far - page ? far : y + page};
    default:
      return {-1, -1};
  }
}

TPoint TTableSelection::NextCell(int Step) const noexcept {
  TPoint next{FCurrent.X + Step, FCurrent.Y};
  if (next.X >= FArea.Right && next.Y + 1 < FArea.Bottom) return {FArea.Left, next.Y + 1};
  if (next.X < FArea.Left && next.Y > FArea.Top) return {FArea.Right - 1, next.Y - 1};
  return next;
}

void TTableSelection::SelectWhole(bool IsColumns, const TRect& Range) {
  IsColumns ? SelectColumns(Range.Left, Range.Right - 1) : SelectRows(Range.Top, Range.Bottom - 1);
}

bool TTableSelection::Key(uint16_t Key, TShiftState Shift, int PageRows) {
  const bool isShift = Shift.Has(ssShift), isCtrl = Shift.Has(ssCtrl);
  if (FArea.IsEmpty() || Shift.Has(ssAlt)) return false;
  switch (Key) {
    case vkA:
      if (isCtrl && !isShift) SelectAll();
      return isCtrl && !isShift;
    case vkSpace:
      if (isCtrl == isShift) return false;
      SelectWhole(isCtrl, FLast.IsEmpty() ? RangeOf(FCurrent, FCurrent) : FLast);
      return true;
    case vkTab:
      if (isCtrl) return false;
      MoveTo(NextCell(isShift ? -1 : 1));
      return true;
    case vkReturn:
      if (isCtrl) return false;
      MoveTo({FCurrent.X, FCurrent.Y + (isShift ? -1 : 1)});
      return true;
    case vkLeft:
    case vkRight:
    case vkUp:
    case vkDown:
    case vkHome:
    case vkEnd:
    case vkPrior:
    case vkNext: {
      const TPoint target = Target(Key, isCtrl, PageRows);
      isShift ? ExtendTo(target) : MoveTo(target);
      return true;
    }
    default:
      return false;
  }
}

}  // namespace vx
