// How numbers, amounts of money, dates and times are written.
//
//   TFormatSettings              separators, forms and names; German as it is made
//   GetFormatSettings            the program's settings
//   SetFormatSettings            replaces them
//   TFormatSettingsScope         replaces them as long as it lives
//
// Example:
//   vx::TFormatSettings settings;            // German
//   settings.CurrencyString = u"EUR";
//   vx::CurrToStrF(1234, vx::ffCurrency, 2, settings);   // u"1.234,00 EUR"
//
// The settings are German on every machine, whatever its locale says. Every routine that formats or
// parses takes an explicit value, too; without one it uses the program's settings. Pitfall: the
// program's settings are read without a lock; replace them before other threads use them.
#pragma once

#include <array>
#include <cstdint>

#include "platform/String.h"

namespace vx {

struct TFormatSettings {
  char16_t DecimalSeparator = u',';
  char16_t ThousandSeparator = u'.';  // 0 for none
  char16_t DateSeparator = u'.';      // stands for "/" in a mask; 0 for none
  char16_t TimeSeparator = u':';      // stands for ":" in a mask; 0 for none
  char16_t ListSeparator = u';';
  // Where the sign of a currency stands: 0 before the amount, 1 behind it, 2 before it with a blank,
  // 3 behind it with a blank.
  uint8_t CurrencyFormat = 3;
  // The same for amounts below 0, with the place of the minus sign, as 16 forms: 0 ($1), 1 -$1, 2 $-1,
  // 3 $1-, 4 (1$), 5 -1$, 6 1-$, 7 1$-, 8 -1 $, 9 -$ 1, 10 1 $-, 11 $ 1-, 12 $ -1, 13 1- $, 14 ($ 1),
  // 15 (1 $).
  uint8_t NegCurrFormat = 8;
  uint8_t CurrencyDecimals = 2;
  // A year of one or two digits lies in the 100 years that begin so many years before the present
  // one; 0 for the present century.
  uint16_t TwoDigitYearCenturyWindow = 50;
  String CurrencyString = u"€";
  String ShortDateFormat = u"dd.mm.yyyy";  // its order of d, m and y is the order in which dates are read
  String LongDateFormat = u"dddd, d. mmmm yyyy";
  String ShortTimeFormat = u"hh:nn";
  String LongTimeFormat = u"hh:nn:ss";
  String TimeAMString{};
  String TimePMString{};
  std::array<String, 12> ShortMonthNames = {u"Jan", u"Feb", u"Mrz", u"Apr", u"Mai", u"Jun",
                                            u"Jul", u"Aug", u"Sep", u"Okt", u"Nov", u"Dez"};
  std::array<String, 12> LongMonthNames = {u"Januar", u"Februar", u"März",      u"April",   u"Mai",      u"Juni",
                                           u"Juli",   u"August",  u"September", u"Oktober", u"November", u"Dezember"};
  // From Sunday on.
  std::array<String, 7> ShortDayNames = {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};
  std::array<String, 7> LongDayNames = {u"Sonntag",    u"Montag",  u"Dienstag", u"Mittwoch",
                                        u"Donnerstag", u"Freitag", u"Samstag"};
};

// The program's settings; German until they are replaced.
const TFormatSettings& GetFormatSettings() noexcept;
// Keeps a copy of Settings as the program's own.
void SetFormatSettings(const TFormatSettings& Settings);

// Uses Settings as the program's, and the former ones again at its end.
class TFormatSettingsScope {
 public:
  explicit TFormatSettingsScope(const TFormatSettings& Settings) : FPrevious(GetFormatSettings()) {
    SetFormatSettings(Settings);
  }
  ~TFormatSettingsScope() { SetFormatSettings(FPrevious); }
  TFormatSettingsScope(const TFormatSettingsScope&) = delete;
  TFormatSettingsScope& operator=(const TFormatSettingsScope&) = delete;

 private:
  TFormatSettings FPrevious;
};

}  // namespace vx
