// The command that paints a table.
#pragma once

#include "tools/vxtab/Commands.h"

namespace vx::vxtab {

void RunPaint(const TContext& Context);

}  // namespace vx::vxtab
