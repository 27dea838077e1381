#include "platform/Collation.h"
#include "tables/uFileCsv.h"
#include "tests/support/PlainTable.h"
#include "tests/support/Test.h"

namespace {

class TLoudHead : public THeadCsv {  // a derived class: every change goes through the virtual operations
 public:
  int Add(TObject* Row) override { return ++Calls == FailAt ? throw EListError(u"no") : THeadCsv::Add(Row); }
  void Delete(int Index) override { ++Calls, THeadCsv::Delete(Index); }
  void SetCell(int Col, int Row, const String& Text) override { ++Calls, THeadCsv::SetCell(Col, Row, Text); }
  using THeadCsv::TestLastItem;
  int Calls = 0, FailAt = -1;
};

// Rows parted by "/", cells by commas.
template <typename T = TLoudHead>
std::unique_ptr<T> Make(std::u16string_view Text) {
  auto table = std::make_unique<T>();
  table->ImportFromString(Text, u"/");
  return table;
}
String Show(const TFileCsv& Table) { return Table.ExportToString(u"/"); }

TEST(THeadCsv, NamesColumnsAndLookUps) {
  auto table = Make(u"Nr,Name,ORT,name/1,\" Abt \",Köln,x/2,abt,köln/3/4,Abt,Bonn");
  EXPECT_EQ(table->IndicesForNames(u"ort,gibtsnicht,NAME,"), u"2,gibtsnicht,1,");
  for (auto [col, name] : {std::pair{2, u"ORT"}, {9, u""}, {-1, u""}}) EXPECT_EQ(table->FieldName(col), name);
  EXPECT_EQ(table->FieldContent(u"name"), u"Abt,abt,,Abt");
  EXPECT_EQ(table->FieldContentUnique(u"ORT").Slice(0, 6), u",Bonn,");
  EXPECT_EQ(table->FieldContent(u"x") + table->FieldContentUnique(u"x"), u"");
  EXPECT_EQ(
      (TFacts{table->FieldCount(u"ort", u"KÖLN"), table->FieldCount(u"x", u"1"), table->FieldCount(u"nr", u"nr")}),
      "2 0 0")
      << "the head is no row of the body";
  EXPECT_EQ(table->SumY(u"NR", vftInteger, 1, 4) + table->SumY(u"x", vftInteger), u"10");
  EXPECT_EQ(Show(*table->DuplicateUnique(u"Name", u"ABT")), u"Nr,Name,ORT,name/2,abt,köln/4,Abt,Bonn/");
  EXPECT_EQ(Show(*table->DuplicateUnique(u"x", u"")), u"Nr,Name,ORT,name/");
  for (const char16_t* text : {u"", u"Nr"}) {
    auto empty = Make(text);
    EXPECT_EQ(empty->FieldIndex(u"nr"), *text ? 0 : -1);
    EXPECT_EQ(empty->FieldContent(u"nr") + empty->ElementForField(u"nr", u"Nr", u"nr"), u"");
    EXPECT_EQ(empty->ItemForField(u"Nr", u"Nr"), nullptr);
    EXPECT_EQ(empty->DuplicateUnique(u"Nr", u"Nr")->GetCount(), empty->GetCount());
  }
}

TEST(THeadCsvThread, IsReadBySeveralAtOnce) {
  const auto table = Make(u"K,V/a,1/b,2/c,3");
  const auto read = [&, &heads = std::as_const(*table)](int step) {
    for (int i = 0; i < 3000; i += step) {
      ASSERT_EQ(heads.ElementForField(u"K", String(1, static_cast<char16_t>(u'a' + i % 3)), u"V"), IntToStr(i % 3 + 1));
    }
  };
  std::jthread one([&] { read(1); }), other([&] { read(2); });
}

TEST(THeadCsv, TheLastHitIsTriedFirst) {
  auto table = Make(u"K,V/a,1/A,2/a,3/b/Schluesselnummer1,5/Schluesselnummer2,6");
  EXPECT_EQ(table->ItemForField(u"k", u"K"), nullptr);
  EXPECT_EQ(table->GetLastItem(), -1);
  for (auto [key, row] : {std::pair{u"A", 2}, {u"b", 4}, {u"Schluesselnummer2", 6}, {u"a", 1}}) {
    EXPECT_EQ(table->ItemForField(u"k", key), table->GetLines(row)) << row;
    EXPECT_EQ(table->GetLastItem(), row);
  }
  EXPECT_EQ(table->ElementForField(u"V", u"3", u"k"), u"a");
  EXPECT_EQ(table->ItemForField(u"K", u"a"), table->GetLines(3));  // the last hit, though not the first row
  table->SetCell(0, 3, u"c");
  EXPECT_EQ(table->ElementForField(u"K", u"a", u"V"), u"1");  // it has another key now
  EXPECT_EQ(table->ElementForField(u"K", u"b", u"V") + table->ElementForField(u"K", u"b", u"x"), u"");
  int col = 7;
  EXPECT_EQ((TFacts{table->TestLastItem(u"x", u"b", col) != nullptr, col}), "no -1");

  EXPECT_EQ((TFacts{table->getElement(u"V", u"K", u"B", u"col", u"row"), table->GetLastItem()}), "col 4");
  EXPECT_EQ(table->getElement(u"V", u"K", u"c", u"col", u"row") + table->getElement(u"k", 2, u"", u""), u"3A");
  EXPECT_EQ(table->getElement(u"V", u"K", u"k", u"col", u"row"), u"V");  // the head, without regard to case
  EXPECT_EQ((TFacts{table->getElement(u"V", u"x", u"c", u"col", u"row"), table->GetLastItem()}), "row -1");
}

TCells RandomRow(std::mt19937& Random, int Width) {
  static const String kTexts[] = {u"", u"a", u"A", u"b", u"ä", u"Ä", u"c"};
  TCells row(Random() % static_cast<unsigned>(Width + 1));
  for (String& cell : row) cell = kTexts[Random() % std::size(kTexts)];
  return row;
}

struct TByText {
  bool operator()(const String& A, const String& B) const { return AnsiCompareText(A, B) < 0; }
};

std::vector<TCells> SortPlainly(const std::vector<TCells>& Table, size_t Col, bool Ascending) {
  std::map<String, TCells, TByText> sorted;  // takes the last one first, and of equal keys the first
  std::vector<TCells> result{Table[0]};
  for (size_t i = Table.size() - 1; i > 0; --i) {
    if (Col < Table[i].size())
      sorted.emplace(Table[i][Col], Table[i]);
    else
      result.insert(result.begin() + 1, Table[i]);
  }
  auto end = result.size();
  for (const auto& [key, row] : sorted) result.insert(Ascending ? result.end() : result.begin() + int(end), row);
  return result;
}

template <typename T>
void SortRandomly(std::mt19937& Random) {
  T table;
  table.AddRow({u"x", u"y"});
  for (unsigned rows = Random() % 12; rows > 0; --rows) table.AddRow(RandomRow(Random, 3));
  std::set<TObject*> before(table.Items().begin(), table.Items().end());
  bool ascending = Random() % 2 == 0;
  auto expected = SortPlainly(Rows(table), 1, ascending);
  table.SortByField(u"?", true), table.SortByField(u"Y", ascending);
  EXPECT_EQ(Rows(table), expected);
  for (TObject* row : table.Items()) before.erase(row);
  for (TObject* row : before) delete row;  // what was dropped is the caller's
}

TEST(THeadCsv, SortByFieldKeepsTheLastOfEqualRows) {
  std::mt19937 random(7);
  for (int i = 0; i < 300; ++i) SortRandomly<THeadCsv>(random), SortRandomly<TLoudHead>(random);
  auto failing = Make(u"k/c/b/a");
  failing->FailAt = failing->Calls + 5;
  EXPECT_THROW(failing->SortByField(u"k", true), EListError);
  EXPECT_EQ((TFacts{failing->GetOwnsObjects(), failing->GetCount()}), "yes 4");

  std::vector<std::unique_ptr<TVxStringList>> many(200001);
  THeadCsv table(false);
  for (auto& row : many) table.Add((row = std::make_unique<TVxStringList>()).get()), row->Add(u"k");
  table.SortByField(u"k", true);
  EXPECT_EQ(table.GetCount(), 2);
  EXPECT_EQ(table.Get(1), many.back().get());
}

// What AddContent does, one look-up after the other.
void AddPlainly(THeadCsv& Table, const THeadCsv& Source, std::u16string_view Key, bool AddFields) {
  int count = Source.GetCount();
  if (count > 0 && Table.GetCount() == 0) Table.AddEmpty(0);
  for (int col = 0; AddFields && col < Source.FieldCount(); ++col)
    if (Table.FieldIndex(Source.FieldName(col)) < 0) Table.GetLines(0)->Add(Source.FieldName(col));
  for (int row = 1; AddFields && count > 0 && row < Table.GetCount(); ++row)
    while (Table.GetLines(row)->GetCount() < Table.FieldCount()) Table.GetLines(row)->Add(u"");
  int from = Source.FieldIndex(Key), to = Table.FieldIndex(Key);
  for (int i = 1; i < count; ++i) {
    int row = from < 0 || to < 0 ? Table.GetCount() : 1;
    while (row < Table.GetCount() && !(Source.GetCell(from, i) == Table.GetCell(to, row))) ++row;
    if (row == Table.GetCount()) Table.AddEmpty(-1);
    for (int col = 0; col < Source.FieldCount(); ++col) {
      int target = Table.FieldIndex(Source.FieldName(col));
      if (target >= 0 && !Source.GetCell(col, i).empty()) Table.SetCell(target, row, Source.GetCell(col, i));
    }
  }
}

TEST(THeadCsv, AddContentMergesByTheFirstRowWithTheKey) {
  std::mt19937 random(11);
  for (int i = 0; i < 1500; ++i) {
    THeadCsv table, source, plain;
    for (unsigned rows = random() % 7; rows > 0; --rows) table.AddRow(RandomRow(random, 4));
    for (unsigned rows = random() % 9; rows > 0; --rows) source.AddRow(RandomRow(random, 4));
    plain.AddFileCsv(table);
    bool isSelf = i % 5 == 0, addFields = i % 2 == 0;  // names stand twice, the key's too, or are missing
    AddPlainly(plain, isSelf ? plain : source, u"A", addFields);
    table.AddContent(isSelf ? table : source, u"A", addFields);
    ASSERT_EQ(Rows(table), Rows(plain)) << i;
  }
  auto table = Make(u"K,V/1,x"), source = Make(u"v,k,W/,1,w/x,1,");
  table->Calls = 0;
  table->AddContent(*source, u"k", true);
  EXPECT_EQ((TFacts{Show(*table), table->Calls}), "K,V,W/1,x,w/ 1") << "only the cell that differs is written";
}

TEST(THeadCsv, LoadFromIni) {
  test::TTempDir dir;
  TScriptedDialogs dialogs;
  String path = dir.Path("a.ini");
  const TCases<const char*, String, String> cases = {
      // the table, and what is added to another one
      {"", u"[Sections]/", u"b,x,[Sections]/1,,/"},
      {"z=1\r\n;c\r\n", u"[Sections]/", u"b,x,[Sections]/1,,/"},
      {"[S]\r\nb=2\r\nB=3\r\n[T 1]\r\na = 4 \r\n\r\n", u"[Sections],A,B/[S],,2/\"[T 1]\",4,/",
       u"b,x,[Sections],A/1,,,/2,,[S],/,,\"[T 1]\",4/"},
      {"\xEF\xBB\xBF[\xC3\xA4]\n\xC3\xB6=\xC3\x9F\n", u"[Sections],Ö/[ä],ß/", u"b,x,[Sections],Ö/1,,,/,,[ä],ß/"},
      {"[S]\nX=1\n[s]\nX=2\nY=3", u"[Sections],X/[S],1/[s],1/", u"b,x,[Sections]/1,,/,1,[S]/,1,[s]/"},
  };
  for (bool replace : {true, false}) {
    for (const auto& [bytes, replaced, added] : cases) {
      test::PutText(path, bytes);
      auto table = Make(u"b,x/1");
      EXPECT_TRUE(table->LoadFromIni(path, replace));
      EXPECT_EQ(Show(*table), replace ? replaced : added) << bytes;
      TLoudHead empty;
      EXPECT_TRUE(empty.LoadFromIni(path, replace));
      EXPECT_EQ(Show(empty), replaced) << bytes;
      EXPECT_TRUE(empty.LoadFromIni(path, false));
      EXPECT_EQ(empty.GetCount(), 2 * table->GetCount() - (replace ? 1 : 3)) << bytes;
    }
    auto table = Make(u"a/1");
    TFileStream locked(path, fmOpenReadWrite | fmShareExclusive);
    EXPECT_THROW(table->LoadFromIni(path, true), EStreamError);
    EXPECT_EQ((TFacts{Show(*table), table->LoadFromIni(dir.Path("none.ini"), replace)}), "a/1/ no");
    EXPECT_EQ(Show(*table), replace ? u"" : u"a/1/");
  }
  EXPECT_TRUE(dialogs.Shown.empty());
}

TEST(TFileCsvList, TablesByName) {
  THeadCsvList lists;
  const String text = u" FARBE,\"0,rot\",\"1,blau\"\033\033leer\033farbe,\"9,alt\"\033\"\",x";
  for (const String& all : {String(u"vorher"), text}) EXPECT_TRUE(lists.ImportFromString(all));
  EXPECT_EQ(lists.GetCsl().GetCommatext(), u",FARBE,leer");
  EXPECT_EQ(Show(*lists.GetFileCsv(1)) + Show(*lists.GetHeadCsv(2)), u"9,alt/");
  EXPECT_EQ(lists.GetHeadCsv(0)->FieldIndex(u"X"), 0);
  for (int index : {-1, 3}) EXPECT_EQ(lists.GetHeadCsv(index), (lists.SetHeadCsv(index, nullptr), nullptr));
  THeadCsv* other = lists.GetHeadCsv(0);
  lists.SetHeadCsv(0, lists.GetHeadCsv(1)), lists.SetHeadCsv(1, other);
  EXPECT_EQ(Show(*lists.GetHeadCsv(0)), u"9,alt/");
  lists.SetOptions({vxioOwnsObjects});
  lists.Init();
  EXPECT_EQ((TFacts{lists.GetCount(), lists.GetOptions().Has(vxioNotCaseSensitive)}), "0 yes");

  TFileCsvList raw{TVxStringIndexOptions()};
  EXPECT_EQ((TFacts{raw.ImportFromString(text + u"\033leer,2"), raw.GetCount(), raw.GetOptions().IsEmpty()}),
            "yes 4 yes");
  for (int i = 0; i < raw.GetCount(); ++i) delete raw.GetFileCsv(i);
}

}  // namespace
