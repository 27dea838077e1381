#include "tables/uFileCsv/TSortCsv.h"

#include "tests/support/PlainTable.h"
#include "tests/support/Test.h"

namespace {

// A row that is counted, and that can refuse to take over another one's content.
class TCountedRow : public TVxStringList {
 public:
  explicit TCountedRow(const String& Commatext) {
    ++Alive;
    SetCommatext(Commatext);
  }
  ~TCountedRow() override { --Alive; }
  void Assign(const TStrings& Source) override { Refuses ? throw std::bad_alloc() : TVxStringList::Assign(Source); }
  static inline int Alive = 0, Refuses = 0;
};

class TDerivedSortCsv : public TSortCsv {
 public:
  int Add(TObject* Row) override { return ++Added == RaisesAt ? throw std::bad_alloc() : TSortCsv::Add(Row); }
  void Delete(int Index) override {
    ++Deleted;
    TSortCsv::Delete(Index);
  }
  int Added = 0, Deleted = 0, RaisesAt = 0;
};

String Text(int A, int B) { return String::FromUtf8(std::to_string(A) + "," + std::to_string(B)); }
String Show(const TFileCsv& Table) { return Table.ExportToString(u"/"); }

TEST(TSortCsv, TheLastRowOfAKeyWinsAndCaseCounts) {
  TSortCsv table;
  EXPECT_EQ(table.IndexForKey(u"a"), 0);
  EXPECT_EQ(table.ItemForKey(u"a"), nullptr);
  for (auto [row, index] : {std::pair{u"b,1", 0}, {u"a,2", 0}, {u"A,3", 0}, {u"ä,4", 3}, {u"b,5,6", 2}, {u"ab,7", 2}})
    EXPECT_EQ(table.AddRow(row), index);
  EXPECT_EQ(Show(table), u"A,3/a,2/ab,7/b,5,6/ä,4/");
  for (auto [key, index] :
       {std::pair{u"A", 0}, {u"", 0}, {u"B", 1}, {u"a", 1}, {u"aa", 2}, {u"b", 3}, {u"z", 4}, {u"å", 5}}) {
    EXPECT_EQ(table.IndexForKey(key), index);
    const bool isThere = table.GetCell(0, index) == key && index < 5;
    EXPECT_EQ(table.ItemForKey(key), isThere ? table.GetLines(index) : nullptr);
    EXPECT_EQ(table.ElementForKey(key, 1, u"-"), isThere ? table.GetCell(1, index) : u"-");
    EXPECT_EQ(table.SetElement(key, 2, u"x") + table.SetElement(key, -1, u"x"), index == 3);
  }
  EXPECT_EQ(table.ElementForKey(u"b", 2, u"-") + table.ElementForKey(u"b", 3, u"-"), u"x-");
  EXPECT_EQ(table.Add(table.Get(3)), 3);  // the very same row
  TScriptedDialogs dialogs;
  table.ShowIndex();
  EXPECT_EQ(dialogs.Shown.at(0).Text, u"A\r\na\r\nab\r\nb\r\nä\r\n");
}

TEST(TSortCsv, CopiesStandAsTheirSourceAndKeepTheColumn) {
  TFileCsv source;
  for (const char16_t* row : {u"2,b", u"1,a", u"2,c"}) source.AddRow(row);
  TSortCsv table;
  table.AddRow(u"9"), table.Assign(source), table.Assign(table);
  EXPECT_EQ(Show(table), Show(source));
  table.SetSortColumn(1);
  auto copy = table.Duplicate();
  EXPECT_EQ(dynamic_cast<TSortCsv&>(*copy).GetSortColumn(), 1);
  EXPECT_EQ(Show(*copy) + Show(*table.TurnAxis()), u"1,a/2,b/2,c/1,2,2/a,b,c/");
  table.Init();
  EXPECT_EQ(table.GetCount() + table.GetSortColumn(), 0);
}

TEST(TSortCsv, ARowWithoutTheCellRaises) {
  TSortCsv table;
  table.SetSortColumn(1);
  TCountedRow shortRow(u"a");
  TObject foreign;
  EXPECT_THROW(table.Add(&shortRow), EStringListError);
  EXPECT_THROW(table.Add(&foreign), EInvalidCast);
  for (const char16_t* row : {u"a,1", u"a,3,x", u"b,2,x"}) table.AddRow(row);
  for (int column : {2, 3, -1}) EXPECT_THROW(table.SetSortColumn(column), EStringListError);
  EXPECT_EQ((TFacts{Show(table), table.GetSortColumn()}), "a,1/b,2,x/a,3,x/ 1");
  table.TObjectList::Insert(1, new TCountedRow(u"short"));
  EXPECT_EQ(table.IndexSort(u"0"), 0);  // the short row is not looked at
  EXPECT_THROW(table.IndexSort(u"1"), EStringListError);
  String many;
  for (int i = 300; i > 0; --i) many += i == 100 ? String(u"x/") : Text(i, i + 500) + u"/";
  table.Clear();
  EXPECT_THROW(table.ImportFromString(many, u"/"), EStringListError);
  EXPECT_EQ((TFacts{table.GetCount(), table.GetCell(0, 0)}), "200 101");
}

// Rows by all ways, against a model of one after the other: the row object of each key, and its commatext.
TEST(TSortCsv, ManyRowsComeAsIfOneByOne) {
  test::TTempDir dir;
  const String path = dir.Path("a.csv");
  using TSource = std::unique_ptr<TFileCsv>;
  const std::pair<bool, std::function<void(TSortCsv&, TSource)>> ways[] = {
      // and whether the table is cleared
      {false, [](auto& t, TSource rows) { t.AddAndFree(std::move(rows)); }},
      {false, [](auto& t, TSource r) { std::ranges::for_each(Rows(*r), [&](auto& row) { t.AddRow(row); }); }},
      {false, [](auto& t, TSource rows) { t.AddFileCsv(*rows); }},
      {false, [](auto& t, TSource rows) { t.ImportFromString(Show(*rows), u"/"); }},
      {true, [&](auto& t, TSource rows) { test::PutText(path, rows->GetText().ToUtf8()), t.LoadFromFile(path); }},
      {true, [](auto& t, TSource rows) { t.SetText(rows->GetText()); }},
      {true, [](auto& t, TSource rows) { t.SetAnsiCsv(rows->GetAnsiCsv()); }}};
  std::mt19937 random(5);
  TSortCsv table;
  for (int round = 0; round < 126; ++round) {
    std::map<std::u16string, std::pair<TObject*, String>> model;
    auto add = [&](const TFileCsv& rows, int column, bool isSame) {
      for (int i = 0; i < rows.GetCount(); ++i) {
        const std::u16string key(rows.GetCell(column, i));
        auto& kept = model.try_emplace(key, isSame ? rows.Get(i) : nullptr, u"").first->second;
        kept.second = rows.GetLines(i)->GetCommatext();
      }
    };
    const int way = round % 7, column = table.GetSortColumn();
    const bool owns = round < 63;
    std::vector<TObject*> before(table.Items().begin(), table.Items().end());
    table.SetOwnsObjects(owns);
    if (round % 6 == 5) {
      add(table, 1 - column, true);
      table.SetSortColumn(1 - column);
    } else {
      const auto& [clears, put] = ways[way];
      if (!clears) add(table, column, true);
      auto rows = std::make_unique<TFileCsv>();
      const int count = round == 4 ? 100000 : static_cast<int>(random() % 300), keys = round % 2 ? 100 : 1000000;
      auto key = [&] { return static_cast<int>(random() % 2000000) % keys; };
      for (int i = 0; i < count; ++i) rows->Add(new TCountedRow(Text(key(), key())));
      add(*rows, column, way == 0);
      if (way == 0) before.insert(before.end(), rows->Items().begin(), rows->Items().end());
      put(table, std::move(rows));
    }
    ASSERT_EQ(table.GetCount(), static_cast<int>(model.size())) << round;
    int index = 0;
    for (const auto& [cell, kept] : model) {
      ASSERT_EQ(table.GetLines(index)->GetCommatext(), kept.second) << round;
      ASSERT_EQ(kept.first ? table.Get(index) : nullptr, kept.first) << round;
      ASSERT_EQ(table.IndexForKey(cell), index++);
    }
    for (TObject* row : before)
      if (!owns && table.IndexOf(row) < 0) delete row;
    table.SetOwnsObjects(true);
    if (round % 8) continue;
    table.AddFileCsv(table);  // the very same rows change nothing
    auto same = std::make_unique<TFileCsv>(false);
    for (TObject* row : table.Items()) same->Add(row);
    table.AddAndFree(std::move(same));
    ASSERT_EQ(table.GetCount(), index);
  }
  table.Clear();
  EXPECT_EQ(TCountedRow::Alive, 0);
}

TEST(TSortCsv, DerivedTablesAndThoseOutOfOrderTakeRowsOneByOne) {
  TDerivedSortCsv derived;
  TSortCsv single, bulk;
  String many;
  for (TSortCsv* table : {&single, &bulk})
    for (const char16_t* row : {u"5,1", u"1,2", u"9,3", u"3,4", u"9,5"}) table->TObjectList::Add(new TCountedRow(row));
  for (int i = 300; i > 0; --i) {
    many += Text(i % 100, i % 70) + u"/";
    single.AddRow(Text(i % 100, i % 70));
  }
  bulk.ImportFromString(many, u"/");
  EXPECT_EQ(Show(bulk), Show(single));
  derived.ImportFromString(many, u"/"), derived.SetSortColumn(1);
  EXPECT_EQ((TFacts{derived.Added, derived.Deleted}), "400 100");
  derived.RaisesAt = 410;
  EXPECT_THROW(derived.SetSortColumn(0), std::bad_alloc);  // and no row is lost
  EXPECT_EQ(derived.GetCount(), 70);
}

TEST(TSortCsv, AFailureLosesNoRow) {
  for (bool isRepeated : {true, false}) {
    TSortCsv table;
    auto rows = std::make_unique<TFileCsv>();
    for (int i = 300; i > 0; --i) rows->Add(new TCountedRow(Text(i % 200, i)));
    TCountedRow::Refuses = true;
    EXPECT_THROW(table.AddAndFree(std::move(rows)), std::bad_alloc);
    TCountedRow::Refuses = false;
    EXPECT_EQ(TCountedRow::Alive, 300);
    if (!isRepeated) continue;
    table.AddRow(u"x,70");  // takes what was left behind with it
    EXPECT_EQ(table.ElementForKey(u"70", table.GetCount() - 200, u""), u"70");
    const String before = Show(table);
    TCountedRow::Refuses = true;
    EXPECT_THROW(table.SetSortColumn(1), std::bad_alloc);
    EXPECT_EQ(Show(table), before);
    EXPECT_EQ(table.GetSortColumn(), 0);
    table.Clear();
    EXPECT_EQ(TCountedRow::Alive, 0);
  }
  EXPECT_EQ(TCountedRow::Alive, 0);
}

}  // namespace
