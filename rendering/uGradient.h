// Gradients, and colours between colours.
//
//   PaintGradient         a rectangle from one colour to another
//   AverageGradient       the colour in the middle
//   ColorAdjustLuma       a colour lighter or darker
//   SetGradientsEnabled   the switch of all gradients
//
// Example:
//   vx::PaintGradient(canvas, rect, 0x00FAF8F7, 1, 0x00F4F2F1);   // the lower half of a column's head
//   vx::TColor light = vx::ColorAdjustLuma(0x00808080, 30);       // by 3 per cent lighter
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include "platform/Graphics.h"

namespace vx {

class TCanvas;

// Fills Rect from ColorFrom to ColorTo: downwards with a Flag of 1, with any other from left to right. While the
// switch of gradients is off, with the colour AverageGradient of both. Brush and pen of the canvas stay.
void PaintGradient(TCanvas& Canvas, const TRect& Rect, TColor ColorFrom, int Flag, TColor ColorTo);

// Of each channel the mean, rounded down; system colours count as what they stand for, the high byte is 0.
TColor AverageGradient(TColor A, TColor B) noexcept;

// On until switched off, for the whole program.
bool GetGradientsEnabled() noexcept;
void SetGradientsEnabled(bool Value) noexcept;

// Amount thousandths of the whole range are added to the lightness, which is the mean of the highest and the lowest
// channel and is held to its range; hue and saturation stay. System colours count as what they stand for; the high byte
// is 0.
TColor ColorAdjustLuma(TColor Color, int Amount) noexcept;

}  // namespace vx
