// Intellitext: a text, then cells; a first byte makes them long.
#include <algorithm>

#include "fuzz/support/Input.h"
#include "fuzz/support/PlainForms.h"

namespace vx::fuzz {
namespace {

bool IsReadAsOffsettext(std::u16string_view Text) {
  if (Text.size() < 3 || Text[0] == 176) return false;
  for (size_t i = 1; i < std::min<size_t>(9, Text.size()); ++i) {
    if (Text[i] == 176) return Text[i - 1] != u'|';
  }
  return false;
}

TCells PlainIntellitext(std::u16string_view Text) {
  return IsReadAsOffsettext(Text) ? PlainOffsettext(Text, 0, INT32_MAX - 1) : PlainLighttext(Text);
}

void CheckBack(const TCells& Cells) {
  String written = WriteIntellitext(Cells);
  Check(ReadIntellitext(written) == PlainIntellitext(written), "what was written is read by the rules");
  const bool isOffsettext = written == WriteOffsettext(Cells);
  Check(isOffsettext || written == WriteLighttext(Cells), "one of both forms is written");
  bool hasZero = std::any_of(Cells.begin(), Cells.end(),
                             [](const String& cell) { return cell.view().find(u'\0') != std::u16string_view::npos; });
  Check(hasZero || ReadIntellitext(written) == Cells, "cells without a code unit 0 read back");
  Check(!isOffsettext || ReadIntellitext(written) == Cells, "offsettext reads back");
}

}  // namespace

FUZZ(Input) {
  const int longer = Input.Byte();
  const String text = Input.Text();
  TCells read = ReadIntellitext(text);
  Check(read == PlainIntellitext(text), "intellitext is read by the rules");
  CheckBack(read);
  TCells cells = Input.Cells();
  CheckBack(cells);
  for (String& cell : cells) cell += String(longer, u'x');
  CheckBack(cells);
}

}  // namespace vx::fuzz
