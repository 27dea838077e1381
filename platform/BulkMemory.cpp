#include "platform/BulkMemory.h"

#include <cstring>
#include <new>

#include "platform/os/Memory.h"

namespace vx {

namespace {

// The first blocks of a giver are not backed by large pages, so that little memory stays little.
constexpr int kPlainBlocks = 2;

// Stands before each piece where a checker of addresses watches: nobody may touch it but this source, which keeps the
// piece's length there.
constexpr size_t kGuard = os::ChecksAddresses ? 16 : 0;

[[maybe_unused]] void OpenPiece(unsigned char* Piece, size_t Bytes) noexcept {
  os::AllowAccess(Piece - kGuard, sizeof Bytes);
  std::memcpy(Piece - kGuard, &Bytes, sizeof Bytes);
  os::ForbidAccess(Piece - kGuard, kGuard);
  os::AllowAccess(Piece, Bytes);
}

[[maybe_unused]] void ClosePiece(unsigned char* Piece) noexcept {
  size_t bytes;
  os::AllowAccess(Piece - kGuard, sizeof bytes);
  std::memcpy(&bytes, Piece - kGuard, sizeof bytes);
  os::ForbidAccess(Piece - kGuard, kGuard + bytes);
}

}  // namespace

void* TBulkMemory::Take(size_t Bytes) {
  const size_t needed = ((Bytes + 7) & ~size_t{7}) + kGuard;
  if (needed > static_cast<size_t>(FEnd - FNext)) Open();
  unsigned char* piece = FNext + kGuard;
  FNext += needed;
  ++FGiven;
  if constexpr (os::ChecksAddresses) OpenPiece(piece, Bytes);
  return piece;
}

void TBulkMemory::Return(void* Piece) noexcept {
  auto* piece = static_cast<unsigned char*>(Piece);
  if constexpr (os::ChecksAddresses) ClosePiece(piece);
  auto* block = reinterpret_cast<TBlock*>(piece - (reinterpret_cast<uintptr_t>(piece) & (kBlockBytes - 1)));
  if (block->Pieces.Release()) os::ReturnBlock(block, kBlockBytes);
}

bool TBulkMemory::LeaveBlock() noexcept {
  const bool isUnused = FBlock && FBlock->Pieces.Release(kReserve - FGiven);
  FBlock = nullptr;
  FNext = FEnd = nullptr;
  FGiven = 0;
  return isUnused;
}

void TBulkMemory::Open() {
  void* memory = FBlock;
  if (!LeaveBlock()) {  // a full block whose pieces have all been returned serves again
    memory = os::TakeBlock(kBlockBytes);
    if (!memory) throw std::bad_alloc();
    if (FBlocks >= kPlainBlocks) os::PreferLargePages(memory, kBlockBytes);
    if (FBlocks < kPlainBlocks) ++FBlocks;
  }
  FBlock = ::new (memory) TBlock{TRefCount(kReserve)};
  FNext = static_cast<unsigned char*>(memory) + sizeof(TBlock);
  FEnd = static_cast<unsigned char*>(memory) + kBlockBytes;
  if constexpr (os::ChecksAddresses) os::ForbidAccess(FNext, static_cast<size_t>(FEnd - FNext));
}

void TBulkMemory::Close() noexcept {
  if (!FBlock) return;
  os::DropPages(FNext, FEnd);  // a large page backs what no piece has reached, too
  TBlock* block = FBlock;
  if (LeaveBlock()) os::ReturnBlock(block, kBlockBytes);
}

}  // namespace vx
