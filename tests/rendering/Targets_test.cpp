// Decorators of grids, list views and canvases: sizes of columns and rows, layout, mouse.
#include "core/uVxFunctionsSerialize.h"
#include "platform/Drawing.h"
#include "platform/TImageList.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uDecoration.h"
#include "tests/support/PlainDecorator.h"
#include "tests/support/Test.h"

namespace {

struct TRows : TCellSource {
  std::vector<std::vector<String>> Rows;
  int Cols = 0;
  TObject* Object = nullptr;  // of the cell (1, 1)
  int CellCols() const override { return Cols; }
  int CellRows() const override { return static_cast<int>(Rows.size()); }
  std::span<const String> RowTexts(int Row) override { return Rows[static_cast<size_t>(Row)]; }
  TObject* CellObject(int Col, int Row) override { return Col == 1 && Row == 1 ? Object : nullptr; }
};

// The sizes as they are told: Calculate over all cells.
TTableSizes SizesOfAll(TDecorator& Decorator, TCanvas& Canvas, TDecorationList& List, TRows& Cells) {
  TTableSizes sizes{std::vector<int>(static_cast<size_t>(Cells.Cols)), std::vector<int>(Cells.Rows.size())};
  List.SetColCount(Cells.Cols), List.SetRowCount(Cells.CellRows());
  for (int row = 0; row < Cells.CellRows(); ++row) {
    const auto texts = Cells.RowTexts(row);
    for (int col = 0; col < Cells.Cols; ++col) {
      const auto c = static_cast<size_t>(col), r = static_cast<size_t>(row);
      const TPoint size = Decorator.Calculate(Canvas, c < texts.size() ? texts[c] : String(),
                                              Cells.CellObject(col, row), *List.VirtualListForCell(col, row));
      sizes.ColWidths[c] = std::max(sizes.ColWidths[c], size.X);
      sizes.RowHeights[r] = std::max(sizes.RowHeights[r], size.Y);
    }
  }
  return sizes;
}

class TRandomTable {
 public:
  explicit TRandomTable(unsigned Seed) : FRandom(Seed), List(&Sorted) {
    Images.Add(TBitmap(pf24bit, 20, 9));
    Cells.Cols = 1 + Upto(7);
    for (int i = Upto(60); i-- > 0;) {
      auto& row = Cells.Rows.emplace_back(static_cast<size_t>(Upto(9)));
      for (String& cell : row) cell = Text();
    }
    Cells.Object = Upto(2) == 0 ? &Graphic : nullptr;
    Sorted.Cell = {Upto(8), Upto(4)};
    List.SetFixed(Upto(2), Upto(3), Upto(2), Upto(2)), List.SetImageList(&Images);
    List.SetMarginHoriz(Upto(9) - 1), List.SetMarginVerti(Upto(3)), List.SetMaxSubLines(Upto(4));
    if (Upto(3) == 0) List.SetTrimModes({tmFitImage, tmTrueCommatext});
    if (Upto(4) == 0) List.SetDevice(ddPrinter);
    for (int i = Upto(20); i-- > 0;)
      Decorate(*List.CreateRange(static_cast<TRangeType>(1 + Upto(7)), Place(), Place(), Place(), Place()));
    if (Upto(2) == 0) List.RefreshRangeList();
  }

