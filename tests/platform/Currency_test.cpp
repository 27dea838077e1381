#include "platform/Currency.h"

#include "platform/Rounding.h"
#include "tests/support/Test.h"

namespace {

constexpr int64_t kMax = INT64_MAX, kRaises = 77777;
constexpr Currency Units(int64_t Count) { return Currency::FromUnits(Count); }
static_assert(Currency(-3).Units == -30000 && Currency(922337203685477).Units == 9223372036854770000);
static_assert(Units(-15000).Whole() == -1 && Units(-15000).Fraction() == Units(-5000) && Units(1) < Units(2));

TEST(Currency, RoundsToTheEvenUnitAndRaises) {
  const TCases<int64_t, char, int64_t, int64_t> cases = {
      {1, '*', 5001, 1},        {kMax, '*', -10000, -kMax},   {3, '*', 5000, 2},
      {-3, '*', 5000, -2},      {-kMax, '*', kMax, kRaises},  {kMax, '*', 5000, (kMax >> 1) + 1},
      {3, '/', 20000, 2},       {10000, '/', 30000, 3333},    {303700050000, '*', 303700050000, kRaises},
      {5, '/', -20000, -2},     {-20000, '/', 30000, -6667},  {303700040000, '*', 303700040000, 9223371429600160000},
      {-kMax, '-', -kMax, 0},   {kMax, '/', 9999, kRaises},   {kMax, '/', 20000, (kMax >> 1) + 1},
      {kMax, '/', kMax, 10000}, {kMax - 1, '+', 1, kMax},     {INT64_MIN, '/', -10000, kRaises},
      {kMax, '/', -1, kRaises}, {-kMax, '+', -kMax, kRaises}, {0, '-', INT64_MIN, kRaises},
      {kMax, '+', 1, kRaises},  {-kMax, '-', 2, kRaises}};
  for (const auto& [a, sign, other, result] : cases) {
    Currency value = Units(a), b = Units(other);
    bool raised = false;
    try {
      sign == '*' ? value *= b : sign == '/' ? value /= b : sign == '+' ? value += b : value -= b;
    } catch (const EOverflow&) {
      raised = true;
    }
    EXPECT_EQ(std::pair(raised, value.Units), std::pair(result == kRaises, raised ? a : result)) << a << sign << other;
  }
  EXPECT_THROW(Currency() / Currency(), EZeroDivide);
  EXPECT_THROW(-Units(INT64_MIN), EOverflow);
  for (int64_t bad : {int64_t{922337203685478}, INT64_MIN}) EXPECT_THROW(Currency{bad}, EOverflow);
  EXPECT_THROW(Currency{UINT64_MAX}, EOverflow);
  const TCases<Extended, int64_t> floats = {{0.03125L, 312}, {-0.03125L, -312}, {922337203685477.5807L, kMax},
                                            {0.09375L, 938}, {-0.00006L, -1},   {-922337203685477.5807L, -kMax},
                                            {1E-4900L, 0}};
  for (const auto& [value, result] : floats) EXPECT_EQ(Currency::FromExtended(value).Units, result) << value;
  for (Extended bad : {922337203685477.5808L, -922337203685477.581L, 1E300L, HUGE_VALL, Extended{NAN}})
    EXPECT_THROW(Currency::FromExtended(bad), EOverflow) << bad;
  EXPECT_EQ(Currency::FromExtended(Units(kMax).ToExtended()), Units(kMax));
}

TEST(Rounding, MidpointsAwayFromZeroAndSameValues) {
  const Extended below = std::nextafter(0.5L, 0.0L), odd = 0x1p63L + 1;
  const TCases<Extended, int, Extended> cases = {
      {2.5L, 0, 3},  {-2.5L, 0, -3},     {1249.99L, 2, 1200},       {-LDBL_MAX, INT32_MIN, -LDBL_MAX},
      {below, 0, 0}, {1250, 2, 1300},    {0.125L, -2, 0.13L},       {HUGE_VALL, 0, HUGE_VALL},
      {odd, 0, odd}, {LDBL_MIN, -37, 0}, {LDBL_MAX, -37, LDBL_MAX}, {6E36L, INT32_MAX, 1E37L}};
  for (const auto& [value, digit, result] : cases) {
    Extended got = SimpleRoundTo(value, digit);
    EXPECT_LT(got == result ? 0 : std::fabs(got / result - 1), 1E-18L) << value << "," << digit << ": " << got;
  }
  EXPECT_TRUE(std::isnan(SimpleRoundTo(NAN, 0)));
  EXPECT_EQ(SimpleRoundTo(0.625L), SimpleRoundTo(0.625L, -2));
  const TCases<double, double, double, bool> pairs = {
      {0.1 + 0.2, 0.3, 0, true}, {1E15, 1E15 + 900, 0, true}, {1E15, 1E15 + 1100, 0, false}, {0, 9E-13, 0, true},
      {0, 1.1E-12, 0, false},    {1, 1.5, 0.5, true},         {1, 1.51, 0.5, false},         {-1E15, 1E15, 0, false},
      {NAN, NAN, 1, false},      {HUGE_VAL, 1E308, 0, false}};
  for (const auto& [a, b, epsilon, same] : pairs)
    EXPECT_EQ(std::pair(SameValue(a, b, epsilon), SameValue(b, a, epsilon)), std::pair(same, same)) << a << b;
}

}  // namespace
