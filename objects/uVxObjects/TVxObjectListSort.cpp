#include "objects/uVxObjects/TVxObjectListSort.h"

#include <algorithm>
#include <utility>

#include "platform/Sorting.h"

namespace vx {

int TVxObjectListSortU::IndexSort(const TObject* Item) const {
  const int count = GetCount();
  if (count < 1) return 0;
  if (doCompare(Item, iList[count - 1]) > 0) return count;
  if (doCompare(Item, iList[0]) <= 0) return 0;
  int low = 1;
  int high = count - 1;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (doCompare(Item, iList[middle]) > 0) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

int TVxObjectListSortU::doIndexOf(const TObject* Item) const {
  const int place = IndexSort(Item);
  return place < GetCount() && doCompare(Item, iList[place]) == 0 ? place : -1;
}

int TVxObjectListSortU::Add(TObject* Item) {
  const int place = IndexSort(Item);
  if (place >= GetCount()) return doAdd(Item);
  TObject* held = iList[place];
  if (doCompare(Item, held) != 0) {
    doInsert(place, Item);
  } else if (GetOwnsObjects() && Item != held) {
    delete Item;
  }
  return place;
}

void TVxObjectListSortU::ItemsAdd(const TVxObjectList& Source) {
  std::vector<TObject*> items;
  items.reserve(static_cast<size_t>(Source.GetCount()));
  for (int i = 0; i < Source.GetCount(); ++i) items.push_back(Source.GetItem(i));
  GrowBy(Source.GetCount());
  AddAll(items);
}

void TVxObjectListSortU::AddAll(const std::vector<TObject*>& Items) {
  constexpr size_t kFew = 64;
  if (Items.size() >= kFew && IsPlainSorted() && MergeAll(Items)) return;
  for (TObject* item : Items) Add(item);
}

// False, with nothing changed, for a list that is not in order or has no room.
bool TVxObjectListSortU::MergeAll(const std::vector<TObject*>& Items) {
  const int count = GetCount();
  if (static_cast<size_t>(GetCapacity() - count) < Items.size()) return false;
  for (int i = 1; i < count; ++i) {
    if (doCompare(iList[i - 1], iList[i]) > (KeepsEqual() ? 0 : -1)) return false;
  }
  struct TNew {
    TObject* Item;
    size_t Arrival;
  };
  std::vector<TNew> added, refused;
  for (TObject* item : Items) added.push_back({item, added.size()});
  added = StableSort(std::move(added), [this](const TNew& A, const TNew& B) { return doCompare(A.Item, B.Item) < 0; });
  std::vector<TObject*> merged;
  merged.reserve(static_cast<size_t>(count) + added.size());
  int next = 0;
  for (const TNew& item : added) {
    while (next < count && doCompare(iList[next], item.Item) <= 0) merged.push_back(iList[next++]);
    if (KeepsEqual() || merged.empty() || doCompare(item.Item, merged.back()) != 0) {
      merged.push_back(item.Item);
    } else if (item.Item != merged.back()) {
      refused.push_back(item);
    }
  }
  while (next < count) merged.push_back(iList[next++]);
  std::sort(refused.begin(), refused.end(), [](const TNew& A, const TNew& B) { return A.Arrival < B.Arrival; });
  iList.SetCount(static_cast<int>(merged.size()));
  for (size_t i = 0; i < merged.size(); ++i) iList[static_cast<int>(i)] = merged[i];
  for (const TNew& item : refused) {
    if (GetOwnsObjects()) delete item.Item;
  }
  return true;
}

int TVxObjectListSortD::IndexSort(const TObject* Item) const {
  int place = TVxListClassed::IndexSort(Item);
  if (place >= GetCount()) return place;
  while (place > 0 && doCompare(Item, iList[place - 1]) == 0) --place;
  return place;
}

int TVxObjectListSortD::Add(TObject* Item) {
  const int first = IndexSort(Item);
  // The end of the equal ones: by doubled steps, so that many of them cost no more than few.
  auto isEqual = [&](int64_t index) {
    return index < GetCount() && doCompare(Item, iList[static_cast<int>(index)]) == 0;
  };
  int64_t low = first;
  int64_t step = 1;
  for (; isEqual(low + step - 1); step *= 2) low += step;
  while (step > 1) {
    step /= 2;
    if (isEqual(low + step - 1)) low += step;
  }
  const int place = static_cast<int>(low);
  if (place >= GetCount()) return doAdd(Item);
  doInsert(place, Item);
  return place;
}

int TVxObjectListSortD::Remove(const TObject* Item) {
  // Looked up before the first one goes: Item may be freed with it.
  std::vector<TObject*> equal;
  const int first = doIndexOf(Item);
  for (int i = first; i >= 0 && i < GetCount() && doCompare(Item, iList[i]) == 0; ++i) equal.push_back(iList[i]);
  if (equal.empty()) ErrorIndex(first, u"GetItems");
  for (const TObject* item : equal) {
    if (first < GetCount() && iList[first] == item) Delete(first);
  }
  return first;
}

}  // namespace vx
