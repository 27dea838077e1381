// Amounts of money and periods as texts.
#pragma once

#include <cstdint>

#include "core/uVxFunctions/Rounding.h"
#include "platform/Currency.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

// The sign of the currency in the format settings. Year and Date have no effect; callers pass them. Any
// whole number is a year, so that a date must be a TDateTime; both give the same.
String GetCurrencySign(int Year);
String GetCurrencySign(TDateTime Date);
template <TWholeNumber T>
String GetCurrencySign(T) {
  return GetCurrencySign(0);
}
// Text is u"DM".
constexpr bool isCurrencyDM(std::u16string_view Text) noexcept { return Text == u"DM"; }

enum TCurrToStrOption : uint8_t {
  ctsThousendDivider,  // with thousands separators
  ctsSign,             // with the sign of the currency
  ctsAutoDigits,       // a whole amount has no decimals
  ctsNullAsNull        // 0 has no decimals
};
using TCurrToStrOptions = Set<TCurrToStrOption>;

// Value with Digits decimals, rounded by RoundCurrency: 1234.5 with both of the first options and 2 digits
// is u"1.234,50 €", 5 with ctsAutoDigits is u"5". Digits below 0 round to tens, hundreds... and show no
// decimals. The sign stands where the settings have it if there are thousands separators, and else behind
// a blank. Raises as RoundCurrency.
String VxCurrToStr(Currency Value, TCurrToStrOptions Options, int Digits);

// A period as text; a date at or below 0 is missing. Both missing give u"", one alone u"von 1.02.2015" or
// u"bis 1.02.2015". Fields of From that are the same in Till are left out, looking at day, month and year
// in this order: u"1.02.2015 - 5.02.2015", u"1.02. - 1.03.2015", u"1. - 1.02.2016". This order is wanted.
String DatesToDuration(TDateTime From, TDateTime Till);

}  // namespace vx