 private:
  int Upto(int Behind) { return static_cast<int>(FRandom() % static_cast<unsigned>(Behind)); }
  int Place() { return Upto(14) - 3; }
  String Text() {
    static const auto texts = explode(
        u"| |Müller|11.02.2015|31.12.1999 23:59|1234,5|-7|1,5|0|9999,995|a,b,\"c "
        u"d\"|zwei\r\nZeilen|12:30|124:30|1|0,1,7|"
        u"\x301|e\x301x|Ё\x0E01|1e5|<b>fett</b> x|1.234.567,5|1.2.3.4,5|-0,004|12345678|99999999,99",
        u'|');
    if (Upto(2) == 0) return texts->Get(Upto(texts->GetCount()));
    return CurrToStr(
        Currency::FromUnits(static_cast<int64_t>(FRandom()) * (Upto(2) == 0 ? 1 : -13) / (1 + Upto(90000))));
  }
  void Decorate(TDecoration& Look) {
    static constexpr std::u16string_view kFormats[] = {u"",  u"0.00",    u"#,##0.0#",   u"dd. mmmm yyyy",
                                                       u"q", u"kb",      u"nein\r\nja", u"000",
                                                       u"#", u"0;;leer", u"d.m.yy",     u"#,##0.## €"};
    if (Upto(2) == 0) Look.SetFieldType(static_cast<TVxFieldType>(Upto(19)));
    if (Upto(2) == 0) Look.SetFormatString(String(kFormats[Upto(static_cast<int>(std::size(kFormats)))]));
    if (Upto(4) == 0) Look.SetFont({.Style = Upto(2) == 0 ? TFontStyles{fsBold} : TFontStyles{}, .Size = 6 + Upto(9)});
    if (Upto(6) == 0) Look.SetImageIndex(0);
    if (Upto(6) == 0) Look.SetTextAngle(taVert);
    if (Upto(6) == 0) Look.SetSelectRange(Upto(4) - 1, 1, 2, Upto(3));
    if (Upto(8) == 0) Look.SetOptions({doCoupled});
    if (Upto(6) == 0) Look.SetWidthMax(Upto(80) - 1);
    if (Upto(6) == 0) Look.SetWidthMin(Upto(60) - 1), Look.SetHeightMin(Upto(40));
    if (Upto(8) == 0) Look.SetAlignSet({alLeft}), Look.SetImageAlignSet({alTop});
  }
  std::mt19937 FRandom;

