// Short words for what tests do with a canvas.
#pragma once

#include "platform/TCanvas.h"

namespace vx::test {

constexpr TRect Box(int Left, int Top, int Right, int Bottom) { return {Left, Top, Right, Bottom}; }
inline void Pen(TCanvas& Canvas, TColor Color, int Width = 1, TPenStyle Style = psSolid) {
  Canvas.SetPen({Color, Width, Style});
}
inline void Brush(TCanvas& Canvas, TColor Color, TBrushStyle Style = bsSolid) { Canvas.SetBrush({Color, Style}); }

}  // namespace vx::test
