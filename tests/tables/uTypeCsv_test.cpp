#include "tables/uTypeCsv.h"

#include "platform/TImageList.h"
#include "platform/TPopupMenu.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "rendering/uDecoration/TDecoratorListView.h"
#include "rendering/uDecoration/TDecoratorStringGrid.h"
#include "tests/support/Test.h"
#include "tests/support/ViewWalk.h"

namespace {

// A table with the rows of Lines, each a commatext.
template <typename T = TTypeCsv>
std::unique_ptr<T> Table(std::initializer_list<std::u16string_view> Lines) {
  auto table = std::make_unique<T>();
  for (std::u16string_view line : Lines) table->AddRow(line);
  return table;
}

struct TListener {
  String Heard;
  bool Permits = true;
  void Sorting(TTypeCsv& Table, int Col, int Row, bool& Permitted) {
    Heard += Concat({u"vor ", Table.GetCell(0, 1), u" ", IntToStr(Col), u"/", IntToStr(Row), Permitted ? u";" : u"!"});
    Permitted = Permits;
  }
  void Sorted(TTypeCsv& Table, int, int, bool&) { Heard += Concat({u"nach ", Table.GetCell(0, 1), u";"}); }
  void Indices(TTypeCsv& Table, int, int, bool&) {
    const TVxIntegerList* indices = Table.GetSortIndices();
    Heard += Concat({indices ? indices->GetCommatext() : u"-", u";"});
  }
  void Set(TObject*) { Heard += u"voll;"; }
  void Draw(TTypeCsv& Table, TCanvas&, int Col, int Row, TRect&, TDecoration&) {
    Heard += Concat({Table.ClassName(), u" ", IntToStr(Col), u"/", IntToStr(Row), u";"});
  }
};

TEST(TTypeCsv, ClicksOnAHeadTurnTheOrder) {
  auto table = Table({u"Name,Tag", u"b,02.01.2020", u"a,01.02.2019", u"c,01.02.2019", u"Summe,"});
  TDecorationList& looks = table->GetDecorations();
  looks.SetFixed(0, 1, 0, 1);
  looks.CreateRange(rtColumn, 1, -1, 1, -1)->SetFieldType(vftDate);
  TListener listener;
  table->SetOnSort(TVxSortEvent::Of<&TListener::Sorting>(listener));
  table->SetOnSorted(TVxSortEvent::Of<&TListener::Sorted>(listener));
  TVxIntegerList indices;
  const auto sorted = [&](int Col, int Row, TSortOrder Order = TS_NONE, const String& Format = {}) {
    table->Sort(Col, Row, Order, Format, &indices);
    const TPoint cell = table->GetSortCell();
    return Concat({Names(*table), IntToStr(cell.X), u"/", IntToStr(cell.Y), u" ", IntToStr(table->GetSortDirection()),
                   IntToStr(table->GetSortArrow()), u" ", indices.GetCommatext()});
  };
  EXPECT_EQ((TFacts{sorted(-1, 0), sorted(1, -1)}), "Name b a c Summe -1/-1 00  Name b a c Summe -1/-1 00 ");
  EXPECT_EQ(sorted(1, 0), u"Name a c b Summe 1/0 11 0,2,3,1,4");
  EXPECT_EQ(sorted(1, 0), u"Name b a c Summe 1/0 22 0,3,1,2,4") << "equal ones stay in their order";
  EXPECT_EQ(sorted(0, 3), u"Name a b c Summe 0/3 11 0,2,1,3,4") << "another column after a descending one";
  EXPECT_EQ(sorted(0, 0, TS_ASCENDING), u"Name a b c Summe 0/0 11 0,1,2,3,4");
  EXPECT_EQ(sorted(1, 0, TS_DESCENDING, u"ddmmyyyy"), u"Name b a c Summe 1/0 22 0,2,1,3,4");
  EXPECT_EQ(sorted(1, 0, TS_NONE), u"Name a c b Summe 1/0 11 0,2,3,1,4") << "by the day, still";
  EXPECT_EQ(table->GetSortDateFormat(), u"ddmmyyyy");
  listener.Permits = false;
  EXPECT_EQ(sorted(0, 0, TS_DESCENDING), u"Name a c b Summe 1/0 11 0,2,3,1,4");
  EXPECT_EQ(listener.Heard,
            u"vor b 1/0;nach a;vor a 1/0;nach b;vor b 0/3;nach a;vor a 0/0;nach a;vor a 1/0;nach b;vor b 1/0;nach a;"
            u"vor a 0/0;");
  table->Init();
  EXPECT_EQ((TFacts{table->GetCount(), table->GetSortCell().X, table->GetSortDirection(), table->GetSortDateFormat(),
                    looks.GetFixed().Top}),
            "0 -1 0 yyyymmddhhnnss 0");
}

TEST(TTypeCsv, OffersTheFormatsOfDates) {
  auto table = Table({u"Tag,Name"});
  table->GetDecorations().CreateRange(rtColumn, 0, -1, 0, -1)->SetFieldType(vftDateTime);
  TControl control;
  control.SetBounds({100, 200, 150, 250});
  control.MouseMove({}, 3, 4);
  String shown;
  int taken = -1;
  const auto before = SetShowPopup([&](TPopupMenu& menu, int x, int y) {
    for (int i = 0; i < menu.GetCount(); ++i) shown += menu.GetItems(i).GetCaption();
    shown += Concat({u" ", IntToStr(x), u" ", IntToStr(y), u";"});
    return taken < 0 ? nullptr : &menu.GetItems(taken);
  });
  const auto asked = [&](TObject* Control, int Col, int Taken) {
    taken = Taken;
    table->SetSortDirection(TS_ASCENDING);
    const bool result = table->PopupDateFormat(Control, Col);
    return TFacts{result, table->GetSortDateFormat(), table->GetSortDirection()};
  };
  EXPECT_EQ(asked(nullptr, 0, 0), "no yyyymmddhhnnss 1");
  EXPECT_EQ(asked(table.get(), 0, 0), "no yyyymmddhhnnss 1");
  EXPECT_EQ(asked(&control, 1, 0), "no yyyymmddhhnnss 1");
  EXPECT_EQ(shown, u"");
  EXPECT_EQ(asked(&control, 0, -1), "yes yyyymmddhhnnss 1");
  EXPECT_EQ(shown, u"nach Tagnach Monatnach Jahr 103 204;");
  EXPECT_EQ(asked(&control, 0, 0), "yes ddmmyyyy 0");
  EXPECT_EQ(asked(&control, 0, 0), "yes ddmmyyyy 1");
  EXPECT_EQ(asked(&control, 0, 1), "yes mmddyyyy 0");
  EXPECT_EQ(asked(&control, 0, 2), "yes yyyymmdd 0");
  table->SetSortDateFormat({});
  EXPECT_EQ(asked(&control, 0, -1), "no  1");
  SetShowPopup(before);
}

TEST(TTypeCsv, SortsAsTheComparisonOfRowsTells) {
  const TCases<TVxFieldType, String> kinds{{vftDate, u"01.02.2019,31.01.2020,1.2.19,,x"},
                                           {vftCurrency, u"1,\"2,5\",\"-3,00\",,x"},
                                           {vftString, u"ä,A,b,B,"},
                                           {vftTime, u"09:30,10:00,24:00,,x"},
                                           {vftCommatext, u"\"b,a\",b,\"a,c\",,"},
                                           {vftHour, u"26:05,:45,-1:30,,"}};
  std::mt19937 random(7);
  for (const auto& [type, texts] : kinds) {
    const TCells values = ReadCommatext(texts);
    for (int top = 0; top <= 2; ++top) {
      TTypeCsv table;
      for (int i = 0; i < 60; ++i) {
        const TCells cells{IntToStr(i), values[random() % values.size()]};
        table.AddRow(std::span<const String>(cells).first(1 + random() % 2));
      }
      table.GetDecorations().SetFixed(0, top, 0, 2 - top);
      std::vector<const TVxStringList*> rows(60);
      std::ranges::generate(rows, [&, i = 0]() mutable { return table.GetLines(i++); });
      const TSortColumn column{.Index = 1, .SortType = type, .SortDirection = top == 1 ? -1 : 1, .DateTimeFormat = {}};
      std::stable_sort(rows.begin() + top, rows.end() - (2 - top),
                       [&](auto* a, auto* b) { return CustomSortProcStr(*a, *b, &column) < 0; });
      TVxIntegerList indices, expected;
      for (const auto* row : rows) expected.Add(row->AsInt(0));
      table.CustomSort(CustomSortProcStr, &column, &indices);
      EXPECT_EQ(indices.GetCommatext(), expected.GetCommatext()) << type << " " << top;
      EXPECT_TRUE(std::ranges::equal(rows, table.Items(), {}, {}, [](TObject* row) { return row; })) << type;
    }
  }
  auto table = Table({u"b", u"a"});
  table->CustomSort(CustomSortProcStr, nullptr, nullptr);
  EXPECT_EQ(table->GetText(), u"b\r\na") << "without a column all rows are equal";
  EXPECT_EQ(RaisedBy<Exception>([&] {
              table->CustomSort([](auto&, auto&, auto*) -> int { throw Exception(u"nein"); }, nullptr, nullptr);
            }),
            u"nein");
  EXPECT_EQ(table->GetText(), u"b\r\na");
  table->GetDecorations().SetFixed(0, 5, 0, -3);
  table->Sort(0, 0);
  EXPECT_EQ(table->GetText(), u"b\r\na") << "more fixed rows than there are";
}

TEST(TTypeCsv, GrowsIsEmptiedAndCopied) {
  auto table = Table({u"Kopf", u"a,b", u"Fuß"});
  TDecorationList& looks = table->GetDecorations();
  looks.SetFixed(0, 1, 0, 1);
  table->SetCell(1, 4, u"x");
  EXPECT_EQ(table->GetText(), u"Kopf\r\na,b\r\nFuß");
  looks.SetOptions(looks.GetOptions() + TDecorationListOptions{dloDimensionBySet});
  table->SetCell(2, 1, u"c"), table->SetCell(1, 4, u"x");
  EXPECT_EQ(table->GetText(), u"Kopf\r\na,b,c\r\nFuß\r\n\r\n,x");
  EXPECT_EQ(RaisedBy<Exception>([&] { table->SetCell(0, -1, u"x"); }), FormatListError(SListIndexError, -1));
  TListener listener;
  table->SetOnPreDraw(TCsvDrawEvent::Of<&TListener::Draw>(listener));
  std::unique_ptr<TTypeCsv> copy = table->Duplicate();
  table->ClearContent();
  EXPECT_EQ(table->GetText(), u"Kopf\r\n,x");
  table.reset();
  EXPECT_EQ((TFacts{copy->ClassName(), copy->GetContentTop(), copy->GetContentCount(), copy->GetCount(),
                    copy->GetDecorations().GetParent() == copy.get()}),
            "TTypeCsv 1 4 5 yes");
  TRecordingCanvas canvas;
  TRect rect;
  TDecoration look;
  copy->GetCallbackPreDraw()(canvas, 1, 2, rect, look);
  EXPECT_EQ(listener.Heard, u"TTypeCsv 1/2;") << "of the copy";
  EXPECT_FALSE(copy->GetCallbackPostDraw());
  copy->SetOnPreDraw({});
  EXPECT_FALSE(copy->GetCallbackPreDraw());
}

TEST(TTypeCsv, ExportsWhatIsVisible) {
  TVxImageList images(1, 1);
  images.Add(TBitmap(pf24bit, 3, 1));
  images.SetItems(0, u"rot"), images.SetItems(1, u"blau");
  auto table = Table({u"\"a,b\",<b>x</b><br>y,\"0,2,9,z,1\",\"0,1\",7", u",,1"});
  TDecorationList& looks = table->GetDecorations();
  for (const auto& [col, type] :
       TCases<int, TVxFieldType>{{0, vftCommatext}, {1, vftTinyHTML}, {2, vftImage}, {3, vftToggle}}) {
    looks.CreateRange(rtColumn, col, -1, col, -1)->SetFieldType(type);
  }
  looks.GetCell(2, 1, true)->SetImageList(&images);
  EXPECT_EQ(table->ExportToCsv(nullptr, false)->GetText(), u"\"a\nb\",\"x\ny\",\"0\n2\n9\nz\n1\",\"0\n1\",7\r\n,,blau");
  looks.SetImageList(&images);
  EXPECT_EQ(table->ExportToCsv(nullptr, false)->GetText(),
            u"\"a\nb\",\"x\ny\",\"rot\n9\nz\nblau\",\"rot\nblau\",7\r\n,,blau");
  const std::unordered_map<int, String> names{{0, u""}, {9, u"neun"}};
  EXPECT_EQ(table->ExportToCsv(&names, false)->GetText(), u"\"a\nb\",\"x\ny\",\"2\nneun\nz\n1\",1,7\r\n,,1");
  auto plain = Table({u"a"});
  plain->GetDecorations().CreateRange(rtColumn, 0, -1, 0, -1)->SetFieldType(vftCommatext);
  EXPECT_EQ(plain->ExportToCsv(nullptr, false), nullptr) << "the last decoration is not asked";
  EXPECT_EQ(plain->ExportToCsv(nullptr, true)->GetText(), u"a");
}

TEST(TTypeCsv, IsSortedByClicksOnGridsAndViews) {
  auto table = Table({u"Name,Tag", u"b,02.01.2020", u"a,01.02.2019", u"c,01.02.2019"});
  TDecorationList& looks = table->GetDecorations();
  looks.SetFixed(0, 1, 0, 0);
  looks.CreateRange(rtColumn, 1, -1, 1, -1)->SetFieldType(vftDate);
  looks.CreateRange(rtRow, -1, 0, -1, 0);
  TRecordingCanvas canvas;
  TStringGrid grid;
  grid.SetCanvas(&canvas);
  TListener listener;
  table->SetOnSorted(TVxSortEvent::Of<&TListener::Indices>(listener));
  table->SetOnSetGrid(TNotifyEvent::Of<&TListener::Set>(listener)), table->SetGrid(grid, true);
  EXPECT_EQ((TFacts{grid.GetColCount(), grid.GetRowCount(), grid.GetFixedRows(), grid.GetCells(0, 1), listener.Heard}),
            "2 4 1 b voll;");
  const auto clicked = [&](TMouseButton Button, int Col, int Row) {
    const TRect cell = grid.CellRect(Col, Row);
    listener.Heard = {};
    table->MouseDown(&grid, Button, {}, cell.Left + 1, cell.Top + 1);
    table->MouseMove(&grid, {}, cell.Left + 1, cell.Top + 1);
    table->MouseUp(&grid, Button, {}, cell.Left + 1, cell.Top + 1);
    return Concat({Names(*table), grid.GetCells(0, 1), u" ", listener.Heard, table->GetSortIndices() ? u"!" : u""});
  };
  EXPECT_EQ(clicked(mbMiddle, 0, 0), u"Name b a c b ");
  EXPECT_EQ(clicked(mbLeft, 0, 1), u"Name b a c b ") << "no head";
  EXPECT_EQ(clicked(mbRight, 0, 0), u"Name b a c b ") << "no date";
  EXPECT_EQ(clicked(mbLeft, 0, 0), u"Name a b c a 0,2,1,3;voll;");
  EXPECT_EQ(clicked(mbRight, 1, 0), u"Name a c b a 0,1,3,2;voll;");
  TDecoration* bound = looks.CreateRange(rtRect, 0, 2, 0, -1);
  EXPECT_EQ(clicked(mbLeft, 1, 0), u"Name b a c b -;voll;") << "a decoration stays where it is";
  bound->SetRange(0, 0, 0, 0);
  EXPECT_EQ(clicked(mbLeft, 1, 0), u"Name a c b a 0,2,3,1;voll;");
  looks.SetOptions(looks.GetOptions() - TDecorationListOptions{dloColumnClick});
  EXPECT_EQ(clicked(mbLeft, 0, 0), u"Name a c b a ");
  table->MouseUp(nullptr, mbLeft, {}, 1, 1);

  TListView view;
  view.SetCanvas(&canvas);
  table->SetListView(view);
  EXPECT_EQ((TFacts{view.GetViewStyle(), view.GetReadOnly(), view.GetHideSelection(), view.GetItemCount(),
                    view.GetColumns(1).GetCaption(), view.CellText(0, 0)}),
            "3 yes no 3 Tag a");
  table->MouseColumnClick(&view, view.GetColumns(0));
  table->MouseColumnClick(&view, view.GetColumns(0));
  EXPECT_EQ((TFacts{Names(*table), view.CellText(0, 0), table->GetSortCell().Y}), "Name c b a  c 0");
  TTypeCsv back;
  EXPECT_EQ(back.GetListView(view), 4);
  EXPECT_EQ(back.GetText(), table->GetText());
  grid.SetFixedRows(2);
  back.GetGrid(grid, true);
  EXPECT_EQ((TFacts{Names(back), back.GetContentTop(), back.FieldCount()}), "Name a c b  2 2");
}

TEST(TTypeCsv, HandsCellsToTheDecoratorOfEachTarget) {
  auto table = Table({u"Name,Wert", u"\"lange Zeile\",7", u"x"});
  table->GetDecorations().SetFixed(0, 1, 0, 0);
  TRecordingCanvas canvas, expected;
  TStringGrid grid;
  TListView view;
  TPaintBox box;
  TBitmap bitmap(pf24bit, 50, 20);
  const TRect rect{3, 4, 60, 20};
  for (int i = 0; i < 2; ++i) {  // without a canvas nothing happens
    for (TControl* control :
         {static_cast<TControl*>(&grid), static_cast<TControl*>(&view), static_cast<TControl*>(&box)}) {
      table->Trim(control);
      control->SetCanvas(i == 0 ? nullptr : &canvas);
    }
    table->DrawPaintBox(&box, 0, 1, rect, {});
    EXPECT_EQ(canvas.GetText().empty(), i == 0);
    table->SetGrid(grid, false), table->SetListView(view);
  }
  const auto drawn = [&](TCanvas& from) { return static_cast<TRecordingCanvas&>(from).GetText(); };
  const auto look = table->GetDecorations().VirtualListForCell(0, 1);
  DecoratorCanvas().DrawCell(expected, rect, u"lange Zeile", nullptr, *look, {});
  EXPECT_EQ(drawn(canvas), drawn(expected));
  canvas.Clear(), expected.Clear();
  table->DrawGrid(&grid, 0, 1, rect, {});
  grid.SetCanvas(&expected);
  DecoratorStringGrid().DrawGridCell(grid, table->GetDecorations(), 0, 1, rect, {});
  EXPECT_EQ(drawn(canvas), drawn(expected));
  canvas.Clear(), expected.Clear();
  table->DrawListView(&view, &view.GetItems(0), 0, rect, {});
  view.SetCanvas(&expected);
  DecoratorListView().DrawItemCell(view, table->GetDecorations(), &view.GetItems(0), 0, rect, {});
  EXPECT_EQ(drawn(canvas), drawn(expected));
  for (TControl* control : {static_cast<TControl*>(&grid), static_cast<TControl*>(&view)}) table->Trim(control);
  table->Trim(&box);
  const TTableSizes sizes = table->TrimDevice(canvas, {0, 0, 500, 500});
  EXPECT_EQ((TFacts{sizes.ColWidths.size(), sizes.RowHeights.size(), DecoratorCanvas().GetSizes() == sizes,
                    grid.GetColWidths(0) == sizes.ColWidths[0], table->GetDecorations().GetRowCount()}),
            "2 3 yes yes 3");
  table->SetHoverIndex(&grid, 2);
  EXPECT_EQ(table->GetDecorations().GetHoverIndex(), 2);
}

TEST(TCsvView, DoesWhatAPlainListDoes) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    std::mt19937 random(seed);
    test::TViewWalk walk([&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); });
    for (int step = 0; step < 200; ++step) ASSERT_EQ(walk.Step(), "") << seed << " " << step;
  }
}

