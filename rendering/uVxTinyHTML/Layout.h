// A rich text laid out in lines, drawn and measured. See rendering/uVxTinyHTML.h.
#pragma once

#include <memory>
#include <string_view>

#include "platform/Graphics.h"
#include "platform/TCanvas.h"
#include "rendering/uVxTinyHTML/Chunks.h"

namespace vx {

// The lines of a text, which the list owns.
class TDecoLines : public TObjectList {
 public:
  String ClassName() const override { return u"TDecoLines"; }
  TDecoLine* Get(int Index) const { return static_cast<TDecoLine*>(TObjectList::Get(Index)); }
  // Whether a part of the text is missing, since the rectangle was full.
  bool Overflow = false;
};

// What ParseTinyHTML is told beside the text.
struct TLayoutOptions {
  TRect Rect;  // lines are wrapped at its width, unless that or its right side is 0 or less, and end at its height
  Extended Scale = 1.0;   // of sizes with a value
  int LineCount = 0;      // with SizeOnly: so many lines at most, whatever the height; below 1 as many as the text has
  bool SizeOnly = false;  // a line that is too high for the rectangle stays
};

// The lines of Text on Canvas, whose font is the text's at first and is put back in the end; its brush is clear then.
// Words are wrapped at the blanks in front of them, of which the first of a line is freed; a word that is too wide for
// a line is broken. The time grows with the length of the text. An empty text gives one line without chunks.
[[nodiscard]] std::unique_ptr<TDecoLines> ParseTinyHTML(std::u16string_view Text, TCanvas& Canvas,
                                                        const TLayoutOptions& Options);

// Draws Text into Rect; true if all of it fitted. Otherwise the last line is cut at the right and ends with "[..]" in
// the lower right corner; a rectangle too low for one line stays empty. Lines stand at the left, at the right
// (taRightJustify) or in the middle (taCenter). The canvas's font is what it was.
bool HTML2Canvas(std::u16string_view Text, TCanvas& Canvas, const TRect& Rect, TAlignment Alignment, Extended Scale);

// The room that Text takes, as a rectangle at (0, 0): wrapped at Width if Wrap, otherwise each line as long as it is.
// With a LineCount of 1 or more the room of exactly so many lines: what stands behind them is not measured, and each
// line that is missing counts the last font's size in points as its height.
TRect HTML2CanvasSize(std::u16string_view Text, TCanvas& Canvas, bool Wrap, int LineCount, int Width, Extended Scale);

}  // namespace vx
