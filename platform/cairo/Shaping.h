// Texts that Pango shapes. Of use to this component only.
//
// Each thread keeps 256 texts of at most 256 code units, and 8 parts, of at most 4096 units, of longer ones; a text
// takes the place of another one.
#pragma once

#include <pango/pangocairo.h>

#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"
#include "platform/cairo/Face.h"

namespace vx::drawing {

// Lets go of what this thread keeps.
void FreeShapedTexts() noexcept;

// The width of Text in Face by shaping, in whole pixels, at most 2^27.
int ShapedWidth(const TFace& Face, std::u16string_view Text);

// The text as it is drawn: with blanks for code units below 32.
String WithoutControls(std::u16string_view Text);

// Calls Show with each line of the shaped text and the place where it begins, from 0 on. A line serves this
// thread only, and only for the length of the call. Long texts come in several lines side by side.
void ForEachShapedLine(const TFace& Face, std::u16string_view Text, FunctionRef<void(PangoLayoutLine*, int)> Show);

}  // namespace vx::drawing
