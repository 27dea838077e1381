// Where a table file goes wrong. The unit's header tells the rules.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/String.h"

namespace vx {

enum TCsvFaultKind : uint8_t {
  cfOpenQuote,        // a quote is never closed: the cell reaches to the end of the file
  cfTextBehindQuote,  // text between a closing quote and the separator: it is a part of the cell
  cfInvalidBytes      // bytes that are no character: U+FFFD stands for them; told once a cell
};

struct TCsvFault {
  TCsvFaultKind Kind;
  int Col, Row;  // the cell, counted from 0; rows without cells count
  // Where it stands in the file as an editor shows it, counted from 1: the quote, the text, the bytes. A tab is one
  // character, and so is one beyond the 16-bit range.
  int64_t Line, Column;

  // For users, in German: u"Zeile 3, Spalte 7: Das Anführungszeichen wird nicht geschlossen."
  String ToText() const;
  friend bool operator==(const TCsvFault&, const TCsvFault&) = default;
};

// In the order of the rows.
struct TCsvFaults {
  static constexpr size_t kMostKept = 100;
  int64_t Count = 0;             // of all
  std::vector<TCsvFault> First;  // kMostKept at most
};

}  // namespace vx
