// Keys numbered in the order in which they first come, found by their hashes.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/Exceptions.h"

namespace vx::detail {

// Open with linear probing, at most two thirds full. It knows no key itself: IsSame(slot) tells whether a slot of the
// same hash has the key.
class TKeySlots {
 public:
  struct TSlot {
    uint64_t Hash;
    int Key;    // its number; -1: free
    int First;  // the first row that has it
  };

  TKeySlots() : FSlots(kLeast, TSlot{0, -1, 0}) {}

  int GetCount() const noexcept { return FCount; }
  std::span<const TSlot> Slots() const noexcept { return FSlots; }
  // The key of that hash will be asked for soon.
  void Prefetch(uint64_t Hash) const noexcept { __builtin_prefetch(&FSlots[Hash & (FSlots.size() - 1)]); }
  // The number of the key; -1 if there is none.
  template <typename F>
  int Find(uint64_t Hash, F IsSame) const {
    return FSlots[Place(Hash, IsSame)].Key;
  }
  // The number of the key, which is the count so far if it is new.
  template <typename F>
  int FindOrAdd(uint64_t Hash, int First, F IsSame) {
    if (3 * (static_cast<size_t>(FCount) + 1) > 2 * FSlots.size()) Grow();
    TSlot& slot = FSlots[Place(Hash, IsSame)];
    if (slot.Key < 0) slot = {Hash, FCount++, First};
    return slot.Key;
  }

 private:
  static constexpr size_t kLeast = 16;

  // Where the key is, or belongs.
  template <typename F>
  size_t Place(uint64_t Hash, F IsSame) const {
    const size_t mask = FSlots.size() - 1;
    size_t place = Hash & mask;
    while (FSlots[place].Key >= 0 && !(FSlots[place].Hash == Hash && IsSame(FSlots[place]))) place = (place + 1) & mask;
    return place;
  }
  void Grow() {
    std::vector<TSlot> old(2 * FSlots.size(), TSlot{0, -1, 0});
    old.swap(FSlots);
    for (const TSlot& slot : old) {
      if (slot.Key >= 0) FSlots[Place(slot.Hash, [](const TSlot&) { return false; })] = slot;
    }
  }

  std::vector<TSlot> FSlots;
  int FCount = 0;
};

// EListError for an index outside a list.
inline void CheckIndex(int Index, int Count) {
  if (static_cast<unsigned>(Index) >= static_cast<unsigned>(Count)) [[unlikely]]
    throw EListError(FormatListError(SListIndexError, Index));
}

// Items by the numbers of the groups they are in, in their order: GroupOf[i] is the group of the item First + i.
// Starts gets where each group begins in Items, and the end.
inline void GroupItems(std::span<const int> GroupOf, int First, int Groups, std::vector<uint32_t>& Starts,
                       std::vector<int>& Items) {
  Starts.assign(static_cast<size_t>(Groups) + 1, 0);
  Items.resize(GroupOf.size());
  for (int group : GroupOf) ++Starts[static_cast<size_t>(group)];
  uint32_t end = 0;
  for (uint32_t& start : Starts) start = end += start;
  for (size_t i = GroupOf.size(); i-- > 0;) {
    Items[--Starts[static_cast<size_t>(GroupOf[i])]] = First + static_cast<int>(i);
  }
}

}  // namespace vx::detail