TEST(TCsvView, KeepsHiddenRowsInCopiesAndTexts) {
  auto view = Table<TCsvView>({u"k", u"a,1", u"b", u"c"});
  view->GetDecorations().SetFixed(0, 1, 0, 0);
  EXPECT_EQ((TFacts{view->GetViewMode(), view->GetAllCount(), view->GetHiddenText(), &view->GetAll() == view.get()}),
            "no 4  yes");
  view->ShowOnly([](const TVxStringList&) { return true; });
  EXPECT_FALSE(view->GetViewMode()) << "nothing to hide";
  EXPECT_EQ(RaisedBy<Exception>([&] {
              view->ShowOnly([](const TVxStringList& row) { return row.Get(0) != u"a" && !row.Get(1).empty(); });
            }),
            FormatListError(SListIndexError, 1));
  EXPECT_EQ(view->GetText(), u"k\r\na,1\r\nb\r\nc");
  view->Hide(1);
  view->Hide(1);
  EXPECT_EQ((TFacts{view->GetText(), view->GetAllCells(1, 1), view->GetAllCells(1, 2), view->GetAllCells(0, 9)}),
            "k\r\nc 1  ");
  view->SetAllCells(0, 2, u"B"), view->SetAllCells(5, 2, u"x");
  const std::unique_ptr<TTypeCsv> copy = view->Duplicate();
  const auto& twin = dynamic_cast<const TCsvView&>(*copy);
  EXPECT_EQ((TFacts{twin.GetText(), twin.GetAllCount(), twin.GetContentTop()}), "k\r\nc 4 1");
  EXPECT_EQ(HiddenLines(twin), (std::multiset<String>{u"1,a,1", u"2,B"}));
  view->SetHiddenText(u"9,x\r\n\r\n3,\"y z\",\r\nweg\r\n0,q\r\n,leer");
  EXPECT_EQ(Names(view->GetAll()), u"q k c y z x - leer ");
  EXPECT_EQ((TFacts{view->GetText(), view->IsVisible(view->GetAllLines(0))}), "k\r\nc no");
  view->SetHiddenText(u"");
  EXPECT_EQ((TFacts{view->GetViewMode(), Names(view->GetAll())}), "yes k c ");
  view->Hide(1);
  view->ClearContent();
  EXPECT_EQ((TFacts{view->GetText(), view->GetAllCount()}), "k 1") << "hidden rows go, too";
  EXPECT_EQ(RaisedBy<Exception>([&] { view->Hide(1); }), FormatListError(SListIndexError, 1));
}

