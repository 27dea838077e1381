// Numbers that are shown as a whole number and a fraction.
#pragma once

#include <string_view>

#include "platform/Types.h"

namespace vx::detail {

// The decimals, cut behind the second one, are those of the fifths, quarters, thirds or the half. Negative numbers
// never are such, that is wanted.
bool IsFraction(Extended Value) noexcept;
// A number from its first character to its last one that is such.
bool ReadFraction(std::u16string_view Text, Extended& Value) noexcept;

}  // namespace vx::detail
