#include "objects/uVxContnrs/TVxThreadList.h"

#include <algorithm>

namespace vx {

int TVxThreadList::Add(void* Data) {
  std::lock_guard lock(iLock);
  return iList.Add(Data);
}

void TVxThreadList::Clear() noexcept {
  std::lock_guard lock(iLock);
  iList.Clear();
}

int TVxThreadList::GetCount() const noexcept {
  std::lock_guard lock(iLock);
  return iList.GetCount();
}

void* TVxThreadList::PopFirst() noexcept {
  std::lock_guard lock(iLock);
  return iList.PopFirst();
}

void* TVxThreadList::PopLast() noexcept {
  std::lock_guard lock(iLock);
  return iList.PopLast();
}

int TVxThreadList::Remove(void* Data) noexcept {
  std::lock_guard lock(iLock);
  return iList.Remove(Data);
}

TVxChainList& TVxThreadList::LockList() {
  iLock.lock();
  return iList;
}

void TVxThreadList::FreeObjectsFirst(int Number) noexcept {
  // Counted before: objects that a destructor adds are not among them.
  for (int left = std::min(Number, iList.GetCount()); left > 0; --left) delete static_cast<TObject*>(iList.PopFirst());
}

}  // namespace vx
