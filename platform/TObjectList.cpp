#include "platform/TObjectList.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "platform/Exceptions.h"
#include "platform/Sorting.h"

namespace vx {

TObjectList::~TObjectList() {
  // From the end, and each entry taken out before its object goes: a destructor that looks at the
  // list finds a whole one.
  while (FCount > 0) {
    TObject* object = FItems[--FCount];
    if (FOwnsObjects) delete object;
  }
  std::free(FItems);
}

void TObjectList::RaiseIndex(int Index) { throw EListError(FormatListError(SListIndexError, Index)); }

void TObjectList::Notify(TObject* Object, TListNotification Action) {
  if (Action == lnDeleted && FOwnsObjects) delete Object;
}

void TObjectList::SetCapacity(int Value) {
  if (Value < FCount) throw EListError(FormatListError(SListCapacityError, Value));
  if (Value == FCapacity) return;
  Changing();  // the entries get another place
  if (Value == 0) {
    std::free(FItems);
    FItems = nullptr;
  } else {
    void* memory = std::realloc(static_cast<void*>(FItems), static_cast<size_t>(Value) * sizeof(TObject*));
    if (!memory) throw std::bad_alloc();
    FItems = static_cast<TObject**>(memory);
  }
  FCapacity = Value;
}

void TObjectList::Grow() {
  if (FCapacity == INT32_MAX) throw EListError(FormatListError(SListCapacityError, FCapacity));
  int64_t wanted = int64_t{FCapacity} + std::max(4, FCapacity / 2);
  SetCapacity(static_cast<int>(std::min<int64_t>(wanted, INT32_MAX)));
}

void TObjectList::SetCount(int Value) {
  if (Value < 0) throw EListError(FormatListError(SListCountError, Value));
  Changing();
  if (Value < FCount) {
    // Not as long as there are more: entries that are added on the occasion would make it endless.
    for (int i = FCount; i-- > Value;) {
      if (i < FCount) Delete(i);
    }
    return;
  }
  if (Value > FCapacity) SetCapacity(Value);
  std::fill(FItems + FCount, FItems + Value, nullptr);
  FCount = Value;
}

void TObjectList::Put(int Index, TObject* Object) {
  TObject* old = Get(Index);
  if (old == Object) return;
  Changing();
  FItems[Index] = Object;
  if (old) Notify(old, lnDeleted);
  if (Object) Notify(Object, lnAdded);
}

int TObjectList::Add(TObject* Object) {
  Changing();
  if (FCount == FCapacity) Grow();
  FItems[FCount++] = Object;
  int index = FCount - 1;
  if (Object) Notify(Object, lnAdded);
  return index;
}

void TObjectList::Insert(int Index, TObject* Object) {
  if (static_cast<unsigned>(Index) > static_cast<unsigned>(FCount)) RaiseIndex(Index);
  Changing();
  if (FCount == FCapacity) Grow();
  std::memmove(FItems + Index + 1, FItems + Index, static_cast<size_t>(FCount - Index) * sizeof(TObject*));
  FItems[Index] = Object;
  ++FCount;
  if (Object) Notify(Object, lnAdded);
}

void TObjectList::Delete(int Index) {
  TObject* old = Get(Index);
  Changing();
  --FCount;
  std::memmove(FItems + Index, FItems + Index + 1, static_cast<size_t>(FCount - Index) * sizeof(TObject*));
  if (old) Notify(old, lnDeleted);
}

void TObjectList::Clear() {
  Changing();
  while (FCount > 0) {
    TObject* old = FItems[--FCount];
    if (old) Notify(old, lnDeleted);
  }
  SetCapacity(FCount);
}

void TObjectList::Exchange(int A, int B) {
  Get(A);
  Get(B);
  Changing();
  std::swap(FItems[A], FItems[B]);
}

void TObjectList::Move(int From, int To) {
  Get(From);
  Get(To);
  Changing();
  if (From < To) {
    std::rotate(FItems + From, FItems + From + 1, FItems + To + 1);
  } else {
    std::rotate(FItems + To, FItems + From, FItems + From + 1);
  }
}

int TObjectList::Remove(TObject* Object) {
  int index = IndexOf(Object);
  if (index >= 0) Delete(index);
  return index;
}

TObject* TObjectList::Extract(TObject* Object) {
  int index = IndexOf(Object);
  if (index < 0) return nullptr;
  Changing();
  --FCount;
  std::memmove(FItems + index, FItems + index + 1, static_cast<size_t>(FCount - index) * sizeof(TObject*));
  Notify(Object, lnExtracted);
  return Object;
}

int TObjectList::IndexOf(const TObject* Object) const noexcept {
  for (int i = 0; i < FCount; ++i) {
    if (FItems[i] == Object) return i;
  }
  return -1;
}

void TObjectList::Sort(FunctionRef<int(TObject*, TObject*)> Compare) {
  const std::vector<TObject*> sorted = StableSort(std::vector<TObject*>(FItems, FItems + FCount),
                                                  [&](TObject* a, TObject* b) { return Compare(a, b) < 0; });
  Changing();
  std::copy_n(sorted.begin(), std::min(static_cast<int>(sorted.size()), FCount), FItems);
}

void TObjectList::Arrange(std::span<const int> Order) {
  std::vector<TObject*> arranged;
  std::vector<bool> isTaken(static_cast<size_t>(FCount));
  arranged.reserve(isTaken.size());
  for (int from : Order) {
    if (static_cast<unsigned>(from) >= isTaken.size() || isTaken[static_cast<size_t>(from)]) break;
    isTaken[static_cast<size_t>(from)] = true;
    arranged.push_back(FItems[from]);
  }
  if (arranged.size() != isTaken.size() || arranged.size() != Order.size()) {
    throw EArgumentException(u"Arrange: the order does not name each entry once");
  }
  Changing();
  std::copy(arranged.begin(), arranged.end(), FItems);
}

}  // namespace vx
