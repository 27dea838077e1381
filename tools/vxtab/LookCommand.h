// The command that makes, changes and tells looks.
#pragma once

#include "tools/vxtab/Commands.h"

namespace vx::vxtab {

void RunLook(const TContext& Context);

}  // namespace vx::vxtab
