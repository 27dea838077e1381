#include "tables/uFileCsv.h"

#include "core/uVxFunctionsSerialize.h"
#include "tests/support/Test.h"

namespace {

// The table as one text: cells joined by "|", rows by "/".
String Show(const TFileCsv& Table) {
  String text;
  for (int row = 0; row < Table.GetCount(); ++row)
    text += (row > 0 ? u"/" : u"") + implode(*Table.GetLines(row), u"|", {});
  return text;
}

std::unique_ptr<TFileCsv> Make(std::initializer_list<const char16_t*> Commatexts) {
  auto table = std::make_unique<TFileCsv>();
  for (const char16_t* row : Commatexts) table->AddRow(row);
  return table;
}

TEST(TFileCsv, ReadsPastTheEndAreEmptyAndWritesAreDropped) {
  auto table = Make({u"a,b", u"c"});
  TObject object;
  for (auto [col, row] : {std::pair{2, 0}, {1, 1}, {0, 2}, {-1, 2}, {9, 9}}) {
    table->SetCell(col, row, u"x"), table->SetObject(col, row, &object);
    EXPECT_EQ(table->GetCell(col, row), u"") << col << row;
    EXPECT_EQ(table->GetObject(col, row), nullptr) << col << row;
  }
  EXPECT_EQ(Show(*table), u"a|b/c");
  EXPECT_THROW(table->GetCell(-1, 0), EStringListError);
  EXPECT_THROW(table->SetCell(-1, 0, u"x"), EStringListError);
  EXPECT_THROW(table->GetCell(0, -1), EListError);
  EXPECT_THROW(table->GetLines(2), EListError);
  for (auto [col, row, text] : {std::tuple{-1, 0, u"col"}, {1, 1, u"col"}, {-1, -1, u"row"}, {1, 0, u"b"}})
    EXPECT_EQ(table->getElement(col, row, u"col", u"row"), text);
  table->SetObject(1, 0, &object);
  EXPECT_EQ(table->GetObject(1, 0), &object);
}

TEST(TFileCsv, AForeignEntryIsRefusedButSkippedByColumns) {
  auto table = Make({u"a,b"});
  table->Add(new TObject);
  EXPECT_THROW(table->GetCell(0, 1), EInvalidCast);
  EXPECT_NO_THROW(table->DeleteCol(0));
  EXPECT_NO_THROW(table->ClearCol(0));
  table->Delete(1);
  EXPECT_EQ((TFacts{Show(*table), table->FieldCount()}), " 1");
}

TEST(TFileCsv, RowsComeGoAndAreCopied) {
  auto table = Make({u"a,b", u"c"});
  EXPECT_EQ((TFacts{table->AddEmpty(-1), table->AddEmpty(0), TFileCsv().AddEmpty(-5)}), "2 3 0");
  table->AddFileCsv(*table), table->SetCell(0, 4, u"changed");
  EXPECT_EQ(Show(*table), u"a|b/c/|//changed|b/c/|/");
  auto other = Make({u"x"}), target = Make({u"1", u"2", u"3"}), source = Make({u"p,q", u"r"});
  TObject *row = other->Get(0), *kept = target->Get(0);
  table->AddAndFree(std::move(other)), table->AddAndFree(nullptr);
  EXPECT_EQ(table->Get(8), row);
  target->Assign(*source);
  EXPECT_EQ(Show(*target), u"p|q/r");
  EXPECT_EQ(target->Get(0), kept);
  auto copy = source->Duplicate();
  copy->SetCell(0, 0, u"z"), copy->GetLines(1)->Add(u"new");
  source->GetLines(0)->Delete(1);
  EXPECT_EQ(Show(*copy) + u" " + Show(*source), u"z|q/r|new p/r");
}

class TLoudTable : public TFileCsv {
 public:
  std::unique_ptr<TFileCsv> GetNewInstance() const override { return std::make_unique<TLoudTable>(); }
  int Add(TObject* Row) override { return ++Added, TFileCsv::Add(Row); }
  void Delete(int Index) override { ++Deleted, TFileCsv::Delete(Index); }
  int Added = 0, Deleted = 0;
};

TEST(TFileCsv, DerivedTablesSeeEveryRowComeAndGo) {
  TLoudTable table;
  table.SetText(u"a,b\r\n,\r\n\"\"\r\n\r\n"), table.AddEmpty(2);
  EXPECT_EQ((TFacts{table.Added, table.RemoveEmpty(), table.Deleted}), "5 2 2");
  EXPECT_EQ(Show(table), u"a|b//");  // one empty cell, and no cell, stay
  auto copy = table.Duplicate(), turned = table.TurnAxis();
  EXPECT_EQ(dynamic_cast<TLoudTable&>(*copy).Added + dynamic_cast<TLoudTable&>(*turned).Added, 3 + 2);
  EXPECT_EQ(Show(*turned), u"a||/b||");
}

// Tells what it is asked to delete, between its neighbours, and may delete one more.
class TToldTable : public TFileCsv {
 public:
  void Delete(int Index) override {
    Told += IntToStr(Index) + u"/" + IntToStr(GetCount()) + getElement(0, Index - 1, u"", u"<") + u"-" +
            getElement(0, Index + 1, u"", u">") + u" ";
    TFileCsv::Delete(Index);
    if (Index == Twice) TFileCsv::Delete(GetCount() - 1), TFileCsv::Delete(0);
  }
  String Told;
  int Twice = -1;
};

TEST(TFileCsv, EmptyRowsLeaveTheirOwnPlacesInDerivedTables) {
  for (bool isRemoved : {false, true}) {
    TToldTable table;
    for (const char16_t* row : {u",", u"a,", u",", u",", u"b,", u"c,", u",", u"d,"}) table.AddRow(row);
    isRemoved ? (void)table.RemoveEmpty() : table.DoAll({camDeleteEmptyLines});
    EXPECT_EQ((TFacts{table.Told, Show(table)}), "6/8c-d 3/7-b 2/6a-b 0/5<-a  a|/b|/c|/d|");
    for (const char16_t* row : {u",", u"e,", u",", u",f"}) table.AddRow(row);
    table.Told = u"", table.Twice = 6, table.RemoveEmpty();
    EXPECT_EQ(table.Told + Show(table), u"6/8e- 3/5d-e b|/c|/d|/e|");
  }
}

TEST(TFileCsv, ColumnsAndKeys) {
  auto table = Make({u"\" 3 \",Müller", u"1", u"\"3\",müller", u"B,Weiss", u"b,Weiß"});
  EXPECT_EQ(table->ColumnContent(0) + u" " + table->ColumnContent(1), u"3,1,3,B,b Müller,,müller,Weiss,Weiß");
  EXPECT_EQ(table->ColumnContent(-1) + TFileCsv().ColumnContent(0), u"");
  EXPECT_EQ(table->ColumnContentUnique(0).Slice(0, 4), u"1,3,");
  for (auto [col, key, row] : {std::tuple{1, u"MÜLLER", 0}, {1, u"weiß", 4}, {1, u"", -1}, {-1, u"1", -1}})
    EXPECT_EQ(table->IndexForColKey(col, key), row);  // a short row has no such cell
  for (auto [key, row] : {std::pair{u"1", table->GetLines(1)}, {u"9", nullptr}})
    EXPECT_EQ(table->ItemForColKey(0, key), row);
  EXPECT_EQ(table->ElementForColKey(0, u"b", 1, u"none"), u"Weiss");
  for (const char16_t* key : {u"1", u"9"}) EXPECT_EQ(table->ElementForKey(0, key, 1, u"none"), u"none");
  table->DeleteCol(1);
  table->ClearCol(0);
  EXPECT_EQ(Show(*table), u"////");
}

TEST(TFileCsv, ClearContentLeavesOneSpaceInTheLastCellOfTheFirstRow) {
  auto table = Make({u"a,b", u"c,d"});
  TObject object;
  table->SetObject(1, 1, &object), table->ClearContent();
  EXPECT_EQ(Show(*table), u"| /|");
  EXPECT_EQ(table->GetObject(1, 1), nullptr);
}

TEST(TFileCsv, DoAll) {
  const std::pair<TCsvAllModes, String> cases[] = {
      {{}, u"a\r\nb|  c/d/|/e|f|g\n"},
      {{camTrim}, u"a\r\nb|c/d/|/e|f|g"},
      {{camDeleteEnter}, u"a  b|  c/d/|/e|f|g "},
      {{camUnTrim}, u"a\r\nb|  c/d   /    |   /e   |f  |g\n"},
      {{camBalanceColcount}, u"a\r\nb|  c/d|/|/e|f|g\n"},
      {{camBalanceMax}, u"a\r\nb|  c/d/|/e|f|g\n"},
      {{camBalanceColcount, camBalanceMax}, u"a\r\nb|  c|/d||/||/e|f|g\n"},
      {{camDeleteEmptyLines}, u"a\r\nb|  c/d/e|f|g\n"},
      {{camTrim, camUnTrim, camDeleteEnter}, u"a  b|c  /d   /    |   /e   |f  |g "}};
  for (const auto& [modes, shown] : cases) {
    auto table = Make({u"\"a\r\nb\",\"  c\"", u"d", u",", u"e,f,\"g\n\""});
    table->DoAll(modes);
    EXPECT_EQ(Show(*table), shown);
  }
  TFileCsv empty;
  empty.DoAll({camBalanceColcount, camDeleteEmptyLines});
  EXPECT_EQ(empty.GetCount(), 0);
}

TEST(TFileCsv, ScatteredEmptyRowsGoAndTheOthersKeepTheirOrder) {
  for (bool isRemoved : {false, true}) {
    TFileCsv table;
    String expected;
    for (int row = 0; row < 300; ++row) {
      const bool isEmpty = row % 3 == 1 || row > 290;
      table.AddRow({isEmpty ? String() : IntToStr(row), u""});
      if (!isEmpty) expected += IntToStr(row) + u",/";
    }
    isRemoved ? (void)table.RemoveEmpty() : table.DoAll({camDeleteEmptyLines});
    EXPECT_EQ(table.ExportToString(u"/"), expected);
  }
}

TEST(TFileCsv, TurnsItsAxes) {
  EXPECT_EQ(Show(*Make({u"a,b,c", u"d,e,f"})->TurnAxis()), u"a|d/b|e/c|f");
  EXPECT_EQ(Show(*Make({u"a,b", u"c", u"d,e,f"})->TurnAxis()), u"a|c|d/b||e");
  EXPECT_EQ(TFileCsv().TurnAxis()->GetCount(), 0);
}

TEST(TFileCsv, WholeTableAsText) {
  auto table = Make({u"a,\"b c\"", u"\"\"", u"d,"});
  TFileCsv copy;
  EXPECT_EQ(table->GetText(), u"a,\"b c\"\r\n\"\"\r\nd,");
  copy.SetText(table->GetText());
  EXPECT_EQ(Show(copy), Show(*table));
  copy.SetText(u"x\r\n\r\ny");
  EXPECT_EQ(Show(copy), u"x//y");

  EXPECT_EQ(table->GetAnsiCsv(), "a,\"b c\"\033\"\"\033d,\033");
  copy.SetAnsiCsv("\033Stra\337e\033\033z");
  EXPECT_EQ(Show(copy), u"Straße/z");
  EXPECT_EQ(TFileCsv().GetAnsiCsv(), "");

  EXPECT_EQ(table->ExportToString(u"#"), u"a,\"b c\"#\"\"#d,#");
  copy.Clear();
  EXPECT_TRUE(copy.ImportFromString(u"  " + table->ExportToString(u"#") + u" ##", u"#"));
  EXPECT_EQ(Show(copy), Show(*table));
  EXPECT_EQ((TFacts{copy.ImportFromString(u"e##f", u"##"), copy.GetLines(3)->GetCommatext()}), "yes e##f");

  auto strings = CsvToStrings(*table);
  table->ExportToStringList(*strings);
  EXPECT_EQ(strings->GetCount(), 6);
  EXPECT_EQ(Show(*StringsToCsv(*strings)), Show(*table) + u"/" + Show(*table));
}

TEST(TFileCsv, RowsThatHoldTables) {
  TFileCsv table;
  table.AddRow({u"head", u"a,b", u"", u"\"c d\""});
  EXPECT_EQ((TFacts{Show(*table.ItemToCsv(0, 1)), table.ItemToCsv(0, 9)->GetCount()}), "a|b//c d 0");
  for (int row : {1, -1}) EXPECT_EQ(table.ItemToCsv(row, 0), nullptr);
  table.ImportFromStringList(nullptr);
  TScriptedDialogs dialogs;
  table.ShowContent();
  EXPECT_EQ(dialogs.Shown.at(0).Text, u"head,\"a,b\",,\"\"\"c d\"\"\"\r\n");
}

TEST(TFileCsv, LinesOfFiles) {
  const TCases<String, char16_t> guesses = {{u"", u','},     {u"a;b,c", u','},   {u"a\tb;c\033d", 9},
                                            {u"abc", u','},  {u"a\tb\tc;d", 9},  {u"\"a;b;c\",d", u','},
                                            {u"a\033b", 27}, {u"a;b,c;d", u';'}, {u"\"a;\r\nb\";c\nd,e,f", u';'}};
  for (const auto& [text, separator] : guesses)
    EXPECT_EQ(TFileCsv::AnalyseToParse(text.view()), String(1, separator)) << text;
  TVxStringList strings;
  EXPECT_EQ(TFileCsv::AnalyseToParse(strings), u"");
  strings.Add(u"\"a;b;c\",d");
  EXPECT_EQ(TFileCsv::AnalyseToParse(strings), u";");

  for (auto [text, separator, count] :
       {std::tuple{u"Max Meier;Bonn", u";", 3}, {u"a,,b", u"", 3}, {u"a\t\tb\t", u"\t", 2}})
    EXPECT_EQ(TFileCsv::ParseCommatext(text, separator)->GetCount(), count);
  TVxStringList row;
  row.AddStrings(TCells{u"a b", u"", u"c\"d", u"e;f", String(1, u'\0'), u"g,h"});
  EXPECT_EQ(TFileCsv::ParseChar(row, u";"), u"\"a b\";;\"c\"\"d\";\"e;f\";\"" + String(1, u'\0') + u"\";g,h");
  EXPECT_EQ(TFileCsv::ParseChar(row, u" "), u"a b  c\"d e;f " + String(1, u'\0') + u" g,h");
}

TEST(TFileCsv, IsWalkedByRowsCellsAndColumns) {
  auto table = Make({u"Name,Ort", u"Anja,Köln", u"Tim", u"Ida,Bonn,x"});
  const TFileCsv& constant = *table;
  String cells;
  for (const TVxStringList& row : constant)
    for (const String& cell : row) cells += cell + u";";
  EXPECT_EQ(cells, u"Name;Ort;Anja;Köln;Tim;Ida;Bonn;x;");
  for (TVxStringList& row : table->Rows(2)) row.Put(0, row.Get(0) + u"!");
  EXPECT_EQ(Show(*table), u"Name|Ort/Anja|Köln/Tim!/Ida!|Bonn|x");
  EXPECT_EQ(&*constant.begin(), table->GetLines(0));
  const TColumnRange towns = constant.Column(1, 1);
  EXPECT_EQ((TFacts{towns, towns.size(), towns[2], &towns[0] == &table->GetLines(1)->Items()[1]}),
            "Köln,,Bonn 3 Bonn yes");
  auto shortest = [](const TVxStringList& a, const TVxStringList& b) { return a.GetCount() < b.GetCount(); };
  const auto found = std::ranges::min_element(constant, shortest);
  EXPECT_EQ((TFacts{found - constant.begin(), found->GetCount(), (found + 1)[-1].Get(0), constant.end() - found,
                    constant.Rows(9).empty(), TFileCsv().begin() == TFileCsv().end(), constant.Column(7, 3)}),
            "2 1 Tim! 2 yes yes ");
  EXPECT_THROW(table->Rows(-1), EArgumentException);
  EXPECT_THROW(table->Column(-1), EArgumentException);
  table->Add(new TObject);
  EXPECT_THROW((void)*std::prev(table->end()), EInvalidCast);
}

TEST(TFileCsv, TakesRowsOfTextsInBraces) {
  TFileCsv table;
  const String text = u"a,b";
  const std::vector<String> cells = {u"x", u"y", u"z"};
  EXPECT_EQ((TFacts{table.AddRow({u"1", text, nullptr}), table.AddRow({}), table.AddRow({text}), table.AddRow(text),
                    table.AddRow({cells.data(), 2}), table.AddRow(*table.GetLines(4))}),
            "0 1 2 3 4 5");
  EXPECT_EQ(Show(table), u"1|a,b|//a,b/a|b/x|y/x|y");
}

}  // namespace
