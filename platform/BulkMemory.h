// Memory for things that come by the million and mostly go together, such as the rows of a table and their cells.
//
//   TBulkMemory   gives small pieces of large blocks
//
// Example:
//   vx::TBulkMemory memory;
//   void* piece = memory.Take(248);
//   vx::TBulkMemory::Return(piece);         // in any thread, and with or without memory being there still
//
// A block is asked of the system as a whole, with the advice to back it by one large page, and goes back as a
// whole with the last of its pieces. So a million pieces cost neither a page fault for each 4 KB nor a search for
// room when they come and go.
//
// Pitfalls:
//   - What has been returned is not given again while anything else of its block is in use. Whoever keeps one
//     piece for long keeps a block of 2 MB, and no more than that one.
//   - Not for things that come and go one by one, nor for a few: the smallest amount is a block's first pages.
//   - A checker of addresses sees bytes beyond a piece and pieces that have been returned, but a leak only as memory
//     that grows.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/RefCount.h"

namespace vx {

// Take is for one thread at a time. The pieces live on without their giver.
class TBulkMemory {
 public:
  // The largest piece.
  static constexpr size_t MaxPiece = 128 * 1024;

  TBulkMemory() noexcept = default;
  // Gives back what the last block has left.
  ~TBulkMemory() { Close(); }
  TBulkMemory(const TBulkMemory&) = delete;
  TBulkMemory& operator=(const TBulkMemory&) = delete;

  // A piece of Bytes, from 1 to MaxPiece, that begins at a multiple of 8. std::bad_alloc, and nothing has changed
  // for the pieces that there are.
  [[nodiscard]] void* Take(size_t Bytes);
  // Piece has to come from a Take, and is returned once.
  static void Return(void* Piece) noexcept;

 private:
  // Stands at the beginning of each block; a block begins at a multiple of its size.
  struct alignas(64) TBlock {
    TRefCount Pieces;
  };
  static constexpr size_t kBlockBytes = size_t{2} << 20;
  // The open block counts this many pieces, more than it can ever give away; Close takes back what was not given.
  static constexpr uint32_t kReserve = 1u << 31;

  void Open();
  void Close() noexcept;
  // Forgets the open block; true if none of its pieces is in use, so that it is the caller's.
  bool LeaveBlock() noexcept;

  TBlock* FBlock = nullptr;
  unsigned char* FNext = nullptr;
  unsigned char* FEnd = nullptr;
  uint32_t FGiven = 0;
  int FBlocks = 0;
};

}  // namespace vx
