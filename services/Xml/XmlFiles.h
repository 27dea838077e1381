// XML files into trees and back. The unit's header tells the rules.
#pragma once

#include <string>
#include <string_view>

#include "services/Xml/TXmlDocument.h"
#include "services/Xml/TXmlFault.h"
#include "services/Xml/TXmlForm.h"

namespace vx {

// The file in the place of what Document holds. A fault leaves Document as it was. Raises EFOpenError, EReadError.
[[nodiscard]] TXmlFault LoadXml(TXmlDocument& Document, const String& Path, const TXmlLimits& Limits = {});
// The same for the bytes of a file, and for a text, whose declaration may name any encoding.
[[nodiscard]] TXmlFault ReadXml(TXmlDocument& Document, std::string_view Bytes, const TXmlLimits& Limits = {});
[[nodiscard]] TXmlFault ReadXml(TXmlDocument& Document, std::u16string_view Text, const TXmlLimits& Limits = {});

struct TXmlWritten {
  std::string Bytes;  // empty at a fault
  TXmlFault Fault;
};

// What is written is read back as the same tree, but for texts that stand side by side, which become one. Characters
// that the encoding cannot hold go out as numbers, &#8364;. Refused are a document without a root or with two, names
// that are none, an attribute twice, "--" in comments, "?>" in instructions, characters that XML does not know at all,
// and in names and instructions those that the encoding does not.
[[nodiscard]] TXmlWritten WriteXml(const TXmlDocument& Document, const TXmlForm& Form);
// In the form in which it was read.
[[nodiscard]] TXmlWritten WriteXml(const TXmlDocument& Document);
// Into a file, which others see whole, the old or the new one. At a fault nothing is written. Raises EFCreateError,
// EWriteError.
[[nodiscard]] TXmlFault SaveXml(const TXmlDocument& Document, const String& Path, const TXmlForm& Form);
[[nodiscard]] TXmlFault SaveXml(const TXmlDocument& Document, const String& Path);

}  // namespace vx
