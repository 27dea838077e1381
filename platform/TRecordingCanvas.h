// A canvas that draws nothing and writes down what it was told, the same on every machine.
//
//   TRecordingCanvas     the canvas and what was drawn on it, one line an operation
//   TRecordingSurface    what it passes for
//
// Example:
//   vx::TRecordingCanvas canvas;
//   canvas.FillRect({0, 0, 90, 16});
//   canvas.SetBrush({vx::clWhite, vx::bsClear});
//   canvas.TextRect({0, 0, 90, 16}, 2, 1, u"Müller");
//   canvas.GetText();
//   // fill 0,0 90x16 clWhite
//   // text 2,1 37x14 "Müller" clWindowText Tahoma 8 in 0,0 90x16
//
// The lines, each with its line break; a place is "X,Y", a rectangle "Left,Top WidthxHeight", a pen its
// colour, its width unless that is 1, and "dash" or "dot":
//   fill <rectangle> <colour>
//   frame <rectangle> <pen>
//   line <place> to <place> <pen>
//   ellipse <rectangle> [fill <colour>] [pen <pen>]
//   gradient <rectangle> <colour> to <colour> right|down [bell] [ellipse]
//   picture <rectangle> [of <rectangle>] [without <colour>]        "of" where it is not the bitmap in its size
//   text <rectangle> "<text>" <colour> <name> <points> [bold] [italic] [underline] [strikeout] [upward]
// and behind any of them "in <rectangle>" under a clip and "scale <number>" under a scale. In texts a
// quotation mark and a backslash have a backslash before them, code units below 32 are written "\x0A".
//
// Metrics, E being the pixels of the font's em square (11 for 8 points at 96 pixels per inch):
//   ascent E, descent E / 4 rounded, so that Tahoma 8 is 14 high; overhang 1 for bold or italic, else 0
//   width of a code unit: E / 3 rounded for blanks and !'(),-./:;I[]`fijlrt|, E for MWmw, nothing for marks
//   from U+0300 to U+036F and the second half of a pair, E * 3 / 5 rounded for all others; bold 1 more
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include "platform/TCanvas.h"

namespace vx {

struct TRecordingSurface {
  TRect Bounds{0, 0, 10000, 10000};
  TPoint PixelsPerInch{96, 96};
  TDeviceKind Kind = dkScreen;
};

class TRecordingCanvas : public TCanvas {
 public:
  explicit TRecordingCanvas(const TRecordingSurface& Surface = {});
  // The lines of all that was drawn since the last Clear; what an empty clip hides is not among them.
  const String& GetText() const noexcept;
  void Clear() noexcept;
};

}  // namespace vx
