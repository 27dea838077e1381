#include "core/HourAmount.h"

#include "core/ExactSum.h"
#include "tests/support/Raised.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

constexpr int64_t kMost = INT64_MAX;
constexpr THourAmount Min(int64_t Minutes) { return THourAmount::FromMinutes(Minutes); }

TEST(HourAmount, ReadsWhatItWritesAndTellsWhatIsNoAmount) {
  const TCases<String, THourReadOptions, int64_t, int, int> cases = {
      {u"-6:45", {}, -405, tfNone, 0},
      {u" +7:30\t", {}, 450, tfNone, 0},
      {u"124:30", {}, 7470, tfNone, 0},
      {u":45", {}, 45, tfNone, 0},
      {u"\u2212:05", {}, -5, tfNone, 0},
      {u"7:30", {hroIndustry}, 450, tfNone, 0},
      {u"7,5", {hroIndustry}, 450, tfNone, 0},
      {u"-0,33", {hroIndustry}, -20, tfNone, 0},
      {u",99", {hroIndustry}, 59, tfNone, 0},
      {u"-8", {hroIndustry}, -480, tfNone, 0},
      {u"153722867280912930:07", {}, kMost, tfNone, 0},
      {u"-153722867280912930:08", {}, INT64_MIN, tfNone, 0},
      {u"153722867280912930:08", {}, 7, tfTooLarge, 1},
      {u" -99999999999999999999:00", {}, 7, tfTooLarge, 3},
      {u" \u00A0", {}, 7, tfEmpty, 0},
      {u"-", {}, 7, tfIncomplete, 2},
      {u"7", {}, 7, tfIncomplete, 2},
      {u"7:", {}, 7, tfIncomplete, 3},
      {u" 7:5", {}, 7, tfIncomplete, 5},
      {u"7:60", {}, 7, tfMinutes, 3},
      {u"7:6x", {}, 7, tfUnexpected, 4},
      {u"7:30:00", {}, 7, tfUnexpected, 5},
      {u"7:300", {}, 7, tfUnexpected, 5},
      {u"1.000:00", {}, 7, tfUnexpected, 2},
      {u"- 1:00", {}, 7, tfUnexpected, 2},
      {u"--1:00", {}, 7, tfUnexpected, 2},
      {u"7,5", {}, 7, tfUnexpected, 2},
      {u"7,", {hroIndustry}, 7, tfIncomplete, 3},
      {u",", {hroIndustry}, 7, tfIncomplete, 2},
      {u"7,125", {hroIndustry}, 7, tfDecimals, 5},
      {u"x", {hroIndustry}, 7, tfUnexpected, 1}};
  for (const auto& [text, options, minutes, kind, position] : cases) {
    THourAmount value = Min(7);
    TTextFault fault;
    const bool isRead = TryStrToHourAmount(text, value, fault, options);
    EXPECT_EQ((TFacts{isRead, value.Minutes, fault.Kind, fault.Position}),
              (std::string(kind == tfNone ? "yes " : "no ") + std::to_string(minutes) + ' ' + std::to_string(kind) +
               ' ' + std::to_string(position)))
        << text;
  }
  for (int64_t minutes : {INT64_MIN, int64_t{-6000}, int64_t{-59}, int64_t{-1}, int64_t{0}, int64_t{60}, kMost})
    EXPECT_EQ(StrToHourAmount(HourAmountToStr(Min(minutes))), Min(minutes));
  EXPECT_EQ(test::RaisedBy<EConvertError>([] { StrToHourAmount(u"7:60"); }),
            u"'7:60' ist keine Stundenzahl: Minuten über 59 an Position 3");
}

TEST(HourAmount, Writes) {
  EXPECT_EQ((TFacts{HourAmountToStr(Min(-405)), HourAmountToStr(Min(5), {hofTwoDigits, hofPlusSign}),
                    HourAmountToStr(Min(0), {hofPlusSign}), HourAmountToIndustryStr(Min(-20)),
                    HourAmountToIndustryStr(Min(462), {hofTwoDigits, hofPlusSign})}),
            "-6:45 +00:05 0:00 -0,33 +07,70");
}

TEST(HourAmount, HundredthsComeBackToTheMinute) {
  for (int64_t minutes = -600; minutes <= 600; ++minutes) {
    const int64_t hundredths = Min(minutes).ToIndustry();
    EXPECT_LE(std::abs(hundredths * 3 - minutes * 5), 1) << minutes;
    EXPECT_EQ(THourAmount::FromIndustry(hundredths), Min(minutes));
    EXPECT_LE(std::abs(THourAmount::FromIndustry(minutes).Minutes * 5 - minutes * 3), 2) << minutes;
  }
  EXPECT_EQ(Min(5534023222112865484).ToIndustry(), kMost);
  EXPECT_THROW(Min(5534023222112865485).ToIndustry(), EOverflow);
  EXPECT_EQ(THourAmount::FromIndustry(INT64_MIN).Minutes, -5534023222112865485);
}

TEST(HourAmount, CalculatesExactlyOrRaises) {
  THourAmount value = THourAmount::Of(-6, -45) + THourAmount::Of(7, 30);
  EXPECT_EQ((TFacts{value.Minutes, (-3 * value).Minutes, (-value).MinutesOfHour(), Min(-405).Hours(),
                    THourAmount::FromDays(-0.25).Minutes, THourAmount::FromDays(1.5).ToDays()}),
            "45 -135 -45 -6 -360 1.5");
  EXPECT_LT(Min(-60), Min(59));
  const std::vector<std::function<void(THourAmount&)>> overflows = {
      [](auto& a) { a += Min(1); },
      [](auto& a) { a -= Min(-1); },
      [](auto& a) { a *= 2; },
      [](auto& a) { a = -(-a - Min(1)); },
      [](auto& a) { a = THourAmount::Of(153722867280912931); },
      [](auto& a) { a = THourAmount::FromDays(1e18); }};
  for (size_t i = 0; i < overflows.size(); ++i) {
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
  other.Add(Min(5)), sum.Add(other);
  THourAmount value = Min(7);
  EXPECT_FALSE(sum.TryGet(value));
  EXPECT_EQ(value, Min(7));
  EXPECT_EQ(test::RaisedBy<EOverflow>([&] { sum.Get(); }), u"The sum leaves the range of amounts");
}

}  // namespace
