// Texts and rows as JSON.
#pragma once

#include <span>
#include <string>

#include "platform/String.h"

namespace vx::vxtab {

// The code point at Pos, which is moved behind it; a lone surrogate comes as itself.
char32_t NextCodePoint(std::u16string_view Text, size_t& Pos) noexcept;
void AppendUtf8(std::string& Target, char32_t CodePoint);

// Appends a JSON string in UTF-8. Control characters are escaped, and lone surrogates as \uXXXX.
void AppendJson(std::string& Target, std::u16string_view Text);

}  // namespace vx::vxtab
