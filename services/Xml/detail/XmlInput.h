// The bytes of an XML file as code units. Internal to Xml.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "services/Xml/TXmlFault.h"
#include "services/Xml/TXmlForm.h"

namespace vx::detail {

struct TXmlInput {
  // Bytes of a file: its mark, and without one its first bytes and its declaration, tell the encoding.
  static TXmlInput FromBytes(std::string_view Bytes);
  // Raises EFOpenError, EReadError.
  static TXmlInput FromFile(const String& Path);
  static TXmlInput FromText(std::u16string_view Text);

  // All characters are those that XML allows, every line end is a line feed, and behind the last one units 0 stand.
  std::unique_ptr<char16_t[]> Units;
  size_t Size = 0;
  bool HasPairs = false;  // whether there are surrogates
  bool IsText = false;    // it was no file, and its declaration may name any encoding
  TXmlForm Form;          // encoding and mark
  // Why the units end before the input does; EndDetail as TXmlFault::Detail.
  TXmlFaultKind EndKind = xfNone;
  String EndDetail;
};

// u"U+0001", u"U+01F600".
String XmlNumberOf(char32_t Character);
// Whether that name is known, in any case.
bool FindXmlEncoding(std::u16string_view Name, TXmlEncoding& Encoding);
// The code page of an encoding of one byte a character, its number; 0 for ASCII and for others.
int CodePageOfXml(TXmlEncoding Encoding) noexcept;

}  // namespace vx::detail
