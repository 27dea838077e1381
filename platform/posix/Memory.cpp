#include "platform/os/Memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

#if defined(VX_CHECKS_ADDRESSES)
#include <sanitizer/asan_interface.h>
#include <sanitizer/lsan_interface.h>
#endif

namespace vx::os {

namespace {

unsigned char* Map(size_t Bytes) noexcept {
  void* memory = ::mmap(nullptr, Bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return memory == MAP_FAILED ? nullptr : static_cast<unsigned char*>(memory);
}

// How far Address lies before the next multiple of Unit, a power of two.
size_t Before(const unsigned char* Address, size_t Unit) noexcept {
  return (0 - reinterpret_cast<uintptr_t>(Address)) & (Unit - 1);
}

// Asks for twice as much and returns what lies beside the multiple of Bytes in it.
unsigned char* MapAligned(size_t Bytes) noexcept {
  unsigned char* memory = Map(2 * Bytes);
  if (!memory) return nullptr;
  const size_t before = Before(memory, Bytes);
  if (before > 0) ::munmap(memory, before);
  ::munmap(memory + before + Bytes, Bytes - before);
  return memory + before;
}

}  // namespace

void* TakeBlock(size_t Bytes) noexcept {
  unsigned char* memory = Map(Bytes);  // most systems put a large piece at such a multiple by themselves
  if (memory && Before(memory, Bytes) > 0) {
    ::munmap(memory, Bytes);
    memory = MapAligned(Bytes);
  }
#if defined(VX_CHECKS_ADDRESSES)
  if (memory) __lsan_register_root_region(memory, Bytes);  // what lies here may hold the only pointers to the heap
#endif
  return memory;
}

void ReturnBlock(void* Block, size_t Bytes) noexcept {
#if defined(VX_CHECKS_ADDRESSES)
  __lsan_unregister_root_region(Block, Bytes);
  __asan_unpoison_memory_region(Block, Bytes);  // others may get these addresses
#endif
  ::munmap(Block, Bytes);
}

void PreferLargePages([[maybe_unused]] void* Block, [[maybe_unused]] size_t Bytes) noexcept {
#if defined(MADV_HUGEPAGE)
  (void)::madvise(Block, Bytes, MADV_HUGEPAGE);
#endif
}

void DropPages(unsigned char* First, unsigned char* Last) noexcept {
  const auto page = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
  First += Before(First, page);
  if (First < Last) (void)::madvise(First, static_cast<size_t>(Last - First), MADV_DONTNEED);
}

void ForbidAccess([[maybe_unused]] void* First, [[maybe_unused]] size_t Bytes) noexcept {
#if defined(VX_CHECKS_ADDRESSES)
  __asan_poison_memory_region(First, Bytes);
#endif
}

void AllowAccess([[maybe_unused]] void* First, [[maybe_unused]] size_t Bytes) noexcept {
#if defined(VX_CHECKS_ADDRESSES)
  __asan_unpoison_memory_region(First, Bytes);
#endif
}

}  // namespace vx::os
