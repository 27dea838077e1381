// The words of mouse events.
//
//   TMouseButton             which button; what was held down with it: TShiftState of Keys.h
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>

#include "platform/Keys.h"

namespace vx {

enum TMouseButton : uint8_t { mbLeft, mbRight, mbMiddle };

}  // namespace vx
