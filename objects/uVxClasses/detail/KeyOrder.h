// The exact order of keys. Internal to the index of keys.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vx::detail {

// The place of the first unit that differs in the first Size ones; Size if there is none.
inline size_t FirstOther(const char16_t* A, const char16_t* B, size_t Size) noexcept {
  constexpr bool kFirstIsLowest = std::endian::native == std::endian::little;
  size_t at = 0;
  for (; kFirstIsLowest && at + 4 <= Size; at += 4) {
    uint64_t a, b;
    std::memcpy(&a, A + at, sizeof a);
    std::memcpy(&b, B + at, sizeof b);
    if (a != b) return at + static_cast<size_t>(std::countr_zero(a ^ b)) / 16;
  }
  while (at < Size && A[at] == B[at]) ++at;
  return at;
}

// By code units; what the numbers tell stands at VxCompareText.
inline int CompareUnits(std::u16string_view A, std::u16string_view B) noexcept {
  const size_t size = std::min(A.size(), B.size());
  const size_t at = FirstOther(A.data(), B.data(), size);
  if (at < size) return A[at] < B[at] ? -3 : 3;
  if (A.size() == B.size()) return 0;
  const int sign = A.size() > B.size() ? 1 : -1;
  return size > 0 ? 2 * sign : sign;
}

}  // namespace vx::detail
