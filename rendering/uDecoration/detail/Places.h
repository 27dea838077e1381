// Where the items of a decoration list are, close together: a search that goes from item to item instead waits for the
// memory at every step.
#pragma once

#include <vector>

#include "rendering/uDecoration/detail/Regions.h"

namespace vx::detail {

// A copy that is good as long as TDecoration::RangeChanges gives its Stamp and the list has not changed.
struct TPlaces {
  uint64_t Stamp = 0;
  std::vector<TRegion> Regions;  // of the items before IndexFirstCell
  std::vector<int64_t> Keys;     // IndexSort of the others
};

}  // namespace vx::detail
