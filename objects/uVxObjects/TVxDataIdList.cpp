#include "objects/uVxObjects/TVxDataIdList.h"

#include <algorithm>
#include <utility>

#include "platform/Exceptions.h"

namespace vx {

namespace {

// Not destroyed at the program's end: lists of others may be used later.
TVxDataIdHelper* Probe = nullptr;

// Smaller lists are searched as they stand.
constexpr int kLeastCopied = 64;

TVxDataIdHelper& GetProbe() {
  if (!Probe) Probe = new TVxDataIdHelper();
  return *Probe;
}

}  // namespace

TVxDataIdList::TVxDataIdList(bool OwnsObjects) : TVxListClassed(OwnsObjects) {
  GetProbe();
  ++TVxDataIdListCount;
}

TVxDataIdList::~TVxDataIdList() {
  TVxObjects::Clear();
  if (--TVxDataIdListCount == 0) FreeProbe();
}

void TVxDataIdList::FreeProbe() noexcept { delete std::exchange(Probe, nullptr); }

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
  TVxDataIdHelper& probe = GetProbe();
  probe.SetId(Id);
  return IndexSort(&probe);
}

// Whether FIds are those of the list as it is. They are copied when so many look-ups have come together that
// the copy pays.
bool TVxDataIdList::HasIds() const {
  const int count = GetCount();
  if (FIdsVersion != iList.Version()) {
    FIdsVersion = iList.Version();
    FLookups = 0;
    FIds.clear();
  }
  if (!FIds.empty()) return true;
  if (count < kLeastCopied || FLookups++ < count / 8 || typeid(*this) != typeid(TVxDataIdList)) return false;
  FLookups = 0;  // whatever becomes of it
  FIds.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    const TObject* item = iList[i];
    if (!item) {
      FIds.clear();
      return false;
    }
    FIds.push_back(ToDataId(*item).GetId());
  }
  return true;
}

// The place of the id if the copied ids know one that is right; -1 says nothing.
int TVxDataIdList::KnownPlace(int Id) const {
  if (!HasIds()) return -1;
  const auto found = std::lower_bound(FIds.begin(), FIds.end(), Id);
  if (found == FIds.end() || *found != Id) return -1;
  const int place = static_cast<int>(found - FIds.begin());
  return ToDataId(*std::as_const(iList)[place]).GetId() == Id ? place : -1;
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
