#include "core/uConst.h"

namespace vx {

// The lists of domain values are not filled yet, so that every key is unknown.
String getSubTypeText(std::u16string_view, int) { return {}; }

namespace uConst {

// The look-up of type names goes over FIELDTYPESTRINGS itself, so it keeps nothing.
void FreeBuffersForLeakPrevention() noexcept {}

}  // namespace uConst

}  // namespace vx