// What is freed and when shows the address sanitizer.
TEST(TCsvView, FreesItsRowsExactlyWhenItOwnsThem) {
  const auto row = [](std::u16string_view text) {
    auto made = std::make_unique<TVxStringList>();
    made->SetCommatext(text);
    return made;
  };
  const auto a = row(u"a"), b = row(u"b");
  TCsvView view(false);
  view.Add(a.get());
  view.Add(b.get());
  view.Hide(0);
  view.SetViewMode(false);
  EXPECT_EQ(view.GetText(), u"a\r\nb");
  view.Hide(a.get());
  view.Clear();
  EXPECT_EQ((TFacts{view.GetViewMode(), view.GetAllCount(), view.GetHiddenText()}), "yes 0 ");
  view.SetOwnsObjects(true);
  view.Add(row(u"c").release());
  view.Add(row(u"d").release());
  view.Hide(0);
  TVxStringList* kept = view.GetLines(0);
  EXPECT_EQ(view.Extract(kept), kept);
  EXPECT_EQ(view.Extract(view.GetAllLines(0)), nullptr) << "a hidden row is not in the table";
  delete kept;
  THiddenCsv hidden;
  hidden.Add(row(u"e").release());
  hidden.SetOwnsObjects(false);
  hidden.Add(a.get());
  EXPECT_EQ(hidden.Remove(a.get()) >= 0, true);
  hidden.SetOwnsObjects(true);

  struct TCounted : TVxStringList {
    explicit TCounted(int& Freed) : FFreed(Freed) {}
    ~TCounted() override { ++FFreed; }
    int& FFreed;
  };
  const test::TTempDir dir;
  ASSERT_TRUE(TFileCsv().SaveToFile(dir.Path("leer.csv")));
  int freed = 0;
  {
    TCsvView loaded(false);
    loaded.SetViewMode(true);
    ASSERT_TRUE(loaded.LoadFromFile(dir.Path("leer.csv")));
    loaded.Add(new TCounted(freed));
    loaded.Hide(0);
  }
  EXPECT_EQ(freed, 1) << "by loading it owns";
}

