#include "controls/TableColumns.h"

#include <algorithm>
#include <numeric>

#include "platform/Numbers.h"
#include "platform/TextBuffer.h"

namespace vx {

void TTableColumns::Reset(int Count, int Width) {
  FAxis.Reset(Count, std::max(Width, 1) + FLine);
  FOrder.clear();
  FPlaces.clear();
  FHidden.clear();
}

void TTableColumns::SetCount(int Value) {
  const int before = GetCount(), count = std::max(Value, 0);
  if (count == before) return;
  std::erase_if(FHidden, [count](const auto& hidden) { return hidden.first >= count; });
  if (!FOrder.empty()) {
    std::vector<int> sizes, order;
    for (int place = 0; place < before; ++place) {
      if (TableCol(place) >= count) continue;
      order.push_back(TableCol(place));
      sizes.push_back(FAxis.GetSize(place));
    }
    for (int col = before; col < count; ++col) {
      order.push_back(col);
      sizes.push_back(FAxis.GetCommonSize());
    }
    FAxis.SetSizes(sizes);
    SetOrder(std::move(order));
  }
  FAxis.SetCount(count);
}

void TTableColumns::SetLine(int Value) {
  if (Value == FLine) return;
  std::vector<int> sizes;
  for (int place = 0; place < GetCount(); ++place) {
    const int size = FAxis.GetSize(place);
    sizes.push_back(size > 0 ? size - FLine + Value : 0);
  }
  FLine = Value;
  FAxis.SetSizes(sizes);
}

void TTableColumns::SetOrder(std::vector<int> Order) {
  FOrder = std::move(Order);
  if (std::is_sorted(FOrder.begin(), FOrder.end())) FOrder.clear();
  FPlaces.resize(FOrder.size());
  for (size_t place = 0; place < FOrder.size(); ++place) {
    FPlaces[static_cast<size_t>(FOrder[place])] = static_cast<int>(place);
  }
}

int TTableColumns::TableCol(int Place) const noexcept {
  if (!Has(Place)) return -1;
  return FOrder.empty() ? Place : FOrder[static_cast<size_t>(Place)];
}

int TTableColumns::PlaceOf(int Col) const noexcept {
  if (!Has(Col)) return -1;
  return FPlaces.empty() ? Col : FPlaces[static_cast<size_t>(Col)];
}

int TTableColumns::GetWidth(int Col) const noexcept {
  const auto hidden = FHidden.find(Col);
  if (hidden != FHidden.end()) return hidden->second;
  return Has(Col) ? FAxis.GetSize(PlaceOf(Col)) - FLine : 0;
}

void TTableColumns::SetWidth(int Col, int Value) {
  if (!Has(Col)) return;
  const int width = std::clamp(Value, 1, 1 << 20);
  const auto hidden = FHidden.find(Col);
  if (hidden != FHidden.end()) {
    hidden->second = width;
  } else {
    FAxis.SetSize(PlaceOf(Col), width + FLine);
  }
}

void TTableColumns::SetWidths(const std::vector<int>& Widths) {
  std::vector<int> sizes(static_cast<size_t>(GetCount()));
  for (int place = 0; place < GetCount(); ++place) {
    const int col = TableCol(place);
    const auto index = static_cast<size_t>(col);
    const int width = index < Widths.size() ? std::min(Widths[index], 1 << 20) : GetWidth(col);
    if (width <= 0) {
      FHidden.emplace(col, std::max(GetWidth(col), 1));
    } else if (index < Widths.size()) {
      FHidden.erase(col);
    }
    sizes[static_cast<size_t>(place)] = GetHidden(col) ? 0 : width + FLine;
  }
  FAxis.SetSizes(sizes);
}

void TTableColumns::SetHidden(int Col, bool Value) {
  if (!Has(Col) || GetHidden(Col) == Value) return;
  const int width = GetWidth(Col);
  if (Value) {
    FHidden[Col] = width;
    FAxis.SetSize(PlaceOf(Col), 0);
  } else {
    FHidden.erase(Col);
    FAxis.SetSize(PlaceOf(Col), width + FLine);
  }
}

void TTableColumns::ShowAll() {
  std::vector<int> widths(static_cast<size_t>(GetCount()));
  for (int col = 0; col < GetCount(); ++col) widths[static_cast<size_t>(col)] = GetWidth(col);
  SetWidths(widths);
}

void TTableColumns::Move(int From, int To) {
  if (!Has(From) || !Has(To) || From == To) return;
  std::vector<int> order = FOrder;
  if (order.empty()) {
    order.resize(static_cast<size_t>(GetCount()));
    std::iota(order.begin(), order.end(), 0);
  }
  const int col = order[static_cast<size_t>(From)];
  order.erase(order.begin() + From);
  order.insert(order.begin() + To, col);
  FAxis.Move(From, To);
  SetOrder(std::move(order));
}

String TTableColumns::GetLayout() const {
  TTextBuffer text;
  for (int place = 0; place < GetCount(); ++place) {
    const int col = TableCol(place);
    if (place > 0) text.Add(u',');
    text.AddNumber(static_cast<uint64_t>(col));
    text.Add(GetHidden(col) ? u"=-" : u"=");
    text.AddNumber(static_cast<uint64_t>(GetWidth(col)));
  }
  return text.ToString();
}

void TTableColumns::SetLayout(std::u16string_view Text) {
  std::vector<int> order, widths(static_cast<size_t>(GetCount()), 0);
  std::vector<bool> isTold(static_cast<size_t>(GetCount()));
  while (!Text.empty()) {
    const std::u16string_view item = Text.substr(0, Text.find(u','));
    Text.remove_prefix(std::min(item.size() + 1, Text.size()));
    const size_t sign = item.find(u'=');
    int col, width;
    if (sign == item.npos || !TryStrToInt(item.substr(0, sign), col) || !TryStrToInt(item.substr(sign + 1), width) ||
        !Has(col) || width == 0 || isTold[static_cast<size_t>(col)]) {
      continue;
    }
    isTold[static_cast<size_t>(col)] = true;
    widths[static_cast<size_t>(col)] = std::clamp(width, -(1 << 20), 1 << 20);
    order.push_back(col);
  }
  for (int place = 0; place < GetCount(); ++place) {
    const int col = TableCol(place);
    const auto index = static_cast<size_t>(col);
    if (isTold[index]) continue;
    order.push_back(col);
    widths[index] = GetHidden(col) ? -GetWidth(col) : GetWidth(col);
  }
  FHidden.clear();
  SetOrder(std::move(order));
  std::vector<int> sizes;
  for (int place = 0; place < GetCount(); ++place) {
    const int width = widths[static_cast<size_t>(TableCol(place))];
    if (width < 0) FHidden[TableCol(place)] = -width;
    sizes.push_back(width < 0 ? 0 : width + FLine);
  }
  FAxis.SetSizes(sizes);
}

}  // namespace vx
