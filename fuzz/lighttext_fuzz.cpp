// Lighttext: a text, then cells.
#include "fuzz/support/Input.h"
#include "fuzz/support/PlainForms.h"

namespace vx::fuzz {

FUZZ(Input) {
  const String text = Input.Text();
  TCells read = ReadLighttext(text);
  Check(read == PlainLighttext(text), "lighttext is read by the rules");
  Check(ReadLighttext(WriteLighttext(read)) == LighttextPromise(read), "cells that were read read back");
  const TCells cells = Input.Cells();
  Check(ReadLighttext(WriteLighttext(cells)) == LighttextPromise(cells), "cells read back");
}

}  // namespace vx::fuzz
