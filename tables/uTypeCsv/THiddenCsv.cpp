#include "tables/uTypeCsv/THiddenCsv.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <utility>

namespace vx {

namespace {

// By digits, from the last one on: a view hides as many rows as a table has.
void SortByAddress(std::vector<TVxStringList*>& Rows) {
  constexpr size_t kFew = 1024;
  constexpr int kFirstBit = 3, kBits = 11;  // objects stand at multiples of 8
  if (std::ranges::is_sorted(Rows, std::less<>())) return;
  if (Rows.size() < kFew) return std::sort(Rows.begin(), Rows.end(), std::less<>());
  const auto [low, high] = std::ranges::minmax_element(Rows, std::less<>());
  const auto base = reinterpret_cast<uintptr_t>(*low), reach = reinterpret_cast<uintptr_t>(*high) - base;
  std::vector<TVxStringList*> sorted(Rows.size());
  for (int bit = kFirstBit; bit < 64 && reach >> bit != 0; bit += kBits) {
    const auto digit = [&](const TVxStringList* row) {
      return (reinterpret_cast<uintptr_t>(row) - base) >> bit & ((size_t{1} << kBits) - 1);
    };
    std::array<size_t, size_t{1} << kBits> next{};
    for (const TVxStringList* row : Rows) ++next[digit(row)];
    size_t begin = 0;
    for (size_t& place : next) begin += std::exchange(place, begin);
    for (TVxStringList* row : Rows) sorted[next[digit(row)]++] = row;
    Rows.swap(sorted);
  }
}

}  // namespace

void THiddenCsv::TakeAll(std::vector<TVxStringList*> Rows) {
  SortByAddress(Rows);
  FItems.swap(Rows);
}

}  // namespace vx
