// The serial form with a delimiter and a quote from the input; then a text, then cells.
#include "fuzz/support/Input.h"
#include "fuzz/support/PlainForms.h"

namespace vx::fuzz {

FUZZ(Input) {
  const char16_t delimiter = Input.Unit(), quote = Input.Unit();
  const String text = Input.Text();
  TCells read = ReadSerialize(text, delimiter, quote);
  Check(read == PlainSerialize(text, delimiter, quote), "the serial form is read by the rules");
  const TCells cells = Input.Cells();
  String written = WriteSerialize(cells, delimiter, quote);
  Check(ReadSerialize(written, delimiter, quote) == PlainSerialize(written, delimiter, quote),
        "what was written is read by the rules");
  if (quote <= 32 || quote > 255 || delimiter == 0 || delimiter > 255 || delimiter == quote) return;
  Check(ReadSerialize(written, delimiter, quote) == SerialPromise(cells, delimiter, quote), "cells read back");
  Check(
      ReadSerialize(WriteSerialize(read, delimiter, quote), delimiter, quote) == SerialPromise(read, delimiter, quote),
      "cells that were read read back");
}

}  // namespace vx::fuzz
