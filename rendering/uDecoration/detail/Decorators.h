// The decorators that all share. Internal to uDecoration.
#pragma once

namespace vx::detail {

// Their next use makes them again.
void FreeDecorators() noexcept;

}  // namespace vx::detail
