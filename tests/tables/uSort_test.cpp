#include "tables/uSort.h"

#include "tests/support/Test.h"

namespace {

// Each case has "<", "=" or ">" between its cells.
TEST(uSort, ComparesCellsByTheirType) {
  const TCases<TVxFieldType, const char16_t*, TCells> cases = {
      {vftBoolean, u"", {u"ja > nein", u"x = ", u"0 < 1"}},
      {vftFloat, u"", {u"1,5 = 1,50", u"0,1234567890123456789 > 0,1234567890123456788"}},
      {vftFraction, u"", {u"x > -1"}},
      {vftHour, u"", {u"100:00 > 99:59", u"1:30 > -1:30"}},
      {vftCurrency, u"", {u"1.234,56 < 1234,57"}},
      {vftString, u"", {u"Muller < MÜLLER"}},
      {vftUnknown, u"", {u"a = A"}},
      {vftCommatext, u"", {u"a,\"b\" = \"a\",B", u"a,b > a"}},
      // by year, month and day where both have points, else by what is read
      {vftDate,
       u"",
       {u"01.02.2014 > 31.01.2014", u"01.02.2014 x = 01.02.2014", u"99.99.2014 < 01.01.2015", u"20140201 = 01.02.2014",
        u"31.02.2014 = ", u"31.02.2014 > 01.01.2014", u" > 01.01.1800", u"20140131 < 01.02.2014",
        u"\u0131\u0131.01.2014 > 31.01.2014", u"01-02-2014 < 31.12.1899"}},
      {vftDate, u"mmdd", {u"01.02.2014 > 02.01.2015"}},
      // by the first other character where colons stand at their places
      {vftTime,
       u"",
       {u"09:30 < 10:00", u"9:30 > 10:00", u"09:30 < 09:30:15", u"09:30 = 09:30:00", u" < 00:00", u" = ", u"09 < 0930",
        u"0930 < 0945", u"09:3 < 09:30", u"09:30:15:9 = 09:30:15:1", u"09:30:15 = 09:30:15:1", u"09:75 = 09:75:30",
        u"0x > 0", u"x > 10"}},
      {vftTime, u"nn", {u"09:45 > 10:30"}},
      {vftDateTime,
       u"",
       {u"11.02.2015 09:30 > 10.02.2015 10:00", u"11.02.2015 09:30 > 11.02.2015", u"11.02.2015 < 12.02.2015",
        u"11.02.2015 = ", u"11.02.2015 09:30 < 11.02.2015 09:30:15", u" = 30.12.1899 00:00",
        u"11.02.2015 09:30 < 11.02.2015x09:31", u"11.02.2015 9:30 > 11.02.2015", u"20150211 0930 = 11.02.2015 09:30"}},
      {vftDateTime, u"dd", {u"11.02.2015 09:30 < 12.01.2015 09:31"}}};
  for (const auto& [type, format, comparisons] : cases) {
    for (const String& comparison : comparisons) {
      const size_t at = comparison.view().find_first_of(u"<=>");
      const String a = comparison.view().substr(0, at - 1), b = comparison.view().substr(at + 2);
      const int wanted = static_cast<int>(std::u16string_view(u"<=>").find(comparison.view()[at])) - 1;
      EXPECT_EQ(Compare(a, b, type, format), wanted) << comparison;
      EXPECT_EQ(Compare(b, a, type, format), -wanted) << comparison;
    }
  }
  const TCases<TVxFieldType, String, String, std::string> differences = {
      // and the other way round
      {vftInteger, u"Rest", u"5", "-5 5"},
      {vftStatus, u"12", u"3", "9 -9"},
      {vftInteger, u"-2147483648", u"1", "-2147483648 2147483647"},
      {vftInteger, u"2147483647", u"-1", "2147483647 -2147483648"}};
  for (const auto& [type, a, b, results] : differences)
    EXPECT_EQ((TFacts{Compare(a, b, type, u""), Compare(b, a, type, u"")}), results);
  EXPECT_EQ(CompareTime(String(1, u'\0'), u"", u"hhnnss"), 0);
  EXPECT_EQ(CompareTime(u"9:30", u"10:00", u"HHNNSS"), -1) << "another format: both are read, and 9:30 is no time";
  EXPECT_EQ(CompareDate(u"31.02.2014", u"01.01.1800", u"yyyymmdd "), 1);
  EXPECT_EQ(CompareDateTime(u"31.12.2014 10:00", u"31.12.2014 10:00", u""), 0);
}

struct TItem : TListItem {
  explicit TItem(std::u16string_view Commatext) { Cells.SetCommatext(Commatext); }
  String GetCaption() const override { return u"Meier"; }
  const TStrings& GetSubItems() const override { return Cells; }
  TVxStringList Cells;
};

TEST(uSort, ItemsAndRowsAreComparedByAColumnAndItsDirection) {
  TItem item1(u"5,x"), item2(u"12");
  TSortColumn column{.Index = 1, .SortType = vftInteger, .SortDirection = 1};
  for (auto [direction, result] : {std::pair{1, -7}, {-1, 7}, {INT_MIN, INT_MAX}}) {
    column.SortDirection = direction;
    EXPECT_EQ(CustomSortProc(item1, item2, &column), result);
  }
  EXPECT_EQ(CustomSortProc(item2, item1, &column), INT_MIN);
  column.Index = 0;
  EXPECT_EQ(CustomSortProc(item1, item2, &column), 0);
  column.Index = 2;
  EXPECT_EQ(CustomSortProc(item1, item2, &column), 0) << "no second sub-item";
  EXPECT_EQ(test::RaisedBy<EInvalidPointer>([&] { CustomSortProc(item1, item2, nullptr); }),
            u"Kein TSortColumn Objekt an Adresse 0");
  column = {.Index = 1, .SortType = vftString, .SortDirection = 1};
  EXPECT_EQ(CustomSortProcStr(item1.Cells, item2.Cells, &column), 1) << "a short row is empty there";
  EXPECT_EQ(CustomSortProcStr(item1.Cells, item2.Cells, nullptr), 0);
  column.SortDirection = 0;
  EXPECT_EQ(CustomSortProcStr(item1.Cells, item2.Cells, &column), 0);
  const TVxStringList* rows[] = {&item2.Cells, &item1.Cells};
  column = {.Index = -1, .SortType = vftInteger, .SortDirection = 1};
  EXPECT_EQ(OrderRows(rows, {&column, 1}), (std::vector{0, 1})) << "no row has that column";
  EXPECT_EQ(OrderRows(rows, {}), (std::vector{0, 1}));
  EXPECT_TRUE(OrderRows({}, {&column, 1}).empty());
}

// Rows, an empty text as the last cell not there at all.
struct TRows {
  void Add(const TCells& Texts) {
    TVxStringList& row = *Owned.emplace_back(std::make_unique<TVxStringList>());
    row.AddStrings(std::span(Texts).first(Texts.size() - (Texts.back().empty() ? 1 : 0)));
    Rows.push_back(&row);
  }
  template <typename TLess>
  std::vector<int> StableSorted(TLess Less) const {
    std::vector<int> order(Rows.size());
    std::iota(order.begin(), order.end(), 0);
    auto row = [&](int place) -> const TVxStringList& { return *Rows[static_cast<size_t>(place)]; };
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return Less(row(a), row(b)); });
    return order;
  }
  std::vector<int> StableSorted(const std::vector<TSortColumn>& By) const {
    return StableSorted([&](const TVxStringList& a, const TVxStringList& b) {
      int result = 0;
      for (size_t i = 0; i < By.size() && result == 0; ++i) result = CustomSortProcStr(a, b, &By[i]);
      return result < 0;
    });
  }
  std::vector<const TVxStringList*> Rows;
  std::vector<std::unique_ptr<TVxStringList>> Owned;
};

