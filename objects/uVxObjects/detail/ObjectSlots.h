// The slots of an object list.
#pragma once

#include <memory>
#include <vector>

#include "platform/TObject.h"

namespace vx::detail {

// An array of pointers in which a slot can be made or closed anywhere at the cost of about the square
// root of the count, while each is reached by its index in one step. Nothing is checked here.
//
// Up to kBlock slots lie in one piece, as in any array. More lie in blocks of one size, all full but the
// last; each is a ring, so that it takes an object at one end and hands one on at the other without
// moving those between.
class TObjectSlots {
 public:
  int Count() const noexcept { return FCount; }
  int Capacity() const noexcept { return FCapacity; }
  // Not below the count. std::bad_alloc leaves all as it was.
  void SetCapacity(int Value);

  TObject* operator[](int Index) const noexcept { return At(Index); }
  // For writing.
  TObject*& operator[](int Index) noexcept {
    ++FVersion;
    return At(Index);
  }
  // Another number after every change of a slot.
  unsigned Version() const noexcept { return FVersion; }
  // Needs a count below the capacity. Index may be the count.
  void Insert(int Index, TObject* Item) noexcept;
  void Erase(int Index) noexcept;
  // Fills up with nullptr, within the capacity, or forgets the last ones.
  void SetCount(int Value) noexcept;

 private:
  // A block that is smaller than the others is the only one, and its head is 0.
  struct TBlock {
    std::unique_ptr<TObject*[]> Slots;
    int Head = 0;
  };
  static constexpr int kFirstBits = 12;

  int Mask() const noexcept { return (1 << FBits) - 1; }
  TObject*& Slot(const TBlock& Block, int Place) const noexcept { return Block.Slots[(Block.Head + Place) & Mask()]; }
  TObject*& At(int Index) const noexcept {
    return Slot(FBlocks[static_cast<unsigned>(Index) >> FBits], Index & Mask());
  }
  void MoveUp(const TBlock& Block, int First, int Last) noexcept;
  void MoveDown(const TBlock& Block, int First, int Last) noexcept;
  static std::vector<TBlock> NewBlocks(int Capacity, int Bits);

  std::vector<TBlock> FBlocks;
  int FBits = kFirstBits;  // a block has 1 << FBits slots
  int FCount = 0;
  int FCapacity = 0;
  unsigned FVersion = 0;
};

}  // namespace vx::detail
