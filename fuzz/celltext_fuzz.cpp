// Celltext: cells, also taken as one text.
#include "fuzz/support/Input.h"

namespace vx::fuzz {
namespace {

// The pieces of all cells between line feeds.
TCells Pieces(const TCells& Cells) {
  TCells result;
  for (const String& cell : Cells) {
    String piece;
    for (char16_t unit : cell) {
      if (unit != u'\n') {
        piece += unit;
        continue;
      }
      result.emplace_back(piece);
      piece.clear();
    }
    result.emplace_back(piece);
  }
  return result;
}

}  // namespace

FUZZ(Input) {
  const TCells cells = Input.Cells();
  const TCells back = ReadCellText(WriteCellText(cells));
  if (cells.empty() || (cells.size() == 1 && cells[0].empty())) {
    Check(back.empty(), "an empty text has no cells");
  } else {
    Check(back == Pieces(cells), "cells read back, cut at their line feeds");
  }
  const String text = Joined(cells);
  Check(WriteCellText(ReadCellText(text)) == text, "a text that was read is written as it was");
  Check(CommatextToCelltext(text) == WriteCellText(ReadCommatext(text)), "the celltext of a commatext");
}

}  // namespace vx::fuzz