struct TKind {
  TVxFieldType Type;
  std::u16string_view Format, Usual, Odd;  // lighttexts; odd is what can't always be compared in a consistent way
};

using namespace std::string_view_literals;
constexpr auto kTimes = u"|09:30|10:00|09:30:15|09:30:00|25:10|25:10:59|99:00"sv;
constexpr auto kOddTimes = u"9:30|0930|09:75|09:75:01|09:30:15:5|x|\0|09:3\u0130"sv;
constexpr TKind kKinds[] = {
    {vftString, u"",
     u"Müller|mÜLLER|Muller|Mueller|Weiß|Weiss|Donaudampfschiff|Donaudampfschiffe|Donaudampfschïff|ab"
     "|a\u0300b|àb|漢字|漢字ⅳ|漢字Ⅳ|\xD800|\uFB01x|fix|\0|\0\0|a\0|a\u00ADb|Ωmega|"sv,
     u""},
    {vftBoolean, u"", u"1|JA|0|x|", u""},
    {vftInteger, u"", u"5|-5|2147483647|-2147483648|Rest|$10||0", u""},
    {vftFloat, u"", u"1,5|1,50|-0|0|-7|x||10", u""},
    {vftFraction, u"", u"0|-0|1E3000|2E3000|-1E3000|1E-3000|0,1234567890123456789|0,1234567890123456788|1", u""},
    {vftHour, u"", u"1:30|-1:30|100:05|0:00||25:61|-0:30", u""},
    {vftCurrency, u"", u"1.234,56|1234,56|-3|x||922337203685477,58|-922337203685477,58", u""},
    {vftCommatext, u"", u"a,b|\"a\",B|a||a\nb|b,a", u""},
    {vftDate, u"", u"01.02.2014|31.01.2014|29.02.2012||20140201|x|01.01.1800",
     u"31.02.2015|00.00.0000|  .  .    |11.02.2015 x|11.02.2015 y|\u0101\u0102.01.2014"},
    {vftDate, u"dd/mm", u"01.02.2014|01.02.2013|31.01.2014||20140201|31.02.2015", u""},
    {vftTime, u"hhnnss", kTimes, kOddTimes},
    {vftTime, u"n'ä'h", kTimes, kOddTimes},
    {vftDateTime, u"",
     u"11.02.2015 09:30|11.02.2015 09:30:15|11.02.2015 09:30:00|11.02.2015|30.12.1899"
     "|30.12.1899 00:00|12.01.2016|10.02.2015 23:59:59",
     u"|20150211 0930|x|29.12.1899|29.12.1899 10:00|29.12.1899 10:00:30|11.02.2015T09:30|11.02.2015 09:30:15:123"
     "|11.02.2015 25:00|31.02.2015|31.02.2015 10:00|11.02.2015 "},
    {vftDateTime, u"", u"11.02.2015 09:30", u"|12.01.2016|11.02.2015"},
    {vftDateTime, u"", u"11.02.2015 09:30", u"29.12.1899 10:00|29.12.1899 10:00:30|29.12.1899|29.12.1899 10:00:20"},
    {vftDateTime, u"", u"11.02.2015 09:30", u"11.02.2015 25:00|20150212 0000"},
    {vftDateTime, u"", u"|20150211 0930|11.02.2015 09:30|11.02.2015 09:30:15|x|30.12.1899 00:00", u""}};

