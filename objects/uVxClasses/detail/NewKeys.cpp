#include "objects/uVxClasses/detail/NewKeys.h"

#include <algorithm>
#include <cmath>

namespace vx::detail {

bool TNewKeys::IsFull(int ListCount) const noexcept {
  // Gathering moves a part of FPlaces for each key, merging the list for each IsFull keys.
  return Count() >= 256 + 12 * static_cast<int>(std::sqrt(ListCount));
}

int TNewKeys::FirstFrom(int Before) const noexcept {
  auto place = std::partition_point(FPlaces.begin(), FPlaces.end(), [&](TPlace p) { return p.Before < Before; });
  return static_cast<int>(place - FPlaces.begin());
}

int TNewKeys::CountBefore(int Place, bool& IsNew) const noexcept {
  const TPlace* first = FPlaces.data();
  auto found = std::partition_point(first, first + FPlaces.size(),
                                    [&](const TPlace& p) { return p.Before + static_cast<int>(&p - first) < Place; });
  int index = static_cast<int>(found - first);
  IsNew = index < Count() && Before(index) + index == Place;
  return index;
}

void TNewKeys::Insert(int Index, int Before, const String& Text, TObject* Object) {
  FItems.push_back({Text, Object});
  try {
    FPlaces.insert(FPlaces.begin() + Index, {Before, static_cast<int>(FItems.size()) - 1});
  } catch (...) {
    FItems.pop_back();
    throw;
  }
}

TObject* TNewKeys::ExtractLast() noexcept {
  TObject* object = Object(Count() - 1);
  FPlaces.pop_back();
  if (FPlaces.empty()) FItems.clear();
  return object;
}

void TNewKeys::MergeInto(TVxStringList& List) {
  if (IsEmpty()) return;
  int from = List.GetCount() - 1;
  int to = from + Count();
  if (to >= List.GetCapacity()) List.SetCapacity(to + 1 + to / 4);
  auto withObject = std::ranges::find_if(FItems, [](const TItem& item) { return item.Object != nullptr; });
  TObject* object = withObject == FItems.end() ? nullptr : withObject->Object;
  // The first of these makes all room that is needed, for objects too: nothing fails behind it.
  for (int i = 0; i < Count(); ++i) List.InsertItem(List.GetCount(), String(), i == 0 ? object : nullptr);
  List.SetSorted(false);  // its order is this index's, not the list's own
  for (int i = Count() - 1; i >= 0; --i, --to) {
    for (int before = Before(i); from >= before; --from, --to) List.ExchangeItems(from, to);
    List.Put(to, Text(i));
    List.PutObject(to, Object(i));
  }
  FItems.clear();
  FPlaces.clear();
}

}  // namespace vx::detail
