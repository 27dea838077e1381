#include "core/HourAmount.h"

#include "core/ExactSum.h"
#include "tests/support/Test.h"

namespace {

constexpr int64_t kMost = INT64_MAX;
constexpr THourAmount Min(int64_t Minutes) { return THourAmount::FromMinutes(Minutes); }

// Compared with exact fractions, over many random amounts: tests/oracle/.
TEST(HourAmount, IsWrittenInMinutesAndHundredths) {
  EXPECT_EQ((TFacts{HourAmountToStr(Min(-405)), HourAmountToStr(Min(5), {hofTwoDigits, hofPlusSign}),
                    HourAmountToStr(Min(0), {hofPlusSign}), HourAmountToIndustryStr(Min(-20)),
                    HourAmountToIndustryStr(Min(462), {hofTwoDigits, hofPlusSign})}),
            "-6:45 +00:05 0:00 -0,33 +07,70");
  EXPECT_EQ(Min(5534023222112865484).ToIndustry(), kMost);
  EXPECT_EQ(THourAmount::FromIndustry(INT64_MIN).Minutes, -5534023222112865485);
}

TEST(HourAmount, CalculatesExactlyOrRaises) {
  const THourAmount value = THourAmount::Of(-6, -45) + THourAmount::Of(7, 30);
  EXPECT_EQ((TFacts{value.Minutes, (-3 * value).Minutes, (-value).MinutesOfHour(), Min(-405).Hours(),
                    THourAmount::FromDays(-0.25).Minutes, THourAmount::FromDays(1.5).ToDays(), Min(-60) < Min(59)}),
            "45 -135 -45 -6 -360 1.5 yes");
  const std::function<void(THourAmount&)> overflows[] = {[](auto& a) { a += Min(1); },
                                                         [](auto& a) { a -= Min(-1); },
                                                         [](auto& a) { a *= 2; },
                                                         [](auto& a) { a = -(-a - Min(1)); },
                                                         [](auto&) { THourAmount::Of(153722867280912931); },
                                                         [](auto&) { THourAmount::FromDays(1e18); },
                                                         [](auto&) { Min(5534023222112865485).ToIndustry(); }};
  for (size_t i = 0; i < std::size(overflows); ++i) {
    THourAmount most = Min(kMost);
    EXPECT_THROW(overflows[i](most), EOverflow) << i;
    EXPECT_EQ(most, Min(kMost)) << i;
  }
  EXPECT_THROW(THourAmount::FromDays(std::nan("")), EInvalidOp);
}

TEST(ExactSum, OnlyTheResultCanOverflow) {
  THourSum sum, other;
  for (int64_t minutes : {kMost, kMost, int64_t{-3}, INT64_MIN}) sum.Add(Min(minutes));
  EXPECT_EQ(sum.Get().Minutes, kMost - 4);
  other.Add(Min(5));
  sum.Add(other);
  THourAmount value = Min(7);
  EXPECT_EQ((TFacts{sum.TryGet(value), value.Minutes}), "no 7");
  EXPECT_THROW(sum.Get(), EOverflow);
}

}  // namespace
