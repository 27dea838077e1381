#include "platform/TObjectList.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "platform/Exceptions.h"
#include "platform/Sorting.h"

namespace vx {

namespace {

void MoveEntries(TObject** To, TObject* const* From, int Count) noexcept {
  if (Count > 0) {
    std::memmove(static_cast<void*>(To), static_cast<const void*>(From), static_cast<size_t>(Count) * sizeof(TObject*));
  }
}

}  // namespace

TObjectList::~TObjectList() {
  // From the end, and each entry taken out before its object goes: a destructor that looks at the
  // list finds a whole one.
  while (FCount > 0) {
    TObject* object = TakeLast();
    if (FOwnsObjects) delete object;
  }
  std::free(FItems);
}

TObject* TObjectList::TakeLast() noexcept {
  CloseGap();
  SetEnd(FCount - 1);
  return FItems[FCount];
}

TObject* TObjectList::GetBehind(int Index) const {
  if (static_cast<unsigned>(Index) >= static_cast<unsigned>(FCount)) RaiseIndex(Index);
  return FItems[Index + FGap];
}

void TObjectList::MoveUp() const noexcept {
  MoveEntries(FItems + FReach, FItems + FReach + FGap, FCount - FReach);
  FReach = FCount;
}

void TObjectList::TakeOut(int Index) noexcept {
  if (!FKeepsGap || Index >= FReach) CloseGap();
  const int gap = FReach == FCount ? 0 : FGap;
  TObject** behind = FItems + Index + 1;
  if (FKeepsGap) {
    MoveEntries(behind + gap, behind, FReach - Index - 1);
    FGap = gap + 1;
    FReach = Index;
    --FCount;
  } else {
    MoveEntries(behind - 1, behind, FCount - Index - 1);
    SetEnd(FCount - 1);
  }
}

void TObjectList::RaiseIndex(int Index) { throw EListError(FormatListError(SListIndexError, Index)); }

void TObjectList::Notify(TObject* Object, TListNotification Action) {
  if (Action == lnDeleted && FOwnsObjects) delete Object;
}

void TObjectList::SetCapacity(int Value) {
  if (Value < FCount) throw EListError(FormatListError(SListCapacityError, Value));
  if (Value == FCapacity) return;
  Changing();  // the entries get another place
  CloseGap();
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
  CloseGap();
  std::fill(FItems + FCount, FItems + Value, nullptr);
  SetEnd(Value);
}

void TObjectList::Put(int Index, TObject* Object) {
  TObject* old = Get(Index);
  if (old == Object) return;
  Changing();
  CloseGap();
  FItems[Index] = Object;
  if (old) Notify(old, lnDeleted);
  if (Object) Notify(Object, lnAdded);
}

int TObjectList::Add(TObject* Object) {
  Changing();
  if (FCount == FCapacity) Grow();
  CloseGap();
  const int index = FCount;
  FItems[index] = Object;
  SetEnd(index + 1);
  if (Object) Notify(Object, lnAdded);
  return index;
}

void TObjectList::Insert(int Index, TObject* Object) {
  if (static_cast<unsigned>(Index) > static_cast<unsigned>(FCount)) RaiseIndex(Index);
  Changing();
  if (FCount == FCapacity) Grow();
  CloseGap();
  MoveEntries(FItems + Index + 1, FItems + Index, FCount - Index);
  FItems[Index] = Object;
  SetEnd(FCount + 1);
  if (Object) Notify(Object, lnAdded);
}

void TObjectList::Delete(int Index) {
  TObject* old = Get(Index);
  Changing();
  TakeOut(Index);
  if (old) Notify(old, lnDeleted);
}

void TObjectList::Clear() {
  Changing();
  while (FCount > 0) {
    TObject* old = TakeLast();
    if (old) Notify(old, lnDeleted);
  }
  SetCapacity(FCount);
}

void TObjectList::Exchange(int A, int B) {
  Get(A);
  Get(B);
  Changing();
  CloseGap();
  std::swap(FItems[A], FItems[B]);
}

void TObjectList::Move(int From, int To) {
  Get(From);
  Get(To);
  Changing();
  CloseGap();
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
  TakeOut(index);
  Notify(Object, lnExtracted);
  return Object;
}

int TObjectList::IndexOf(const TObject* Object) const noexcept {
  const std::span<TObject* const> items = Items();
  for (size_t i = 0; i < items.size(); ++i) {
    if (items[i] == Object) return static_cast<int>(i);
  }
  return -1;
}

void TObjectList::Sort(FunctionRef<int(TObject*, TObject*)> Compare) {
  const std::vector<TObject*> sorted = StableSort(std::vector<TObject*>(Items().begin(), Items().end()),
                                                  [&](TObject* a, TObject* b) { return Compare(a, b) < 0; });
  Changing();
  CloseGap();
  std::copy_n(sorted.begin(), std::min(static_cast<int>(sorted.size()), FCount), FItems);
}

void TObjectList::Arrange(std::span<const int> Order) {
  std::vector<TObject*> arranged;
  std::vector<bool> isTaken(static_cast<size_t>(FCount));
  arranged.reserve(isTaken.size());
  for (int from : Order) {
    if (static_cast<unsigned>(from) >= isTaken.size() || isTaken[static_cast<size_t>(from)]) break;
    isTaken[static_cast<size_t>(from)] = true;
    arranged.push_back(Get(from));
  }
  if (arranged.size() != isTaken.size() || arranged.size() != Order.size()) {
    throw EArgumentException(u"Arrange: the order does not name each entry once");
  }
  Changing();
  CloseGap();
  std::copy(arranged.begin(), arranged.end(), FItems);
}

void TObjectList::PutAll(std::span<TObject* const> Entries) {
  if (Entries.size() > INT32_MAX) throw EListError(FormatListError(SListCountError, INT32_MAX));
  const int count = static_cast<int>(Entries.size());
  Changing();
  CloseGap();
  if (count > FCapacity) SetCapacity(count);
  MoveEntries(FItems, Entries.data(), count);
  SetEnd(count);
}

}  // namespace vx
