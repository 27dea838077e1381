// A count of the holders of a shared block.
#pragma once

#include <atomic>
#include <cstdint>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

namespace vx {

// Holders may come and go in several threads. While the process has only one, no locked instruction is
// spent: those wait for all writes before them, which costs more than all else about a short text.
class TRefCount {
 public:
  explicit TRefCount(uint32_t Count = 1) noexcept : FCount(Count) {}
  TRefCount(const TRefCount&) = delete;
  TRefCount& operator=(const TRefCount&) = delete;

  void Add() noexcept {
    if (IsSingleThreaded()) {
      FCount.store(FCount.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    } else {
      FCount.fetch_add(1, std::memory_order_relaxed);
    }
  }
  // True if these were the last holders; the block is then the caller's to free.
  bool Release(uint32_t Holders = 1) noexcept {
    uint32_t count = FCount.load(std::memory_order_acquire);
    if (count == Holders) return true;  // nobody else can reach the block any more
    if (IsSingleThreaded()) {
      FCount.store(count - Holders, std::memory_order_relaxed);
      return false;
    }
    return FCount.fetch_sub(Holders, std::memory_order_acq_rel) == Holders;
  }
  bool IsShared() const noexcept { return FCount.load(std::memory_order_acquire) != 1; }

 private:
  static bool IsSingleThreaded() noexcept {
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded != 0;
#else
    return false;
#endif
  }
  std::atomic<uint32_t> FCount;
};

}  // namespace vx
