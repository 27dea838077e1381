// Amounts of money as people write them, read strictly, and written so that they are read back.
//
//   TryStrToMoney   a text as an amount, or what is wrong with it and where
//   MoneyToStr      and back
//
// Example:
//   vx::StrToMoney(u"1.234,50 EUR");                   // 1234.5
//   vx::StrToMoney(u"-3,-");                           // -3
//   vx::Currency amount;
//   vx::TTextFault fault;
//   vx::TryStrToMoney(u"1.23,50", amount, fault);      // false
//   fault.GetText();                                   // u"falsche Tausendergruppe an Position 2"
//
// What is read, in any combination, with blanks around all parts:
//   25 25,5 25,01 25,0125 ,50            up to four decimals behind a comma
//   1.234,50  1 234,50  1'234,50         thousands, each group of three, behind points, single blanks or apostrophes
//   1'234.50                             where apostrophes part the groups a point is the decimal separator, too
//   3,-  3,--  3,–  3.-                  dashes in the place of the cents
//   -25,01  - 25,01  +25,01  25,01-      a sign in front, or a minus behind two decimals or more
//   25,01 €  25,01 EUR  25 Euro  € 25  EUR -25  -€25      the currency once, in any case, in front or behind
// A minus may also be the one of mathematics or a dash, a blank one at which no line breaks, an apostrophe a ’.
//
// Refused is what could be meant in two ways or is none of these: 25.01 (a point before two digits), 0.125, 1,234.50,
// 12345,678.90, 5,, -,50, (3,00), 1e3, $ 5, more than four decimals, an amount outside the range of Currency.
//
// Threads: any number may call these at once.
//
// Pitfall: 1.234 is one thousand, 1,234 one and a bit. Texts of databases and of programs with a decimal point are read
// with mroDecimalPoint, never by trying both.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/TextFault.h"
#include "platform/Currency.h"
#include "platform/Types.h"

namespace vx {

enum TMoneyReadOption : uint8_t {
  mroDecimalPoint  // the point is the decimal separator, and commas part the groups: 1,234.50
};
using TMoneyReadOptions = Set<TMoneyReadOption>;

// False for a text that is refused; Value stays as it is then. No settings and no locale play a part.
[[nodiscard]] bool TryStrToMoney(std::u16string_view Text, Currency& Value, TTextFault& Fault,
                                 TMoneyReadOptions Options = {}) noexcept;
[[nodiscard]] bool TryStrToMoney(std::u16string_view Text, Currency& Value, TMoneyReadOptions Options = {}) noexcept;
// The same; EConvertError "'25.01' ist kein Betrag: falsche Tausendergruppe an Position 3".
Currency StrToMoney(std::u16string_view Text, TMoneyReadOptions Options = {});

// Two decimals, or four where two would not tell the amount, without groups: u"1234,50", u"-0,0125". What it writes is
// read back as the same amount, with a point by mroDecimalPoint. For people with groups and sign: VxCurrToStr.
String MoneyToStr(Currency Value, char16_t DecimalSeparator = u',');

}  // namespace vx
