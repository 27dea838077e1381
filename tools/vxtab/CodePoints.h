// Characters of texts.
#pragma once

#include <string>
#include <string_view>

#include "platform/String.h"

namespace vx::vxtab {

// The code point at Pos, which is moved behind it; a lone surrogate comes as itself.
char32_t NextCodePoint(std::u16string_view Text, size_t& Pos) noexcept;
void AppendUtf8(std::string& Target, char32_t CodePoint);

}  // namespace vx::vxtab
