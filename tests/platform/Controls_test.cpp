// The plain models of controls.
#include "platform/TListView.h"
#include "platform/TPaintBox.h"
#include "platform/TPopupMenu.h"
#include "platform/TRecordingCanvas.h"
#include "platform/TStringGrid.h"
#include "tests/support/Test.h"

namespace {

// Writes down what controls tell.
struct TLog {
  std::string Text;
  void Invalid(TObject*) { Text += "!"; }
  void Click(TObject*) { Text += "click "; }
  void Enter(TObject*) { Text += "enter "; }
  void Leave(TObject*) { Text += "leave "; }
  void ColumnClick(TObject*, TListColumn& Column) { Text += "column " + std::to_string(Column.GetIndex()); }
  void SelectCell(TObject*, int Col, int, bool& CanSelect) { CanSelect = Col != 2; }
  void DrawCell(TObject*, int Col, int Row, const TRect&, TGridDrawStates State) {
    Text += std::to_string(Col) + "," + std::to_string(Row);
    for (int i = gdSelected; i <= gdPressed; ++i) {
      if (State.Has(static_cast<TGridDrawState>(i))) Text += "sfxhp"[i];
    }
    Text += " ";
  }
};

std::string Of(const TRect& Rect) {
  return std::to_string(Rect.Left) + "," + std::to_string(Rect.Top) + "-" + std::to_string(Rect.Right) + "," +
         std::to_string(Rect.Bottom);
}

TEST(TControl, TellsOfChangesOnceAndOfTheMouse) {
  TLog log;
  TControl parent, control;
  parent.SetBounds({100, 50, 300, 250});
  control.SetParent(&parent), control.SetOnInvalidate(TNotifyEvent::Of<&TLog::Invalid>(log));
  control.SetOnClick(TNotifyEvent::Of<&TLog::Click>(log));
  control.SetOnMouseEnter(TNotifyEvent::Of<&TLog::Enter>(log));
  control.SetOnMouseLeave(TNotifyEvent::Of<&TLog::Leave>(log)), control.SetBounds({10, 10, 5, 40});
  control.SetWidth(20), control.SetWidth(20);
  {
    TControlUpdate update(control), inner(control);
    control.SetColor(clRed), control.SetEnabled(false);
  }
  EXPECT_EQ(log.Text, "!!!");
  EXPECT_EQ((TFacts{control.ClientToScreen({1, 2}).X, control.ScreenToClient({111, 62}).Y, Of(control.GetBounds())}),
            "111 2 10,10-30,40");
  control.MouseDown(mbLeft, {}, 1, 1), control.MouseMove({}, 1, 1);
  control.SetEnabled(true), log.Text.clear();
  control.MouseDown(mbLeft, {}, 1, 1), control.MouseUp(mbLeft, {}, 20, 1);  // beside it: no click
  control.MouseDown(mbLeft, {}, 1, 1), control.MouseUp(mbRight, {}, 1, 1), control.MouseUp(mbLeft, {}, 19, 29);
  control.MouseLeave(), control.MouseLeave();
  EXPECT_EQ(log.Text, "enter click leave ");
  EXPECT_EQ(control.GetMousePos(), (TPoint{-1, -1}));
}

TEST(TStringGrid, KeepsCellsInsideItself) {
  TStringGrid grid;
  TObject object;
  grid.SetColCount(10000), grid.SetRowCount(INT_MAX), grid.SetCells(9999, 3, u"a"), grid.SetObjects(2, 4, &object);
  for (const auto& [col, row] : TCases<int, int>{{-1, 0}, {0, -1}, {10000, 0}, {0, INT_MAX}}) {
    grid.SetCells(col, row, u"b"), grid.SetObjects(col, row, &object);
    EXPECT_EQ((TFacts{grid.GetCells(col, row), grid.GetObjects(col, row) == nullptr}), " yes") << col << ' ' << row;
  }
  EXPECT_EQ((TFacts{grid.GetCells(9999, 3), grid.GetObjects(2, 4) == &object, grid.GetRowCells(3).size(),
                    grid.GetRowObjects(4).size(), grid.GetRowCells(5).size()}),
            "a yes 10000 3 0");
  grid.SetColCount(2), grid.SetColCount(10000), grid.SetRowCount(4), grid.SetRowCount(5);
  EXPECT_EQ((TFacts{grid.GetCells(9999, 3), grid.GetObjects(2, 4) == nullptr}), " yes");
  grid.SetRowCount(-1);
  EXPECT_EQ((TFacts{grid.GetRowCount(), grid.GetCol(), grid.SelectCell(1, 1), grid.MouseToCell(3, 3).X}), "0 -1 no -1");
}

TEST(TStringGrid, PlacesAndCellsAreEachOthersInverse) {
  TStringGrid grid;  // 320 x 120
  grid.SetColCount(100), grid.SetRowCount(1000000);
  grid.SetColWidths(1, 100), grid.SetColWidths(2, 0), grid.SetRowHeights(999999, 10);
  EXPECT_EQ((TFacts{Of(grid.CellRect(0, 0)), Of(grid.CellRect(1, 2)), Of(grid.CellRect(2, 0)), Of(grid.CellRect(3, 1)),
                    Of(grid.CellRect(9, 0)), Of(grid.CellRect(-1, 0))}),
            "0,0-64,24 65,50-165,74 0,0-0,0 166,25-230,49 0,0-0,0 0,0-0,0");
  EXPECT_EQ((TFacts{grid.GetVisibleColCount(), grid.GetVisibleRowCount(), grid.SelectCell(5, 999999)}), "3 3 yes");
  EXPECT_EQ((TFacts{grid.GetLeftCol(), grid.GetTopRow(), Of(grid.CellRect(5, 999999)), Of(grid.CellRect(1, 999999))}),
            "2 999996 195,100-259,110 0,0-0,0");
  for (const TPoint cell : {TPoint{0, 0}, TPoint{3, 999997}, TPoint{4, 999999}}) {
    const TRect rect = grid.CellRect(cell.X, cell.Y);
    EXPECT_EQ(grid.MouseToCell(rect.Left, rect.Top), cell);
    EXPECT_EQ(grid.MouseToCell(rect.Right, rect.Bottom), cell);  // the lines
  }
  EXPECT_EQ(grid.MouseToCell(10, 115), (TPoint{-1, -1}));
  grid.SetFixedRows(2000000);  // all are fixed then
  EXPECT_EQ((TFacts{Of(grid.CellRect(0, 1)), grid.GetRow(), grid.SelectCell(1, 1), grid.GetVisibleRowCount()}),
            "0,25-64,49 -1 no 0");
}

TEST(TStringGrid, MouseSelectsAndPaintingTellsTheState) {
  TLog log;
  TRecordingCanvas canvas;
  TStringGrid grid;
  grid.SetBounds({0, 0, 190, 80}), grid.SetColCount(3), grid.SetRowCount(3);
  grid.SetOnSelectCell(TSelectCellEvent::Of<&TLog::SelectCell>(log));
  grid.SetOnDrawCell(TDrawCellEvent::Of<&TLog::DrawCell>(log)), grid.SetCells(1, 1, u"A");
  grid.Paint();  // nothing without a canvas
  grid.SetCanvas(&canvas);
  grid.MouseDown(mbLeft, {}, 70, 30), grid.MouseUp(mbLeft, {}, 70, 30);
  grid.MouseDown(mbLeft, {ssShift}, 70, 60), grid.MouseDown(mbLeft, {}, 150, 30);  // column 2 is refused
  grid.Paint();
  EXPECT_EQ(log.Text, "0,0x 1,0x 2,0x 0,1x 1,1s 2,1hp 0,2x 1,2sf 2,2 ");
  EXPECT_EQ(Of(grid.GetSelection()), "1,1-1,2");
  grid.SetOptions({goRowSelect, goVertLine}), grid.SetColCount(2), grid.SetRowCount(2), grid.SetOnDrawCell({});
  canvas.Clear(), grid.Paint();
  EXPECT_EQ(Of(grid.GetSelection()), "1,1-1,1");
  EXPECT_EQ(canvas.GetText().ToUtf8(),
            "fill 0,0 190x80 clWindow\nfill 0,0 64x24 clBtnFace\nfill 65,0 64x24 clBtnFace\nfill 0,25 64x24 clBtnFace\n"
            "fill 65,25 64x24 clHighlight\ntext 67,27 7x14 \"A\" clHighlightText Tahoma 8 in 65,25 64x24\n"
            "fill 129,0 1x50 clSilver\n");
}

TListView& Fill(TListView& View, std::initializer_list<const char16_t*> Captions) {
  View.SetViewStyle(vsReport);
  View.AddColumn(u"A", 80), View.AddColumn(u"B", 100);
  for (const char16_t* caption : Captions) {
    TListItem& item = View.AddItem();
    item.SetCaption(caption), item.SubItems().AddObject(item.GetCaption() + u"2", &View);
  }
  return View;
}

std::string Items(const TListView& View) {
  std::string text;
  for (int i = 0; i < View.GetItemCount(); ++i) {
    const TListItem& item = View.GetItems(i);
    text += View.CellText(0, i).ToUtf8() + View.CellText(1, i).ToUtf8() + (item.GetSelected() ? "*" : "") +
            (item.GetIndex() == i ? " " : "? ");
  }
  return text;
}

TEST(TListView, ItemsKnowTheirPlace) {
  TListView view, other;
  Fill(view, {u"c", u"a", u"b"});
  const TListItem& item = view.GetItems(0);
  EXPECT_EQ((TFacts{item.GetIndex(), other.IndexOf(item), TListItem().GetIndex(), view.CellText(2, 0),
                    view.CellText(0, 3), view.GetItems(0).SubItems().GetObject(0) == &view}),
            "0 -1 -1   yes");
  view.GetItems(0).SetSelected(true);
  view.Sort([](const TListItem& a, const TListItem& b) { return a.GetCaption() < b.GetCaption() ? -1 : 1; });
  view.InsertItem(1).SetCaption(u"x");
  EXPECT_EQ(Items(view), "aa2 x bb2 cc2* ");
  view.GetItems(1).SetSelected(true);  // alone
  view.DeleteItem(0);
  EXPECT_EQ((TFacts{Items(view), view.GetSelCount(), view.GetItemIndex()}), "x* bb2 cc2  1 0");
  view.SetMultiSelect(true), view.GetItems(2).SetSelected(true), view.SetMultiSelect(false);
  EXPECT_EQ((TFacts{Items(view), view.GetSelCount()}), "x* bb2 cc2  1");
  view.GetItems(1).SubItems().Clear(), view.DeleteColumn(0);
  EXPECT_EQ((TFacts{Items(view), view.GetColumns(0).GetIndex()}), "x* b cc2  0");
  EXPECT_THROW(view.GetItems(3), EListError);
  EXPECT_THROW(view.InsertItem(9), EListError);
  EXPECT_THROW(view.GetItems(0).SubItems().Put(0, u""), EStringListError);
  view.ClearItems();
  EXPECT_EQ((TFacts{view.GetSelCount(), view.GetSelected() == nullptr, view.GetItemIndex()}), "0 yes -1");
}

TEST(TListView, MouseFindsHeadsAndItems) {
  TLog log;
  TListView view;  // 250 x 150: heads of 24 pixels, items of 20
  Fill(view, {u"a", u"b", u"c", u"d"});
  view.SetOnColumnClick(TColumnClickEvent::Of<&TLog::ColumnClick>(log));
  view.SetMultiSelect(true), view.SetRowSelect(true), view.SetTopIndex(1);
  for (const auto& [x, y, col, item] : TCases<int, int, int, int>{
           {79, 23, 0, -1}, {80, 24, 1, 1}, {180, 44, -1, 2}, {0, 84, -1, -1}, {250, 30, -1, 1}, {5, -1, -1, -1}}) {
    EXPECT_EQ(view.MouseToCell(x, y), (TPoint{col, item})) << x << ' ' << y;
  }
  EXPECT_EQ(
      (TFacts{Of(view.CellRect(1, -1)), Of(view.CellRect(1, 2)), Of(view.CellRect(0, 0)), Of(view.CellRect(2, 1))}),
      "80,0-180,24 80,44-180,64 0,0-0,0 0,0-0,0");
  view.MouseDown(mbLeft, {}, 90, 5), view.MouseUp(mbLeft, {}, 70, 5);  // elsewhere: no click
  view.MouseDown(mbLeft, {}, 90, 5), view.MouseUp(mbLeft, {}, 100, 6);
  EXPECT_EQ(log.Text, "column 1");
  const auto click = [&](int y, TShiftState shift) {
    view.MouseDown(mbLeft, shift, 10, y), view.MouseUp(mbLeft, shift, 10, y);
    return Items(view);
  };
  EXPECT_EQ((TFacts{click(30, {}), click(70, {ssShift})}), "aa2 bb2* cc2 dd2  aa2 bb2* cc2* dd2* ");
  EXPECT_EQ((TFacts{click(50, {ssCtrl}), click(50, {})}), "aa2 bb2* cc2 dd2*  aa2 bb2 cc2* dd2 ");
  view.SetItemIndex(0);
  EXPECT_EQ((TFacts{Items(view), view.GetTopIndex()}), "aa2* bb2 cc2 dd2  0");
}

TEST(TListView, PaintsWhatCanBeSeen) {
  TRecordingCanvas canvas;
  TListView view;
  view.SetCanvas(&canvas), view.SetBounds({0, 0, 120, 60});
  Fill(view, {u"a", u"b", u"c"});
  view.GetColumns(1).SetAlignment(taRightJustify), view.GetItems(0).SetSelected(true), view.SetLeftPixels(75);
  view.Paint();
  EXPECT_EQ(canvas.GetText().ToUtf8(),
            "fill 0,0 120x60 clWindow\nfill -75,0 80x24 clBtnFace\ntext -73,2 7x14 \"A\" clWindowText Tahoma 8 in "
            "-75,0 80x24\n"
            "fill -75,24 80x20 clHighlight\ntext -73,26 7x14 \"a\" clHighlightText Tahoma 8 in -75,24 80x20\n"
            "fill -75,44 80x20 clWindow\ntext -73,46 7x14 \"b\" clWindowText Tahoma 8 in -75,44 80x20\n"
            "fill 5,0 100x24 clBtnFace\ntext 96,2 7x14 \"B\" clWindowText Tahoma 8 in 5,0 100x24\n"
            "fill 5,24 100x20 clWindow\ntext 89,26 14x14 \"a2\" clWindowText Tahoma 8 in 5,24 100x20\n"
            "fill 5,44 100x20 clWindow\ntext 89,46 14x14 \"b2\" clWindowText Tahoma 8 in 5,44 100x20\n");
}

TEST(TPopupMenu, TakesWhatTheUserTook) {
  TLog log;
  TPopupMenu menu, other;
  menu.AddItem(u"a", TNotifyEvent::Of<&TLog::Click>(log));
  menu.AddItem(u"b").SetEnabled(false), menu.AddItem(u"-"), other.AddItem(u"c");
  EXPECT_EQ(menu.Popup(1, 2), nullptr);  // nobody shows it
  TMenuItem* answer = nullptr;
  const TShowPopup before = SetShowPopup([&](TPopupMenu& shown, int x, int y) {
    log.Text += std::to_string(shown.GetCount()) + "@" + std::to_string(x) + "," + std::to_string(y) + " ";
    return answer;
  });
  for (const auto& [item, isTaken] : TCases<TMenuItem*, bool>{{&menu.GetItems(0), true},
                                                              {&menu.GetItems(1), false},
                                                              {&menu.GetItems(2), false},
                                                              {&other.GetItems(0), false},
                                                              {nullptr, false}}) {
    answer = item;
    EXPECT_EQ(menu.Popup(1, 2), isTaken ? item : nullptr);
  }
  SetShowPopup(before);
  EXPECT_EQ(log.Text, "3@1,2 click 3@1,2 3@1,2 3@1,2 3@1,2 ");
}

}  // namespace
