#include "core/uConst.h"

namespace vx::uConst {

// The look-up of type names goes over FIELDTYPESTRINGS itself, so it keeps nothing.
void FreeBuffersForLeakPrevention() noexcept {}

}  // namespace vx::uConst
