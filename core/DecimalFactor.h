// Decimal numbers by which amounts are multiplied and divided, exact: rates, exchange rates, percentages.
//
//   TDecimalFactor            up to 18 digits, up to 18 of them behind the separator
//   TryStrToDecimalFactor     a text as a factor, or what is wrong with it and where
//   DecimalFactorToStr        and back
//
// Example:
//   vx::TDecimalFactor index = vx::StrToDecimalFactor(u"1,0537");
//   index == vx::TDecimalFactor::Of(10537, 4);                           // true
//   vx::Product(vx::StrToMoney(u"1,21"), index, 2);                      // 1.27: exactly 1,274977
//   vx::StrToDecimalFactor(u"19 %") == vx::TDecimalFactor::Percent(19);  // true
//   vx::DecimalFactorToStr(vx::TDecimalFactor::Of(-50, 2));              // u"-0,5"
//
// What is done with amounts and factors stands in Money.h. Pitfall: no factor is made of a floating point number, for
// there 1.0537 is another number already.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <string_view>
#include <utility>

#include "core/TextFault.h"
#include "platform/String.h"

namespace vx {

class TDecimalFactor {
 public:
  // The most digits of a factor, and the most decimals.
  static constexpr int MaxDigits = 18;

  constexpr TDecimalFactor() noexcept = default;
  // A whole number; EOverflow above 18 digits.
  template <std::integral T>
  constexpr TDecimalFactor(T Value) : FDigits(static_cast<int64_t>(Value)) {
    if (std::cmp_greater(Value, kMost) || std::cmp_less(Value, -kMost)) RaiseOverflow();
  }
  // Digits with a separator before the last Decimals of them: Of(10537, 4) is 1,0537. EOverflow above 18 digits,
  // EInvalidArgument for Decimals outside 0 to 18.
  static TDecimalFactor Of(int64_t Digits, int Decimals);
  // So many hundredths: of 19 it is 0,19, of 7,5 it is 0,075. EOverflow if that has more than 18 decimals.
  static TDecimalFactor Percent(TDecimalFactor Value);

  // The factor is GetDigits() / 10^GetDecimals(), with as few decimals as there may be: 0,50 has 5 and 1.
  constexpr int64_t GetDigits() const noexcept { return FDigits; }
  constexpr int GetDecimals() const noexcept { return FDecimals; }

  TDecimalFactor operator-() const noexcept;
  // Exact; EOverflow where the sum has more than 18 digits.
  friend TDecimalFactor operator+(TDecimalFactor A, TDecimalFactor B);
  friend TDecimalFactor operator-(TDecimalFactor A, TDecimalFactor B) { return A + -B; }
  // By the values.
  friend constexpr bool operator==(TDecimalFactor A, TDecimalFactor B) noexcept = default;
  friend std::strong_ordering operator<=>(TDecimalFactor A, TDecimalFactor B) noexcept;

 private:
  static constexpr int64_t kMost = 999'999'999'999'999'999;
  TDecimalFactor(int64_t Digits, int Decimals) noexcept;  // drops zeros at the end
  [[noreturn]] static void RaiseOverflow();

  int64_t FDigits = 0;
  int FDecimals = 0;
};

// A sign or none, digits, a comma and digits or neither, a percent sign or none, with or without a blank before it:
// u"1,0537", u"-3", u"19 %". Blanks around the text don't count. Everything else is refused, with Value unchanged:
// u"1.000", u",5", u"1e3", and what has more than 18 digits or decimals, not counting zeros at either end.
// DecimalSeparator stands in the place of the comma, for texts of databases and programs.
[[nodiscard]] bool TryStrToDecimalFactor(std::u16string_view Text, TDecimalFactor& Value, TTextFault& Fault,
                                         char16_t DecimalSeparator = u',') noexcept;
// The same; EConvertError "'1.000' ist kein Faktor: unerwartetes Zeichen an Position 2".
TDecimalFactor StrToDecimalFactor(std::u16string_view Text, char16_t DecimalSeparator = u',');

// All digits, none too many: u"1,0537". What it writes is read back as the same factor.
String DecimalFactorToStr(TDecimalFactor Value, char16_t DecimalSeparator = u',');

}  // namespace vx
