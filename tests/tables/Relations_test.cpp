#include "tables/Relations.h"

#include <optional>
#include <sstream>

#include "core/StrictNumbers.h"
#include "platform/Collation.h"
#include "tables/uTypeCsv.h"
#include "tests/support/Test.h"

namespace {

using namespace vx;
using TKey = std::vector<String>;

std::vector<String> Cut(const String& Text) {
  std::vector<String> cells(1);
  for (char16_t unit : Text) unit == u'|' ? cells.emplace_back() : cells.back() += unit;
  return cells;
}
String Column(const TFileCsv& Table, int Col) {
  String text;
  for (int row = 0; row < Table.GetCount(); ++row) text += (row > 0 ? u"|" : u"") + Table.GetCell(Col, row);
  return text;
}
template <typename... T>
std::string Facts(const T&... Values) {
  std::ostringstream text;
  PrintTo(TFacts(Values...), &text);
  return text.str();
}
std::string Shown(std::span<const TUnreadableCell> Cells) {
  std::ostringstream text;
  for (const auto& [col, row, fault] : Cells) text << col << ' ' << row << ' ' << fault.Position << ';';
  return text.str();
}
template <typename T>
std::string Shown(const TGroupSum<T>& Sum, int64_t T::*Units) {
  std::ostringstream text;
  text << Sum.Sum.*Units << ' ' << Sum.Least.*Units << ' ' << Sum.Most.*Units << ' ' << Sum.Read << ' ' << Sum.Empty
       << ' ' << Sum.Missing << ' ' << Sum.Unreadable;
  return text.str();
}

// Rows of one to Cols cells of few texts, so that keys stand often. The first cell is the row's number.
void FillAtRandom(TFileCsv& Table, std::mt19937& Random, int Rows, int Cols) {
  static const TKey texts = {u"",  u"a", u"A", u"ab",  u"b",  u"bc",
                             u"ä", u"Ä", u"7", u"-12", u"07", u"Weiß, Käthe Maria"};
  while (Table.GetCount() < Rows) {
    TKey cells = {IntToStr(Table.GetCount())};
    while (static_cast<int>(cells.size()) < Cols && Random() % 16 != 0) cells.push_back(texts[Random() % texts.size()]);
    Table.AddRow(cells);
  }
}
TKey KeyOf(const TFileCsv& Table, int Row, std::initializer_list<int> Cols) {
  TKey key;
  for (int col : Cols) key.push_back(Table.GetCell(col, Row));
  return key;
}
bool IsSame(const TKey& A, const TKey& B, TKeyOptions Options = {}) {
  return std::ranges::equal(
      A, B, [&](const String& a, const String& b) { return Options.Has(koNoCase) ? AnsiSameText(a, b) : a == b; });
}
using TCols = std::initializer_list<int>;
std::vector<int> RowsWith(const TFileCsv& Table, const TKey& Key, TCols Cols, TKeyOptions Options) {
  std::vector<int> rows;
  for (int row = 0; row < Table.GetCount(); ++row)
    if (IsSame(KeyOf(Table, row, Cols), Key, Options)) rows.push_back(row);
  return rows;
}

TEST(Relations, WhatIsNotOfTheTypeStandsLastAndIsTold) {
  struct TCase {
    TVxFieldType Type;
    TSortOrder Order;
    String Cells, Sorted;
    int Empty;
    std::string Unreadable;
  };
  for (const auto& [type, order, cells, sorted, empty, unreadable] : std::vector<TCase>{
           {vftInteger, TS_ASCENDING, u"10|x||9|-2|010| |12x", u"-2|9|10|010|x|| |12x", 2, "0 4 1;0 7 3;"},
           {vftStatus, TS_DESCENDING, u"2|a|30|b|-1|30", u"30|30|2|-1|a|b", 0, "0 4 1;0 5 1;"},
           {vftHour, TS_DESCENDING, u"7:30|-6:45|6;45||124:30", u"124:30|7:30|-6:45|6;45|", 1, "0 3 2;"},
           {vftCurrency, TS_ASCENDING, u"1.234,50 €|-3,-|25.01|2", u"-3,-|2|1.234,50 €|25.01", 0, "0 3 3;"},
           {vftFloat, TS_ASCENDING, u"0,5|0|-1,25|-0|100|.", u"-1,25|0|-0|0,5|100|.", 0, "0 5 1;"},
           {vftDate, TS_DESCENDING, u"01.02.2014|31.02.2014|31.01.2014|2014-03-01",
            u"2014-03-01|01.02.2014|31.01.2014|31.02.2014", 0, "0 3 1;"},
           {vftTime, TS_ASCENDING, u"24:00|9:30|09:30:15|24:01", u"9:30|09:30:15|24:00|24:01", 0, "0 3 1;"},
           {vftDateTime, TS_ASCENDING, u"02.01.2026 9:00|01.02.2025 10:00|x", u"01.02.2025 10:00|02.01.2026 9:00|x", 0,
            "0 2 1;"},
           {vftBoolean, TS_ASCENDING, u"1|0|2|1|0", u"0|0|1|1|2", 0, "0 4 1;"},
           {vftString, TS_DESCENDING, u"b|A|||ä|a", u"b|ä|A|a||", 0, ""},
           {vftInteger, TS_NONE, u"b|1|0", u"b|1|0", 0, ""}}) {
    TFileCsv table;
    for (const String& cell : Cut(cells)) table.AddRow({cell});
    const TSortFaults faults = SortRows(table, {{0, type, order}});
    EXPECT_EQ(Facts(Column(table, 0), faults.Empty, Shown(faults.Unreadable)), Facts(sorted, empty, unreadable))
        << cells;
  }
}

TEST(Relations, SortByColumnsIsStableAndKeepsAllOthers) {
  std::mt19937 random(1);
  for (int round = 0; round < 60; ++round) {
    THeadCsv table;
    FillAtRandom(table, random, 40, 4);
    const int first = round % 3 == 0 ? -1 : 5, last = round % 2 == 0 ? -1 : 30;
    std::vector<int> rows(40), order;
    std::iota(rows.begin(), rows.end(), 0);
    const auto number = [&](int row) -> std::optional<int64_t> {
      int64_t value = 0;
      TTextFault fault;
      return TryStrToInt64Strict(table.GetCell(2, row), value, fault) ? std::optional(value) : std::nullopt;
    };
    std::stable_sort(rows.begin() + (first < 0 ? 1 : first), last < 0 ? rows.end() : rows.begin() + last + 1,
                     [&](int a, int b) {
                       if (const int text = AnsiCompareText(table.GetCell(1, a), table.GetCell(1, b))) return text < 0;
                       if (const auto x = number(a), y = number(b); x != y) return x && y ? *x > *y : x.has_value();
                       return AnsiCompareText(table.GetCell(3, a), table.GetCell(3, b)) > 0;
                     });
    SortRows(table, {{1}, {2, vftInteger, TS_DESCENDING}, {3, vftString, TS_DESCENDING}}, first, last);
    for (int row = 0; row < table.GetCount(); ++row) order.push_back(StrToInt(table.GetCell(0, row)));
    EXPECT_EQ(order, rows) << round;
  }
}

TEST(Relations, IndexFindsWhatAWalkFinds) {
  std::mt19937 random(2);
  for (int round = 0; round < 40; ++round) {
    TFileCsv table;
    FillAtRandom(table, random, static_cast<int>(random() % 90), 4);
    const TKeyOptions options = round % 2 ? TKeyOptions{koNoCase} : TKeyOptions{};
    const TKeyIndex one(table, {1}, options), two(table, {1, 2}, options);
    int found = 0;
    for (const TKey& key :
         {TKey{u"a", u"bc"}, TKey{u"ab", u"b"}, TKey{u"Ä", u""}, TKey{u"", u""}, TKey{u"weiß, käthe maria", u"7"}}) {
      const auto both = two.Rows(key[0], key[1]), first = one.Rows(key[0]);
      EXPECT_EQ(std::vector(both.begin(), both.end()), RowsWith(table, key, {1, 2}, options)) << round;
      EXPECT_EQ(std::vector(first.begin(), first.end()), RowsWith(table, {key[0]}, {1}, options)) << round;
    }
    for (int key = 0; key < two.GetCount(); ++key) found += static_cast<int>(two.RowsAt(key).size());
    EXPECT_EQ(Facts(found, two.IsStale(), TKeyIndex(table, {0}).IsUnique()), Facts(table.GetCount(), false, true));
  }
}

TEST(Relations, IndexTellsThatItsTableHasChanged) {
  THeadCsv table;
  table.SetText(u"Nr,Name\r\n1,Anja\r\n2,Tim\r\n3,Tim");
  const TKeyIndex index(table, {u"Name"});
  EXPECT_EQ((TFacts{index.Row(u"Anja"), index.Row(u"anja"), index.Row(u"Name"), index.Rows(u"Tim")}), "1 -1 -1 2,3");
  EXPECT_EQ(test::RaisedBy<EListError>([&] { (void)index.Row(u"Tim"); }), u"Several rows have the key 'Tim'");
  EXPECT_THROW(index.Row(u"Anja", u"1"), EArgumentException);
  table.SetCell(0, 1, u"4");
  EXPECT_EQ((TFacts{index.IsStale(), index.Row(u"Anja")}), "no 1") << "no key has changed";
  table.SetCell(1, 3, u"Anja");
  EXPECT_TRUE(index.IsStale());
  table.SetCell(1, 1, u"Ida");
  EXPECT_THROW((void)index.Row(u"Anja"), EListError);
  EXPECT_THROW((void)InnerJoin(table, {1}, index), EListError);
  table.SetCell(1, 1, u"Anja");
  table.SetCell(1, 3, u"Tim");
  EXPECT_EQ((TFacts{index.IsStale(), index.Row(u"Anja")}), "no 1");
  table.Delete(2);
  EXPECT_THROW((void)index.Rows(u"Ida"), EListError) << "a key that is not there, either";
  EXPECT_TRUE(index.IsStale());
}

TEST(Relations, JoinsPairAllRowsAndTellTheOthers) {
  std::mt19937 random(3);
  for (int round = 0; round < 40; ++round) {
    TFileCsv left, right;
    FillAtRandom(left, random, static_cast<int>(random() % 30), 3);
    FillAtRandom(right, random, static_cast<int>(random() % 30), 4);
    const TKeyOptions options = round % 2 ? TKeyOptions{koNoCase} : TKeyOptions{};
    const TJoin inner = InnerJoin(left, {1, 2}, right, {3, 1}, options);
    const TJoin outer = LeftJoin(TRelationRows(left), {1, 2}, TKeyIndex(right, {3, 1}, options));
    std::vector<TRowPair> pairs, outerPairs;
    std::vector<int> leftOnly, rightOnly;
    std::set<int> partners;
    for (int row = 0; row < left.GetCount(); ++row) {
      const TKey key = KeyOf(left, row, {1, 2});
      const std::vector<int> found = key == TKey(2) ? std::vector<int>() : RowsWith(right, key, {3, 1}, options);
      for (int other : found) pairs.push_back({row, other}), outerPairs.push_back({row, other}), partners.insert(other);
      if (found.empty()) leftOnly.push_back(row), outerPairs.push_back({row, -1});
    }
    for (int row = 0; row < right.GetCount(); ++row)
      if (!partners.contains(row)) rightOnly.push_back(row);
    EXPECT_TRUE(inner.Pairs == pairs) << round;
    EXPECT_TRUE(outer.Pairs == outerPairs) << round;
    for (const TJoin* join : {&inner, &outer})
      EXPECT_EQ(Facts(join->LeftOnly, "/", join->RightOnly), Facts(leftOnly, "/", rightOnly)) << round;
  }
}

TEST(Relations, JoinsBecomeTables) {
  THeadCsv visits, patients;
  visits.SetText(u"Patient,Stunden\r\nP2,1:00\r\nP1\r\n,3:00\r\nP2,4:00\r\nP9,5:00");
  patients.SetText(u"Nr,Name\r\nP1,Anja\r\nP2,Tim\r\n\r\nP3,Ida");
  const TJoin join = LeftJoin(visits, {u"patient"}, patients, {u"Nr"});
  EXPECT_EQ(join.ToTable({OfRight(u"Name").As(u"Wer"), u"Stunden", OfRight(7)})->GetText(),
            u"Wer,Stunden,\r\nTim,1:00,\r\nAnja,,\r\n,3:00,\r\nTim,4:00,\r\n,5:00,");
  EXPECT_EQ((TFacts{join.LeftOnly, join.RightOnly}), "3,5 3,4");
  const TGroups groups(join, {OfRight(u"Name")});
  EXPECT_EQ(Shown(SumHours(groups, u"Stunden").Total, &THourAmount::Minutes), "780 60 300 4 0 1 0");
  EXPECT_EQ((TFacts{groups.GetCount(), groups.Rows(0), groups.GroupOf(3)}), "3 0,3 0");
}

TEST(Relations, GroupsHoldEachRowOnce) {
  std::mt19937 random(4);
  for (int round = 0; round < 40; ++round) {
    THeadCsv table;
    FillAtRandom(table, random, 1 + static_cast<int>(random() % 60), 4);
    const TKeyOptions options = round % 2 ? TKeyOptions{koNoCase} : TKeyOptions{};
    const TGroups groups(table, {2, 1}, options);
    std::vector<TKey> keys;
    std::vector<std::vector<int>> rows;
    for (int row = 1; row < table.GetCount(); ++row) {
      const TKey key = KeyOf(table, row, {2, 1});
      const auto same = std::ranges::find_if(keys, [&](const TKey& other) { return IsSame(key, other, options); });
      const auto group = static_cast<size_t>(same - keys.begin());
      if (same == keys.end()) keys.push_back(key), rows.emplace_back();
      rows[group].push_back(row);
      EXPECT_EQ(groups.GroupOf(row), static_cast<int>(group)) << round;
    }
    ASSERT_EQ(groups.GetCount(), static_cast<int>(keys.size()));
    const TGroupSums<int64_t> sums = SumIntegers(groups, 3);
    TGroupSum<int64_t> total;
    for (int group = 0; group < groups.GetCount(); ++group) {
      const auto at = static_cast<size_t>(group);
      EXPECT_EQ(Facts(groups.Key(group), groups.Key(group, 1), groups.Rows(group)),
                Facts(keys[at][0], keys[at][1], rows[at]));
      const TGroupSum<int64_t>& sum = sums.Groups[at];
      EXPECT_EQ(sum.Read + sum.Empty + sum.Missing + sum.Unreadable, groups.Size(group));
      total.Sum += sum.Sum, total.Read += sum.Read, total.Unreadable += sum.Unreadable;
    }
    EXPECT_EQ(Facts(sums.Total.Sum, sums.Total.Read, sums.Unreadable.size()),
              Facts(total.Sum, total.Read, total.Unreadable));
  }
}

TEST(Relations, SumsAndPivotsAreExactAndTellWhatIsMissing) {
  THeadCsv table;
  table.SetText(
      u"Wer,Datum,Stunden,Betrag,Zahl\r\nTim,04.05.2026,7:30,\"1,21\",5\r\nAnja,\"2026-05-04 "
      u"07:00\",-6:45,\"-0,01\",-5\r\n"
      u"Tim,31.02.2026,x,25.01,1\r\ntim,01.12.2025,:15,,9223372036854775807\r\nTim,31.05.2026,-9:00\r\nAnja,,1:00,3");
  const TGroups groups(table, {u"wer", ByMonth(u"Datum")}, {koNoCase});
  const auto hours = SumHours(groups, u"Stunden");
  const auto money = SumMoney(groups, u"Betrag");
  EXPECT_EQ(Shown(groups.GetUnreadable()), "1 3 1;");
  EXPECT_EQ(Shown(hours.Groups[0], &THourAmount::Minutes), "-90 -540 450 2 0 0 0");
  EXPECT_EQ(Shown(money.Total, &Currency::Units), "42000 -100 30000 3 1 1 1");
  EXPECT_EQ(Shown(money.Unreadable) + Shown(hours.Unreadable), "3 3 3;2 3 1;");
  EXPECT_EQ(PivotSums(groups, hours)->GetText(), u"Wer,,2025-12,2026-05\r\nAnja,1:00,,-6:45\r\nTim,,0:15,-1:30");
  EXPECT_EQ(PivotSums(groups, money)->GetText(), u"Wer,,2025-12,2026-05\r\nAnja,\"3,00\",,\"-0,01\"\r\nTim,,,\"1,21\"");
  EXPECT_EQ(PivotCounts(groups)->GetText(), u"Wer,,2025-12,2026-05\r\nAnja,1,,1\r\nTim,1,1,2");
  const auto text = groups.ToTable(u"Anzahl");
  AddSums(*text, u"Stunden", hours);
  EXPECT_EQ(text->GetText(),
            u"Wer,Datum,Anzahl,Stunden\r\nTim,2026-05,2,-1:30\r\nAnja,2026-05,1,-6:45\r\nTim,,1,\r\ntim,2025-12,1,0:"
            u"15\r\nAnja,,1,1:00");
  EXPECT_EQ(TGroups(table, {u"Wer"}).ToTable()->GetText(), u"Wer\r\nTim\r\nAnja\r\ntim") << "distinct";
  EXPECT_EQ(TGroups(table, {By(u"Zahl", [](auto cell, TTextFault&) { return IntToStr(cell.size()); })})
                .ToTable(u"n")
                ->GetText(),
            u"Zahl,n\r\n1,2\r\n2,1\r\n19,1\r\n0,2");
  EXPECT_EQ(
      (TFacts{TGroups(table, {}).GetCount(), TGroups(table, {ByYear(1)}).Key(2), TGroups(table, {ByDay(1)}).Key(0)}),
      "1 2025 2026-05-04");
  const auto dates = FindDates(TGroups(table, {}), u"Datum");
  EXPECT_EQ((TFacts{dates.Total.Least, dates.Total.Most, dates.Unreadable.size()}), "45992 46173 2");
  EXPECT_THROW(SumIntegers(TGroups(table, {}), u"Zahl"), EOverflow);
}

TEST(Relations, RefuseWhatCannotBe) {
  THeadCsv table;
  table.SetText(u"a,b\r\n1,2");
  TSortCsv sorted;
  TCsvView view;
  view.SetText(u"a\r\n2\r\n1\r\nSumme");
  view.GetDecorations().SetFixed(0, 1, 0, 1);
  SortRows(view, {{u"a"}});
  EXPECT_EQ(view.GetText(), u"a\r\n1\r\n2\r\nSumme") << "fixed rows stay";
  view.SetViewMode(true);
  const TGroups groups(table, {u"a"});
  EXPECT_EQ(test::RaisedBy<EArgumentException>([&] { SortRows(table, {{u"c"}}); }), u"The table has no column 'c'");
  for (const auto& wrong : std::vector<std::function<void()>>{
           [&] { SortRows(sorted, {{0}}); }, [&] { SortRows(view, {{0}}); }, [&] { (void)TKeyIndex(table, {}); },
           [&] { (void)TKeyIndex(table, {-1}); }, [&] { (void)TGroups(table, {OfRight(0)}); },
           [&] {
             (void)InnerJoin(table, {u"a", u"b"}, table, {u"a"});
           },
           [&] { (void)PivotCounts(groups); }, [&] { SortRows(table, {{0}}, -2); },
           [&] { AddSums(table, u"x", TGroupSums<int64_t>{}); }})
    EXPECT_THROW(wrong(), EArgumentException);
  EXPECT_THROW((void)groups.Key(1), EListError);
  EXPECT_THROW((void)groups.Key(0, 1), EListError);
  EXPECT_THROW((void)groups.GroupOf(0), EListError);
  EXPECT_THROW((void)TKeyIndex(table, {0}).RowsAt(-1), EListError);
}

}  // namespace
