#include "services/Xml/TXmlReader.h"

#include <utility>

#include "platform/Files.h"
#include "services/Xml/detail/XmlScanner.h"

namespace vx {

using detail::TXmlInput;
using detail::TXmlScanner;

TXmlReader::TXmlReader(std::unique_ptr<TXmlScanner> Scanner) noexcept : FScanner(std::move(Scanner)) {}
TXmlReader::TXmlReader(const String& Path, const TXmlLimits& Limits)
    : FScanner(std::make_unique<TXmlScanner>(TXmlInput::FromFile(Path), Limits)) {}
TXmlReader TXmlReader::OverBytes(std::string_view Bytes, const TXmlLimits& Limits) {
  return TXmlReader(std::make_unique<TXmlScanner>(TXmlInput::FromBytes(Bytes), Limits));
}
TXmlReader TXmlReader::OverText(std::u16string_view Text, const TXmlLimits& Limits) {
  return TXmlReader(std::make_unique<TXmlScanner>(TXmlInput::FromText(Text), Limits));
}
TXmlReader::~TXmlReader() = default;
TXmlReader::TXmlReader(TXmlReader&& Other) noexcept = default;
TXmlReader& TXmlReader::operator=(TXmlReader&& Other) noexcept = default;

bool TXmlReader::Next() { return FScanner->Next(); }
bool TXmlReader::Skip() { return FScanner->Skip(); }
TXmlPiece TXmlReader::GetPiece() const noexcept { return FScanner->Piece; }
std::u16string_view TXmlReader::GetName() const noexcept { return FScanner->Name; }
std::u16string_view TXmlReader::GetText() const noexcept { return FScanner->Text; }
std::span<const TXmlReadAttribute> TXmlReader::GetAttributes() const noexcept {
  if (GetPiece() != xpStart) return {};
  return FScanner->Attributes;
}
std::u16string_view TXmlReader::GetAttribute(std::u16string_view Name) const noexcept {
  for (const TXmlReadAttribute& attribute : GetAttributes()) {
    if (attribute.Name == Name) return attribute.Value;
  }
  return {};
}
bool TXmlReader::IsEmptyTag() const noexcept { return GetPiece() == xpStart && FScanner->IsEmptyTag; }
int TXmlReader::GetDepth() const noexcept { return FScanner->Depth; }
int64_t TXmlReader::GetLine() const noexcept { return FScanner->Line; }
int64_t TXmlReader::GetColumn() const noexcept { return FScanner->Column; }
const TXmlFault& TXmlReader::GetFault() const noexcept { return FScanner->Fault; }
const TXmlForm& TXmlReader::GetForm() const noexcept { return FScanner->Form; }

}  // namespace vx
