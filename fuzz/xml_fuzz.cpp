// XML: an indent, then a text that is read, written and read again.
#include "fuzz/support/Input.h"
#include "fuzz/support/PlainXml.h"

namespace vx::fuzz {

FUZZ(Input) {
  const int indent = static_cast<int8_t>(Input.Byte()) % 16;
  const String text = Input.Text();
  Check(XMLDecode(text).size() <= text.size() && StripHTMLTags(text).size() <= text.size(), "decoding adds nothing");
  TXmlObject object, model;
  const size_t rest = object.Read(text).size();
  Check(PlainRead(text, model) + rest == static_cast<size_t>(text.size()), "reading ends by the rules");
  Check(Dump(object) == Dump(model), "XML is read by the rules");

  object.SetIsRoot((text.size() & 1) != 0);
  const String written = object.GetXmlCommatext(indent);
  Check(written == PlainWrite(object, std::max(indent, 0)), "XML is written by the rules");
  TVxStringList lines, read;
  object.GetXmlText(indent, lines);
  Check(lines.GetCommatext() == written, "the lines are those of the commatext");
  read.SetCommatext(written);
  Check(lines.Equals(read), "the commatext reads back");
  TXmlObject again;
  again.Read(lines.GetTextStr());
  Check(written.empty() == again.GetName().empty() || object.GetName().empty(), "what is written has an element");
}

}  // namespace vx::fuzz
