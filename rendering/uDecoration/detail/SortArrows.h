// The pictures in the cell that a table is sorted by.
#pragma once

#include "platform/TBitmap.h"
#include "rendering/uDecoration/TDecorationList.h"

namespace vx::detail {

// Whether the table was sorted last by the cell of a virtual list.
bool IsSortCell(const TDecorationList& List);
// The arrow for the cell of a virtual list; nullptr if it shows none. The picture is the unit's. Raises as
// TBitmap::LoadFromResourceName.
const TBitmap* SortArrowOf(const TDecorationList& List);

}  // namespace vx::detail
