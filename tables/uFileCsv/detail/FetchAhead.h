// Rows of a table asked of the memory before they are read.
#pragma once

#include <cstdint>

#include "tables/uFileCsv/TFileCsv.h"

namespace vx::detail {

// The rows of a sorted table lie anywhere in memory. So a row is asked for some time before it is read, as far as most
// reach with their cells, which mostly stand behind it.
inline void FetchRowAhead(const TFileCsv& Table, int Row) {
  constexpr int kAhead = 12;
  constexpr uintptr_t kLine = 64, kLines = 5;
  if (Row + kAhead >= Table.GetCount()) return;
  const auto first = reinterpret_cast<uintptr_t>(Table.Get(Row + kAhead));
  for (uintptr_t line = 0; line < kLines; ++line) {
    __builtin_prefetch(reinterpret_cast<const void*>(first + line * kLine));  // NOLINT(performance-no-int-to-ptr)
  }
}

}  // namespace vx::detail
