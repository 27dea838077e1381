// Keys of a keyboard, and what is held down with them.
//
//   TShift, TShiftState    Shift, Alt, Ctrl, and the buttons of a mouse; ssDouble: the second click of two
//   vkUp, vkDelete...      the numbers of keys that give no character
//   chBack, chTab...       the characters of keys that give no letter
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>

#include "platform/Types.h"

namespace vx {

enum TShift : uint8_t { ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble };
using TShiftState = Set<TShift>;

inline constexpr uint16_t vkBack = 8;
inline constexpr uint16_t vkTab = 9;
inline constexpr uint16_t vkReturn = 13;
inline constexpr uint16_t vkEscape = 27;
inline constexpr uint16_t vkSpace = 32;
inline constexpr uint16_t vkPrior = 33;  // a page up
inline constexpr uint16_t vkNext = 34;   // a page down
inline constexpr uint16_t vkEnd = 35;
inline constexpr uint16_t vkHome = 36;
inline constexpr uint16_t vkLeft = 37;
inline constexpr uint16_t vkUp = 38;
inline constexpr uint16_t vkRight = 39;
inline constexpr uint16_t vkDown = 40;
inline constexpr uint16_t vkDelete = 46;
inline constexpr uint16_t vkA = 65;
inline constexpr uint16_t vkF2 = 113;
inline constexpr uint16_t vkF3 = 114;

inline constexpr char16_t chSelectAll = 1;  // Ctrl+A
inline constexpr char16_t chCopy = 3;       // Ctrl+C
inline constexpr char16_t chBack = 8;
inline constexpr char16_t chTab = 9;
inline constexpr char16_t chReturn = 13;
inline constexpr char16_t chPaste = 22;  // Ctrl+V
inline constexpr char16_t chEscape = 27;

}  // namespace vx
