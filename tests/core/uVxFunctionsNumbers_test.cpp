#include "core/uVxFunctions/CurrencyText.h"
#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Rounding.h"
#include "core/uVxFunctions/Sorting.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;

constexpr int64_t kMin = INT64_MIN, kMax = INT64_MAX;

TEST(Rounding, MidpointsGoToTheEvenOneOrAwayFromZero) {
  struct {
    Extended Value;
    int64_t Math, Trade;
  } numbers[] = {{-0.5L, 0, -1},     {2.5L, 2, 3},           {-2.5L, -2, -3},
                 {1.4999999L, 1, 1}, {-0x1p63L, kMin, kMin}, {0x1p63L - 1, kMax, kMax}};
  for (auto& c : numbers) EXPECT_TRUE(RoundMath(c.Value) == c.Math && RoundTrade(c.Value) == c.Trade) << c.Value;
  auto raised = [](auto round, Extended v) { return test::RaisedBy<EInvalidOp>([&] { round(v); }).Slice(0, 9); };
  for (Extended bad : {NAN * 1.0L, INFINITY * 1.0L, 0x1p63L, 0x1p63L - 0.5L, -0x1p63L - 1})
    EXPECT_TRUE(raised(RoundMath, bad) == u"RoundMath" && raised(RoundTrade, bad) == u"RoundTrad") << bad;
  EXPECT_TRUE(RoundHalf(1.25L) == 1.5L && RoundHalf(-1.25L) == -1.5L && RoundExtended(0.125L, 2, true) == 0.13L);
  EXPECT_TRUE(RoundExtended(-1500, -3, true) == -2000 && RoundExtended(0.125L, 2, false) == 0.12L);
  struct {
    int64_t Units;
    int Places;
    int64_t Rounded;
  } amounts[] = {
      {10050, 2, 10100},         {-10050, 2, -10100}, {12345, 3, 12350},       {150000, -1, 200000},   {0, -4, 0},
      {-5000000, -3, -10000000}, {kMin, 4, kMin},     {kMax - 3, 3, kMax - 7}, {kMin + 4, 3, kMin + 8}};
  for (auto& c : amounts) EXPECT_EQ(RoundCurrency(Currency::FromUnits(c.Units), c.Places).Units, c.Rounded) << c.Units;
  EXPECT_EQ(test::RaisedBy<EInvalidArgument>([] { RoundCurrency(1, -4); }), u"RoundCurrency(,-4): invalid arg");
  EXPECT_THROW(RoundCurrency(Currency::FromUnits(kMax), 3), EOverflow);
  EXPECT_TRUE(!between(5, 1, 5) && between(1, 1, 5) && !between(0.9, 1.0, 5.0) && between(4.9, 1.0, 5.0));
  EXPECT_TRUE(Clamp(7, 1, 5) == 5 && Clamp(-7, 1, 5) == 1 && Clamp(3, 1, 5) == 3 && Clamp(3, 9, 5) == 5);
  EXPECT_TRUE(between(int64_t{1} << 40, 5, UINT64_MAX));
  EXPECT_FALSE(between(-1, 0U, 5));
  EXPECT_EQ(CompareInteger(int64_t{1} << 40, 5), 1);
  EXPECT_EQ(IntToBool(int64_t{1} << 40), true);
  EXPECT_TRUE(Clamp(4000000000U, 0U, 9U) == 9U && Clamp(NAN, 1.0F, 2.0F) == 1 && CompareInteger(INT32_MIN, 1) == -1);
  struct {
    int64_t A, B, Quotient, Rest;
  } quotients[] = {{-7, 2, 3, -1},
                   {-7, -2, 3, 1},
                   {7, -2, 3, -1},
                   {6, 3, 2, 0},
                   {kMin, 2, int64_t{1} << 62, 0},
                   {kMin, 10, kMax / 10, -8},
                   {5, kMin, 0, -5},
                   {kMin, kMin, 1, 0}};
  int64_t rest = 99;
  for (auto& c : quotients) EXPECT_TRUE(Divide(c.A, c.B, rest) == c.Quotient && rest == c.Rest) << c.A << '/' << c.B;
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
  EXPECT_TRUE(items[0] == &v[1] && items[2] == &v[2]) << "equal items change places here";
  EXPECT_THROW(QuickSort(items, 0, 3, down), EListError);
}

