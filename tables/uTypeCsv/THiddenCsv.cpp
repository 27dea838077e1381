#include "tables/uTypeCsv/THiddenCsv.h"

#include <algorithm>
#include <functional>

namespace vx {

void THiddenCsv::TakeAll(std::vector<TVxStringList*> Rows) {
  // Rows of a table that was read from a file stand in the order of their addresses already.
  const std::less<> isBefore;
  if (!std::ranges::is_sorted(Rows, isBefore)) std::ranges::sort(Rows, isBefore);
  FItems.swap(Rows);
}

}  // namespace vx
