// Offsettext: a first and a last index, a text, then cells.
#include <algorithm>

#include "fuzz/support/Input.h"
#include "fuzz/support/PlainForms.h"

namespace vx::fuzz {

FUZZ(Input) {
  const int first = static_cast<int8_t>(Input.Byte()), last = static_cast<int8_t>(Input.Byte());
  const String text = Input.Text();
  TCells read = ReadOffsettext(text);
  Check(read == PlainOffsettext(text, 0, INT32_MAX - 1), "offsettext is read by the rules");
  Check(ReadOffsettext(WriteOffsettext(read)) == read, "cells that were read read back");
  Check(ReadOffsettext(text, first, last) == PlainOffsettext(text, first, last), "a range is read by the rules");

  const TCells cells = Input.Cells();
  String written = WriteOffsettext(cells);
  Check(ReadOffsettext(written) == cells, "cells of any content read back");
  const int count = static_cast<int>(cells.size());
  const int begin = std::clamp(first, 0, count), end = std::clamp(last + 1, begin, count);
  TCells part = ReadOffsettext(written, first, last);
  Check(part == TCells(cells.begin() + begin, cells.begin() + end), "a range gives its cells");
}

}  // namespace vx::fuzz
