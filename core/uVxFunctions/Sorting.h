// Sorting of pointers.
#pragma once

#include <span>

namespace vx {

// Below 0, 0 or above 0 as Item1 stands before, beside or behind Item2; Data is the sort's own argument.
using TListSortCompareMore = int (*)(void* Item1, void* Item2, void* Data);

// Sorts the items L to R of List, both included and counted from 0, in place. Partitions around the item
// in the middle, the lower half-way one; equal items may change places, but always in the same way.
// Nothing happens if L is not below R; EListError "List index out of bounds (%d)" for an index outside
// List. A Compare that contradicts itself gives some order of the same items. Costs n log n mostly, but n x n on
// items that stand just so: sort what comes from a file by StableSort (platform/Sorting.h).
void QuickSort(std::span<void*> List, int L, int R, TListSortCompareMore Compare, void* Data = nullptr);

}  // namespace vx
