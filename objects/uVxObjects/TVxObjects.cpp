#include "objects/uVxObjects/TVxObjects.h"

#include <algorithm>
#include <compare>
#include <vector>

#include "core/uVxFunctions/Sorting.h"
#include "platform/Dialogs.h"
#include "platform/Numbers.h"

namespace vx {

TVxObjects::TVxObjects(bool OwnsObjects) : iOwnsObjects(OwnsObjects) {
  if (DoCountObjects) CountObject(kClassName.Units, 1);
}

TVxObjects::~TVxObjects() {
  while (GetCount() > 0) Delete(GetCount() - 1);
  if (DoCountObjects) CountObject(kClassName.Units, -1);
}

void TVxObjects::Error(std::u16string_view Msg, int Index, std::u16string_view Function) const {
  ShowWarning(Concat({Msg, u"\r\n\r\nObjekt: TVxObjects\r\nGroesse: ", IntToStr(GetCount()), u"\r\nFunktion: ",
                      Function, u"\r\nIndex: ", IntToStr(Index)}));
}

void TVxObjects::ErrorIndex(int Index, std::u16string_view Function) const {
  Error(Index < 0 ? u"Der Index der Liste unterschreitet das Minimum!"
                  : u"Der Index der Liste überschreitet das Maximum!",
        Index, Function);
}

bool TVxObjects::IsIndex(int Index, std::u16string_view Function) const {
  if (Index >= 0 && Index < GetCount()) return true;
  ErrorIndex(Index, Function);
  return false;
}

void TVxObjects::Notify(TObject*, TListNotification) {}

int TVxObjects::doCompare(const TObject* Item1, const TObject* Item2) const {
  const std::strong_ordering order = std::compare_three_way()(Item1, Item2);
  return std::is_lt(order) ? -1 : std::is_gt(order);
}

int TVxObjects::doIndexOf(const TObject* Item) const {
  for (int i = 0; i < GetCount(); ++i) {
    if (doCompare(Item, iList[i]) == 0) return i;
  }
  return -1;
}

void TVxObjects::SetCapacity(int Value) {
  if (Value == GetCapacity()) return;
  if (Value < GetCount()) {
    Error(u"Die Kapazität unterschreitet das Minimum!", Value, u"SetCapacity");
  } else if (Value >= kLimit) {
    Error(u"Die Kapazität überschreitet das Maximum!", Value, u"SetCapacity");
  } else {
    iList.SetCapacity(Value);
  }
}

void TVxObjects::SetCount(int Value) {
  if (Value == GetCount()) return;
  if (Value < 0) {
    Error(u"Die Anzahl unterschreitet das Minimum!", Value, u"SetCount");
  } else if (Value >= kLimit) {
    Error(u"Die Anzahl überschreitet das Maximum!", Value, u"SetCount");
  } else if (Value > GetCount()) {
    if (Value > GetCapacity()) SetCapacity(Value);
    iList.SetCount(Value);
  } else {
    // Not as long as there are more: objects that are added on the occasion would make it endless.
    for (int i = GetCount() - 1; i >= Value; --i) {
      if (i < GetCount()) Delete(i);
    }
  }
}

void TVxObjects::Grow(int Min) {
  int64_t capacity = GetCapacity();
  for (bool isDue = Min == 0 || capacity < Min; isDue; isDue = capacity < Min) {
    capacity += capacity > 64 ? capacity / 4 : capacity > 8 ? 16 : 4;
  }
  SetCapacity(static_cast<int>(std::min<int64_t>(capacity, INT32_MAX)));
}

void TVxObjects::GrowBy(int Value) {
  const int64_t wanted = int64_t{Value} + GetCapacity();
  if (wanted >= 0) Grow(static_cast<int>(std::min<int64_t>(wanted, INT32_MAX)));
}

int TVxObjects::doAdd(TObject* Item) {
  const int index = GetCount();
  if (index == GetCapacity()) Grow(0);
  if (index == GetCapacity()) return -1;
  iList.Insert(index, Item);
  if (Item) Notify(Item, lnAdded);
  return index;
}

void TVxObjects::doInsert(int Index, TObject* Item) {
  if (Index < 0 || Index > GetCount()) return ErrorIndex(Index, u"doInsert");
  if (GetCount() == GetCapacity()) Grow(0);
  if (GetCount() == GetCapacity()) return;
  iList.Insert(Index, Item);
  if (Item) Notify(Item, lnAdded);
}

void TVxObjects::Delete(int Index) {
  if (!IsIndex(Index, u"Delete")) return;
  TObject* item = iList[Index];
  iList.Erase(Index);
  if (!item) return;
  Notify(item, lnDeleted);
  if (iOwnsObjects) delete item;
}

TObject* TVxObjects::doExtract(const TObject* Item) {
  const int index = doIndexOf(Item);
  if (index < 0) return nullptr;
  TObject* item = iList[index];
  iList[index] = nullptr;
  Delete(index);
  Notify(item, lnExtracted);
  return item;
}

int TVxObjects::doRemove(const TObject* Item) {
  const int index = doIndexOf(Item);
  if (index >= 0) Delete(index);
  return index;
}

void TVxObjects::doExchange(int Index1, int Index2) {
  if (!IsIndex(Index1, u"doExchange.Index1") || !IsIndex(Index2, u"doExchange.Index2")) return;
  std::swap(iList[Index1], iList[Index2]);
}

void TVxObjects::doMove(int CurIndex, int NewIndex) {
  if (CurIndex == NewIndex) return;
  if (!IsIndex(CurIndex, u"doMove.CurIndex") || !IsIndex(NewIndex, u"doMove.NewIndex")) return;
  TObject* item = iList[CurIndex];
  iList.Erase(CurIndex);
  iList.Insert(NewIndex, item);
}

TObject* TVxObjects::GetItem(int Index) const { return IsIndex(Index, u"GetItems") ? iList[Index] : nullptr; }

void TVxObjects::SetItem(int Index, TObject* Item) {
  if (!IsIndex(Index, u"SetItems")) return;
  TObject* old = iList[Index];
  iList[Index] = Item;
  if (old) {
    Notify(old, lnDeleted);
    if (iOwnsObjects && old != Item) delete old;
  }
  if (Item) Notify(Item, lnAdded);
}

void TVxObjects::Clear() {
  SetCount(0);
  SetCapacity(0);
  Notify(this, lnCleared);
}

void TVxObjects::Pack() {
  const int count = GetCount();
  int write = 0;
  while (write < count && iList[write]) ++write;
  for (int read = write; read < count;) {
    int start = read + 1;
    while (start < count && !iList[start]) ++start;
    if (start >= count) break;  // nothing would change any more
    read = start + 1;
    while (read < count && iList[write]) ++read;
    for (int i = start; i < read; ++i) iList[write++] = iList[i];
  }
  iList.SetCount(write);
}

void TVxObjects::doSort(TListSortCompare Compare) {
  std::vector<void*> items;
  items.reserve(static_cast<size_t>(GetCount()));
  for (int i = 0; i < GetCount(); ++i) items.push_back(iList[i]);
  auto compare = [](void* item1, void* item2, void* data) {
    return (*static_cast<TListSortCompare*>(data))(static_cast<TObject*>(item1), static_cast<TObject*>(item2));
  };
  QuickSort(items, 0, static_cast<int>(items.size()) - 1, compare, &Compare);
  for (int i = 0; i < std::min(GetCount(), static_cast<int>(items.size())); ++i) {
    iList[i] = static_cast<TObject*>(items[static_cast<size_t>(i)]);
  }
}

}  // namespace vx
