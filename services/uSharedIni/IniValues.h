// Typed values of configuration files, as texts that mean the same on every machine.
//
//   TIniValue                              a value, or why the key holds none
//   CurrencyToIni, HoursToIni, DayToIni    values as texts
//   IniToCurrency, IniToHours, IniToDay    and back
//
// TSharedIni::ReadMoney, CheckMoney, WriteMoney and their kin read and write keys by them. No format settings play a
// part; programs that use German settings read the same values by ReadFloat and ReadDate.
//
// Example:
//   vx::CurrencyToIni(vx::StrToMoney(u"1.234,5"));                   // u"1234,50"
//   vx::IniToDay(u"24.12.2026").Value == vx::IniToDay(u"2026-12-24").Value;    // true
//   vx::IniToHours(u"7:65").GetText();                               // u"Minuten über 59 an Position 3"
//
// Pitfall: a day is a date without time. A time of day has no place in a text of a day, and is refused.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/HourAmount.h"
#include "core/TextFault.h"
#include "platform/Currency.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TIniFaultKind : uint8_t {
  ifNone,     // the value is there
  ifMissing,  // there is no such section or key
  ifWrong     // the text is no such value, or empty
};

template <typename T>
struct TIniValue {
  T Value{};  // as if 0 where there is none
  TIniFaultKind Kind = ifNone;
  TTextFault Fault;  // of a text that is no such value
  String Text;       // that text

  explicit operator bool() const noexcept { return Kind == ifNone; }
  // Why there is none, for users: u"nicht vorhanden", u"leer", u"unerwartetes Zeichen an Position 4"; else empty.
  String GetText() const {
    if (Kind == ifMissing) return u"nicht vorhanden";
    return Fault.GetText();
  }
};

// As MoneyToStr: u"-0,05", u"1234,5678".
String CurrencyToIni(Currency Value);
// All forms of core/MoneyText.h.
TIniValue<Currency> IniToCurrency(const String& Text);
// u"7:30", u"-0:45".
String HoursToIni(THourAmount Value);
TIniValue<THourAmount> IniToHours(const String& Text);
// u"24.12.2026"; empty for 0, no date. False, with Text as it was, for a value with a time of day or outside the years
// 1 to 9999.
[[nodiscard]] bool DayToIni(TDateTime Value, String& Text);
// Day, month and a year of four digits with points, or u"2026-12-24".
TIniValue<TDateTime> IniToDay(const String& Text);

}  // namespace vx
