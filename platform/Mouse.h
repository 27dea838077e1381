// The words of mouse events.
//
//   TMouseButton             which button
//   TShift, TShiftState      what was held down meanwhile; ssDouble: the second click of two
#pragma once

#include <cstdint>

#include "platform/Types.h"

namespace vx {

enum TMouseButton : uint8_t { mbLeft, mbRight, mbMiddle };
// What was held down while a mouse event came.
enum TShift : uint8_t { ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble };
using TShiftState = Set<TShift>;

}  // namespace vx