TEST(Numbers, ReadersGiveTheirDefaultOrRepair) {
  for (auto text : {u"1", u"true", u"Wahr", u"JA", u"yes", u"j", u"Y"}) EXPECT_TRUE(StrToBool(text));
  for (auto text : {u"", u"0", u"11", u" 1", u"jaa", u"nein", u"on"}) EXPECT_FALSE(StrToBool(text));
  struct {
    String Text;
    int64_t Int, Int64;
  } heavy[] = {{u"12-34", 1234, 1234},
               {u"", 9, 9},
               {u"abc", 9, 9},
               {u"-2147483648", 9, 2147483648},
               {u"0.000.000.2147483647", INT32_MAX, INT32_MAX},
               {u"9223372036854775808", 9, 9}};
  for (auto& c : heavy) EXPECT_TRUE(StrToIntHeavy(c.Text, 9) == c.Int && StrToInt64Heavy(c.Text, 9) == c.Int64);
  struct {
    String Text;
    Extended Ext;
    double Double;
  } floats[] = {{u"1,5", 1.5L, 1.5}, {u" 1,5", 1.5L, 9}, {u",5", 0.5L, 0.5}, {u"5,", 5, 5},
                {u"", 9, 9},         {u"-", 9, 9},       {u"1.5", 9, 9},     {u"-1E400", -1E400L, 9}};
  for (auto& c : floats) {
    bool ext, dbl;
    EXPECT_TRUE(StrToExtDef(c.Text, 9, ext) == c.Ext && ext == (c.Ext != 9)) << c.Text.ToUtf8();
    EXPECT_TRUE(StrToDoubleDef(c.Text, 9, dbl) == c.Double && dbl == (c.Double != 9)) << c.Text.ToUtf8();
  }
  struct {
    String Text;
    int64_t Units, Heavy;
  } cases[] = {{u"", 7, 7},
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
  for (auto& c : cases) {
    Currency value = 3;
    EXPECT_TRUE(TryStrToCurr(c.Text, value) ? value.Units == c.Units : c.Units == 7 && value == 0) << c.Text.ToUtf8();
    EXPECT_EQ(StrToCurrHeavy(c.Text, Currency::FromUnits(7)).Units, c.Heavy) << c.Text.ToUtf8();
  }
  struct {
    int64_t Units;
    TCurrToStrOptions Options;
    int Digits;
    String Text;
  } texts[] = {{-40, {}, 2, u"0,00"},
               {0, {ctsNullAsNull}, 2, u"0"},
               {0, {}, 2, u"0,00"},
               {50000, {ctsAutoDigits}, -4, u"5"},
               {55000, {ctsAutoDigits, ctsNullAsNull}, 2, u"5,50"},
               {12345678, {ctsThousendDivider}, -2, u"1.200"},
               {12345678, {ctsSign}, 2, u"1234,57 €"},
               {-12345678, {ctsThousendDivider, ctsSign}, 3, u"-1.234,568 €"}};
  for (auto& c : texts) EXPECT_EQ(VxCurrToStr(Currency::FromUnits(c.Units), c.Options, c.Digits), c.Text) << c.Units;
  TFormatSettingsScope scope({.DecimalSeparator = u'.', .ThousandSeparator = 0});
  EXPECT_TRUE(StrToCurrDef(u"1.5", 7).Units == 15000 && StrToCurrHeavy(u"1.5", 7) == 15) << "points go here, too";
}

}  // namespace
