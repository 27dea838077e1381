#include "services/Xml/XmlFiles.h"

#include <utility>

#include "platform/SafeFiles.h"
#include "services/Xml/detail/XmlTree.h"

namespace vx {

namespace detail {

// Puts a file in the place of what a document holds; what it held comes back if it is not kept.
class TXmlTreeBuilder {
 public:
  explicit TXmlTreeBuilder(TXmlDocument& Document)
      : FDocument(Document),
        FOther(std::make_unique<TXmlDocument::TMemory>()),
        FOtherTop(Document.FTop),
        FOtherForm(Document.FForm) {
    FOther.swap(Document.FMemory);
  }
  ~TXmlTreeBuilder() {
    if (FIsKept) return;
    FOther.swap(FDocument.FMemory);
    FDocument.FTop = FOtherTop;
    FDocument.FForm = FOtherForm;
  }
  TXmlTreeBuilder(const TXmlTreeBuilder&) = delete;
  TXmlTreeBuilder& operator=(const TXmlTreeBuilder&) = delete;

  TXmlFault Read(TXmlScanner& Scanner) {
    FDocument.FTop = FDocument.NewNode(xnDocument);
    TXmlNode* parent = FDocument.FTop;
    while (Scanner.Next()) {
      if (Scanner.Piece == xpEnd) {
        parent = parent->FParent;
        continue;
      }
      TXmlNode* node = parent->AddNode(KindOf(Scanner.Piece), Scanner.Name, Scanner.Text);
      node->FLine = static_cast<int>(Scanner.Line);
      if (Scanner.Piece != xpStart) continue;
      TXmlAttr** place = &node->FFirstAttr;
      for (const TXmlReadAttribute& attribute : Scanner.Attributes) {
        *place = FDocument.NewAttr(attribute.Name, attribute.Value);
        place = &(*place)->FNext;
      }
      parent = node;
    }
    FIsKept = !Scanner.Fault;
    if (FIsKept) {
      FDocument.FForm = Scanner.Form;
      FDocument.FMemory->Texts = Scanner.TakeTexts();
    }
    return Scanner.Fault;
  }

 private:
  static TXmlNodeKind KindOf(TXmlPiece Piece) noexcept {
    static constexpr TXmlNodeKind kKinds[] = {xnDocument, xnElement, xnElement,     xnText,
                                              xnCData,    xnComment, xnInstruction, xnDoctype};
    return kKinds[Piece];
  }

  TXmlDocument& FDocument;
  std::unique_ptr<TXmlDocument::TMemory> FOther;
  TXmlNode* FOtherTop;
  TXmlForm FOtherForm;
  bool FIsKept = false;
};

}  // namespace detail

namespace {

TXmlFault Read(TXmlDocument& Document, detail::TXmlInput Input, const TXmlLimits& Limits) {
  detail::TXmlScanner scanner(std::move(Input), Limits);
  return detail::TXmlTreeBuilder(Document).Read(scanner);
}

}  // namespace

TXmlFault LoadXml(TXmlDocument& Document, const String& Path, const TXmlLimits& Limits) {
  return Read(Document, detail::TXmlInput::FromFile(Path), Limits);
}

TXmlFault ReadXml(TXmlDocument& Document, std::string_view Bytes, const TXmlLimits& Limits) {
  return Read(Document, detail::TXmlInput::FromBytes(Bytes), Limits);
}

TXmlFault ReadXml(TXmlDocument& Document, std::u16string_view Text, const TXmlLimits& Limits) {
  return Read(Document, detail::TXmlInput::FromText(Text), Limits);
}

TXmlWritten WriteXml(const TXmlDocument& Document) { return WriteXml(Document, Document.GetForm()); }

TXmlFault SaveXml(const TXmlDocument& Document, const String& Path, const TXmlForm& Form) {
  TXmlWritten written = WriteXml(Document, Form);
  if (!written.Fault) ReplaceFileContent(Path, written.Bytes);
  return written.Fault;
}

TXmlFault SaveXml(const TXmlDocument& Document, const String& Path) {
  return SaveXml(Document, Path, Document.GetForm());
}

}  // namespace vx
