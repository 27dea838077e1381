#include "core/uVxFunctions/CurrencyText.h"
#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Rounding.h"
#include "core/uVxFunctions/Sorting.h"
#include "tests/support/Test.h"

namespace {

constexpr int64_t kMin = INT64_MIN, kMax = INT64_MAX;

TEST(Rounding, MidpointsGoToTheEvenOneOrAwayFromZero) {
  const TCases<Extended, int64_t, int64_t> numbers = {{-0.5L, 0, -1},         {2.5L, 2, 3},
                                                      {-2.5L, -2, -3},        {1.4999999L, 1, 1},
                                                      {-0x1p63L, kMin, kMin}, {0x1p63L - 1, kMax, kMax}};
  for (const auto& [value, math, trade] : numbers)
    EXPECT_EQ(std::pair(RoundMath(value), RoundTrade(value)), std::pair(math, trade)) << value;
  auto raised = [](auto round, Extended v) { return test::RaisedBy<EInvalidOp>([&] { round(v); }).Slice(0, 9); };
  for (Extended bad : {NAN * 1.0L, INFINITY * 1.0L, 0x1p63L, 0x1p63L - 0.5L, -0x1p63L - 1})
    EXPECT_EQ((TFacts{raised(RoundMath, bad), raised(RoundTrade, bad)}), "RoundMath RoundTrad") << bad;
  EXPECT_EQ((TFacts{RoundHalf(1.25L), RoundHalf(-1.25L), RoundExtended(-1500, -3, true)}), "1.5 -1.5 -2000");
  EXPECT_EQ((TFacts{RoundExtended(0.125L, 2, true), RoundExtended(0.125L, 2, false)}), "0.13 0.12");
  const TCases<int64_t, int, int64_t> amounts = {
      {10050, 2, 10100},         {-10050, 2, -10100}, {12345, 3, 12350},       {150000, -1, 200000},   {0, -4, 0},
      {-5000000, -3, -10000000}, {kMin, 4, kMin},     {kMax - 3, 3, kMax - 7}, {kMin + 4, 3, kMin + 8}};
  for (const auto& [units, places, rounded] : amounts)
    EXPECT_EQ(RoundCurrency(Currency::FromUnits(units), places).Units, rounded) << units;
  EXPECT_EQ(test::RaisedBy<EInvalidArgument>([] { RoundCurrency(1, -4); }), u"RoundCurrency(,-4): invalid arg");
  EXPECT_THROW(RoundCurrency(Currency::FromUnits(kMax), 3), EOverflow);
  EXPECT_EQ((TFacts{between(5, 1, 5), between(1, 1, 5), between(-1, 0U, 5)}), "no yes no");
  EXPECT_EQ((TFacts{between(0.9, 1.0, 5.0), between(4.9, 1.0, 5.0), between(int64_t{1} << 40, 5, UINT64_MAX)}),
            "no yes yes");
  EXPECT_EQ((TFacts{Clamp(7, 1, 5), Clamp(-7, 1, 5), Clamp(3, 1, 5), Clamp(3, 9, 5)}), "5 1 3 5");
  EXPECT_EQ((TFacts{Clamp(4000000000U, 0U, 9U), Clamp(NAN, 1.0F, 2.0F), CompareInteger(INT32_MIN, 1)}), "9 1 -1");
  EXPECT_EQ((TFacts{CompareInteger(int64_t{1} << 40, 5), IntToBool(int64_t{1} << 40)}), "1 yes");
  const TCases<int64_t, int64_t, int64_t, int64_t> quotients = {
      {-7, 2, 3, -1}, {-7, -2, 3, 1}, {5, kMin, 0, -5},   {kMin, 2, int64_t{1} << 62, 0},
      {6, 3, 2, 0},   {7, -2, 3, -1}, {kMin, kMin, 1, 0}, {kMin, 10, kMax / 10, -8}};
  int64_t rest = 99;
  for (const auto& row : quotients) {
    const auto [a, b, unused, left] = row;
    const int64_t quotient = Divide(a, b, rest);
    EXPECT_EQ(std::tuple(a, b, quotient, rest), row);
  }
  EXPECT_EQ(test::RaisedBy<EZeroDivide>([&] { Divide(1, 0, rest); }), u"[uVxFunctions.Devide]: Division durch 0!");
  EXPECT_THROW(Divide(kMin, -1, rest), EOverflow);
}

TEST(Sorting, SortsAnyItemsAndOnlyTheRangeAsked) {
  auto down = [](void* a, void* b, void*) { return CompareInteger(*static_cast<int*>(b), *static_cast<int*>(a)); };
  auto nonsense = [](void* a, void*, void* data) { return *static_cast<int*>(a) % 2 ? *static_cast<int*>(data) : 1; };
  int data = -1;
  for (size_t count : {0, 1, 2, 3, 10, 1000}) {
    std::vector<int> values(count);
    std::vector<void*> items;
    for (int& v : values) items.push_back(&(v = static_cast<int>(items.size() * 7919 % 50)));
    auto before = items;
    QuickSort(items, 0, static_cast<int>(count) - 1, nonsense, &data);
    QuickSort(items, 0, static_cast<int>(count) - 1, down);
    EXPECT_TRUE(std::ranges::is_sorted(items, std::greater(), [](void* item) { return *static_cast<int*>(item); }));
    EXPECT_TRUE(std::ranges::is_permutation(items, before)) << count;
  }
  int v[] = {5, 5, 9};
  void* items[] = {&v[0], &v[1], &v[2]};
  QuickSort(items, 0, 1, down);
  EXPECT_EQ(std::pair(items[0], items[2]), (std::pair<void*, void*>(&v[1], &v[2]))) << "equal items change places here";
  EXPECT_THROW(QuickSort(items, 0, 3, down), EListError);
}

TEST(Numbers, ReadersGiveTheirDefaultOrRepair) {
  for (auto text : {u"1", u"true", u"Wahr", u"JA", u"yes", u"j", u"Y"}) EXPECT_TRUE(StrToBool(text));
  for (auto text : {u"", u"0", u"11", u" 1", u"jaa", u"nein", u"on"}) EXPECT_FALSE(StrToBool(text));
  const TCases<String, int64_t, int64_t> heavy = {
      {u"", 9, 9},    {u"12-34", 1234, 1234},         {u"-2147483648", 9, 2147483648},
      {u"abc", 9, 9}, {u"9223372036854775808", 9, 9}, {u"0.000.000.2147483647", INT32_MAX, INT32_MAX}};
  for (const auto& row : heavy) {
    const String& text = std::get<0>(row);
    EXPECT_EQ(std::tuple(text, StrToIntHeavy(text, 9), StrToInt64Heavy(text, 9)), row);
  }
  const TCases<String, Extended, double> floats = {
      {u"1,5", 1.5L, 1.5}, {u" 1,5", 1.5L, 9}, {u",5", 0.5L, 0.5}, {u"5,", 5, 5},
      {u"", 9, 9},         {u"-", 9, 9},       {u"1.5", 9, 9},     {u"-1E400", -1E400L, 9}};
  for (const auto& row : floats) {
    const auto& [text, ext, dbl] = row;
    bool isExt, isDouble;
    EXPECT_EQ(std::tuple(text, StrToExtDef(text, 9, isExt), StrToDoubleDef(text, 9, isDouble)), row);
    EXPECT_EQ(std::pair(isExt, isDouble), std::pair(ext != 9, dbl != 9)) << text;
  }
  const TCases<String, int64_t, int64_t> cases = {{u"", 7, 7},
                                                  {u"1.234,56", 12345600, 12345600},
                                                  {u"-1.2.3,4.5", -1234500, -1234500},
                                                  {u".-5", -50000, -50000},
                                                  {u"€1", 7, 7},
                                                  {u"-", 7, 7},
                                                  {u"+,0001", 1, 1},
                                                  {u"1-", 7, 10000},
                                                  {u"1,00015", 10002, 10002},
                                                  {u" 1.000 ", 10000000, 10000000},
                                                  {u"1.000 €", 7, 10000000},
                                                  {u"1,2,3", 7, 7},
                                                  {String(99, u'.') + u"1", 10000, 10000},
                                                  {u"1.5E+1", 1500000, 1500000},
                                                  {u"922.337.203.685.477,5807", kMax, kMax},
                                                  {u"922.337.203.685.477,5808", 7, 7}};
  for (const auto& [text, units, repaired] : cases) {
    Currency value = 3;
    EXPECT_EQ(TryStrToCurr(text, value), units != 7) << text;
    EXPECT_EQ(value.Units, units != 7 ? units : 0) << text;
    EXPECT_EQ(StrToCurrHeavy(text, Currency::FromUnits(7)).Units, repaired) << text;
  }
  const TCases<int64_t, TCurrToStrOptions, int, String> texts = {
      {-40, {}, 2, u"0,00"},
      {0, {ctsNullAsNull}, 2, u"0"},
      {0, {}, 2, u"0,00"},
      {50000, {ctsAutoDigits}, -4, u"5"},
      {55000, {ctsAutoDigits, ctsNullAsNull}, 2, u"5,50"},
      {12345678, {ctsThousendDivider}, -2, u"1.200"},
      {12345678, {ctsSign}, 2, u"1234,57 €"},
      {-12345678, {ctsThousendDivider, ctsSign}, 3, u"-1.234,568 €"}};
  for (const auto& [units, options, digits, text] : texts)
    EXPECT_EQ(VxCurrToStr(Currency::FromUnits(units), options, digits), text) << units;
  TFormatSettingsScope scope({.DecimalSeparator = u'.', .ThousandSeparator = 0});
  EXPECT_EQ(StrToCurrDef(u"1.5", 7).Units, 15000);
  EXPECT_EQ(StrToCurrHeavy(u"1.5", 7), 15) << "points go here, too";
}

}  // namespace
