#include "controls/TableScene.h"

#include <algorithm>
#include <vector>

#include "platform/TCanvas.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {
namespace {

constexpr int kDefaultWidth = 64, kDefaultHeight = 20;

// The first rows of a table and its fixed ones at the bottom, as if there were no others.
class TSampleRows final : public TCellSource {
 public:
  explicit TSampleRows(TTypeCsv& Table) : FTable(Table) {
    constexpr int mostCells = 20000, mostRows = 500;
    const int rows = FTable.GetCount();
    const TRect& fixed = FTable.GetDecorations().GetFixed();
    FLast = std::clamp(fixed.Bottom, 0, rows);
    FFirst = std::clamp(fixed.Top, 0, rows) + std::clamp(mostCells / std::max(FTable.FieldCount(), 1), 1, mostRows);
    FFirst = std::min(FFirst, rows - FLast);
  }
  int First() const noexcept { return FFirst; }
  int CellCols() const override { return FTable.FieldCount(); }
  int CellRows() const override { return FFirst + FLast; }
  std::span<const String> RowTexts(int Row) override { return FTable.RowTexts(RowOf(Row)); }
  TObject* CellObject(int Col, int Row) override { return FTable.CellObject(Col, RowOf(Row)); }

 private:
  int RowOf(int Row) const noexcept { return Row < FFirst ? Row : FTable.GetCount() - FLast + Row - FFirst; }
  TTypeCsv& FTable;
  int FFirst = 0, FLast = 0;
};

// A table of which only one column has cells.
class TOneColumn final : public TCellSource {
 public:
  TOneColumn(TTypeCsv& Table, int Col) : FTable(Table), FCol(static_cast<size_t>(Col)), FTexts(FCol + 1) {}
  int CellCols() const override { return FTable.FieldCount(); }
  int CellRows() const override { return FTable.GetCount(); }
  std::span<const String> RowTexts(int Row) override {
    const std::span<const String> texts = FTable.RowTexts(Row);
    FTexts[FCol] = FCol < texts.size() ? texts[FCol] : String();
    return FTexts;
  }
  TObject* CellObject(int Col, int Row) override {
    return static_cast<size_t>(Col) == FCol ? FTable.CellObject(Col, Row) : nullptr;
  }

 private:
  TTypeCsv& FTable;
  const size_t FCol;
  std::vector<String> FTexts;
};

}  // namespace

void TTableScene::SetTable(TTypeCsv* Value) {
  FTable = Value;
  FOffset = {};
  FFixed = {};
  FColumns.Reset(0, kDefaultWidth);
  FRows.Reset(0, kDefaultHeight);
  if (FTable) FColumns.Reset(FTable->FieldCount(), kDefaultWidth);
  Sync();
}

bool TTableScene::Sync() {
  const int rows = FTable ? FTable->GetCount() : 0;
  // A table without rows has no columns to tell, and those that were there come back with the first row.
  const int cols = FTable == nullptr ? 0 : rows > 0 ? FTable->FieldCount() : FColumns.GetCount();
  const TRect fixed = FTable ? FTable->GetDecorations().GetFixed() : TRect{};
  const int line = FTable ? TDecoratorCanvas::LineOf(FTable->GetDecorations()) : 0;
  const bool isChanged =
      rows != FRows.GetCount() || cols != FColumns.GetCount() || !(fixed == FFixed) || line != FColumns.GetLine();
  if (FTable) FTable->DecorationsCounts();
  if (!isChanged) return false;
  FColumns.SetCount(cols);
  FColumns.SetLine(line);
  if (rows != FRows.GetCount()) ResetHeights(rows, fixed);
  FFixed = fixed;
  ScrollTo(FOffset);
  return true;
}

// --- sizes ---

void TTableScene::ResetHeights(int Rows, const TRect& Fixed) {
  const auto heights = [this](int from, int count) {
    std::vector<int> result;
    for (int row = from; row < from + count; ++row) result.push_back(FRows.GetSize(row));
    return result;
  };
  const int count = FRows.GetCount();
  const std::vector<int> top = heights(0, std::min(FFixed.Top, count));
  const std::vector<int> bottom = heights(count - std::min(FFixed.Bottom, count), std::min(FFixed.Bottom, count));
  FRows.Reset(Rows, FRows.GetCommonSize());
  for (int i = 0; i < std::min(static_cast<int>(top.size()), Fixed.Top); ++i) {
    FRows.SetSize(i, top[static_cast<size_t>(i)]);
  }
  const int same = std::min(static_cast<int>(bottom.size()), Fixed.Bottom);
  for (int i = 0; i < same; ++i) FRows.SetSize(Rows - 1 - i, bottom[bottom.size() - 1 - static_cast<size_t>(i)]);
  FRowsFit = false;
}

void TTableScene::UnfitRows() {
  if (FRowsFit) ResetHeights(FRows.GetCount(), FFixed);
}

// Of a sample of Sampled rows and the last ones.
void TTableScene::TakeHeights(const TTableSizes& Sizes, int Sampled) {
  std::vector<int> heights;
  const int line = FColumns.GetLine();
  for (int height : Sizes.RowHeights) heights.push_back(height > 0 ? height + line : 0);
  const int top = std::min(FFixed.Top, Sampled);
  TTableAxis sample;
  sample.SetSizes(std::span(heights).subspan(static_cast<size_t>(top), static_cast<size_t>(Sampled - top)));
  FRowsFit = false;
  FRows.Reset(FTable->GetCount(), sample.GetCount() > 0 ? sample.GetCommonSize() : kDefaultHeight);
  const int count = static_cast<int>(heights.size());
  for (int i = 0; i < count; ++i) {
    if (i < top) FRows.SetSize(i, heights[static_cast<size_t>(i)]);
    if (i >= Sampled) FRows.SetSize(FTable->GetCount() - count + i, heights[static_cast<size_t>(i)]);
  }
}

