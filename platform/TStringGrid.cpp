#include "platform/TStringGrid.h"

#include <algorithm>

#include "platform/TCanvas.h"

namespace vx {
namespace {

// So that places add up to what an int holds.
constexpr int kMaxSize = 1 << 24;
int HoldSize(int Value) noexcept { return std::clamp(Value, 0, kMaxSize); }

}  // namespace

// One direction of the grid: where its columns, or rows, lie.
struct TStringGrid::TAxis {
  const std::vector<int>& Sizes;
  int Default, Line, Count, Fixed, First, Room;  // First: of those that scroll; Room: pixels that can be seen

  int Extent(int Index) const noexcept {
    const int size = SizeAt(Sizes, Index, Default);
    return size == 0 ? 0 : size + Line;
  }
  // Calls Each(index, begin, size) for what can be seen, until it gives false.
  template <typename F>
  void Walk(F Each) const {
    int begin = 0;
    for (int i = Fixed > 0 ? 0 : First; i < Count && begin < Room; i = i + 1 == Fixed ? First : i + 1) {
      const int size = SizeAt(Sizes, i, Default);
      if (size > 0 && !Each(i, begin, size)) return;
      begin += Extent(i);
    }
  }
  // First after a scroll, as short as can be, that shows what is at Index.
  int FirstToSee(int Index) const noexcept {
    int64_t room = int64_t{Room} - Extent(Index);
    for (int i = 0; i < Fixed; ++i) room -= Extent(i);
    int first = Index;
    while (first > First && room - Extent(first - 1) >= 0) room -= Extent(--first);
    return Index < First ? Index : first;
  }
  // Those that scroll and can be seen whole.
  int CountWhole() const noexcept {
    int count = 0;
    Walk([&](int i, int begin, int size) {
      if (i >= Fixed && begin + size <= Room) ++count;
      return true;
    });
    return count;
  }
};

TStringGrid::TAxis TStringGrid::Cols() const noexcept {
  return {FColWidths, FDefaultColWidth, FGridLineWidth, FColCount, std::min(FFixedCols, FColCount),
          FLeftCol,   GetWidth()};
}

TStringGrid::TAxis TStringGrid::Rows() const noexcept {
  return {FRowHeights, FDefaultRowHeight, FGridLineWidth, FRowCount, std::min(FFixedRows, FRowCount),
          FTopRow,     GetHeight()};
}

// --- counts ---

// Puts scroll place and selection back into a grid whose counts have changed.
void TStringGrid::HoldToGrid() {
  const auto hold = [](int value, int fixed, int count) { return std::max(fixed, std::min(value, count - 1)); };
  FLeftCol = hold(FLeftCol, FFixedCols, FColCount);
  FTopRow = hold(FTopRow, FFixedRows, FRowCount);
  const bool hasCells = FFixedCols < FColCount && FFixedRows < FRowCount;
  for (TPoint* place : {&FCurrent, &FAnchor}) {
    *place = hasCells ? TPoint{hold(place->X, FFixedCols, FColCount), hold(place->Y, FFixedRows, FRowCount)}
                      : TPoint{-1, -1};
  }
  for (TPoint* place : {&FHotCell, &FPressedCell}) {
    if (!IsInside(place->X, place->Y)) *place = {-1, -1};
  }
  Invalidate();
}

void TStringGrid::SetColCount(int Value) {
  Value = std::max(Value, 0);
  if (Value == FColCount) return;
  const auto count = static_cast<size_t>(FColCount = Value);
  for (TRow& row : FRows) {
    if (row.Cells.size() > count) row.Cells.resize(count);
    if (row.Objects && row.Objects->size() > count) row.Objects->resize(count);
  }
  if (FColWidths.size() > count) FColWidths.resize(count);
  HoldToGrid();
}

void TStringGrid::SetRowCount(int Value) {
  Value = std::max(Value, 0);
  if (Value == FRowCount) return;
  const auto count = static_cast<size_t>(FRowCount = Value);
  if (FRows.size() > count) FRows.resize(count);
  if (FRowHeights.size() > count) FRowHeights.resize(count);
  HoldToGrid();
}

void TStringGrid::SetFixedCols(int Value) {
  Value = std::max(Value, 0);
  if (FFixedCols == Value) return;
  if (FLeftCol == FFixedCols) FLeftCol = Value;  // one that is not scrolled stays so
  FFixedCols = Value;
  HoldToGrid();
}

void TStringGrid::SetFixedRows(int Value) {
  Value = std::max(Value, 0);
  if (FFixedRows == Value) return;
  if (FTopRow == FFixedRows) FTopRow = Value;
  FFixedRows = Value;
  HoldToGrid();
}

// --- cells ---

std::span<const String> TStringGrid::GetRowCells(int Row) const noexcept {
  if (static_cast<size_t>(Row) >= FRows.size()) return {};
  return FRows[static_cast<size_t>(Row)].Cells;
}

std::span<TObject* const> TStringGrid::GetRowObjects(int Row) const noexcept {
  if (static_cast<size_t>(Row) >= FRows.size()) return {};
  const auto& objects = FRows[static_cast<size_t>(Row)].Objects;
  return objects ? std::span<TObject* const>(*objects) : std::span<TObject* const>();
}

String TStringGrid::GetCells(int Col, int Row) const {
  const std::span<const String> cells = GetRowCells(Row);
  return static_cast<size_t>(Col) < cells.size() ? cells[static_cast<size_t>(Col)] : String();
}

TObject* TStringGrid::GetObjects(int Col, int Row) const {
  const std::span<TObject* const> objects = GetRowObjects(Row);
  return static_cast<size_t>(Col) < objects.size() ? objects[static_cast<size_t>(Col)] : nullptr;
}

TStringGrid::TRow& TStringGrid::RowFor(int Row) {
  const auto index = static_cast<size_t>(Row);
  if (index >= FRows.size()) {
    // In few steps to all rows, as whoever writes one of them mostly goes on to the last.
    FRows.reserve(std::max(index + 1, std::min(2 * FRows.size(), static_cast<size_t>(FRowCount))));
    FRows.resize(index + 1);
  }
  return FRows[index];
}

void TStringGrid::SetCells(int Col, int Row, const String& Value) {
  if (!IsInside(Col, Row)) return;
  const auto col = static_cast<size_t>(Col);
  const std::span<const String> old = GetRowCells(Row);
  if (col < old.size() ? old[col] == Value : Value.empty()) return;
  std::vector<String>& cells = RowFor(Row).Cells;
  if (col >= cells.size()) {
    if (cells.empty()) cells.reserve(static_cast<size_t>(std::min(FColCount, std::max(Col + 1, 16))));
    cells.resize(col + 1);
  }
  cells[col] = Value;
  Invalidate();
}

void TStringGrid::SetObjects(int Col, int Row, TObject* Value) {
  if (!IsInside(Col, Row) || GetObjects(Col, Row) == Value) return;
  auto& objects = RowFor(Row).Objects;
  if (!objects) objects = std::make_unique<std::vector<TObject*>>();
  if (static_cast<size_t>(Col) >= objects->size()) objects->resize(static_cast<size_t>(Col) + 1);
  (*objects)[static_cast<size_t>(Col)] = Value;
  Invalidate();
}

// --- sizes ---

void TStringGrid::SetSize(std::vector<int>& Sizes, int Index, int Count, int Default, int Value) {
  Value = HoldSize(Value);
  if (Index < 0 || Index >= Count || SizeAt(Sizes, Index, Default) == Value) return;
  if (static_cast<size_t>(Index) >= Sizes.size()) Sizes.resize(static_cast<size_t>(Index) + 1, Default);
  Sizes[static_cast<size_t>(Index)] = Value;
  Invalidate();
}

void TStringGrid::SetColWidths(int Col, int Value) { SetSize(FColWidths, Col, FColCount, FDefaultColWidth, Value); }

void TStringGrid::SetRowHeights(int Row, int Value) { SetSize(FRowHeights, Row, FRowCount, FDefaultRowHeight, Value); }

void TStringGrid::SetDefaultColWidth(int Value) {
  FDefaultColWidth = HoldSize(Value);
  FColWidths.clear();
  Invalidate();
}

void TStringGrid::SetDefaultRowHeight(int Value) {
  FDefaultRowHeight = HoldSize(Value);
  FRowHeights.clear();
  Invalidate();
}

void TStringGrid::SetGridLineWidth(int Value) { Change(FGridLineWidth, HoldSize(Value)); }

// --- scrolling and places ---

void TStringGrid::SetLeftCol(int Value) {
  Value = std::max(FFixedCols, std::min(Value, FColCount - 1));
  if (Value == FLeftCol) return;
  FLeftCol = Value;
  Invalidate();
  if (FOnTopLeftChanged) FOnTopLeftChanged(this);
}

void TStringGrid::SetTopRow(int Value) {
  Value = std::max(FFixedRows, std::min(Value, FRowCount - 1));
  if (Value == FTopRow) return;
  FTopRow = Value;
  Invalidate();
  if (FOnTopLeftChanged) FOnTopLeftChanged(this);
}

int TStringGrid::GetVisibleColCount() const noexcept { return Cols().CountWhole(); }

int TStringGrid::GetVisibleRowCount() const noexcept { return Rows().CountWhole(); }

TRect TStringGrid::CellRect(int Col, int Row) const noexcept {
  TRect rect;
  Cols().Walk([&](int i, int begin, int size) {
    if (i == Col) rect.Left = begin, rect.Right = begin + size;
    return i != Col;
  });
  Rows().Walk([&](int i, int begin, int size) {
    if (i == Row) rect.Top = begin, rect.Bottom = begin + size;
    return i != Row;
  });
  return rect.IsEmpty() ? TRect() : rect;
}

TPoint TStringGrid::MouseToCell(int X, int Y) const noexcept {
  const auto find = [this](const TAxis& axis, int place) {
    int found = -1;
    axis.Walk([&](int i, int begin, int size) {
      if (place >= begin && place < begin + size + FGridLineWidth) found = i;
      return found < 0;
    });
    return found;
  };
  const TPoint cell{find(Cols(), X), find(Rows(), Y)};
  return cell.X < 0 || cell.Y < 0 ? TPoint{-1, -1} : cell;
}

// --- selection ---

bool TStringGrid::SelectCell(int Col, int Row) {
  if (!IsInside(Col, Row) || IsFixed(Col, Row)) return false;
  bool canSelect = true;
  if (FOnSelectCell) FOnSelectCell(this, Col, Row, canSelect);
  if (!canSelect) return false;
  FCurrent = FAnchor = {Col, Row};
  SetLeftCol(Cols().FirstToSee(Col));
  SetTopRow(Rows().FirstToSee(Row));
  Invalidate();
  return true;
}

TRect TStringGrid::GetSelection() const noexcept {
  if (FCurrent.X < 0) return {-1, -1, -1, -1};
  TRect rect{std::min(FCurrent.X, FAnchor.X), std::min(FCurrent.Y, FAnchor.Y), std::max(FCurrent.X, FAnchor.X),
             std::max(FCurrent.Y, FAnchor.Y)};
  if (FOptions.Has(goRowSelect)) rect.Left = FFixedCols, rect.Right = FColCount - 1;
  return rect;
}

void TStringGrid::SetSelection(const TRect& Value) {
  FCurrent = {Value.Left, Value.Top};
  FAnchor = {Value.Right, Value.Bottom};
  HoldToGrid();
}

bool TStringGrid::IsSelected(int Col, int Row) const noexcept {
  const TRect cells = GetSelection();
  return Col >= cells.Left && Col <= cells.Right && Row >= cells.Top && Row <= cells.Bottom && !IsFixed(Col, Row);
}

TGridDrawStates TStringGrid::StateOf(int Col, int Row) const noexcept {
  TGridDrawStates state;
  if (IsFixed(Col, Row)) state.Include(gdFixed);
  if (IsSelected(Col, Row)) state.Include(gdSelected);
  if (FCurrent == TPoint{Col, Row}) state.Include(gdFocused);
  if (FHotCell == TPoint{Col, Row}) {
    state.Include(gdHotTrack);
    if (FPressedCell == FHotCell) state.Include(gdPressed);
  }
  return state;
}

// --- mouse ---

void TStringGrid::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (GetEnabled() && Button == mbLeft) {
    const TControlUpdate update(*this);
    const TPoint cell = MouseToCell(X, Y);
    Change(FHotCell, cell);
    Change(FPressedCell, cell);
    const TPoint anchor = FAnchor;
    const bool extends = Shift.Has(ssShift) && FOptions.Has(goRangeSelect) && FCurrent.X >= 0;
    if (SelectCell(cell.X, cell.Y) && extends) FAnchor = anchor;
  }
  TControl::MouseDown(Button, Shift, X, Y);
}

