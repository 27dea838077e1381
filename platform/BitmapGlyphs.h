// The pictures that are built in, drawn by their letters.
#pragma once

#include <string_view>

#include "platform/TBitmap.h"

namespace vx::glyphs {

// Glyph becomes the picture of that name in capitals; false, with Glyph unchanged, for a name that is not built in.
bool Draw(std::u16string_view Name, TBitmap& Glyph);

}  // namespace vx::glyphs
