// Why a text is no such value, and where.
//
//   TTextFault   what is wrong and at which position
//
// Example:
//   vx::THourAmount hours;
//   vx::TTextFault fault;
//   vx::TryStrToHourAmount(u"7:65", hours, fault);   // false
//   fault.Position;                                  // 3
//   fault.GetText();                                 // u"Minuten über 59 an Position 3"
//
// The strict readers tell it: HourAmount.h, DecimalFactor.h, MoneyText.h, StrictDates.h, StrictNumbers.h. Pitfall:
// positions count from 1 in the text as it was given, blanks in front included.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>

#include "platform/String.h"

namespace vx {

enum TTextFaultKind : uint8_t {
  tfNone,        // the text was read
  tfEmpty,       // nothing but blanks
  tfUnexpected,  // a character that has no business there
  tfIncomplete,  // the text ends where something has to follow
  tfMinutes,     // minutes above 59
  tfGroup,       // a separator of thousands that does not stand between groups of three digits
  tfDecimals,    // more digits behind the separator than the value has
  tfTooLarge,    // outside the range of the value; at its first digit
  tfDay,         // a day that its month does not have; at its first digit, as those below
  tfMonth,       // a month outside 1 to 12
  tfYear,        // a year that does not stand in four digits, or is 0
  tfHour,        // an hour that the day does not have
  tfSecond       // seconds above 59
};

struct TTextFault {
  TTextFaultKind Kind = tfNone;
  // Of the character at fault; one behind the last if the text is incomplete. 0 for no fault and an empty text.
  int Position = 0;

  // For users: u"unerwartetes Zeichen an Position 4"; empty if there is no fault.
  String GetText() const;
  friend constexpr bool operator==(const TTextFault& A, const TTextFault& B) noexcept = default;
};

}  // namespace vx
