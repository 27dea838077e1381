// Sorts for comparisons that callers bring.
//
//   StableSort, StableOrder    merge sort: the values, or the indexes, in order; equal ones as they stood
//   PartitionSort              the sort of string lists and object lists, whose every step is fixed
//
// Example:
//   std::vector<size_t> order = vx::StableOrder(rows.size(), [&](size_t a, size_t b) { return rows[a] < rows[b]; });
//
// A comparison over odd data may contradict itself, and it may raise. No order is promised in the first case and the
// error is passed on in the second, but no sort here loses an item, has one twice, or looks beyond the items.
//
// Threads: each sorts what is its own.
//
// Pitfall: PartitionSort costs n log n mostly, but n x n on items that stand just so, and who fills a file may make
// them stand so. It is for what promises its order of equal items; PartitionSortWithin ends in time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numeric>
#include <type_traits>
#include <utility>
#include <vector>

namespace vx {

namespace detail {

// Sorts Count items, which come to stand at Other if ToOther, else where they are.
template <typename T, typename TIsBefore>
void MergeSort(T* Items, T* Other, size_t Count, bool ToOther, TIsBefore IsBefore) {
  constexpr size_t kInsertion = 8, kFew = 64;
  T* const target = ToOther ? Other : Items;
  if (Count <= kInsertion) {
    for (size_t i = 0; i < Count; ++i) {
      const T item = Items[i];
      size_t place = i;
      for (; place > 0 && IsBefore(item, target[place - 1]); --place) target[place] = target[place - 1];
      target[place] = item;
    }
    return;
  }
  const size_t half = Count / 2;
  MergeSort(Items, Other, half, !ToOther, IsBefore);
  MergeSort(Items + half, Other + half, Count - half, !ToOther, IsBefore);
  const T *left = ToOther ? Items : Other, *leftEnd = left + half;
  const T *right = leftEnd, *rightEnd = left + Count;
  T* next = target;
  if (IsBefore(*right, leftEnd[-1])) {
    // As of items in reverse; not asked of a few, where it would cost more than it saves.
    if (Count > kFew && IsBefore(rightEnd[-1], *left)) {
      next = std::copy(std::exchange(right, rightEnd), rightEnd, next);
    }
    while (left != leftEnd && right != rightEnd) {
      if (IsBefore(*right, *left)) {
        *next++ = *right++;
      } else {
        *next++ = *left++;
      }
    }
  }
  next = std::copy(left, leftEnd, next);
  std::copy(right, rightEnd, next);
}

}  // namespace detail

// The items in order. IsBefore(a, b) tells whether a has to stand before b; it may look at the list from which the
// items were copied. n log n comparisons at most, n - 1 if the items are in order.
template <typename T, typename TIsBefore>
[[nodiscard]] std::vector<T> StableSort(std::vector<T> Items, TIsBefore IsBefore) {
  static_assert(std::is_trivially_copyable_v<T>, "sort their indexes by StableOrder");
  const auto other = std::make_unique_for_overwrite<T[]>(Items.size());
  detail::MergeSort(Items.data(), other.get(), Items.size(), false, IsBefore);
  return Items;
}

// The indexes from 0 to Count - 1 in the order in which what they stand for belongs. IsBefore gets two indexes.
template <typename TIsBefore>
[[nodiscard]] std::vector<size_t> StableOrder(size_t Count, TIsBefore IsBefore) {
  std::vector<size_t> order(Count);
  std::iota(order.begin(), order.end(), size_t{0});
  return StableSort(std::move(order), std::move(IsBefore));
}

// Sorts the items Low to High, both included, by partitions around the middle one, the lower half-way: from both ends
// those that stand on the wrong side of it change places. Compare(a, b) compares the items at two indexes, below 0, 0
// or above 0; Exchange(a, b) swaps them, also one with itself. False, with the items in some order, if more than
// MaxCompares comparisons would be needed, which are looked at once a partition.
template <typename TCompare, typename TExchange>
bool PartitionSortWithin(int64_t MaxCompares, int Low, int High, TCompare Compare, TExchange Exchange) {
  struct TPart {
    int Low, High;
  };
  // Left parts first, as a recursion would, but without its depth: hostile items make it as deep as they are many.
  std::vector<TPart> rightParts;
  for (TPart part{Low, High}; part.Low < part.High;) {
    MaxCompares -= int64_t{part.High} - part.Low;
    if (MaxCompares < 0) return false;
    int i = part.Low, j = part.High, pivot = i + (j - i) / 2;
    do {
      // The tests of the bounds only matter to a Compare that contradicts itself.
      while (Compare(i, pivot) < 0 && i < part.High) ++i;
      while (Compare(j, pivot) > 0 && j > part.Low) --j;
      if (i > j) break;
      Exchange(i, j);
      pivot = pivot == i ? j : pivot == j ? i : pivot;
      ++i;
      --j;
    } while (i <= j);
    const TPart right{i, part.High};
    part.High = j;
    if (part.Low < part.High) {
      if (right.Low < right.High) rightParts.push_back(right);
    } else if (right.Low < right.High || rightParts.empty()) {
      part = right;
    } else {
      part = rightParts.back();
      rightParts.pop_back();
    }
  }
  return true;
}

template <typename TCompare, typename TExchange>
void PartitionSort(int Low, int High, TCompare Compare, TExchange Exchange) {
  static_cast<void>(PartitionSortWithin(INT64_MAX, Low, High, std::move(Compare), std::move(Exchange)));  // always true
}

}  // namespace vx
