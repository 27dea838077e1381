// Values read from texts as fields have them, under the separators of settings; the program's unless told.
//
//   ToInteger, ToFloat, ToDouble, ToCurrency    numbers and amounts, without regard to thousands separators
//   ToDate, ToTime                              dates; times of day, 24:00 among them
//
// Example:
//   vx::Currency price;
//   vx::ToCurrency(u"1.234,50", price);   // true
//   vx::TDateTime end = 0;
//   vx::ToTime(u"24:00", end);            // true
//   end;                                  // 1
//
// Each gives false, with the value 0, for a text that is no such value. A thousands separator that is the decimal one,
// too, counts as that.
#pragma once

#include "platform/Currency.h"
#include "platform/FormatSettings.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

bool ToInteger(std::u16string_view aText, int& aValue, const TFormatSettings& aSettings = GetFormatSettings());
bool ToFloat(std::u16string_view aText, Extended& aValue, const TFormatSettings& aSettings = GetFormatSettings());
// False for a number that is too large for a double, too.
bool ToDouble(std::u16string_view aText, double& aValue, const TFormatSettings& aSettings = GetFormatSettings());
bool ToCurrency(std::u16string_view aText, Currency& aValue, const TFormatSettings& aSettings = GetFormatSettings());
bool ToDate(std::u16string_view aText, TDateTime& aValue, const TFormatSettings& aSettings = GetFormatSettings());
// u"24:00" and u"24:00:00" are 1.0.
bool ToTime(std::u16string_view aText, TDateTime& aValue, const TFormatSettings& aSettings = GetFormatSettings());

}  // namespace vx
