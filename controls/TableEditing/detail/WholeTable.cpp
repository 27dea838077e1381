#include "controls/TableEditing/detail/WholeTable.h"

#include <numeric>

namespace vx::detail {

const TObjectList& AllRowsOf(const TTypeCsv& Table) noexcept {
  if (const auto* view = dynamic_cast<const TCsvView*>(&Table)) return view->GetAll();
  return Table;
}

std::unordered_map<const TObject*, int> FindRows(const TTypeCsv& Table, std::unordered_set<const TObject*> Rows) {
  std::unordered_map<const TObject*, int> places;
  for (int place = 0; const TObject* row : AllRowsOf(Table).Items()) {
    if (Rows.contains(row)) places.emplace(row, place);
    ++place;
  }
  return places;
}

TWholeTable::TWholeTable(TTypeCsv& Table) : FTable(Table), FView(dynamic_cast<TCsvView*>(&Table)) {
  if (!FView || !FView->GetViewMode()) {
    FView = nullptr;
    return;
  }
  for (const TObject* row : FView->GetAll().Items()) {
    const auto* line = static_cast<const TVxStringList*>(row);
    if (!FView->IsVisible(line)) FHidden.insert(row);
  }
  FView->SetViewMode(false);
}

TWholeTable::~TWholeTable() {
  if (!FView) return;
  FView->SetViewMode(true);
  if (FHidden.empty()) return;
  std::vector<bool> isShown;
  isShown.reserve(static_cast<size_t>(FView->GetCount()));
  for (const TObject* row : FView->Items()) isShown.push_back(!FHidden.contains(row));
  FView->ShowOnly(isShown);
}

void TWholeTable::TakeOut(std::span<const int> Places) {
  std::vector<int> order;
  order.reserve(static_cast<size_t>(FTable.GetCount()));
  size_t next = 0;
  for (int place = 0; place < FTable.GetCount(); ++place) {
    if (next < Places.size() && Places[next] == place) {
      ++next;
    } else {
      order.push_back(place);
    }
  }
  order.insert(order.end(), Places.begin(), Places.end());
  FTable.Arrange(order);
  const TReleaseScope released(FTable);
  for (size_t i = 0; i < Places.size(); ++i) FTable.Delete(FTable.GetCount() - 1);
}

void TWholeTable::PutIn(std::span<TVxStringList* const> Rows, std::span<const int> Places) {
  const int count = FTable.GetCount(), total = count + static_cast<int>(Rows.size());
  std::vector<int> order;
  order.reserve(static_cast<size_t>(total));
  size_t next = 0;
  for (int place = 0, old = 0; place < total; ++place) {
    const bool isNew = next < Rows.size() && (Places[next] <= place || old == count);
    order.push_back(isNew ? count + static_cast<int>(next++) : old++);
  }
  FTable.SetCapacity(std::max(FTable.GetCapacity(), total));
  for (TVxStringList* row : Rows) FTable.Add(row);
  FTable.Arrange(order);
}

}  // namespace vx::detail
