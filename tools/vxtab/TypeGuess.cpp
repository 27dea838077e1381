#include "tools/vxtab/TypeGuess.h"

#include <algorithm>

namespace vx::vxtab {

namespace {

size_t IndexOf(TVxFieldType Type) noexcept {
  return static_cast<size_t>(std::find(GuessedTypes.begin(), GuessedTypes.end(), Type) - GuessedTypes.begin());
}

}  // namespace

std::vector<TTypeCounts> CountTypes(const TFileCsv& Table, int First) {
  std::vector<TTypeCounts> columns;
  for (int row = First; row < Table.GetCount(); ++row) {
    const auto cells = Table.GetLines(row)->Items();
    if (cells.size() > columns.size()) columns.resize(cells.size());
    for (size_t col = 0; col < cells.size(); ++col) ++columns[col][IndexOf(TFileCsv::GuessFieldType(cells[col]))];
  }
  return columns;
}

std::vector<std::pair<TVxFieldType, int>> TypesByCount(const TTypeCounts& Counts) {
  std::vector<std::pair<TVxFieldType, int>> types;
  for (TVxFieldType type : GuessedTypes) {
    if (Counts[IndexOf(type)] > 0) types.emplace_back(type, Counts[IndexOf(type)]);
  }
  std::stable_sort(types.begin(), types.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
  return types;
}

}  // namespace vx::vxtab
