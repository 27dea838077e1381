// What the library asks of the program that it is part of.
//
//   IsTerminating, SetTerminating   the program is about to end, so that nobody reads a dialog any more
#pragma once

namespace vx {

// False until set. Any thread may ask and set.
bool IsTerminating() noexcept;
void SetTerminating(bool Value) noexcept;

}  // namespace vx
