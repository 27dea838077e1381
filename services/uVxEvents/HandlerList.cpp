#include "services/uVxEvents/HandlerList.h"

#include <algorithm>

namespace vx {

TNotifyHandlerList::~TNotifyHandlerList() {
  Clear();
  for (TNotifyHandlerEnumerator* walk = FWalks; walk != nullptr; walk = walk->FEarlier) walk->iListO = nullptr;
}

std::unique_ptr<TNotifyHandlerEnumerator> TNotifyHandlerList::GetEnumerator() {
  return std::make_unique<TNotifyHandlerEnumerator>(*this);
}

void TNotifyHandlerList::Freeze() {
  for (TNotifyHandlerEnumerator* walk = FWalks; walk != nullptr; walk = walk->FEarlier) walk->Freeze();
}

void TNotifyHandlerList::Notify(TObject* Object, TListNotification Action) {
  TObjectList::Notify(Object, Action);
  if (iOnNotify) iOnNotify(Object, Action);
  for (TNotifyHandlerEnumerator* walk = FWalks; walk != nullptr; walk = walk->FEarlier) {
    walk->Notification(Object, Action);
  }
}

int TNotifyHandlerList::Add(TObject* Object) {
  Freeze();
  return TObjectList::Add(Object);
}

void TNotifyHandlerList::Insert(int Index, TObject* Object) {
  Freeze();
  TObjectList::Insert(Index, Object);
}

void TNotifyHandlerList::Delete(int Index) {
  Freeze();
  TObjectList::Delete(Index);
}

void TNotifyHandlerList::Clear() {
  Freeze();
  TObjectList::Clear();
}

void TNotifyHandlerList::Exchange(int A, int B) {
  Freeze();
  TObjectList::Exchange(A, B);
}

void TNotifyHandlerList::Move(int From, int To) {
  Freeze();
  TObjectList::Move(From, To);
}

TObject* TNotifyHandlerList::Extract(TObject* Object) {
  Freeze();
  return TObjectList::Extract(Object);
}

void TNotifyHandlerList::Put(int Index, TObject* Object) {
  Freeze();
  TObjectList::Put(Index, Object);
}

void TNotifyHandlerList::SetCount(int Value) {
  Freeze();
  TObjectList::SetCount(Value);
}

void TNotifyHandlerList::SetCapacity(int Value) {
  Freeze();
  TObjectList::SetCapacity(Value);
}

void TNotifyHandlerList::Sort(FunctionRef<int(TObject*, TObject*)> Compare) {
  Freeze();
  TObjectList::Sort(Compare);
}

void TNotifyHandlerList::Arrange(std::span<const int> Order) {
  Freeze();
  TObjectList::Arrange(Order);
}

void TNotifyHandlerEnumerator::Freeze() {
  if (FIsCopied) return;
  const std::span<TObject* const> items = iListO->Items();
  iListC.assign(items.begin(), items.end());
  FItems = iListC;
  FIsCopied = true;
}

void TNotifyHandlerEnumerator::Notification(const TObject* Ptr, TListNotification Action) noexcept {
  if (Action == lnAdded) return;
  const auto found = std::find(iListC.begin(), iListC.end(), Ptr);
  if (found == iListC.end()) return;
  const auto place = static_cast<int>(found - iListC.begin());
  if (place > iIndex) return;
  iListC.erase(found);
  FItems = iListC;
  if (place < iIndex) --iIndex;
}

void TNotifyHandlerEnumerator::LeaveAmongOthers() noexcept {
  TNotifyHandlerEnumerator** link = &iListO->FWalks;
  while (*link != this) link = &(*link)->FEarlier;
  *link = FEarlier;
}

}  // namespace vx
