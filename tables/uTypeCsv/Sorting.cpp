// Sorting a typed table by its columns.
#include "platform/Sorting.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "tables/uSearchConst.h"
#include "tables/uSort/RowOrder.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

TSortArrow TTypeCsv::GetSortArrow() const noexcept {
  return SortDirection == TS_ASCENDING ? saUp : SortDirection == TS_DESCENDING ? saDown : saNone;
}

void TTypeCsv::Sort(int Col, int Row, TSortOrder Order, const String& DateFormat, TVxIntegerList* Indices) {
  if (Col == -1 || Row == -1) return;
  bool isPermitted = true;
  if (iOnSort) iOnSort(*this, Col, Row, isPermitted);
  if (!isPermitted) return;
  const bool turns = Order == TS_NONE && SortDirection == TS_ASCENDING && SortCell.X == Col;
  const TSortOrder direction = Order == TS_DESCENDING || turns ? TS_DESCENDING : TS_ASCENDING;
  if (!DateFormat.empty()) iSortDateFormat = DateFormat;
  const TSortColumn column{.Index = Col,
                           .SortType = iDecorations->GetColumnFieldType(Col),
                           .SortDirection = direction == TS_DESCENDING ? -1 : 1,
                           .DateTimeFormat = iSortDateFormat};
  CustomSort(CustomSortProcStr, &column, Indices);
  SortCell = {Col, Row};
  SortDirection = direction;
  if (iOnSorted) iOnSorted(*this, Col, Row, isPermitted);
}

void TTypeCsv::CustomSort(TRowCompare Compare, const TSortColumn* Column, TVxIntegerList* Indices) {
  const std::vector<int> order = ContentOrder(Items(), Compare, Column);
  const std::vector<TObject*> rows = InOrder(Items(), order);
  FillIndices(order, Indices);
  PutAll(rows);
}

std::vector<int> TTypeCsv::ContentOrder(std::span<TObject* const> Rows, TRowCompare Compare,
                                        const TSortColumn* Column) const {
  const int count = static_cast<int>(Rows.size());
  std::vector<int> order(Rows.size());
  std::iota(order.begin(), order.end(), 0);
  const int top = std::max(0, GetContentTop());
  const int end = std::min(count, count - iDecorations->GetFixed().Bottom);
  if (end - top < 2) return order;
  std::vector<const TVxStringList*> lines;
  lines.reserve(static_cast<size_t>(end - top));
  for (TObject* row : Rows.subspan(static_cast<size_t>(top), static_cast<size_t>(end - top))) {
    lines.push_back(KnownRow(row));
  }
  const auto place = [&](const auto& sorted) {
    std::transform(sorted.begin(), sorted.end(), order.begin() + top,
                   [top](auto index) { return top + static_cast<int>(index); });
  };
  if (!Compare.IsByType()) {
    place(StableOrder(lines.size(), [&](size_t a, size_t b) { return Compare(*lines[a], *lines[b], Column) < 0; }));
  } else if (Column != nullptr) {
    place(OrderRows(lines, {Column, 1}));
  }
  return order;
}

std::vector<TObject*> TTypeCsv::InOrder(std::span<TObject* const> Rows, std::span<const int> Order) {
  std::vector<TObject*> result(Order.size());
  std::ranges::transform(Order, result.begin(), [Rows](int index) { return Rows[static_cast<size_t>(index)]; });
  return result;
}

void TTypeCsv::FillIndices(std::span<const int> Order, TVxIntegerList* Indices) {
  if (Indices == nullptr) return;
  Indices->Clear();
  Indices->AddList(Order);
}

void TTypeCsv::OnChangeToDay(TObject*) {
  iSortDateFormat = Concat({DateToSymbol(u"Tag"), DateToSymbol(u"Monat"), DateToSymbol(u"Jahr")});
}

void TTypeCsv::OnChangeToMonth(TObject*) {
  iSortDateFormat = Concat({DateToSymbol(u"Monat"), DateToSymbol(u"Tag"), DateToSymbol(u"Jahr")});
}

void TTypeCsv::OnChangeToYear(TObject*) {
  iSortDateFormat = Concat({DateToSymbol(u"Jahr"), DateToSymbol(u"Monat"), DateToSymbol(u"Tag")});
}

}  // namespace vx
