// Tables and decorations in string grids and list views.
#include "platform/TListView.h"
#include "platform/TRecordingCanvas.h"
#include "platform/TStringGrid.h"
#include "platform/TextBounds.h"
#include "rendering/uDecoration.h"
#include "tables/uFileCsv.h"
#include "tables/uSort.h"
#include "tests/support/Test.h"

namespace {

// Rows as commatexts with ";" between; "*" behind a cell with an object.
std::string Text(const TStringGrid& Grid) {
  TFileCsv table;
  table.GetGrid(Grid, false);
  std::string text;
  for (int row = 0; row < table.GetCount(); ++row) {
    for (int col = 0; col < Grid.GetColCount(); ++col) {
      if (Grid.GetObjects(col, row) != nullptr) table.SetCell(col, row, Grid.GetCells(col, row) + u"*");
    }
    text += table.GetLines(row)->GetCommatext().ToUtf8() + ";";
  }
  return text;
}

std::string Text(const TFileCsv& Table) { return Table.ExportToString(u";").ToUtf8(); }

std::string Text(const TListView& View) {
  std::string text;
  for (int i = 0; i < View.GetItemCount(); ++i) {
    const TListItem& item = View.GetItems(i);
    text += item.GetCaption().ToUtf8() + (item.GetData() != nullptr ? "*" : "");
    for (int k = 0; k < item.GetSubItems().GetCount(); ++k) {
      text += "," + item.GetSubItems().Get(k).ToUtf8() + (item.GetSubItems().GetObject(k) != nullptr ? "*" : "");
    }
    text += ";";
  }
  return text;
}

template <typename T = TFileCsv>
std::unique_ptr<T> Table(std::u16string_view Rows) {
  auto table = std::make_unique<T>();
  table->ImportFromString(Rows, u";");
  return table;
}

TEST(TableInGrid, StandsThereAndComesBack) {
  TObject object;
  for (const auto& [rows, numbers, grid, back] :
       TCases<String, bool, std::string, std::string>{{u"a,b;c;d,e,f;", false, "a,b*;c,;d,e;", "a,b;c,;d,e;"},
                                                      {u"a,b;c;d,e,f;", true, "Nr.,a,b*;1,c,;2,d,e;", "a,b;c,;d,e;"},
                                                      {u"a;", true, "Nr.,a;", "a;"},
                                                      {u"", true, "", ""}}) {
    const auto table = Table<>(rows);
    table->SetObject(1, 0, &object);
    TStringGrid shown;  // 5 x 5
    shown.SetCells(4, 4, u"old"), shown.SetObjects(0, 0, &object);
    table->SetGridIntern(shown, numbers);
    EXPECT_EQ(Text(shown), grid) << rows;
    auto read = Table<>(u"x,y,z;1;2;3;4;5;");
    const TVxStringList* first = read->GetLines(0);
    read->GetGrid(shown, numbers);
    EXPECT_EQ(Text(*read), back) << rows;
    if (read->GetCount() > 0) {
      EXPECT_EQ(read->GetLines(0), first);
    }
  }
  TFileCsv empty;
  empty.AddRow(std::span<const String>());
  TStringGrid shown;
  empty.SetGridIntern(shown, false);
  EXPECT_EQ((TFacts{shown.GetRowCount(), shown.GetColCount()}), "0 0");
}

TEST(TableInGrid, TopRowIsHeldAndOverridesAreAsked) {
  struct TUpper : TFileCsv {
    String GetCell(int Col, int Row) const override { return TFileCsv::GetCell(Col, Row) + u"!"; }
  } table;
  for (int i = 0; i < 100; ++i) table.AddRow({u"x"});
  TStringGrid grid;
  table.SetGridIntern(grid, false), grid.SetTopRow(60);
  table.SetGridIntern(grid, false);
  EXPECT_EQ((TFacts{grid.GetTopRow(), grid.GetCells(0, 7)}), "60 x!");
  while (table.GetCount() > 10) table.Delete(10);
  table.SetGridIntern(grid, false);
  EXPECT_EQ(grid.GetTopRow(), 9);
  grid.SetFixedRows(50);
  table.SetGridIntern(grid, false);
  EXPECT_EQ((TFacts{grid.GetTopRow(), grid.GetRowCount()}), "50 10");
}

TEST(TableInGrid, ColumnsAreAsWideAsTheWidestCounts) {
  // Ten code units of 7 pixels; 99 pixels are 118 in tenths, more than the 105 of the longer text.
  using TTexts = std::vector<String>;
  for (const auto& [texts, width] : TCases<TTexts, int>{{TTexts{}, 0},
                                                        {TTexts(2), 0},
                                                        {TTexts{String(10, u'a')}, 93},
                                                        {TTexts{String(15, u'a')}, 116},
                                                        {TTexts{String(14, u'a'), String(15, u'a')}, 130},
                                                        {TTexts{String(15, u'a'), String(14, u'a')}, 130},
                                                        {TTexts{String(20, u'a'), String(14, u'a')}, 155},
                                                        {TTexts{String(2, u'\x0E01'), String(1, u'a')}, 18}}) {
    TRecordingCanvas canvas;
    TStringGrid grid;
    TFileCsv table;
    for (const String& text : texts) table.AddRow({u"1", text});
    grid.SetCanvas(&canvas);
    grid.SetRowCount(table.GetCount());
    for (int row = 0; row < table.GetCount(); ++row) grid.SetCells(1, row, table.GetCell(1, row));
    TFileCsv::SetGridColWidth(grid, 1.11L);
    EXPECT_EQ(grid.GetColWidths(1), width) << testing::PrintToString(texts);
  }
  TStringGrid grid;
  Table<>(u"abc;")->SetGrid(grid, false);  // no canvas
  EXPECT_EQ(grid.GetColWidths(0), 64);
}

TEST(TextBounds, AreNeverLessThanTheWidth) {
  TRecordingCanvas canvas;
  for (const TFontStyles style : {TFontStyles{}, TFontStyles{fsBold}}) {
    canvas.SetFont({.Style = style, .Size = 11});
    const TTextBounds bounds(canvas);
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
      String text;
      for (int n = static_cast<int>(random() % 9); n-- > 0;) text += static_cast<char16_t>(random() % 0x1A0);
      ASSERT_GE(bounds.Of(text), canvas.TextWidth(text)) << text;
    }
    EXPECT_EQ((TFacts{bounds.Of(u"M 1ß") == canvas.TextWidth(u"M 1ß"), bounds.Of(u"a\x301") == TTextBounds::Unknown,
                      bounds.Digit() == canvas.TextWidth(u"0")}),
              "yes yes yes");
  }
}

