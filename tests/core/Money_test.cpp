#include "core/Money.h"

#include "platform/Numbers.h"
#include "tests/support/Raised.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

__extension__ typedef __int128 TInt128;

constexpr int64_t kMost = INT64_MAX;
constexpr Currency Units(int64_t Count) { return Currency::FromUnits(Count); }

// Name and, behind it, the fault or the value.
template <typename TRead>
std::string Told(const String& Text, int64_t Before, TRead Read) {
  int64_t value = Before;
  TTextFault fault;
  const bool isRead = Read(Text, value, fault);
  EXPECT_EQ(isRead, fault.Kind == tfNone) << Text;
  if (isRead) return std::to_string(value);
  EXPECT_EQ(value, Before) << Text << " is left as it was";
  return fault.GetText().ToUtf8();
}

std::string MoneyTold(const String& Text, TMoneyReadOptions Options = {}) {
  return Told(Text, 7, [&](const String& text, int64_t& units, TTextFault& fault) {
    Currency value = Units(units);
    const bool isRead = TryStrToMoney(text, value, fault, Options);
    units = value.Units;
    return isRead;
  });
}

TEST(MoneyText, ReadsWhatPeopleWrite) {
  const TCases<int64_t, std::vector<String>> cases = {
      {250100,
       {u"25,01", u"+25,01", u" 25,01 € ", u"25,01€", u"€25,01", u"EUR 25,01", u"eur25,01", u"25,01 Euro",
        u"25,01\u00A0€", u"25,010"}},
      {-250100,
       {u"-25,01", u"- 25,01", u"\u221225,01", u"25,01-", u"25,01- EUR", u"-€25,01", u"€ -25,01", u"- EUR 25,01"}},
      {12345000, {u"1.234,50", u"1 234,5", u"1\u00A0234,50 €", u"1'234,50", u"1’234.50", u"1'234.5 EUR", u"1234,5"}},
      {12340000, {u"1.234", u"1.234 €", u"1 234 €", u"1.234,-", u"1.234,- €", u"001234,0000"}},
      {-30000, {u"-3,-", u"-3,--", u"-3,– €", u"- 3,—", u"-3.-"}},
      {5000, {u",50", u"0,5", u"€ ,5"}},
      {12345678900000, {u"1.234.567.890", u"1 234 567 890,00"}},
      {kMost, {u"922.337.203.685.477,5807"}},
      {INT64_MIN, {u"-922337203685477,5808"}}};
  for (const auto& [units, texts] : cases)
    for (const String& text : texts) EXPECT_EQ(MoneyTold(text), std::to_string(units)) << text;
  for (const char16_t* text : {u"1,234.50", u"1234.5 €", u"1 234.50", u"1'234.50"})
    EXPECT_EQ(MoneyTold(text, {mroDecimalPoint}), "12345000") << String(text);
}

TEST(MoneyText, RefusesTheRestAndTellsWhere) {
  const TCases<const char*, std::vector<std::pair<String, int>>> cases = {
      {"leer", {{u"", 0}, {u" \t", 0}}},
      {"unvollständig", {{u"5,", 3}, {u"EUR", 4}, {u"-", 2}, {u" - €", 5}, {u",", 2}}},
      {"falsche Tausendergruppe",
       {{u"25.01", 3},
        {u"0.125", 2},
        {u"1.23,50", 2},
        {u"12345.678,90", 6},
        {u"1.234.56", 6},
        {u"1.2345", 2},
        {u"1 23", 2}}},
      {"zu viele Nachkommastellen", {{u"1,23456", 7}, {u"1,00000", 7}}},
      {"Wert zu groß", {{u"922337203685477,5808", 1}, {u"- 99999999999999999999999", 3}}},
      {"unerwartetes Zeichen",
       {{u"abc", 1},
        {u"-,50", 2},
        {u"1,234.50", 6},
        {u"1.234'567", 6},
        {u"1e3", 2},
        {u"$ 5", 1},
        {u"(3,00)", 1},
        {u"5 €uro", 4},
        {u"€ 5 €", 5},
        {u"5 EUR x", 7},
        {u"--5", 2},
        {u"-5,00-", 6},
        {u"5-", 2},
        {u"3,0-", 4},
        {u"5 CHF", 3},
        {u"1  234", 4},
        {u"5:00", 2},
        {u"3,---", 5},
        {u"1234,5.", 7}}}};
  for (const auto& [reason, texts] : cases) {
    for (const auto& [text, position] : texts) {
      const std::string place = position > 0 ? " an Position " + std::to_string(position) : "";
      EXPECT_EQ(MoneyTold(text), reason + place) << text;
    }
  }
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToMoney(u"25.01"); }),
            u"'25.01' ist kein Betrag: falsche Tausendergruppe an Position 3");
}

