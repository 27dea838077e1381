#include "rendering/uDecoration/TDecoratorListView.h"

#include <algorithm>
#include <typeinfo>
#include <vector>

#include "rendering/uDecoration/detail/TrimSizes.h"

namespace vx {
namespace {

class TViewCells final : public TCellSource {
 public:
  explicit TViewCells(const TListView& View) noexcept : FView(View), FTexts(static_cast<size_t>(CellCols())) {}
  int CellCols() const override { return FView.GetColumnCount(); }
  int CellRows() const override { return FView.GetItemCount() + 1; }
  std::span<const String> RowTexts(int Row) override {
    if (Row == 0) {
      for (size_t i = 0; i < FTexts.size(); ++i) FTexts[i] = FView.GetColumns(static_cast<int>(i)).GetCaption();
      return FTexts;
    }
    const TListItem& item = FView.GetItems(Row - 1);
    const TStrings& subItems = item.GetSubItems();
    const size_t count = std::min(FTexts.size(), static_cast<size_t>(subItems.GetCount()) + 1);
    for (size_t i = 0; i < count; ++i) FTexts[i] = i == 0 ? item.GetCaption() : subItems.Get(static_cast<int>(i) - 1);
    return {FTexts.data(), count};
  }
  TObject* CellObject(int Col, int Row) override {
    if (Row == 0) return nullptr;
    const TListItem& item = FView.GetItems(Row - 1);
    if (Col == 0) return item.GetData();
    return Col <= item.GetSubItems().GetCount() ? item.GetSubItems().GetObject(Col - 1) : nullptr;
  }

 private:
  const TListView& FView;
  std::vector<String> FTexts;
};

void TakeCounts(const TListView& View, TDecorationList& List) {
  List.SetColCount(View.GetColumnCount());
  List.SetRowCount(View.GetItemCount() + 1);
}

}  // namespace

void TDecoratorListView::Trim() {
  if (FView != nullptr && FDecorations != nullptr) Trim(*FView, *FDecorations);
}

void TDecoratorListView::Trim(TListView& View, TDecorationList& List) {
  TakeCounts(View, List);
  if (View.GetCanvas() == nullptr || View.GetViewStyle() != vsReport) return;
  TViewCells cells(View);
  const bool isPlain = typeid(*this) == typeid(TDecoratorListView);
  const detail::TNeeds needs = detail::MeasureTable(*this, *View.GetCanvas(), List, cells, isPlain);
  TTableSizes sizes = detail::TrimSizes(List, needs, {{View.GetWidth(), 0}, {0, 0}, ReadSizes(View)});
  int highest = 0;
  for (size_t i = 1; i < needs.Rows.size(); ++i) highest = std::max(highest, needs.Rows[i].Size);
  sizes.RowHeights = {std::max(needs.Rows[0].Size, List.GetMinRowHeight()), std::max(highest, List.GetMinRowHeight())};
  if (needs.Rows.size() < 2) sizes.RowHeights.pop_back();
  WriteSizes(View, sizes);
}

void TDecoratorListView::ReadLayout(const TListView& View, TDecorationList& List) const {
  TakeCounts(View, List);
  TDecorationListOptions options = List.GetOptions();
  View.GetRowSelect() ? options.Include(dloRowSelect) : options.Exclude(dloRowSelect);
  View.HasHeads() ? options.Include(dloColumnClick) : options.Exclude(dloColumnClick);
  List.SetOptions(options);
}

void TDecoratorListView::WriteLayout(TListView& View, const TDecorationList& List) const {
  const TControlUpdate update(View);
  View.SetRowSelect(List.GetOptions().Has(dloRowSelect));
  View.SetFont(List.GetFont());
  if (List.GetColor() != clWhite) View.SetColor(List.GetColor());
}

TTableSizes TDecoratorListView::ReadSizes(const TListView& View) const {
  TTableSizes sizes;
  for (int i = 0; i < View.GetColumnCount(); ++i) sizes.ColWidths.push_back(View.GetColumns(i).GetWidth());
  sizes.RowHeights = {View.GetHeadHeight(), View.GetRowHeight()};
  return sizes;
}

void TDecoratorListView::WriteSizes(TListView& View, const TTableSizes& Sizes) const {
  const TControlUpdate update(View);
  const size_t count = std::min(Sizes.ColWidths.size(), static_cast<size_t>(View.GetColumnCount()));
  for (size_t i = 0; i < count; ++i) View.GetColumns(static_cast<int>(i)).SetWidth(Sizes.ColWidths[i]);
  if (!Sizes.RowHeights.empty()) View.SetHeadHeight(Sizes.RowHeights[0]);
  if (Sizes.RowHeights.size() > 1) View.SetRowHeight(Sizes.RowHeights[1]);
}

void TDecoratorListView::DrawItemCell(TListView& View, TDecorationList& List, TListItem* Item, int Col,
                                      const TRect& Rect, TCustomDrawStates State) {
  if (View.GetCanvas() == nullptr) return;
  TakeCounts(View, List);
  const int index = Item == nullptr ? -1 : Item->GetIndex();
  const auto cell = List.VirtualListForCell(Col, index + 1);
  TDecorationDrawStates states;
  if (State.Has(cdsSelected)) states.Include(ddsSelected);
  if (State.Has(cdsHot)) states.Include(ddsMouseOver);
  if (State.Has(cdsPressed)) states.Include(ddsMouseDown);
  const bool isHead = Item == nullptr && Col < View.GetColumnCount();
  const String text = isHead ? View.GetColumns(Col).GetCaption() : View.CellText(Col, index);
  const TCanvasState saved(*View.GetCanvas());
  DrawCell(*View.GetCanvas(), Rect, text, TViewCells(View).CellObject(Col, index + 1), *cell, states);
  DrawBorder(*View.GetCanvas(), Rect, *cell);
}

}  // namespace vx
