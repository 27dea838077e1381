// The pieces of an XML file one after the other. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "services/Xml/TXmlFault.h"
#include "services/Xml/TXmlForm.h"

namespace vx {

namespace detail {
class TXmlScanner;
}

enum TXmlPiece : uint8_t {
  xpNone,         // before the first piece and behind the last
  xpStart,        // a start tag, or <a/>: Name, Attributes
  xpEnd,          // its end, that of <a/> too: Name
  xpText,         // Text, with references resolved
  xpCData,        // Text
  xpComment,      // Text
  xpInstruction,  // Name, Text
  xpDoctype       // Name of the root; Text: what stands behind it, up to the ">"
};

// Value: as it is meant, references resolved.
struct TXmlReadAttribute {
  std::u16string_view Name, Value;
};

// Holds the file as one text. Views stay until the next call of Next.
//
// Example:
//   vx::TXmlReader reader = vx::TXmlReader::OverText(u"<Plan><Dienst von='6:00'/></Plan>");
//   while (reader.Next()) {
//     if (reader.GetPiece() == vx::xpStart && reader.GetName() == u"Dienst") begin = reader.GetAttribute(u"von");
//   }
//   if (reader.GetFault()) show(reader.GetFault().GetText());
class TXmlReader {
 public:
  // Bytes of a file, or a text, whose declaration may name any encoding; both are needed no longer afterwards.
  static TXmlReader OverBytes(std::string_view Bytes, const TXmlLimits& Limits = {});
  static TXmlReader OverText(std::u16string_view Text, const TXmlLimits& Limits = {});
  // Raises EFOpenError, EReadError.
  explicit TXmlReader(const String& Path, const TXmlLimits& Limits = {});
  ~TXmlReader();
  TXmlReader(TXmlReader&& Other) noexcept;
  TXmlReader& operator=(TXmlReader&& Other) noexcept;

  // Goes to the next piece; false behind the last one and at a fault.
  [[nodiscard]] bool Next();
  // Goes on to the end of the element whose start is the present piece; false at a fault.
  [[nodiscard]] bool Skip();

  TXmlPiece GetPiece() const noexcept;
  std::u16string_view GetName() const noexcept;
  std::u16string_view GetText() const noexcept;
  std::span<const TXmlReadAttribute> GetAttributes() const noexcept;
  // Empty if there is none.
  std::u16string_view GetAttribute(std::u16string_view Name) const noexcept;
  // Whether the present start stands as <a/>.
  bool IsEmptyTag() const noexcept;
  // How many elements are open around the present piece; a start and its end have the same.
  int GetDepth() const noexcept;
  // Where the present piece begins, counted from 1.
  int64_t GetLine() const noexcept;
  int64_t GetColumn() const noexcept;

  const TXmlFault& GetFault() const noexcept;
  // As it was found out, once Next was called: encoding, mark and declaration.
  const TXmlForm& GetForm() const noexcept;

 private:
  explicit TXmlReader(std::unique_ptr<detail::TXmlScanner> Scanner) noexcept;
  std::unique_ptr<detail::TXmlScanner> FScanner;
};

}  // namespace vx
