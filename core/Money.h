// Amounts of money, multiplied, divided and shared out without a cent lost or gained.
//
//   Product, Quotient                      an amount by a factor, or a rate by hours, rounded once
//   PercentOf, WithPercent, WithoutPercent   percentages: the tax, the gross and the net amount
//   Ratio                                  what part one amount is of another
//   SplitAmount                            parts that make up the amount
//
// Example:
//   const vx::Currency net = vx::StrToMoney(u"1.234,50 €");
//   vx::WithPercent(net, 19);                                               // 1469.06
//   vx::WithoutPercent(vx::StrToMoney(u"1469,06"), 19);                     // 1234.5
//   vx::Product(vx::StrToMoney(u"18,50"), vx::THourAmount::Of(7, 42));      // 142.45: 18,50 an hour
//   vx::DecimalFactorToStr(vx::Ratio(vx::StrToMoney(u"1,00"), net, 4));     // u"0,0008"
//   vx::Currency sum = 0;
//   for (vx::Currency part : vx::SplitAmount(10, 3)) sum += part;           // the first is 3,34
//   sum;                                                                    // 10
//
// Places are the decimals of the result, as with RoundCurrency: 2 for cents, 4 and more for all that an amount has, 0
// for whole units, down to -3 for thousands; EInvalidArgument below. EOverflow where a result leaves the range of
// amounts, EZeroDivide for a division by 0.
//
// Threads: any number may call these at once.
//
// Pitfall: Amount * Amount and RoundCurrency(Price * Factor, 2) round twice, to 4 places and then to 2: 1,21 times
// 1,0537 comes out as 1,28. Sums that may leave the range on their way: TMoneySum in ExactSum.h.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/DecimalFactor.h"
#include "core/HourAmount.h"
#include "core/MoneyText.h"
#include "platform/Currency.h"

namespace vx {

enum TMoneyRounding : uint8_t {
  mrTrade,  // commercially: midpoints away from 0
  mrMath    // midpoints to the even neighbour
};

// The exact product, rounded once: 1,21 by 1,0537 is 1,27.
Currency Product(Currency Amount, TDecimalFactor Factor, int Places = 2, TMoneyRounding Rounding = mrTrade);
// A rate an hour for an amount of hours: 18,50 for 7:42 is 142,45.
Currency Product(Currency Rate, THourAmount Hours, int Places = 2, TMoneyRounding Rounding = mrTrade);
// The exact quotient, rounded once: 10 by 3 is 3,33.
Currency Quotient(Currency Amount, TDecimalFactor Divisor, int Places = 2, TMoneyRounding Rounding = mrTrade);

// So many hundredths of the amount: 19 of 100 are 19; 7,5 of 0,20 are 0,02 (exactly 0,015).
Currency PercentOf(Currency Amount, TDecimalFactor Percent, int Places = 2, TMoneyRounding Rounding = mrTrade);
// The amount and its percentage, rounded once: the gross amount of a net one. Below 0 for a discount.
Currency WithPercent(Currency Amount, TDecimalFactor Percent, int Places = 2, TMoneyRounding Rounding = mrTrade);
// The amount that with its percentage is Amount: the net amount of a gross one. EZeroDivide for -100.
Currency WithoutPercent(Currency Amount, TDecimalFactor Percent, int Places = 2, TMoneyRounding Rounding = mrTrade);
// Part by Whole with so many Decimals, 0 to 18: 1 by 3 with 4 is 0,3333. EOverflow above 18 digits.
TDecimalFactor Ratio(Currency Part, Currency Whole, int Decimals, TMoneyRounding Rounding = mrTrade);

// Count parts that make up Amount exactly and differ by one step of Places at most; the greater ones come first, of a
// negative amount those further from 0. EInvalidArgument for a Count below 1, and for an Amount that has more decimals
// than Places: no parts of whole cents make it up.
std::vector<Currency> SplitAmount(Currency Amount, int Count, int Places = 2);
// A part for each of Weights, in their proportion, that make up Amount exactly: each is the exact share cut to Places,
// and the steps that are left go to those that lost most, of equal ones the first. Weights are 0 or more, and one at
// least is more; else, and for an Amount with more decimals than Places, EInvalidArgument. EOverflow where their sum
// leaves 64 bits.
std::vector<Currency> SplitAmount(Currency Amount, std::span<const int64_t> Weights, int Places = 2);

}  // namespace vx
