// How XML is written, and how much is read. The unit's header tells the rules.
#pragma once

#include <cstdint>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TXmlEncoding : uint8_t {
  xeUtf8,
  xeUtf16,           // the low byte first
  xeUtf16BigEndian,  // the high byte first
  xeAscii,
  xeIso8859_1,
  xeIso8859_15,
  xeWindows1252
};

// u"UTF-8", u"UTF-16", u"US-ASCII", u"ISO-8859-1", u"ISO-8859-15", u"windows-1252".
String XmlEncodingName(TXmlEncoding Encoding);

enum TXmlStandalone : uint8_t { xsNotTold, xsYes, xsNo };

struct TXmlForm {
  TXmlEncoding Encoding = xeUtf8;
  // A byte order mark. UTF-16 always has one.
  bool HasMark = false;
  // Whether the file begins with <?xml ...?>; it does in any case where the encoding is neither UTF-8 nor UTF-16.
  bool HasDeclaration = true;
  TXmlStandalone Standalone = xsNotTold;  // of the declaration
  // Blanks a level, with each element, comment and instruction on a line of its own; 0 adds none, and what was read is
  // written as it stood. An element with a text in it, and all that is in such a one, is written as it stands.
  int Indent = 0;
};

enum TXmlReadOption : uint8_t {
  xroDropBlanks  // no texts of nothing but blanks and line breaks, unless they stand in character data
};
using TXmlReadOptions = Set<TXmlReadOption>;

struct TXmlLimits {
  int Depth = 1000;               // of elements in elements
  int64_t EntityUnits = 2000000;  // code units that references to declared entities may expand to in all, and one each
  TXmlReadOptions Options;
};

}  // namespace vx
