// What the cells of columns look like.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "tables/uFileCsv.h"

namespace vx::vxtab {

inline constexpr std::array GuessedTypes = {vftUnknown, vftString, vftInteger, vftFloat, vftDate, vftTime, vftHour};
// How many cells look like each of GuessedTypes; vftUnknown are the empty ones.
using TTypeCounts = std::array<int, GuessedTypes.size()>;

// For each column, over the rows from First on.
std::vector<TTypeCounts> CountTypes(const TFileCsv& Table, int First);
// The types in a column and how many cells have each, the most frequent one first, without those that no cell has.
std::vector<std::pair<TVxFieldType, int>> TypesByCount(const TTypeCounts& Counts);

}  // namespace vx::vxtab
