// The modes of a masked editor, and all that its rules for texts depend on.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>

#include "platform/Exceptions.h"
#include "platform/FormatSettings.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// What value a field holds: none but its text, a whole number, a number, an amount of money, a date, a month, a count
// of hours, a time of day without and with seconds, a percentage, a text under a template.
enum TVxMaskMode : uint8_t {
  mmNone,
  mmInteger,
  mmFloat,
  mmCurrency,
  mmDate,
  mmMonth,
  mmHour,
  mmTime,
  mmSecond,
  mmPerc,
  mmMask
};

// Which limits a value is held to: both, unless both are 0; the lower one; the upper one.
enum TVxLimitModes : uint8_t { lmNone, lmMin, lmMax };

// A value of a kind that the field's mode does not hold.
class EInvalidInsert : public Exception {
 public:
  using Exception::Exception;
};

struct TMaskRules {
  TVxMaskMode iMaskMode = mmNone;
  bool iAllowEmpty = false;  // an empty text is a valid value
  char16_t iBlankChar = u'_';
  String iMaskString;
  int iDecimaldigits = 0;
  bool iDigitLimit = false;  // numbers have exactly iDecimaldigits decimals; else those that were typed
  bool iUseTausend = false;  // with thousands separators
  int iZerosInFront = 0;     // the least number of digits before the decimal separator
  TVxLimitModes iLimitMode = lmNone;
  int iMMMin = 0, iMMMax = 0;        // of numbers
  TDateTime iDTMin = 0, iDTMax = 0;  // of dates, times and hours; what is no number is no limit
  TFormatSettings iFormatSettings;
};

}  // namespace vx