// Rows that change their places behind the view's back.
TEST(TCsvView, LosesNoRowThatItDoesNotKnow) {
  for (int how = 0; how < 5; ++how) {
    auto view = Table<TCsvView>({u"a", u"b", u"c", u"d"});
    TObjectList& list = *view;
    view->Hide(1);
    const int order[]{2, 0, 1};
    how == 0 ? list.Arrange(order) : list.SetCount(4);
    view->GetDecorations().SetFixed(0, 0, 0, how == 0 ? 0 : 1);
    if (how == 0 || how == 1) view->ShowAll();
    if (how == 2) view->SetViewMode(false);
    if (how == 3) list.Put(3, new TVxStringList), view->ShowAll();
    if (how == 4) list.Put(0, nullptr), list.Put(0, new TVxStringList), view->ShowAll();
    EXPECT_EQ(view->GetCount(), how == 0 ? 4 : 5) << how;
  }
}

TEST(TTypeCsvList, TakesOverTheTablesOfAnotherList) {
  auto source = std::make_unique<THeadCsvList>();
  source->ImportFromString(u"Farbe,\"0,1\",\"rot,blau\"\x1BOrt,Bonn");
  source->Add(u"Leer");
  TTypeCsvList list;
  list.Add(u"ort", new TTypeCsv);
  const TVxStringList* row = source->GetHeadCsv(source->IndexOf(u"Farbe"))->GetLines(1);
  list.AddAndFree(nullptr);
  list.AddAndFree(std::move(source));
  EXPECT_EQ(
      (TFacts{list.GetCommatext(), list.GetTypeCsv(0)->GetText(), list.GetTypeCsv(2)->GetText(),
              list.GetTypeCsv(1)->GetCount(), list.GetTypeCsv(3) == nullptr, list.GetTypeCsv(0)->GetLines(1) == row}),
      "Farbe,Leer,ort 0,1\r\nrot,blau Bonn 0 yes yes");
  EXPECT_EQ(list.CreateNewItem()->ClassName(), u"TTypeCsv");
}

