// Csv text: cells, also taken as one text.
#include "fuzz/support/Input.h"
#include "fuzz/support/PlainForms.h"

namespace vx::fuzz {
namespace {

TCells PlainCsv(std::u16string_view Units) {
  TCells cells;
  TPlainText text(Units);
  text.SkipBlanks();
  while (*text != 0) {
    size_t start = text.Pos;
    while (*text != 0 && *text != 27) ++text.Pos;
    if (text.Pos > start) cells.emplace_back(Units.substr(start, text.Pos - start));
    text.SkipBlanks();
  }
  return cells;
}

// The cells without their leading blanks, as far as something is left; cut at ESC, and ending at a code unit 0.
TCells Promise(const TCells& Cells) {
  TCells result;
  for (const String& cell : Cells) {
    String piece;
    for (int i = 0; i <= cell.size(); ++i) {
      char16_t unit = i < cell.size() ? cell[i] : u'\x1B';
      if (unit == 27 || unit == 0) {
        if (!piece.empty()) result.emplace_back(piece);
        if (unit == 0) return result;
        piece.clear();
      } else if (!piece.empty() || !IsBlank(unit)) {
        piece += unit;
      }
    }
  }
  return result;
}

}  // namespace

FUZZ(Input) {
  const TCells cells = Input.Cells();
  Check(ReadCsv(WriteCsv(cells)) == Promise(cells), "cells read back as the form promises");
  const String text = Joined(cells);
  const TCells read = ReadCsv(text);
  Check(read == PlainCsv(text), "csv text is read by the rules");
  Check(ReadCsv(WriteCsv(read)) == read, "cells that were read read back");
}

}  // namespace vx::fuzz