TEST(DecimalFactor, IsExactInTextAndOrder) {
  const TCases<String, String> texts = {{u"1,0537", u"1,0537"},
                                        {u" -003,50 ", u"-3,5"},
                                        {u"19 %", u"0,19"},
                                        {u"+7,5%", u"0,075"},
                                        {u"0,000000000000000001", u"0,000000000000000001"},
                                        {u"999999999999999999", u"999999999999999999"},
                                        {u"0,0", u"0"},
                                        {u"", u"leer"},
                                        {u"1.000", u"unerwartetes Zeichen an Position 2"},
                                        {u",5", u"unerwartetes Zeichen an Position 1"},
                                        {u"5,", u"unvollständig an Position 3"},
                                        {u"1 000", u"unerwartetes Zeichen an Position 3"},
                                        {u"-1000000000000000000", u"Wert zu groß an Position 2"},
                                        {u"99999999999999999999", u"Wert zu groß an Position 1"},
                                        {u"0,0000000000000000001", u"zu viele Nachkommastellen an Position 21"},
                                        {u"0,00000000000000001 %", u"zu viele Nachkommastellen an Position 22"}};
  for (const auto& [text, result] : texts) {
    TDecimalFactor value;
    TTextFault fault;
    EXPECT_EQ(TryStrToDecimalFactor(text, value, fault) ? DecimalFactorToStr(value) : fault.GetText(), result) << text;
  }
  EXPECT_EQ(DecimalFactorToStr(StrToDecimalFactor(u"-1.25", u'.'), u'.'), u"-1.25");
  const TDecimalFactor tiny = TDecimalFactor::Of(1, 18), most = 999'999'999'999'999'999,
                       half = TDecimalFactor::Of(50, 2);
  const TDecimalFactor order[] = {-most, -half, -tiny, 0, tiny, half, 1, most};
  for (size_t i = 0; i < std::size(order); ++i)
    for (size_t k = 0; k < std::size(order); ++k) EXPECT_EQ(order[i] <=> order[k], i <=> k) << i << ' ' << k;
  EXPECT_EQ(half + half, TDecimalFactor(1));
  EXPECT_EQ(1 - half, half);
  EXPECT_EQ(-most + most, TDecimalFactor(0));
  for (auto raise : std::vector<std::function<void()>>{
           [=] { most + 1; }, [=] { 1 + tiny; }, [=] { most + half; }, [] { TDecimalFactor(UINT64_MAX); },
           [=] { TDecimalFactor::Percent(tiny); }, [] { TDecimalFactor::Of(INT64_MIN, 3); }})
    EXPECT_THROW(raise(), EOverflow);
  EXPECT_THROW(TDecimalFactor::Of(1, 19), EInvalidArgument);
}

TEST(Money, ProductsAndQuotientsRoundOnce) {
  const TDecimalFactor half = TDecimalFactor::Of(5, 1);
  EXPECT_EQ(Product(Units(12100), TDecimalFactor::Of(10537, 4)), Units(12700)) << "not by way of 1,2750";
  const TCases<Currency, int64_t> cases = {
      {Product(Units(100), half), 100},
      {Product(Units(100), half, 2, mrMath), 0},
      {Product(Units(-300), half, 2, mrMath), -200},
      {Product(Units(-100), half), -100},
      {Product(Units(100), TDecimalFactor::Of(500001, 6), 2, mrMath), 100},
      {Product(1500, 1, -3), 20000000},
      {Product(2500, 1, -3, mrMath), 20000000},
      {Product(Units(1), half, 9), 1},
      {Quotient(10, 3), 33300},
      {Quotient(-10, half), -200000},
      {Quotient(Units(25), TDecimalFactor::Of(2, 1), 2, mrMath), 100},
      {Product(Units(185000), THourAmount::Of(-7, -42)), -1424500},
      {PercentOf(Units(2000), TDecimalFactor::Of(75, 1)), 200},
      {WithPercent(Units(12345000), 19), 14690600},
      {WithPercent(100, -3), 970000},
      {WithoutPercent(Units(14690600), 19), 12345000},
      {Product(Units(kMost), TDecimalFactor::Of(999999999999999999, 18), 4), kMost - 9}};
  for (size_t i = 0; i < cases.size(); ++i)
    EXPECT_EQ(std::get<0>(cases[i]).Units, std::get<1>(cases[i])) << "case " << i;
  EXPECT_EQ(DecimalFactorToStr(Ratio(1, -3, 4)), u"-0,3333");
  EXPECT_EQ(DecimalFactorToStr(Ratio(1, 8, 2, mrMath)), u"0,12");
  for (auto raise :
       std::vector<std::function<void()>>{[] { Product(Units(kMost), 1, 0); }, [] { Product(Units(kMost), 2, 4); },
                                          [] { Ratio(1000000, Units(1), 9); }})
    EXPECT_THROW(raise(), EOverflow);
  EXPECT_THROW(Quotient(1, 0), EZeroDivide);
  EXPECT_THROW(WithoutPercent(1, -100), EZeroDivide);
  EXPECT_THROW(Ratio(0, 0, 2), EZeroDivide);
  EXPECT_THROW(Product(1, 1, -4), EInvalidArgument);
}

