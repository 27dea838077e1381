#include "tables/uFileCsv/detail/ColumnScan.h"

#include <bit>
#include <utility>
#include <vector>

#include "platform/Sorting.h"

namespace vx {

namespace {

// The indexes of Cells in the order in which the sort of a list of texts puts them. Cells that stand so that it would
// take too long keep their places among equals.
std::vector<size_t> OrderOf(const TCells& Cells) {
  const auto compare = [&](size_t a, size_t b) { return AnsiCompareText(Cells[a], Cells[b]); };
  std::vector<size_t> order(Cells.size());
  std::iota(order.begin(), order.end(), size_t{0});
  const auto count = static_cast<int64_t>(Cells.size());
  const int64_t most =
      4 * count * (4 + static_cast<int64_t>(std::bit_width(Cells.size())));  // thrice what shuffled cells take
  const bool isDone = PartitionSortWithin(
      most, 0, static_cast<int>(count) - 1,
      [&](int a, int b) { return compare(order[static_cast<size_t>(a)], order[static_cast<size_t>(b)]); },
      [&](int a, int b) { std::swap(order[static_cast<size_t>(a)], order[static_cast<size_t>(b)]); });
  return isDone ? order : StableOrder(Cells.size(), [&](size_t a, size_t b) { return compare(a, b) < 0; });
}

}  // namespace

String detail::SortedUnique(std::u16string_view Commatext) {
  const TCells cells = ReadCommatext(Commatext);
  TCells unique;
  for (size_t index : OrderOf(cells)) {
    if (unique.empty() || !(unique.back() == cells[index])) unique.push_back(cells[index]);
  }
  return WriteCommatext(unique);
}

}  // namespace vx
