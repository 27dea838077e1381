#include "core/Money.h"

#include "tests/support/Test.h"

namespace {

constexpr int64_t kMost = INT64_MAX;
constexpr Currency Units(int64_t Count) { return Currency::FromUnits(Count); }

template <typename E>
void ExpectRaises(const std::vector<std::function<void()>>& Calls) {
  for (size_t i = 0; i < Calls.size(); ++i) EXPECT_THROW(Calls[i](), E) << i;
}
std::string UnitsOf(const std::vector<Currency>& Amounts) {
  std::string text;
  for (Currency amount : Amounts) text += std::to_string(amount.Units) + ' ';
  return text;
}

TEST(DecimalFactor, IsExactAndInOrder) {
  const TDecimalFactor tiny = TDecimalFactor::Of(1, 18), most = 999999999999999999, half = TDecimalFactor::Of(50, 2);
  const TDecimalFactor order[] = {-most, -half, -tiny, 0, tiny, half, 1, most};
  for (size_t i = 0; i < std::size(order); ++i)
    for (size_t k = 0; k < std::size(order); ++k) EXPECT_EQ(order[i] <=> order[k], i <=> k) << i << ' ' << k;
  EXPECT_EQ((TFacts{half + half == 1, 1 - half == half, -most + most == 0, half.GetDigits(), half.GetDecimals()}),
            "yes yes yes 5 1");
  ExpectRaises<EOverflow>({[=] { most + 1; }, [=] { 1 + tiny; }, [=] { most + half; },
                           [] { TDecimalFactor::Of(INT64_MIN, 3); }, [=] { TDecimalFactor::Percent(tiny); },
                           [] { (void)TDecimalFactor(UINT64_MAX); }});
}

// All routines are compared with exact fractions, over many random cases: tests/oracle/.
TEST(Money, RoundsOnceAndRaises) {
  const TDecimalFactor half = TDecimalFactor::Of(5, 1), index = TDecimalFactor::Of(10537, 4);
  EXPECT_EQ(UnitsOf({Product(Units(12100), index), Product(Units(100), half), Product(Units(100), half, 2, mrMath),
                     Product(Units(100), TDecimalFactor::Of(500001, 6), 2, mrMath),
                     Product(Units(185000), THourAmount::Of(-7, -42)), Quotient(-10, half), Quotient(10, 3, 9),
                     PercentOf(Units(2000), TDecimalFactor::Of(75, 1)), WithoutPercent(Units(14690600), 19)}),
            "12700 100 0 100 -1424500 -200000 33333 200 12345000 ");
  EXPECT_EQ(DecimalFactorToStr(Ratio(1, -3, 4)), u"-0,3333");
  ExpectRaises<EOverflow>(
      {[] { Product(Units(kMost), 1, 0); }, [] { Product(Units(kMost), 2, 4); }, [] { Ratio(1000000, Units(1), 9); }});
  ExpectRaises<EZeroDivide>({[] { Quotient(1, 0); }, [] { WithoutPercent(1, -100); }, [] { Ratio(0, 0, 2); }});
  ExpectRaises<EInvalidArgument>(
      {[] { Product(1, 1, -4); }, [] { Ratio(1, 1, 19); }, [] { TDecimalFactor::Of(1, 19); }});
}

TEST(Money, PartsMakeUpTheAmount) {
  auto weighted = [](Currency Amount, std::vector<int64_t> Weights, int Places = 2) {
    return UnitsOf(SplitAmount(Amount, Weights, Places));
  };
  EXPECT_EQ(UnitsOf(SplitAmount(10, 3)), "33400 33300 33300 ");
  EXPECT_EQ(UnitsOf(SplitAmount(Units(INT64_MIN), 1, 4)), "-9223372036854775808 ");
  EXPECT_EQ(weighted(Units(-1000), {1, 5, 3}), "-100 -600 -300 ") << "most was lost in the second";
  EXPECT_EQ(weighted(Units(kMost), {kMost - 1, 1}, 4), "9223372036854775806 1 ");
  ExpectRaises<EInvalidArgument>({[] { SplitAmount(1, 0); }, [] { SplitAmount(Units(10050), 2); },
                                  [=] {
                                    weighted(1, {0, 0});
                                  },
                                  [=] {
                                    weighted(1, {2, -1});
                                  }});
  ExpectRaises<EOverflow>({[=] { weighted(1, {kMost, 1}); }});
}

}  // namespace