TEST(Money, PartsMakeUpTheAmount) {
  auto parts = [](std::vector<Currency> Amounts) {
    std::vector<int64_t> units;
    for (Currency amount : Amounts) units.push_back(amount.Units);
    return units;
  };
  auto weighted = [&](Currency Amount, std::vector<int64_t> Weights, int Places = 2) {
    return parts(SplitAmount(Amount, Weights, Places));
  };
  using TUnits = std::vector<int64_t>;
  EXPECT_EQ(parts(SplitAmount(10, 3)), (TUnits{33400, 33300, 33300}));
  EXPECT_EQ(parts(SplitAmount(Units(-200), 3)), (TUnits{-100, -100, 0}));
  EXPECT_EQ(parts(SplitAmount(Units(INT64_MIN), 1, 4)), (TUnits{INT64_MIN}));
  EXPECT_EQ(weighted(100, {1, 1, 1, 0}), (TUnits{333400, 333300, 333300, 0}));
  EXPECT_EQ(weighted(Units(-1000), {1, 5, 3}), (TUnits{-100, -600, -300})) << "most was lost in the second";
  EXPECT_EQ(weighted(Units(kMost), {kMost - 1, 1}, 4), (TUnits{kMost - 1, 1}));
  for (auto raise : std::vector<std::function<void()>>{[] { SplitAmount(1, 0); }, [] { SplitAmount(Units(10050), 2); },
                                                       [&] { weighted(1, {}); },
                                                       [&] {
                                                         weighted(1, {0, 0});
                                                       },
                                                       [&] {
                                                         weighted(1, {2, -1});
                                                       },
                                                       [&] { weighted(Units(1), {1}); }})
    EXPECT_THROW(raise(), EInvalidArgument);
  EXPECT_THROW(weighted(1, {kMost, 1}), EOverflow);
}

// The rounded quotient lies within half a step of the exact one, which 128 bits hold here.
TEST(Money, RandomProductsAndQuotientsAreTheNearest) {
  std::mt19937_64 engine(18);
  auto any = [&](int Bits) { return static_cast<int64_t>(engine()) >> (63 - engine() % static_cast<unsigned>(Bits)); };
  for (int i = 0; i < 20000; ++i) {
    const int64_t units = any(40), digits = any(40) | 1;
    const int decimals = static_cast<int>(engine() % 9), places = static_cast<int>(engine() % 8) - 3;
    const TDecimalFactor factor = TDecimalFactor::Of(digits, decimals);
    TInt128 power = 1, step = 1;
    for (int k = 0; k < decimals; ++k) power *= 10;
    for (int k = places; k < 4; ++k) step *= 10;
    auto check = [&](TInt128 Dividend, TInt128 Divisor, TMoneyRounding Rounding, auto Calculate) {
      const TInt128 exact = Dividend / Divisor;
      if (exact > kMost / 2 || exact < -kMost / 2) return;
      const TInt128 got = Calculate(Rounding).Units;
      const TInt128 off = 2 * (Dividend - got * Divisor), half = step * (Divisor < 0 ? -Divisor : Divisor);
      const bool isMidpoint = off == half || off == -half, isEven = got / step % 2 == 0;
      const bool isFurther =
          (got < 0 ? -got : got) * (Divisor < 0 ? -Divisor : Divisor) > (Dividend < 0 ? -Dividend : Dividend);
      EXPECT_TRUE(got % step == 0);
      EXPECT_TRUE(isMidpoint ? (Rounding == mrMath ? isEven : isFurther) : off < half && off > -half)
          << units << ' ' << digits << ' ' << decimals << ' ' << places;
    };
    for (TMoneyRounding rounding : {mrTrade, mrMath}) {
      check(TInt128{units} * digits, power, rounding, [&](auto r) { return Product(Units(units), factor, places, r); });
      check(units * power, digits, rounding, [&](auto r) { return Quotient(Units(units), factor, places, r); });
    }
  }
}

}  // namespace