 public:
  TSortedPlain Sorted;
  TVxImageList Images{20, 9};
  TBitmap Graphic{pf24bit, 70, 30};
  TRows Cells;
  TDecorationList List;
};

TEST(Trim, SizesAreThoseOfAllCells) {
  TRecordingCanvas canvas;
  for (unsigned seed = 0; seed < 300; ++seed) {
    TRandomTable table(seed);
    const TTableSizes found = DecoratorCanvas().TrimDevice(canvas, {}, table.List, table.Cells);
    const TTableSizes all = SizesOfAll(DecoratorCanvas(), canvas, table.List, table.Cells);
    EXPECT_EQ(testing::PrintToString(found.ColWidths) + testing::PrintToString(found.RowHeights),
              testing::PrintToString(all.ColWidths) + testing::PrintToString(all.RowHeights))
        << seed << ' ' << table.List.GetCommatext();
    // A class of its own is asked for each cell.
    struct TOwn : TDecoratorCanvas {
      TPoint Calculate(TCanvas&, const String& Text, TObject*, TDecorationList&) override { return {Text.size(), 5}; }
    } own;
    EXPECT_EQ((own.TrimDevice(canvas, {}, table.List, table.Cells) == SizesOfAll(own, canvas, table.List, table.Cells)),
              true);
  }
}

TEST(Trim, OfOddTables) {
  TRecordingCanvas canvas;
  TDecorationList list;
  TRows cells;
  EXPECT_EQ(DecoratorCanvas().TrimDevice(canvas, {100, 100}, list, cells), TTableSizes());
  cells.Rows.resize(3);
  list.SetFixed(5, 9, 7, 8), list.SetTrimModes({tmCanvasWidthMax, tmCanvasWidthMin, tmCanvasHeightMin});
  EXPECT_EQ(DecoratorCanvas().TrimDevice(canvas, {100, 102}, list, cells).RowHeights, (std::vector<int>{0, 0, 0}));
  cells.Cols = 10000;
  for (int i = 0; i < 10000; ++i) cells.Rows[2].push_back(IntToStr(i));
  const TTableSizes sizes = DecoratorCanvas().TrimDevice(canvas, {30000, 0}, list, cells);
  EXPECT_EQ((TFacts{sizes.ColWidths[0], sizes.ColWidths[9999],
                    std::accumulate(sizes.ColWidths.begin(), sizes.ColWidths.end(), 0)}),
            "2 2 20000");
}

// Three columns and four rows: the first row is fixed, the last column has texts there alone.
TEST(Trim, ModesSaySizes) {
  const TTrimModes none;
  // Of the list; of a decoration, its kind and range; the room; widths and heights.
  for (const auto& [modes, own, kind, from, to, room, sizes] :
       TCases<TTrimModes, TTrimModes, TRangeType, int, int, TPoint, std::string>{
           {none, none, rtAll, 0, 0, {}, "34,18,50 16,16,16,0"},
           {{tmNone}, none, rtAll, 0, 0, {}, "11,12,13 21,22,23,24"},
           {none, {tmNone}, rtColumn, 1, 1, {}, "34,12,50 16,16,16,0"},
           {{tmHide}, {tmHide}, rtAll, 0, 0, {}, "34,18,50 16,16,16,0"},
           {none, {tmHide}, rtColumn, 0, -2, {}, "0,0,50 16,16,16,0"},
           {none, {tmHide}, rtRow, 1, 7, {}, "34,18,50 16,0,0,0"},
           {none, {tmHide}, rtCell, 1, 1, {}, "34,18,50 16,16,16,0"},
           {{tmHideEmptyColumn, tmHideEmptyRow}, none, rtAll, 0, 0, {}, "34,18,50 16,16,16,0"},
           {{tmHideEmptyColContent, tmHideEmptyRowContent}, none, rtAll, 0, 0, {}, "34,18,0 16,16,16,0"},
           {none, {tmHideEmptyColContent}, rtColumn, 0, 1, {}, "34,18,50 16,16,16,0"},
           {{tmBalanceWidth}, none, rtAll, 0, 0, {}, "50,50,50 16,16,16,0"},
           {{tmBalanceHeight}, {tmBalanceWidth}, rtColumn, 0, 1, {}, "34,34,50 16,16,16,0"},
           {{tmCanvasWidthMax}, none, rtAll, 0, 0, {83, 9}, "31,18,31 16,16,16,0"},
           {{tmCanvasWidthMax}, none, rtAll, 0, 0, {60, 9}, "20,18,19 16,16,16,0"},
           {{tmCanvasWidthMax}, none, rtAll, 0, 0, {1, 9}, "5,5,5 16,16,16,0"},
           {{tmCanvasWidthMax}, none, rtAll, 0, 0, {200, 9}, "34,18,50 16,16,16,0"},
           {{tmCanvasWidthMax, tmShowFullFixed}, none, rtAll, 0, 0, {83, 9}, "18,12,50 16,16,16,0"},
           {none, {tmCanvasWidthMax}, rtColumn, 0, 0, {83, 9}, "12,18,50 16,16,16,0"},
           {{tmCanvasWidthMin}, none, rtAll, 0, 0, {109, 9}, "36,19,51 16,16,16,0"},
           {{tmCanvasWidthMin, tmHideEmptyColContent}, none, rtAll, 0, 0, {103, 9}, "59,42,0 16,16,16,0"},
           {none, {tmCanvasWidthMin}, rtColumn, 2, 2, {109, 9}, "34,18,54 16,16,16,0"},
           {{tmCanvasHeightMax}, none, rtAll, 0, 0, {0, 48}, "34,18,50 15,15,15,0"},
           {{tmCanvasHeightMin}, none, rtAll, 0, 0, {0, 60}, "34,18,50 16,21,20,0"}}) {
    TRecordingCanvas canvas;
    TDecorationList list;
    list.SetFixed(0, 1, 0, 0), list.SetTrimModes(modes), list.SetMinColWidth(5);
    list.CreateRange(kind, from, from, to, to)->SetTrimModes(own);
    TRows cells;
    cells.Cols = 3;
    cells.Rows = {{u"aa", u"b", u"Bbbbbb"}, {u"aaaa", u"", u" "}, {u"", u"bb"}, {}};
    const TTableSizes found = DecoratorCanvas().TrimDevice(canvas, room, list, cells, {{11, 12, 13}, {21, 22, 23, 24}});
    EXPECT_EQ((TFacts{found.ColWidths, found.RowHeights}), sizes) << room.X << ' ' << from;
  }
}

struct TCall {
  std::string Text;
  void Widths(TDecorationList& List, std::span<const int> Values, TPointArray& Sizes, TTrimModes Modes, int MaxSize) {
    Text = testing::PrintToString(std::vector<int>(Values.begin(), Values.end())) + std::to_string(MaxSize) +
           (Modes == List.GetTrimModes() ? "" : "?");
    for (const TPoint& size : Sizes) Text += " " + std::to_string(size.X) + "-" + std::to_string(size.Y);
    Sizes[0].Y = 7, Sizes[1].Y = -1;
    Sizes.resize(2);
  }
};

TEST(Trim, TheCallbackChangesWidths) {
  TRecordingCanvas canvas;
  TCall call;
  TDecorationList list;
  list.SetTrimModes({tmCanvasWidthMax}), list.SetCallbackTrimmingHoriz(TCallbackTrimming::Of<&TCall::Widths>(call));
  TRows cells;
  cells.Cols = 3, cells.Rows = {{u"aaaa", u"aaaa", u"a"}};
  EXPECT_EQ((TFacts{DecoratorCanvas().TrimDevice(canvas, {50, 0}, list, cells).ColWidths, call.Text}),
            "7,0,10 { 34, 34, 10 }50 1-19 1-18 1-10");
}

TEST(DecoratorStringGrid, SizesAndDressesAGrid) {
  TRecordingCanvas canvas;
  TDecorationList list;
  TStringGrid grid;
  TDecoratorStringGrid& decorator = DecoratorStringGrid();
  decorator.Trim(grid, list);  // no canvas
  EXPECT_EQ((TFacts{grid.GetColWidths(1), list.GetColCount(), list.GetRowCount()}), "64 5 5");
  grid.SetCanvas(&canvas), grid.SetCells(1, 2, u"Müller"), grid.SetColCount(3);
  decorator.SetComponent(&list), decorator.SetDecorations(&list), decorator.Trim();
  EXPECT_EQ((TFacts{decorator.GetComponent() == nullptr, grid.GetColWidths(1)}), "yes 64");
  decorator.SetComponent(&grid), decorator.Trim();
  EXPECT_EQ((TFacts{decorator.ReadSizes(grid).ColWidths, decorator.ReadSizes(grid).RowHeights}), "0,43,0 0,0,16,0,0");
  list.SetFixed(2, 3, 1, 1), list.SetColor(clYellow),
      list.SetOptions({dloGridLines, dloVertLine, dloRowSelect, dloBorder});
  decorator.WriteLayout(grid, list);
  EXPECT_EQ((TFacts{grid.GetFixedCols(), grid.GetFixedRows(), grid.GetColor(), grid.GetFixedColor() == clBtnFace,
                    grid.GetOptions() == TGridOptions{goRangeSelect, goVertLine, goRowSelect}, grid.GetFont().Size,
                    grid.GetDefaultDrawing()}),
            "2 3 65535 yes yes 10 no");
  TDecorationList read;
  read.SetFixed(9, 9, 1, 4);
  decorator.ReadLayout(grid, read);
  EXPECT_EQ(
      (TFacts{read.GetColCount(), read.GetRowCount(), read.GetFixed() == TRect{2, 3, 1, 4},
              read.GetOptions() == TDecorationListOptions{dloGridLines, dloVertLine, dloRowSelect, dloColumnClick}}),
      "3 5 yes yes");
  EXPECT_EQ((TDecoratorStringGrid::StatesOf(list, {gdSelected, gdFocused, gdHotTrack, gdPressed, gdFixed}) ==
             TDecorationDrawStates{ddsSelected, ddsFocused, ddsMouseOver, ddsMouseDown}),
            true);
  decorator.SetComponent(nullptr), decorator.SetDecorations(nullptr);
  uDecoration::FreeBuffersForLeakPrevention();
  EXPECT_EQ(DecoratorStringGrid().GetComponent(), nullptr);
}

TEST(DecoratorStringGrid, ButtonsAreClicked) {
  TDecorationList list;
  TStringGrid grid;
  list.SetColCount(5), list.SetRowCount(5);
  TDecoration* look = list.GetCell(1, 1, true);
  look->SetFieldType(vftButton), look->SetFormatString(u"\"\",boSquare,los,\"fängt an\"");
  grid.SetCells(1, 1, u"\"\",\"\",weiter"), grid.SetCells(2, 1, u"x");
  TDecoratorStringGrid& decorator = DecoratorStringGrid();
  decorator.MouseMove(grid, list, {}, 70, 30);
  EXPECT_EQ(grid.GetHint(), TButtonInfo(look->GetFormatString()).Hint);
  decorator.MouseMove(grid, list, {}, 140, 30);
  EXPECT_EQ(grid.GetHint(), u"");
  const auto click = [&](TMouseButton button, int x, int upX) {
    decorator.MouseDown(grid, list, button, {}, x, 30);
    return decorator.MouseUp(grid, list, button, {}, upX, 30);
  };
  EXPECT_EQ(click(mbLeft, 70, 100), (TPoint{1, 1}));
  for (const auto& [button, x, upX] : TCases<TMouseButton, int, int>{
           {mbRight, 70, 70}, {mbLeft, 70, 140}, {mbLeft, 140, 140}, {mbLeft, 140, 70}, {mbLeft, 900, 900}}) {
    EXPECT_EQ(click(button, x, upX), (TPoint{-1, -1})) << x << ' ' << upX;
  }
}

TEST(DecoratorListView, HeadsAreTheFirstRow) {
  TRecordingCanvas canvas;
  TDecorationList list;
  TListView view;
  view.AddColumn(u"Namen"), view.AddColumn(u"B");
  view.AddItem().SetCaption(u"a"), view.AddItem().SubItems().Add(u"bbbb");
  list.SetFixed(0, 1, 0, 0);
  list.GetCell(1, 2, true)->SetFont({.Style = {}, .Size = 20});
  view.SetCanvas(&canvas);
  DecoratorListView().Trim(view, list);  // not of vsReport
  EXPECT_EQ((TFacts{view.GetColumns(0).GetWidth(), list.GetColCount(), list.GetRowCount()}), "50 2 3");
  view.SetViewStyle(vsReport);
  DecoratorListView().SetComponent(&view), DecoratorListView().SetDecorations(&list), DecoratorListView().Trim();
  const TTableSizes sizes = DecoratorListView().ReadSizes(view);
  EXPECT_EQ((TFacts{sizes.ColWidths, sizes.RowHeights}), "47,66 16,34");
  DecoratorListView().SetComponent(nullptr), DecoratorListView().SetDecorations(nullptr);
  list.SetOptions({dloRowSelect});
  DecoratorListView().WriteLayout(view, list);
  view.SetShowColumnHeaders(false);
  list.SetOptions({dloColumnClick, dloBorder});
  DecoratorListView().ReadLayout(view, list);
  EXPECT_EQ((TFacts{view.GetRowSelect(), view.GetFont().Size,
                    list.GetOptions() == TDecorationListOptions{dloRowSelect, dloBorder}}),
            "yes 10 yes");
}

// What each cell is painted with.
template <typename T>
struct TNoted : T {
  std::string Text;
  void DrawCell(TCanvas&, const TRect& Rect, const String& Cell, TObject* Object, TDecorationList& List,
                TDecorationDrawStates State) override {
    Text += std::to_string(List.GetCell().X) + "," + std::to_string(List.GetCell().Y) + "@" +
            std::to_string(Rect.Left) + "," + std::to_string(Rect.Top) + " " + std::to_string(Rect.Width()) + "x" +
            std::to_string(Rect.Height()) + " " + Cell.ToUtf8() + (Object != nullptr ? "*" : "") +
            (State.Has(ddsSelected) ? "s" : "") + (State.Has(ddsMouseOver) ? "o" : "") +
            (State.Has(ddsMouseDown) ? "d" : "") + ";";
  }
};

TEST(Decorators, HandCellsToTheirPainter) {
  TRecordingCanvas canvas;
  TDecorationList list;
  TStringGrid grid;
  TNoted<TDecoratorStringGrid> grids;
  grid.SetCells(1, 2, u"a"), grid.SetObjects(1, 2, &list);
  grids.DrawGridCell(grid, list, 1, 2, {1, 2, 3, 4}, {gdSelected});
  grid.SetCanvas(&canvas);
  grids.DrawGridCell(grid, list, 1, 2, {1, 2, 3, 4}, {gdSelected});
  EXPECT_EQ((TFacts{grids.Text, list.GetRowCount()}), "1,2@1,2 2x2 a*s; 5");
  TListView view;
  TNoted<TDecoratorListView> lists;
  view.SetCanvas(&canvas), view.AddColumn(u"A"), view.AddItem().SetCaption(u"a"), view.GetItems(0).SetData(&list);
  lists.DrawItemCell(view, list, nullptr, 0, {1, 2, 3, 4}, {cdsHot, cdsPressed});
  lists.DrawItemCell(view, list, &view.GetItems(0), 0, {1, 2, 3, 4}, {cdsSelected});
  EXPECT_EQ(lists.Text, "0,0@1,2 2x2 Aod;0,1@1,2 2x2 a*s;");

  TNoted<TDecoratorCanvas> canvases;
  TRows cells;
  cells.Cols = 4, cells.Rows = {{u"a", u"b", u"c", u"d"}, {u"1"}, {u"2", u"", u"x"}, {u"3"}};
  const TTableSizes sizes{{10, 20, 0, 30}, {5, 6, 7, 8}};
  list.SetFixed(1, 1, 0, 0), list.SetOptions({dloGridLines, dloVertLine, dloFixedHorzLine});
  canvas.Clear();
  canvases.DrawTable(canvas, {100, 200, 140, 213}, list, cells, sizes, {2, 2});
  EXPECT_EQ(canvases.Text, "0,0@100,200 10x5 a;3,0@111,200 30x5 d;0,2@100,206 10x7 2;3,2@111,206 30x7 ;");
  EXPECT_EQ(canvas.GetText().ToUtf8(), "fill 100,205 40x1 clSilver in 100,200 40x13\n");
  for (const auto& [x, y, col, row] : TCases<int, int, int, int>{{100, 200, 0, 0},
                                                                 {110, 205, 0, 0},
                                                                 {111, 206, 3, 2},
                                                                 {139, 212, 3, 2},
                                                                 {140, 212, -1, -1},
                                                                 {99, 206, -1, -1}}) {
    EXPECT_EQ(TDecoratorCanvas::CellAt({100, 200, 140, 213}, list, sizes, {x, y}, {2, 2}), (TPoint{col, row})) << x;
  }
  list.SetOptions({dloVertLine}), canvases.Text.clear(), canvas.Clear();
  canvases.DrawTable(canvas, {100, 200, 140, 213}, list, cells, sizes, {2, 2});
  EXPECT_EQ(canvases.Text,
            "0,0@100,200 10x5 a;3,0@110,200 30x5 d;0,2@100,205 10x7 2;3,2@110,205 30x7 ;0,3@100,212 10x8 "
            "3;3,3@110,212 30x8 ;");
  EXPECT_EQ(canvas.GetText(), u"") << "no grid, no room for its lines";
  TPaintBox box;
  TDecoratorCanvas own;
  own.SetComponent(&box), own.SetDecorations(&list), own.SetCells(&cells), own.Trim();
  EXPECT_EQ(own.GetSizes(), TTableSizes());
  box.SetCanvas(&canvas), own.Trim();
  EXPECT_EQ(own.GetSizes(), own.TrimDevice(canvas, {105, 105}, list, cells));
}

}  // namespace