// A few texts of a kind, so that columns of one form are met as well as mixed ones.
TCells Choice(std::u16string_view Lighttext, std::u16string_view More, std::mt19937& Random) {
  TCells texts = ReadLighttext(Lighttext), more = ReadLighttext(More);
  texts.insert(texts.end(), more.begin(), more.end());
  std::shuffle(texts.begin(), texts.end(), Random);
  texts.resize(1 + Random() % texts.size());
  return texts;
}

TEST(OrderRows, OneColumnStandsAsAStableSortHasItWhateverItsTexts) {
  std::mt19937 random(1);
  for (const TKind& kind : kKinds) {
    for (int round = 0; round < 120; ++round) {
      const TCells pool = Choice(kind.Usual, round % 2 != 0 ? kind.Odd : u"", random);
      TRows rows;
      for (size_t n = random() % (round < 100 ? 60 : 500); n > 0; --n) rows.Add({u"x", pool[random() % pool.size()]});
      TFormatSettings settings;
      if (round % 5 == 4) settings.ShortDateFormat = u"m/d/yyyy";
      TFormatSettingsScope scope(settings);
      const std::vector<TSortColumn> by = {{1, kind.Type, round % 3 == 0 ? -2 : 3, String(kind.Format)}};
      ASSERT_EQ(OrderRows(rows.Rows, by), rows.StableSorted(by)) << kind.Type << " round " << round;
    }
  }
}