void TTableScene::MeasureBottom(TCanvas& Canvas) {
  TDecorationList& list = FTable->GetDecorations();
  constexpr int mostCols = 1000;
  const int rows = FTable->GetCount();
  const auto cell = list.DuplicateHead();
  for (int row = std::max(rows - FFixed.Bottom, std::min(FFixed.Top, rows)); row < rows; ++row) {
    int height = list.GetMinRowHeight();
    for (int col = 0; col < std::min(FColumns.GetCount(), mostCols); ++col) {
      list.VirtualListForCell(col, row, *cell);
      const TPoint size =
          DecoratorCanvas().Calculate(Canvas, FTable->GetCell(col, row), FTable->CellObject(col, row), *cell);
      height = std::max(height, size.Y);
    }
    if (FRows.GetSize(row) > 0 && height > 0) FRows.SetSize(row, height + FColumns.GetLine());
  }
}

void TTableScene::MeasureSample(TCanvas& Canvas) {
  if (FTable == nullptr) return;
  Sync();
  TSampleRows rows(*FTable);
  const TTableSizes sizes = DecoratorCanvas().TrimDevice(Canvas, FRoom, FTable->GetDecorations(), rows);
  FTable->DecorationsCounts();
  if (rows.CellRows() == 0) return;
  FColumns.SetWidths(sizes.ColWidths);
  TakeHeights(sizes, rows.First());
  MeasureBottom(Canvas);
  ScrollTo(FOffset);
}

void TTableScene::FitColumns(TCanvas& Canvas) {
  if (FTable == nullptr || FTable->GetCount() == 0) return;
  Sync();
  FColumns.SetWidths(FTable->TrimDevice(Canvas, {}, FRoom.X, FRoom.Y).ColWidths);
  ScrollTo(FOffset);
}

void TTableScene::FitColumn(TCanvas& Canvas, int Col) {
  if (FTable == nullptr || Col < 0 || Col >= FTable->FieldCount()) return;
  Sync();
  TOneColumn cells(*FTable, Col);
  const TTableSizes sizes = DecoratorCanvas().TrimDevice(Canvas, {}, FTable->GetDecorations(), cells);
  FColumns.SetWidth(Col, sizes.ColWidths[static_cast<size_t>(Col)]);
  ScrollTo(FOffset);
}

void TTableScene::FitRows(TCanvas& Canvas) {
  if (FTable == nullptr) return;
  Sync();
  std::vector<int> heights = FTable->TrimDevice(Canvas, {}).RowHeights;
  for (int& height : heights) height = height > 0 ? height + FColumns.GetLine() : 0;
  FRows.SetSizes(heights);
  FRowsFit = true;
  ScrollTo(FOffset);
}

// --- places ---

TAxisView TTableScene::ColsView() const noexcept {
  return {FColumns.GetAxis(), FFixed.Left, FFixed.Right, FRoom.X, FOffset.X};
}

TAxisView TTableScene::RowsView() const noexcept { return {FRows, FFixed.Top, FFixed.Bottom, FRoom.Y, FOffset.Y}; }

void TTableScene::ScrollTo(TOffset Value) noexcept {
  const TOffset most = MaxOffset();
  FOffset = {std::clamp<int64_t>(Value.X, 0, most.X), std::clamp<int64_t>(Value.Y, 0, most.Y)};
}

TTableScene::TOffset TTableScene::OffsetToSee(int Col, int Row) const noexcept {
  const int place = FColumns.PlaceOf(Col);
  return {place < 0 ? FOffset.X : ColsView().OffsetToSee(place),
          Row < 0 || Row >= FRows.GetCount() ? FOffset.Y : RowsView().OffsetToSee(Row)};
}

TPoint TTableScene::CellAt(TPoint Place) const noexcept {
  return {FColumns.TableCol(ColsView().At(Place.X)), RowsView().At(Place.Y)};
}

TRect TTableScene::CellRect(int Col, int Row) const noexcept {
  const int place = FColumns.PlaceOf(Col), line = FColumns.GetLine();
  const int width = FColumns.GetAxis().GetSize(place) - line, height = FRows.GetSize(Row) - line;
  if (width <= 0 || height <= 0) return {};
  const int left = ColsView().PlaceOf(place), top = RowsView().PlaceOf(Row);
  return {left, top, left + width, top + height};
}

TRect TTableScene::MiddleRect() const noexcept {
  const TAxisView cols = ColsView(), rows = RowsView();
  return {cols.ZoneBegin(TAxisView::zoMiddle), rows.ZoneBegin(TAxisView::zoMiddle), cols.ZoneEnd(TAxisView::zoMiddle),
          rows.ZoneEnd(TAxisView::zoMiddle)};
}

TPoint TTableScene::End() const noexcept {
  return {static_cast<int>(std::min<int64_t>(FColumns.GetAxis().Total(), FRoom.X)),
          static_cast<int>(std::min<int64_t>(FRows.Total(), FRoom.Y))};
}

bool TTableScene::IsHead(int Row) const noexcept { return Row >= 0 && Row < FFixed.Top; }

}  // namespace vx
