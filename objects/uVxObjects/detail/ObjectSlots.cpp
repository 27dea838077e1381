#include "objects/uVxObjects/detail/ObjectSlots.h"

#include <algorithm>
#include <iterator>

namespace vx::detail {

std::vector<TObjectSlots::TBlock> TObjectSlots::NewBlocks(int Capacity, int Bits) {
  const int size = std::min(Capacity, 1 << Bits);
  std::vector<TBlock> blocks((static_cast<size_t>(Capacity) + (size_t{1} << Bits) - 1) >> Bits);
  for (TBlock& block : blocks) block.Slots = std::make_unique_for_overwrite<TObject*[]>(static_cast<size_t>(size));
  return blocks;
}

void TObjectSlots::SetCapacity(int Value) {
  int bits = Value > 0 ? FBits : kFirstBits;
  // At most a quarter as many blocks as a block has slots.
  while (Value >> bits > 1 << (bits - 2)) ++bits;
  const int size = 1 << bits;
  if (bits == FBits && FCapacity >= size && Value >= size) {
    const size_t kept = std::min(FBlocks.size(), (static_cast<size_t>(Value) + static_cast<size_t>(size) - 1) >> bits);
    std::vector<TBlock> more = NewBlocks(
        (static_cast<int>((static_cast<size_t>(Value) - 1) >> bits) + 1 - static_cast<int>(kept)) * size, bits);
    FBlocks.reserve(kept + more.size());
    FBlocks.resize(kept);
    std::move(more.begin(), more.end(), std::back_inserter(FBlocks));
  } else {
    std::vector<TBlock> blocks = NewBlocks(Value, bits);
    for (int i = 0; i < FCount; ++i) blocks[static_cast<size_t>(i >> bits)].Slots[i & (size - 1)] = At(i);
    FBlocks.swap(blocks);
    FBits = bits;
  }
  FCapacity = Value;
}

// Moves the slots First to Last - 1 by one place; the block has a place for them.
void TObjectSlots::MoveUp(const TBlock& Block, int First, int Last) noexcept {
  const int start = (Block.Head + First) & Mask();
  if (start + (Last - First) <= Mask()) {
    TObject** from = &Block.Slots[start];
    std::copy_backward(from, from + (Last - First), from + (Last - First) + 1);
  } else {
    for (int i = Last; i > First; --i) Slot(Block, i) = Slot(Block, i - 1);
  }
}

void TObjectSlots::MoveDown(const TBlock& Block, int First, int Last) noexcept {
  const int start = (Block.Head + First) & Mask();
  if (start > 0 && start + (Last - First) <= Mask() + 1) {
    TObject** from = &Block.Slots[start];
    std::copy(from, from + (Last - First), from - 1);
  } else {
    for (int i = First; i < Last; ++i) Slot(Block, i - 1) = Slot(Block, i);
  }
}

void TObjectSlots::Insert(int Index, TObject* Item) noexcept {
  ++FVersion;
  const int size = Mask() + 1;
  const int last = FCount >> FBits;
  const int target = Index >> FBits;
  const int place = Index & Mask();
  // From the back: each block gets the last object of the one before, whose slot there is free then.
  for (int i = last; i > target; --i) {
    TBlock& block = FBlocks[static_cast<size_t>(i)];
    block.Head = (block.Head - 1) & Mask();
    Slot(block, 0) = Slot(FBlocks[static_cast<size_t>(i) - 1], size - 1);
  }
  TBlock& block = FBlocks[static_cast<size_t>(target)];
  if (target == last) {
    MoveUp(block, place, FCount & Mask());
  } else if (place >= size / 2) {
    MoveUp(block, place, size - 1);
  } else {
    block.Head = (block.Head - 1) & Mask();
    MoveDown(block, 1, place + 1);
  }
  Slot(block, place) = Item;
  ++FCount;
}

void TObjectSlots::Erase(int Index) noexcept {
  ++FVersion;
  const int size = Mask() + 1;
  const int last = (FCount - 1) >> FBits;
  const int target = Index >> FBits;
  const int place = Index & Mask();
  TBlock& block = FBlocks[static_cast<size_t>(target)];
  if (target == last) {
    MoveDown(block, place + 1, ((FCount - 1) & Mask()) + 1);
  } else if (place >= size / 2) {
    MoveDown(block, place + 1, size);
  } else {
    MoveUp(block, 0, place);
    block.Head = (block.Head + 1) & Mask();
  }
  for (int i = target + 1; i <= last; ++i) {
    TBlock& next = FBlocks[static_cast<size_t>(i)];
    Slot(FBlocks[static_cast<size_t>(i) - 1], size - 1) = Slot(next, 0);
    next.Head = (next.Head + 1) & Mask();
  }
  --FCount;
}

void TObjectSlots::SetCount(int Value) noexcept {
  ++FVersion;
  for (int i = FCount; i < Value; ++i) At(i) = nullptr;
  FCount = Value;
}

}  // namespace vx::detail