TEST(OrderRows, FurtherColumnsPutEqualRowsInOrder) {
  std::mt19937 random(2);
  for (int round = 0; round < 300; ++round) {
    std::vector<TSortColumn> by;
    std::vector<TCells> pools;
    for (int column = 0; column < 3; ++column) {
      const TKind& kind = kKinds[random() % std::size(kKinds)];
      pools.push_back(Choice(kind.Usual, u"", random));
      by.push_back({column, kind.Type, static_cast<int>(random() % 7) - 3, String(kind.Format)});
    }
    std::shuffle(by.begin(), by.end(), random);
    TRows rows;
    for (int n = 0; n < 80; ++n) {
      TCells texts;
      for (const TCells& pool : pools) texts.push_back(pool[random() % pool.size()]);
      rows.Add(texts);
    }
    ASSERT_EQ(OrderRows(rows.Rows, by), rows.StableSorted(by)) << "round " << round;
  }
}

TEST(OrderRows, ManyRows) {
  std::mt19937 random(3);
  const std::pair<TVxFieldType, std::function<String()>> makers[] = {
      {vftString, [] { return u"immer dasselbe und lang"; }},
      {vftString, [&] { return String(random() % 30, u'a'); }},
      {vftString, [&] { return String::FromUtf8(std::to_string(random() % 40000)); }},
      {vftInteger, [&] { return String::FromUtf8(std::to_string(static_cast<int>(random()))); }},
      {vftFloat, [&] { return String::FromUtf8(std::to_string(random() % 900) + "," + std::to_string(random())); }}};
  for (const auto& [type, make] : makers) {
    TRows rows;
    for (int n = 0; n < 40000; ++n) rows.Add({make()});
    for (int direction : {1, -1}) {
      const std::vector<TSortColumn> by = {{0, type, direction, {}}};
      EXPECT_TRUE(OrderRows(rows.Rows, by) == rows.StableSorted(by)) << type;
    }
  }
}

TEST(OrderRowsByUnits, StandsAsAStableSortByCodeUnits) {
  std::mt19937 random(4);
  for (int round = 0; round < 200; ++round) {
    TRows rows;
    for (int n = 0; n < 100; ++n) {
      String text;
      for (size_t left = random() % 14; left > 0; --left)
        text += u"\0\0\0aä\uFFFF"[random() % (round % 2 == 0 ? 3 : 6)];
      rows.Add({text, u"x"});
    }
    ASSERT_EQ(OrderRowsByUnits(rows.Rows, 0), rows.StableSorted([](auto& a, auto& b) { return a.Get(0) < b.Get(0); }));
    for (int none : {2, -1}) EXPECT_THROW(OrderRowsByUnits(rows.Rows, none), EStringListError);
  }
  TRows zeros;  // many that end early beside a long one take no time for its length each
  for (int n = 0; n < 50000; ++n) zeros.Add({n == 7 ? String(1000000, u'\0') : String(), u"x"});
  EXPECT_EQ(OrderRowsByUnits(zeros.Rows, 0).back(), 7);
}

}  // namespace
