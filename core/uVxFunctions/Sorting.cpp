#include "core/uVxFunctions/Sorting.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Exceptions.h"

namespace vx {
namespace {

struct TPart {
  int L, R;
};

// Parts the items L to R around the middle one. Gives the left part's last and the right part's first
// index. The tests of the bounds only matter to a Compare that contradicts itself.
TPart Partition(void** Items, TPart Part, TListSortCompareMore Compare, void* Data) {
  int i = Part.L, j = Part.R;
  void* pivot = Items[(static_cast<unsigned>(i) + static_cast<unsigned>(j)) >> 1];
  do {
    while (Compare(Items[i], pivot, Data) < 0 && i < Part.R) ++i;
    while (Compare(Items[j], pivot, Data) > 0 && j > Part.L) --j;
    if (i <= j) std::swap(Items[i++], Items[j--]);
  } while (i <= j);
  return {j, i};
}

}  // namespace

void QuickSort(std::span<void*> List, int L, int R, TListSortCompareMore Compare, void* Data) {
  if (L >= R) return;
  if (L < 0) throw EListError(FormatListError(SListIndexError, L));
  if (static_cast<size_t>(R) >= List.size()) throw EListError(FormatListError(SListIndexError, R));
  // Left parts first, as a recursion would, but without its depth: hostile items make it as deep as
  // they are many.
  std::vector<TPart> rightParts;
  for (TPart part{L, R};;) {
    auto [leftEnd, rightStart] = Partition(List.data(), part, Compare, Data);
    TPart right{rightStart, part.R};
    if (part.L < leftEnd) {
      if (right.L < right.R) rightParts.push_back(right);
      part.R = leftEnd;
    } else if (right.L < right.R) {
      part = right;
    } else if (rightParts.empty()) {
      return;
    } else {
      part = rightParts.back();
      rightParts.pop_back();
    }
  }
}

}  // namespace vx
