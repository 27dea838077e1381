// Memory of the system in large blocks. For the sources of platform/ only.
#pragma once

#include <cstddef>

namespace vx::os {

// Bytes, a power of two and at least a page, of zeros that begin at a multiple of Bytes; nullptr if there are none.
void* TakeBlock(size_t Bytes) noexcept;
void ReturnBlock(void* Block, size_t Bytes) noexcept;
// Advice to back the block by as large pages as there are; it may be ignored.
void PreferLargePages(void* Block, size_t Bytes) noexcept;
// The whole pages of [First, Last) need not be backed any more; what stands there is lost.
void DropPages(unsigned char* First, unsigned char* Last) noexcept;

// Whether this is a build in which each access to memory is checked.
#if defined(__SANITIZE_ADDRESS__)
#define VX_CHECKS_ADDRESSES
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VX_CHECKS_ADDRESSES
#endif
#endif
#if defined(VX_CHECKS_ADDRESSES)
inline constexpr bool ChecksAddresses = true;
#else
inline constexpr bool ChecksAddresses = false;
#endif
// In such a build any access to these bytes is a fault, or none any more; else they do nothing. First is a multiple
// of 8.
void ForbidAccess(void* First, size_t Bytes) noexcept;
void AllowAccess(void* First, size_t Bytes) noexcept;

}  // namespace vx::os
