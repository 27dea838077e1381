#include "platform/Currency.h"

#include "platform/Rounding.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

constexpr int64_t kMax = INT64_MAX, kRaises = 77777;
constexpr Currency Units(int64_t Count) { return Currency::FromUnits(Count); }
static_assert(Currency(-3).Units == -30000 && Currency(922337203685477).Units == 9223372036854770000);
static_assert(Units(-15000).Whole() == -1 && Units(-15000).Fraction() == Units(-5000) && Units(1) < Units(2));

TEST(Currency, RoundsToTheEvenUnitAndRaises) {
  struct {
    int64_t A;
    char Sign;
    int64_t B, Result;
  } cases[] = {{3, '*', 5000, 2},
               {1, '*', 5001, 1},
               {-3, '*', 5000, -2},
               {kMax, '*', -10000, -kMax},
               {kMax, '*', 5000, (kMax >> 1) + 1},
               {303700050000, '*', 303700050000, kRaises},
               {303700040000, '*', 303700040000, 9223371429600160000},
               {-kMax, '*', kMax, kRaises},
               {10000, '/', 30000, 3333},
               {-20000, '/', 30000, -6667},
               {3, '/', 20000, 2},
               {5, '/', -20000, -2},
               {-kMax, '-', -kMax, 0},
               {kMax, '/', kMax, 10000},
               {kMax, '/', 20000, (kMax >> 1) + 1},
               {kMax, '/', 9999, kRaises},
               {kMax, '/', -1, kRaises},
               {INT64_MIN, '/', -10000, kRaises},
               {kMax - 1, '+', 1, kMax},
               {kMax, '+', 1, kRaises},
               {-kMax, '+', -kMax, kRaises},
               {-kMax, '-', 2, kRaises},
               {0, '-', INT64_MIN, kRaises}};
  for (const auto& c : cases) {
    Currency value = Units(c.A), b = Units(c.B);
    bool raised = false;
    try {
      c.Sign == '*' ? value *= b : c.Sign == '/' ? value /= b : c.Sign == '+' ? value += b : value -= b;
    } catch (const EOverflow&) {
      raised = true;
    }
    EXPECT_TRUE(raised == (c.Result == kRaises) && value.Units == (raised ? c.A : c.Result)) << c.A << c.Sign << c.B;
  }
  EXPECT_THROW(Currency() / Currency(), EZeroDivide);
  EXPECT_THROW(-Units(INT64_MIN), EOverflow);
  for (int64_t bad : {int64_t{922337203685478}, INT64_MIN}) EXPECT_THROW(Currency{bad}, EOverflow);
  EXPECT_THROW(Currency{UINT64_MAX}, EOverflow);
  struct {
    Extended Value;
    int64_t Result;
  } floats[] = {{0.03125L, 312},
                {0.09375L, 938},
                {-0.03125L, -312},
                {-0.00006L, -1},
                {1E-4900L, 0},
                {922337203685477.5807L, kMax},
                {-922337203685477.5807L, -kMax}};
  for (const auto& c : floats) EXPECT_EQ(Currency::FromExtended(c.Value).Units, c.Result) << c.Value;
  for (Extended bad : {922337203685477.5808L, -922337203685477.581L, 1E300L, HUGE_VALL, Extended{NAN}})
    EXPECT_THROW(Currency::FromExtended(bad), EOverflow) << bad;
  EXPECT_EQ(Currency::FromExtended(Units(kMax).ToExtended()), Units(kMax));
}

TEST(Rounding, MidpointsAwayFromZeroAndSameValues) {
  const Extended below = std::nextafter(0.5L, 0.0L), odd = 0x1p63L + 1;
  struct {
    Extended Value;
    int Digit;
    Extended Result;
  } cases[] = {{2.5L, 0, 3},
               {-2.5L, 0, -3},
               {below, 0, 0},
               {odd, 0, odd},
               {1250, 2, 1300},
               {1249.99L, 2, 1200},
               {0.125L, -2, 0.13L},
               {LDBL_MAX, -37, LDBL_MAX},
               {-LDBL_MAX, INT32_MIN, -LDBL_MAX},
               {HUGE_VALL, 0, HUGE_VALL},
               {6E36L, INT32_MAX, 1E37L},
               {LDBL_MIN, -37, 0}};
  for (const auto& c : cases) {
    Extended got = SimpleRoundTo(c.Value, c.Digit);
    EXPECT_TRUE(got == c.Result || std::fabs(got / c.Result - 1) < 1E-18L) << c.Value << "," << c.Digit << ": " << got;
  }
  EXPECT_TRUE(std::isnan(SimpleRoundTo(NAN, 0)) && SimpleRoundTo(0.625L) == SimpleRoundTo(0.625L, -2));
  struct {
    double A, B, Epsilon;
    bool Same;
  } pairs[] = {{0.1 + 0.2, 0.3, 0, true},  {1E15, 1E15 + 900, 0, true}, {1E15, 1E15 + 1100, 0, false},
               {0, 9E-13, 0, true},        {0, 1.1E-12, 0, false},      {1, 1.5, 0.5, true},
               {1, 1.51, 0.5, false},      {-1E15, 1E15, 0, false},     {NAN, NAN, 1, false},
               {HUGE_VAL, 1E308, 0, false}};
  for (const auto& c : pairs)
    EXPECT_TRUE(SameValue(c.A, c.B, c.Epsilon) == c.Same && SameValue(c.B, c.A, c.Epsilon) == c.Same) << c.A << c.B;
}

}  // namespace
