// How large all cells of a table ask to be, without measuring each. Internal to uDecoration.
#pragma once

#include <vector>

#include "rendering/uDecoration/TCellSource.h"
#include "rendering/uDecoration/TDecorator.h"

namespace vx::detail {

// What a column asks of its width, or a row of its height; in pixels.
struct TNeed {
  int Size = 0;       // the largest of all cells, as TDecorator::Calculate has it
  int FixedSize = 0;  // the largest of those that belong to the fixed border of the other direction
  bool HasText = false;
  bool HasContent = false;  // a text, or a picture, in a cell of the content
};

struct TNeeds {
  std::vector<TNeed> Cols, Rows;
};

// The cells are those of the list's table: its counts have to be theirs. With IsPlain the decorator's Calculate is that
// of the base. Then a cell costs a look at its text, mostly: all that have the same decorations differ by the width of
// their texts alone, so that only the widest of them has to be calculated, and a text is measured only if by the
// advances of its letters it could be that one.
TNeeds MeasureTable(TDecorator& Decorator, TCanvas& Canvas, TDecorationList& List, TCellSource& Cells, bool IsPlain);

}  // namespace vx::detail
