#include "core/uConst.h"

namespace vx {

// The look-up of type names goes over FIELDTYPESTRINGS itself, so it keeps nothing.
void uConst::FreeBuffersForLeakPrevention() noexcept { subtypes::Free(); }

}  // namespace vx
