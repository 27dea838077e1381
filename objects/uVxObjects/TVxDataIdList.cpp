#include "objects/uVxObjects/TVxDataIdList.h"

#include <algorithm>
#include <mutex>

#include "platform/Exceptions.h"

namespace vx {

namespace {

// Smaller lists are searched as they stand.
constexpr int kLeastCopied = 64;

// IndexSort by the id alone; IdAt gives those of the list.
template <typename TIdAt>
int FindPlace(int Count, int Id, TIdAt IdAt) {
  if (Count < 1) return 0;
  if (IdAt(Count - 1) < Id) return Count;
  if (IdAt(0) >= Id) return 0;
  int low = 1, high = Count - 1;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (IdAt(middle) < Id) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

}  // namespace

TVxDataIdList::TVxDataIdList(bool OwnsObjects) : TVxListClassed(OwnsObjects) { ++TVxDataIdListCount; }

TVxDataIdList::~TVxDataIdList() {
  TVxObjects::Clear();
  --TVxDataIdListCount;
}

// Asks for the class only when it is another one than before: this is called for every comparison.
const TVxDataId& TVxDataIdList::ToDataId(const TObject& Item) const {
  const std::type_info* found = &typeid(Item);
  if (found != FKnownClass && found != &typeid(TVxDataIdHelper)) {
    if (!dynamic_cast<const TVxDataId*>(&Item)) {
      throw EInvalidCast(u"An object of the list is not a TVxDataId but " + Item.ClassName());
    }
    FKnownClass = found;
  }
  return static_cast<const TVxDataId&>(Item);
}

int TVxDataIdList::doCompare(const TObject* Item1, const TObject* Item2) const {
  if (Item1 == Item2) return 0;
  if (!Item1) return -1;
  if (!Item2) return 1;
  const int64_t difference = int64_t{ToDataId(*Item1).GetId()} - ToDataId(*Item2).GetId();
  return static_cast<int>(std::clamp<int64_t>(difference, INT32_MIN, INT32_MAX));
}

int TVxDataIdList::IndexSortId(int Id) const {
  if (typeid(*this) != typeid(TVxDataIdList)) {
    TVxDataIdHelper key;
    key.SetId(Id);
    return IndexSort(&key);
  }
  // nullptr stands before all ids.
  return FindPlace(GetCount(), Id, [this](int index) {
    const TObject* item = iList[index];
    return item ? int64_t{ToDataId(*item).GetId()} : INT64_MIN;
  });
}

// Whether so many look-ups have come together since the last change that copying the ids pays.
bool TVxDataIdList::IsWorthIds() const {
  if (GetCount() < kLeastCopied || typeid(*this) != typeid(TVxDataIdList)) return false;
  const uint64_t version = uint64_t{iList.Version()} << 32;
  const uint64_t lookups = FLookups;
  const uint64_t known = lookups >> 32 == iList.Version() ? lookups - version : 0;
  // Of several threads' look-ups some may get lost.
  FLookups = version + known + 1;
  if (static_cast<int64_t>(known) < GetCount() / 8) return false;
  FLookups = version;  // whatever becomes of it
  return true;
}

// Whether FIds are those of the list as it is.
bool TVxDataIdList::HasIds() const {
  const int64_t version = iList.Version();
  if (FIdsVersion.load(std::memory_order_acquire) == version) return true;
  if (IsWorthIds()) CopyIds();
  return FIdsVersion.load(std::memory_order_acquire) == version;
}

void TVxDataIdList::CopyIds() const {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  if (FIdsVersion.load(std::memory_order_relaxed) == int64_t{iList.Version()}) return;
  const int count = GetCount();
  FIdsVersion.store(-1, std::memory_order_relaxed);
  FIds.clear();
  FIds.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    const TObject* item = iList[i];
    if (!item) return;
    FIds.push_back(ToDataId(*item).GetId());
  }
  FIdsVersion.store(iList.Version(), std::memory_order_release);
}

// The place of the id if the copied ids know one that is right; -1 says nothing.
int TVxDataIdList::KnownPlace(int Id) const {
  if (!HasIds()) return -1;
  const auto found = std::lower_bound(FIds.begin(), FIds.end(), Id);
  if (found == FIds.end() || *found != Id) return -1;
  const int place = static_cast<int>(found - FIds.begin());
  return ToDataId(*iList[place]).GetId() == Id ? place : -1;
}

int TVxDataIdList::IndexOf(int Id) const {
  if (const int known = KnownPlace(Id); known >= 0) return known;
  const int place = IndexSortId(Id);
  if (place >= GetCount() || !iList[place]) return -1;
  return ToDataId(*iList[place]).GetId() == Id ? place : -1;
}

bool TVxDataIdList::Find(int Id, int& Index) const {
  Index = IndexOf(Id);
  return Index >= 0;
}

TVxDataId* TVxDataIdList::GetItem(int Id) const {
  const int index = IndexOf(Id);
  return index >= 0 ? GetItems(index) : nullptr;
}

TVxDataId* TVxDataIdList::GetItems(int Index) const {
  TObject* item = TVxListClassed::GetItem(Index);
  if (!item) return nullptr;
  ToDataId(*item);
  return static_cast<TVxDataId*>(item);
}

int TVxDataIdList::MaxId() const {
  const TVxDataId* last = GetCount() > 0 ? GetItems(GetCount() - 1) : nullptr;
  return last ? last->GetId() : 0;
}

void TVxDataIdList::ItemsAdd(const TVxObjectList& Source) {
  if (!GetOwnsObjects()) return TVxListClassed::ItemsAdd(Source);
  const int count = Source.GetCount();
  std::vector<std::unique_ptr<TObject>> copies;  // the list takes them over when all are made
  copies.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count && i < Source.GetCount(); ++i) {
    const TObject* item = Source.GetItem(i);
    std::unique_ptr<TObject> copy = item ? ToDataId(*item).Duplicate() : nullptr;
    if (copy || !item) copies.push_back(std::move(copy));
  }
  std::vector<TObject*> items;
  items.reserve(copies.size());
  for (auto& copy : copies) items.push_back(copy.release());
  GrowBy(count);
  AddAll(items);
}

}  // namespace vx
