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

void TNotifyHandlerList::Changing() {
  for (TNotifyHandlerEnumerator* walk = FWalks; walk != nullptr; walk = walk->FEarlier) walk->Freeze();
}

void TNotifyHandlerList::Notify(TObject* Object, TListNotification Action) {
  TObjectList::Notify(Object, Action);
  if (iOnNotify) iOnNotify(Object, Action);
  for (TNotifyHandlerEnumerator* walk = FWalks; walk != nullptr; walk = walk->FEarlier) {
    walk->Notification(Object, Action);
  }
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