TListView& Fill(TListView& View) {
  static TObject object;
  View.AddColumn(u"A"), View.AddColumn(u"B"), View.AddColumn(u"C");
  Table<>(u"a1,b1,c1;a2,b2,c2;a3,b3;a4,b4,c4;")->SetListview(View, u"", 0, -1);
  View.GetItems(1).SetData(&object), View.GetItems(1).SubItems().PutObject(1, &object);
  View.SetMultiSelect(true), View.GetItems(0).SetSelected(true), View.GetItems(2).SetSelected(true);
  return View;
}

TEST(TableFromListView, TakesItemsIntoItsRows) {
  TListView view;
  Fill(view);
  // Columns, First, Limit, only selected; the table before, its rows after, and the result.
  for (const auto& [columns, first, limit, selected, before, rows, result] :
       TCases<String, int, int, bool, String, std::string, int>{
           {u"", 0, 0, false, u"", "A,B,C;a1,b1,c1;a2,b2,c2;a3,b3;a4,b4,c4;", 5},
           {u"2,x,0,-1,3", -7, -1, false, u"old;", "old;C,A;c1,a1;c2,a2;,a3;c4,a4;", 6},
           {u"x", 0, 0, true, u"", ";;;", 3},
           {u"1", 2, 0, false, u"", "B;b3;b4;", 3},
           {u"", 0, 0, true, u"", "A,B,C;a1,b1,c1;a3,b3;", 3},
           {u"0", 1, 1, false, u"1,2,3;4,5;6;", "A;4,5;6;a2;a3;", 3},
           {u"0", 0, 2, false, u"1,2,3;4,5;6;", "A;a1;6;a2;a3;", 4},
           {u"0", 3, 3, false, u"1;2;3;4;", "A;a4;4;", 2},
           {u"0", 9, 2, false, u"1;2;3;", "A;3;", 1},
           {u"0", 0, 9, true, u"", "A;a1;a3;", 3}}) {
    const auto table = Table<>(before);
    EXPECT_EQ(table->GetListView(view, columns, first, limit, selected), result) << columns << ' ' << limit;
    EXPECT_EQ(Text(*table), rows) << columns << ' ' << limit;
  }
  TFileCsv table;
  table.GetListView(view, u"2,0", 1, 0, false);
  EXPECT_EQ(
      (TFacts{table.GetObject(0, 1) != nullptr, table.GetObject(1, 1) != nullptr, table.GetObject(0, 2) != nullptr}),
      "yes yes no");
  const auto sorted = Table<TSortCsv>(u"b;a;");
  sorted->GetListView(view, u"0", 0, 0, false);
  EXPECT_EQ(Text(*sorted), "A;a1;a2;a3;a4;");
  TStringGrid grid;
  Table<>(u"b;a;c;")->SetGridIntern(grid, false);
  sorted->GetGrid(grid, false);
  EXPECT_EQ(Text(*sorted), "b;a;c;");
}

