#include "objects/uVxObjects/TVxObjectList.h"

#include <algorithm>
#include <typeinfo>
#include <unordered_map>
#include <unordered_set>

namespace vx {

namespace {

// Tells whether a list holds objects; by a table where that comes to the same.
class TLookup {
 public:
  // The list does not change meanwhile.
  TLookup(const TVxObjectList& List, bool IsPlain) : FList(List), FHasTable(IsPlain) {
    if (!FHasTable) return;
    FTable.reserve(static_cast<size_t>(List.GetCount()));
    for (int i = 0; i < List.GetCount(); ++i) FTable.insert(List.GetItem(i));
  }
  bool Has(const TObject* Item) const { return FHasTable ? FTable.count(Item) > 0 : FList.IndexOf(Item) >= 0; }

 private:
  const TVxObjectList& FList;
  bool FHasTable;
  std::unordered_set<const TObject*> FTable;
};

// Runs for the objects that the list has at the start, as far as it still has so many when they are due.
template <typename F>
void ForEach(const TVxObjectList& List, F Run) {
  const int count = List.GetCount();
  for (int i = 0; i < count && i < List.GetCount(); ++i) Run(List.GetItem(i));
}

}  // namespace

std::unique_ptr<TVxObjectList> TVxObjectList::GetNewInstance(bool OwnsObjects) const {
  return std::make_unique<TVxObjectList>(OwnsObjects);
}

std::unique_ptr<TVxObjectList> TVxObjectList::Duplicate(bool OwnsObjects) const {
  std::unique_ptr<TVxObjectList> result = GetNewInstance(OwnsObjects);
  result->Assign(*this);
  return result;
}

bool TVxObjectList::IsPlain() const noexcept {
  return typeid(*this) == typeid(TVxObjectList) || typeid(*this) == typeid(TVxObjectListU);
}

int TVxObjectList::FindInstanceOf(const TVxClass& Class, bool Exact, int StartAt) const {
  for (int i = std::max(StartAt, 0); i < GetCount(); ++i) {
    const auto* object = dynamic_cast<const TVxObject*>(iList[i]);
    if (!object) continue;
    const TVxClass& found = object->ClassType();
    if (Exact ? &found == &Class : found.InheritsFrom(Class)) return i;
  }
  return -1;
}

void TVxObjectList::Sort() {
  doSort([this](TObject* item1, TObject* item2) { return doCompare(item1, item2); });
}

void TVxObjectList::ItemsAssign(const TVxObjectList& Source) {
  if (&Source == this) return;
  Clear();
  ItemsAdd(Source);
}

void TVxObjectList::ItemsAdd(const TVxObjectList& Source) {
  GrowBy(Source.GetCount());
  ForEach(Source, [this](TObject* item) { Add(item); });
}

TVxObjectList& TVxObjectList::ItemsAND(const TVxObjectList& List, TVxObjectList& Target) const {
  const TLookup list(List, List.IsPlain() && &Target != &List);
  ForEach(*this, [&](TObject* item) {
    if (list.Has(item)) Target.Add(item);
  });
  return Target;
}

std::unique_ptr<TVxObjectList> TVxObjectList::ItemsAND(const TVxObjectList& List) const {
  std::unique_ptr<TVxObjectList> result = GetNewInstance(false);
  ItemsAND(List, *result);
  return result;
}

TVxObjectList& TVxObjectList::ItemsXOR(const TVxObjectList& List, TVxObjectList& Target) const {
  const TLookup own(*this, IsPlain() && &Target != this);
  ForEach(List, [&](TObject* item) {
    if (!own.Has(item)) Target.Add(item);
  });
  const TLookup list(List, List.IsPlain() && &Target != &List);
  ForEach(*this, [&](TObject* item) {
    if (!list.Has(item)) Target.Add(item);
  });
  return Target;
}

std::unique_ptr<TVxObjectList> TVxObjectList::ItemsXOR(const TVxObjectList& List) const {
  std::unique_ptr<TVxObjectList> result = GetNewInstance(false);
  ItemsXOR(List, *result);
  return result;
}

void TVxObjectList::ItemsSubtract(const TVxObjectList& List) {
  if (IsPlain()) return SubtractPlain(List);
  std::vector<TObject*> gone;  // List may be this one or change with it
  ForEach(List, [&](TObject* item) { gone.push_back(item); });
  for (const TObject* item : gone) {
    const int index = IndexOf(item);
    if (index >= 0) Delete(index);
  }
}

// All objects go from the list at once, then they are freed in the order of List.
void TVxObjectList::SubtractPlain(const TVxObjectList& List) {
  struct TUse {
    int Wanted = 0;
    int Found = 0;
  };
  std::unordered_map<const TObject*, TUse> uses;
  std::vector<TObject*> gone;
  ForEach(List, [&](TObject* item) {
    ++uses[item].Wanted;
    gone.push_back(item);
  });
  int kept = 0;
  for (int i = 0; i < GetCount(); ++i) {
    auto use = uses.find(iList[i]);
    if (use != uses.end() && use->second.Found < use->second.Wanted) {
      ++use->second.Found;
    } else {
      iList[kept++] = iList[i];
    }
  }
  iList.SetCount(kept);
  if (!GetOwnsObjects()) return;
  for (TObject* item : gone) {
    if (uses[item].Found-- > 0) delete item;
  }
}

int TVxObjectListU::Add(TObject* Item) {
  const int index = IndexOf(Item);
  return index >= 0 ? index : doAdd(Item);
}

void TVxObjectListU::Insert(int Index, TObject* Item) {
  if (IndexOf(Item) < 0) doInsert(Index, Item);
}

void TVxObjectListU::ItemsAdd(const TVxObjectList& Source) {
  if (!IsPlain()) return TVxListClassed::ItemsAdd(Source);
  GrowBy(Source.GetCount());
  std::unordered_set<const TObject*> held;
  for (int i = 0; i < GetCount(); ++i) held.insert(iList[i]);
  ForEach(Source, [&](TObject* item) {
    if (held.insert(item).second) doAdd(item);
  });
}

}  // namespace vx
