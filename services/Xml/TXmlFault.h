// What is wrong with an XML file, or with a tree that is to become one. The unit's header tells the rules.
#pragma once

#include <cstdint>

#include "platform/String.h"

namespace vx {

enum TXmlFaultKind : uint8_t {
  xfNone,
  xfTooLarge,            // 2^31 code units or more
  xfEncoding,            // an encoding that is not known; Detail is its name
  xfEncodingMismatch,    // the bytes are not in the encoding that the file names, Detail
  xfBytes,               // bytes that are no character of the encoding
  xfCharacter,           // a character that XML does not allow; Detail is its number, u"U+0001"
  xfEnd,                 // the file ends where Detail has to follow
  xfExpected,            // something else stands where Detail has to
  xfName,                // no name where one has to stand; written: Detail is none
  xfOutside,             // something that is no comment in front of the root or behind it
  xfNoElement,           // there is no element
  xfEndTag,              // an end tag other than </Detail>
  xfDuplicateAttribute,  // of the name Detail
  xfLess,                // "<" in the value of an attribute
  xfBrackets,            // "]]>" in a text
  xfDashes,              // "--" in a comment
  xfInstruction,         // an instruction named "xml" that is no declaration, or "?>" in one that is written
  xfReference,           // "&" without a name or a number that may stand there
  xfUnknownEntity,       // Detail is not declared
  xfExternalEntity,      // Detail stands outside of the file
  xfEntityMarkup,        // Detail holds "<"
  xfEntityLoop,          // Detail holds itself
  xfParameterEntity,     // a reference to the parameter entity Detail
  xfLimit,               // entities expand beyond TXmlLimits::EntityUnits
  xfDepth,               // elements lie deeper than TXmlLimits::Depth
  xfUnencodable          // written: a name or an instruction, Detail, that the encoding cannot hold
};

struct TXmlFault {
  TXmlFaultKind Kind = xfNone;
  // Counted from 1, as an editor shows them: a tab is one character, and so is one beyond the 16-bit range. 0 for a
  // tree that is to be written.
  int64_t Line = 0, Column = 0;
  String Detail;

  // Whether there is one.
  explicit operator bool() const noexcept { return Kind != xfNone; }
  // For users, in German: u"Zeile 3, Spalte 7: Hier muss </Name> stehen."; empty for none.
  String GetText() const;
  friend bool operator==(const TXmlFault&, const TXmlFault&) = default;
};

}  // namespace vx