TEST(TableInListView, ShowsRowsAndColumns) {
  // Columns, First, Count; the items.
  for (const auto& [columns, first, count, items] :
       TCases<String, int, int, std::string>{{u"", 0, -1, "A,B,C;a1,b1;a2*,b2,c2*;"},
                                             {u"", -3, 2, "A,B,C;a1,b1;"},
                                             {u"", 2, 99, "a2*,b2,c2*;"},
                                             {u"", 9, -1, ""},
                                             {u"", 1, 0, ""},
                                             {u"2,x,0,-1,3,7", 1, -1, ",a1;c2*,a2*;"}}) {
    TListView view;
    Fill(view);
    auto table = Table<>(u"A,B,C;a1,b1;a2,b2,c2;");
    table->SetObject(0, 2, table.get()), table->SetObject(2, 2, table.get());
    table->SetListview(view, columns, first, count);
    EXPECT_EQ(Text(view), items) << columns << ' ' << first << ' ' << count;
    EXPECT_EQ(items.empty() || view.GetItems(0).GetSelected(), true);
  }
}

TEST(TableInListView, HeadedTablesShowTheirNames) {
  for (const auto& [columns, first, count, items] :
       TCases<String, int, int, std::string>{{u"", 0, -1, "a1,b1;a2,b2,c2;a3;"},
                                             {u"", -5, 1, "a1,b1;"},
                                             {u"", 1, 1, "a2,b2,c2;"},
                                             {u"c,x,A", 0, 2, ",a1;c2,a2;"},
                                             {u"", INT_MAX, -1, ""}}) {
    TListView view;
    Fill(view);
    Table<THeadCsv>(u"A,B,C;a1,b1;a2,b2,c2;a3;")->SetListview(view, columns, first, count);
    EXPECT_EQ(Text(view), items) << columns << ' ' << first;
  }
  TListView view;
  Fill(view);
  Table<THeadCsv>(u"x,y;1,2;")->SetListview(view, u"", 0, -1);
  EXPECT_EQ((TFacts{view.GetColumnCount(), view.GetColumns(0).GetCaption(), view.GetColumns(1).GetCaption()}), "2 x y");
  view.GetItems(0).SetCaption(u"7");
  THeadCsv back;
  EXPECT_EQ((TFacts{back.GetListView(view, u"", 0, 0, false), Text(back)}), "2 x,y;7,2;");
}

TEST(TableInListView, IsSortedByItsColumns) {
  TListView view;
  Table<THeadCsv>(u"Name,Tag;c,01.03.2020;a,01.02.2021;b,01.02.2020;a,31.12.2019;")->SetListview(view, u"", 0, -1);
  TSortColumn by{.Index = 1, .SortType = vftDate, .SortDirection = 1};
  view.GetItems(2).SetSelected(true), view.CustomSort(CustomSortProc, &by);
  EXPECT_EQ(Text(view), "a,31.12.2019;b,01.02.2020;c,01.03.2020;a,01.02.2021;");
  by = {.Index = 0, .SortType = vftString, .SortDirection = -1};
  view.CustomSort(CustomSortProc, &by);
  EXPECT_EQ(Text(view), "c,01.03.2020;b,01.02.2020;a,31.12.2019;a,01.02.2021;");
  EXPECT_EQ(view.GetItemIndex(), 1);
}

TEST(DecorationsInListView, SayWhatTheyAre) {
  TDecorationList list;
  list.CreateRange(rtColumn, 2, 5, -1, 6)->SetFieldType(vftDate);
  list.CreateRange(rtRow, 2, 5, -1, 6)->SetFormatString(u"f");
  TDecoration* rect = list.CreateRange(rtRect, 1, 2, 3, -1);
  rect->SetFontOwner(true), rect->SetColor(clRed), rect->SetOptions({doCoupled});
  list.CreateRange(rtCell, 3, 4, -1, -1), list.CreateRange(rtUnknown, 1, 2, 3, 4),
      list.CreateRange(rtFixed, 1, 2, 3, 4);
  TListView view;
  view.AddItem().SubItems().Add(u"old");
  for (int i = 0; i < 9; ++i) view.AddItem();
  list.SetListView(view);
  EXPECT_EQ(
      Text(view),
      "All*,,Text,,nein,clWhite,nein;Column*,2,-1,Datum,,nein,clWhite,nein;Row*,5,6,Unbekannt,f,nein,clWhite,nein;"
      "Rect*,1,2,3,-1,Unbekannt,,ja,clRed,ja;Unknown*,,Unbekannt,,nein,clWhite,nein;"
      "Fixed*,,Unbekannt,,nein,clWhite,nein;Cell*,3,4,Unbekannt,,nein,clWhite,nein;");
  EXPECT_EQ(view.GetItems(3).GetData(), rect);
}

}  // namespace
