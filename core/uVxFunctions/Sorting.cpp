#include "core/uVxFunctions/Sorting.h"

#include <cstddef>
#include <utility>

#include "platform/Exceptions.h"
#include "platform/Sorting.h"

namespace vx {

void QuickSort(std::span<void*> List, int L, int R, TListSortCompareMore Compare, void* Data) {
  if (L >= R) return;
  if (L < 0) throw EListError(FormatListError(SListIndexError, L));
  if (static_cast<size_t>(R) >= List.size()) throw EListError(FormatListError(SListIndexError, R));
  void** items = List.data();
  PartitionSort(
      L, R, [&](int a, int b) { return Compare(items[a], items[b], Data); },
      [&](int a, int b) { std::swap(items[a], items[b]); });
}

}  // namespace vx
