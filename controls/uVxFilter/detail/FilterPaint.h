// The few drawings that the bar and its window share.
#pragma once

#include "platform/Graphics.h"
#include "platform/String.h"

namespace vx {
class TCanvas;
}

namespace vx::detail {

// A line of text in the middle of the height, two pixels from the left, cut at the sides of Rect.
void PaintText(TCanvas& Canvas, const TRect& Rect, const String& Text, TColor Color);
// A triangle that points down, in the middle.
void PaintArrow(TCanvas& Canvas, const TRect& Rect);
// 13 pixels wide and high, in the middle.
void PaintCheckBox(TCanvas& Canvas, const TRect& Rect, bool Checked);
// The button for several values: two check boxes, one behind the other.
void PaintMultiSelect(TCanvas& Canvas, const TRect& Rect, bool Down);

}  // namespace vx::detail
