// Strict XML: the first byte tells an encoding, the rest is a file. What is read is written in that encoding and read
// back as the same tree.
#include "fuzz/support/Input.h"
#include "services/Xml.h"

namespace vx::fuzz {
namespace {

// The tree; texts that stand side by side are one, and character data is a text.
std::u16string Dump(const TXmlDocument& Document) {
  std::u16string dump;
  bool isText = false;
  const auto add = [&](char16_t mark, std::u16string_view text) { (dump += mark) += text; };
  for (const TXmlNode* node = Document.GetTop().GetFirst(); node != nullptr;) {
    const bool isTextNode = node->GetKind() == xnText || node->GetKind() == xnCData;
    if (!isTextNode || !isText) add(u'\1', {});
    if (!isTextNode) add(static_cast<char16_t>(2 + node->GetKind()), node->GetName());
    dump += node->GetValue();
    isText = isTextNode;
    for (const TXmlAttr& attr : node->Attributes()) add(u'\x10', attr.GetName()), add(u'\x11', attr.GetValue());
    if (node->GetFirst() != nullptr) {
      node = node->GetFirst();
      continue;
    }
    for (; node != nullptr && node->GetNext() == nullptr; node = node->GetParent()) {
      if (node->GetParent() != &Document.GetTop()) isText = false, add(u'\x12', {});
    }
    if (node != nullptr) node = node->GetNext();
  }
  return dump;
}

}  // namespace

FUZZ(Input) {
  TXmlForm form;
  form.Encoding = static_cast<TXmlEncoding>(Input.Byte() % 7);
  const std::string bytes = Input.Bytes();
  TXmlLimits limits;
  limits.Depth = 100;
  limits.EntityUnits = 20000;
  TXmlDocument document;
  const TXmlFault fault = ReadXml(document, std::string_view(bytes), limits);
  Check(!fault == (document.GetRoot() != nullptr), "a document is read whole or not at all");
  if (fault) {
    const auto size = static_cast<int64_t>(bytes.size()) + 1;
    Check(fault.Line >= 1 && fault.Line <= size && fault.Column >= 1 && fault.Column <= size, "a fault has its place");
    Check(!fault.GetText().empty(), "a fault has a text");
    return;
  }
  const TXmlWritten written = WriteXml(document, form);
  if (written.Fault) {
    Check(written.Fault.Kind == xfUnencodable && form.Encoding >= xeAscii, "what was read can be written");
    return;
  }
  TXmlDocument back;
  Check(!ReadXml(back, std::string_view(written.Bytes), limits), "what was written can be read");
  Check(back.GetForm().Encoding == form.Encoding, "the encoding is told");
  Check(Dump(back) == Dump(document), "what was written is read back");
}

}  // namespace vx::fuzz
