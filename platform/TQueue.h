// A queue: first in, first out.
//
//   TQueue<T>   a ring of values that grows; neither Push nor Pop allocates as a rule
//
// Example:
//   vx::TQueue<int> waiting;
//   waiting.Push(7);
//   waiting.Push(8);
//   int next = waiting.Pop();    // 7
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfalls: the queue keeps no record of ownership, and no lock.
#pragma once

#include <utility>
#include <vector>

#include "platform/TObject.h"

namespace vx {

template <typename T>
class TQueue : public TObject {
 public:
  TQueue() noexcept = default;
  TQueue(const TQueue&) = delete;
  TQueue& operator=(const TQueue&) = delete;
  String ClassName() const override { return u"TQueue"; }

  int GetCount() const noexcept { return static_cast<int>(FCount); }
  // std::bad_alloc leaves the queue as it was.
  void Push(T Value) {
    if (FCount == FItems.size()) Grow();
    FItems[(FHead + FCount++) & (FItems.size() - 1)] = std::move(Value);
  }
  // The oldest value, which leaves the queue; T() if the queue is empty.
  T Pop() {
    if (FCount == 0) return T();
    T result = std::exchange(FItems[FHead], T());
    FHead = (FHead + 1) & (FItems.size() - 1);
    --FCount;
    return result;
  }
  void Swap(TQueue& Other) noexcept {
    FItems.swap(Other.FItems);
    std::swap(FHead, Other.FHead);
    std::swap(FCount, Other.FCount);
  }

 private:
  void Grow() {
    std::vector<T> items(FItems.empty() ? 64 : FItems.size() * 2);
    for (size_t i = 0; i < FCount; ++i) items[i] = std::move(FItems[(FHead + i) & (FItems.size() - 1)]);
    FItems.swap(items);
    FHead = 0;
  }

  std::vector<T> FItems;  // a power of two of places, or none
  size_t FHead = 0;
  size_t FCount = 0;
};

}  // namespace vx