void TStringGrid::MouseMove(TShiftState Shift, int X, int Y) {
  if (GetEnabled()) Change(FHotCell, MouseToCell(X, Y));
  TControl::MouseMove(Shift, X, Y);
}

void TStringGrid::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (Button == mbLeft) Change(FPressedCell, {-1, -1});
  TControl::MouseUp(Button, Shift, X, Y);
}

void TStringGrid::MouseLeave() {
  Change(FHotCell, {-1, -1});
  TControl::MouseLeave();
}

// --- painting ---

void TStringGrid::DrawPlain(int Col, int Row, const TRect& Rect, TGridDrawStates State) {
  constexpr int kMargin = 2;
  TCanvas& canvas = *GetCanvas();
  const TCanvasState saved(canvas);
  const bool isMarked = State.Has(gdSelected);
  canvas.SetBrush({isMarked ? clHighlight : State.Has(gdFixed) ? FFixedColor : GetColor()});
  TFont font = GetFont();
  if (isMarked) font.Color = clHighlightText;
  canvas.SetFont(font);
  canvas.TextRect(Rect, Rect.Left + kMargin, Rect.Top + kMargin, GetCells(Col, Row));
}

void TStringGrid::DrawLines(const TAxis& Across, const TAxis& Down) {
  TCanvas& canvas = *GetCanvas();
  const auto endOf = [](const TAxis& axis) {
    int end = 0;
    axis.Walk([&](int, int begin, int size) { return end = begin + size + axis.Line, true; });
    return std::min(end, axis.Room);
  };
  const int width = endOf(Across), height = endOf(Down);
  canvas.SetBrush({clSilver});
  Across.Walk([&](int i, int begin, int size) {
    if (!FOptions.Has(i < Across.Fixed ? goFixedVertLine : goVertLine)) return true;
    return canvas.FillRect({begin + size, 0, begin + size + Across.Line, height}), true;
  });
  Down.Walk([&](int i, int begin, int size) {
    if (!FOptions.Has(i < Down.Fixed ? goFixedHorzLine : goHorzLine)) return true;
    return canvas.FillRect({0, begin + size, width, begin + size + Down.Line}), true;
  });
}

void TStringGrid::Paint() {
  if (GetCanvas() == nullptr) return;
  const TCanvasState saved(*GetCanvas());
  GetCanvas()->SetFont(GetFont());
  GetCanvas()->SetBrush({GetColor()});
  GetCanvas()->FillRect(GetClientRect());
  const TAxis across = Cols(), down = Rows();
  down.Walk([&](int row, int top, int height) {
    across.Walk([&](int col, int left, int width) {
      const TRect rect{left, top, left + width, top + height};
      const TGridDrawStates state = StateOf(col, row);
      if (FDefaultDrawing) DrawPlain(col, row, rect, state);
      if (FOnDrawCell) FOnDrawCell(this, col, row, rect, state);
      return true;
    });
    return true;
  });
  DrawLines(across, down);
}

}  // namespace vx
