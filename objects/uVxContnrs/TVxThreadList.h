// The chain of pointers that threads share.
#pragma once

#include <mutex>

#include "objects/uVxContnrs/TVxChainList.h"

namespace vx {

// Each operation takes the lock around the same one of TVxChainList. The lock counts: a thread that has
// it may use every operation, and gives it back with as many calls as it took it by.
//
// The list keeps no record of ownership: what it still holds at its end is not freed.
class TVxThreadList : public TObject {
 public:
  TVxThreadList() = default;
  TVxThreadList(const TVxThreadList&) = delete;
  TVxThreadList& operator=(const TVxThreadList&) = delete;
  String ClassName() const override { return u"TVxThreadList"; }

  int Add(void* Data);
  void Clear() noexcept;
  int GetCount() const noexcept;
  void* PopFirst() noexcept;
  void* PopLast() noexcept;
  int Remove(void* Data) noexcept;

  // Takes the lock and gives the chain, for the calling thread alone until it calls UnlockList.
  TVxChainList& LockList();
  void UnlockList() noexcept { iLock.unlock(); }

  // Takes up to Number items from the front and frees each as a TObject: only for lists whose items were
  // put in as TObject*. Takes no lock: the caller has to hold it.
  void FreeObjectsFirst(int Number) noexcept;

 private:
  TVxChainList iList;
  mutable std::recursive_mutex iLock;
};

// Holds a list's lock as long as it lives, also when an error passes.
class TVxThreadListLock {
 public:
  explicit TVxThreadListLock(TVxThreadList& List) : FOwner(List), FList(List.LockList()) {}
  ~TVxThreadListLock() { FOwner.UnlockList(); }
  TVxThreadListLock(const TVxThreadListLock&) = delete;
  TVxThreadListLock& operator=(const TVxThreadListLock&) = delete;
  TVxChainList* operator->() const noexcept { return &FList; }

 private:
  TVxThreadList& FOwner;
  TVxChainList& FList;
};

}  // namespace vx
