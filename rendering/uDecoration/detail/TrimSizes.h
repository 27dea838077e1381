// Sizes of columns and rows by the modes of trimming, which TTableSizes.h tells. Internal to uDecoration.
#pragma once

#include "rendering/uDecoration/TTableSizes.h"
#include "rendering/uDecoration/detail/TableMeasure.h"

namespace vx::detail {

// Room: of the target, in pixels; 0 for no limit. Line: between columns and rows, and behind the last one. Present: the
// sizes that there are.
struct TTrimRoom {
  TPoint Room;
  TPoint Line;
  TTableSizes Present{};
};

TTableSizes TrimSizes(TDecorationList& List, const TNeeds& Needs, const TTrimRoom& Target);

}  // namespace vx::detail