TEST(RenderLegend, ExplainsEachImageOnce) {
  TVxImageList first(1, 1), second(1, 1);
  first.Add(TBitmap(pf24bit, 3, 1));
  second.Add(TBitmap(pf24bit, 3, 1));
  for (int i = 0; i < 3; ++i) first.SetItems(i, Concat({u"Bild der Gruppe ", IntToStr(i)}));
  second.SetItems(1, u"ein sehr langer Name, der viel Platz braucht");
  auto table = Table({u"x,\"2,0,7,-1\",y", u"x,\"2,z\",,"});
  TDecorationList& looks = table->GetDecorations();
  std::unique_ptr<TTypeCsv> legend = std::make_unique<TTypeCsv>();
  EXPECT_FALSE(RenderLegend(*table, dorPortrait, legend, nullptr));
  EXPECT_EQ(legend, nullptr);
  TDecoration* images = looks.CreateRange(rtColumn, 1, -1, 1, -1);
  images->SetFieldType(vftImage), images->SetImageList(&first);
  looks.GetCell(2, 0, true)->SetImageIndex(1);
  looks.GetCell(2, 0, true)->SetImageList(&second);
  looks.GetCell(2, 1, true)->SetImageIndex(1);  // of an empty cell
  TVxStringList texts;
  EXPECT_TRUE(RenderLegend(*table, dorPortrait, legend, &texts));
  EXPECT_EQ(legend->GetText(),
            u"Legende,,\r\n\"Bild der Gruppe 0\",\"Bild der Gruppe 2\",\r\n"
            u"\"ein sehr langer Name, der viel Platz braucht\",,");
  TDecorationList& look = legend->GetDecorations();
  EXPECT_EQ(
      (TFacts{look.GetCell(1, 1, false)->GetImageIndex(), look.GetCell(1, 1, false)->GetImageList() == &first,
              look.GetCell(0, 2, false)->GetImageIndex(), look.GetCell(0, 2, false)->GetImageList() == &second,
              look.GetFont().Size, look.GetMarginHoriz(), look.GetMarginVerti(), look.GetFixed().Top,
              look.GetFixedColor() == clBtnFace, look.GetItems(0)->GetFont().Size, look.GetItems(1)->GetRangeType()}),
      "2 yes 1 yes 10 4 4 1 yes 8 3");
  texts.SetCommatext(u"eins,zwei");
  EXPECT_TRUE(RenderLegend(*Table({u"x"}), dorLandscape, legend, &texts));
  EXPECT_EQ(legend->GetCount(), 2);
  EXPECT_EQ(legend->FieldCount(), 45) << "180 by 4 letters";
  texts.SetCommatext(u"\"\"");
  EXPECT_TRUE(RenderLegend(*Table({u"x"}), dorPortrait, legend, &texts));
  EXPECT_EQ(legend->GetText(), u"Legende\r\n\"\"");
}

}  // namespace
