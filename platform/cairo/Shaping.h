// Texts that Pango shapes, each kept for the next time. Of use to this component only.
#pragma once

#include <pango/pangocairo.h>

#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"
#include "platform/cairo/Face.h"

namespace vx::drawing {

// The width of Text in Face by shaping, in whole pixels, at most 2^27.
int ShapedWidth(const TFace& Face, std::u16string_view Text);

// The text as it is drawn: with blanks for code units below 32.
String WithoutControls(std::u16string_view Text);

// Calls Show with each line of the shaped text and the place where it begins, from 0 on. A line serves this
// thread only, and only for the length of the call. Long texts come in several lines side by side.
void ForEachShapedLine(const TFace& Face, std::u16string_view Text, FunctionRef<void(PangoLayoutLine*, int)> Show);

}  // namespace vx::drawing
