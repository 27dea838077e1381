// A value for each thread that works at a loop, for results that the caller puts together.
//
//   TLoopParts<T>    the values
//
// Example:
//   vx::TThreadPool pool;
//   vx::TLoopParts<int64_t> sums(pool.GetLoopThreads());
//   bool isWhole = pool.ForEach(1, 1001, sums, [](int i, int64_t& sum) { sum += i; });
//   int64_t all = 0;
//   for (int64_t sum : sums) all += sum;
//   all;                     // 500500
//
// Threads: during a loop each thread has its own value; one thread at a time otherwise.
//
// Pitfall: which thread does which item is never the same, so what is put together must not depend on it. Sums of
// floating point numbers do.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/Exceptions.h"

namespace vx {

template <typename T>
class TLoopParts {
  // Not two in a line of the processor's cache.
  struct alignas(64) TSlot {
    T Value;
  };

 public:
  class TIterator {
   public:
    explicit TIterator(TSlot* Slot) noexcept : FSlot(Slot) {}
    T& operator*() const noexcept { return FSlot->Value; }
    TIterator& operator++() noexcept { return ++FSlot, *this; }
    friend bool operator==(TIterator, TIterator) noexcept = default;

   private:
    TSlot* FSlot;
  };

  // Count copies of Start.
  explicit TLoopParts(int Count, const T& Start = T()) : FSlots(static_cast<size_t>(Count), TSlot{Start}) {}

  int GetCount() const noexcept { return static_cast<int>(FSlots.size()); }
  // From 0 on; the caller's slot of a loop is 0.
  T& operator[](int Slot) noexcept { return FSlots[static_cast<size_t>(Slot)].Value; }
  const T& operator[](int Slot) const noexcept { return FSlots[static_cast<size_t>(Slot)].Value; }
  TIterator begin() noexcept { return TIterator(FSlots.data()); }
  TIterator end() noexcept { return TIterator(FSlots.data() + FSlots.size()); }

 private:
  std::vector<TSlot> FSlots;
};

namespace detail {

// The items from First to before Behind, 0 if that is not behind it. EArgumentException where TIndex, which is to count
// them, can't hold First.
template <typename TIndex, typename TFirst, typename TBehind>
uint64_t CountOf(TFirst First, TBehind Behind) {
  if (std::cmp_greater_equal(First, Behind)) return 0;
  if (!std::in_range<TIndex>(First)) throw EArgumentException(u"A loop from below zero needs a signed end");
  return static_cast<uint64_t>(Behind) - static_cast<uint64_t>(First);
}

}  // namespace detail

}  // namespace vx
