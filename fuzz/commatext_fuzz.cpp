// Commatext: a text, then cells; and its agreement with the serial form, the list's property and the lines.
#include "core/uVxFunctionsSerialize.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/PlainForms.h"

namespace vx::fuzz {

FUZZ(Input) {
  const String text = Input.Text();
  TCells read = ReadCommatext(text);
  Check(read == PlainSerialize(text, u',', u'"'), "commatext is read by the rules");
  Check(ReadCommatext(WriteCommatext(read)) == SerialPromise(read, u',', u'"'), "cells that were read read back");

  const TCells cells = Input.Cells();
  String written = WriteCommatext(cells);
  Check(ReadCommatext(written) == SerialPromise(cells, u',', u'"'), "cells read back");
  Check(ToCommatext(cells) == written && WriteSerialize(cells, u',', u'"') == written, "one form, three names");
  TVxStringList list;
  list.AddStrings(cells);
  Check(list.GetCommatext() == written, "the list writes the same");
  list.SetCommatext(text);
  Check(WriteOffsettext(list.Items()) == WriteOffsettext(read), "the list reads the same");
  Check(CommatextToText(text) == list.GetTextStr(), "the cells as lines");
  list.SetTextStr(text);
  Check(TextToCommatext(text) == list.GetCommatext(), "the lines as cells");
}

}  // namespace vx::fuzz
