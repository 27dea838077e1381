#include "desktop/TTableWidget.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "controls/TableScene.h"
#include "platform/TPopupMenu.h"
#include "tables/uTypeCsv.h"
#include "tests/support/Cases.h"

namespace vx {
namespace {

// A widget with a table of 4 columns, a head and a sum, and so many rows of content.
struct TShownTable {
  explicit TShownTable(int Rows = 300) {
    Table.AddRow({u"Nr", u"Name", u"Geburt", u"Betrag"});
    for (int i = 0; i < Rows; ++i) {
      Table.AddRow({String::FromUtf8(std::to_string(Rows - i)), i % 2 ? u"Meier" : u"Müller", u"01.02.1950", u"5"});
    }
    Table.AddRow({u"", u"Summe"});
    TDecorationList& list = Table.GetDecorations();
    list.SetFixed(0, 1, 0, 1);
    list.SetOptions({dloGridLines, dloVertLine, dloHorzLine, dloColumnClick});
    list.CreateRange(rtColumn, 0, -1, 0, -1)->SetFieldType(vftInteger);
    list.CreateRange(rtColumn, 2, -1, 2, -1)->SetFieldType(vftDate);
    Widget.SetTable(&Table);
    Widget.resize(400, 300);
    Widget.show();
    (void)QTest::qWaitForWindowExposed(&Widget);
  }
  ~TShownTable() { Widget.SetTable(nullptr); }
  QPoint Middle(int Col, int Row) const { return Widget.CellRect(Col, Row).center(); }
  QPoint RightEdge(int Col) const {
    return {Widget.CellRect(Col, 0).right() + 1, Widget.CellRect(Col, 0).center().y()};
  }
  void Click(QPoint Place, Qt::MouseButton Button = Qt::LeftButton) {
    QTest::mouseClick(Widget.viewport(), Button, {}, Place);
  }
  void Drag(QPoint From, QPoint To) {
    QTest::mousePress(Widget.viewport(), Qt::LeftButton, {}, From);
    for (const QPoint& at : {(From + To) / 2, To}) {
      QMouseEvent move(QEvent::MouseMove, at, Widget.viewport()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
      QCoreApplication::sendEvent(Widget.viewport(), &move);
    }
    QTest::mouseRelease(Widget.viewport(), Qt::LeftButton, {}, To);
  }

  TCsvView Table;
  TTableWidget Widget;
};

// Whether the widget shows what it would show if it had painted all of it anew.
bool ShowsTheTruth(TTableWidget& Widget) {
  const QImage shown = Widget.grab().toImage();
  Widget.TableChanged();
  return shown == Widget.grab().toImage();
}

TEST(TTableWidget, ScrollsByPixelsAndPaintsOnlyWhatComes) {
  TShownTable shown;
  TTableWidget& widget = shown.Widget;
  widget.SetColumnWidth(1, 500);
  for (const auto& [x, y] : TCases<int, int>{{0, 7}, {3, 7}, {3, 2}, {90, 90}, {5000, 99999}, {0, 0}}) {
    widget.horizontalScrollBar()->setValue(x);
    widget.verticalScrollBar()->setValue(y);
    EXPECT_TRUE(ShowsTheTruth(widget)) << x << ", " << y;
  }
  widget.SetCurrentCell({3, 200});
  EXPECT_TRUE(widget.viewport()->rect().contains(widget.CellRect(3, 200)));
  EXPECT_EQ(widget.CellAt(shown.Middle(3, 200)), (TPoint{3, 200}));
  EXPECT_TRUE(ShowsTheTruth(widget));
}

TEST(TTableWidget, AClickOnAHeadSortsAndARightOneOffersTheGroupingOfDates) {
  TShownTable shown(3);
  QSignalSpy sorted(&shown.Widget, &TTableWidget::Sorted);
  shown.Click(shown.Middle(0, 0));
  EXPECT_EQ(shown.Table.GetCell(0, 1), u"1");
  shown.Click(shown.Middle(0, 0));
  EXPECT_EQ(shown.Table.GetCell(0, 1), u"3");
  String offered;
  const auto before = SetShowPopup([&](TPopupMenu& menu, int, int) {
    for (int i = 0; i < menu.GetCount(); ++i) offered = offered + menu.GetItems(i).GetCaption() + u";";
    return &menu.GetItems(1);
  });
  const auto ask = [&](int col, Qt::KeyboardModifiers keys) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, shown.Middle(col, 0), {}, keys);
    QCoreApplication::sendEvent(shown.Widget.viewport(), &event);
  };
  ask(2, {});
  EXPECT_EQ((TFacts{offered, shown.Table.GetSortDateFormat(), sorted.count()}),
            "nach Tag;nach Monat;nach Jahr; mmddyyyy 3");
  offered = String();
  ask(2, Qt::ShiftModifier);
  SetShowPopup(before);
  EXPECT_EQ(
      offered,
      u"Spalte ausblenden;Breite anpassen;Alle Breiten anpassen;Alle Spalten einblenden;-;Nr;Name;Geburt;Betrag;");
}

TEST(TTableWidget, HeadsAreDraggedForWidthsAndPlaces) {
  TShownTable shown(3);
  TTableWidget& widget = shown.Widget;
  QSignalSpy changed(&widget, &TTableWidget::LayoutChanged);
  const int fitting = widget.GetColumnWidth(1);
  shown.Drag(shown.RightEdge(1), shown.RightEdge(1) + QPoint(40, 3));
  EXPECT_EQ(widget.GetColumnWidth(1), fitting + 40);
  EXPECT_TRUE(ShowsTheTruth(widget));
  shown.Drag(shown.RightEdge(1), QPoint(-500, 5));
  EXPECT_EQ(widget.GetColumnWidth(1), 8);
  QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {}, shown.RightEdge(1));
  EXPECT_EQ(widget.GetColumnWidth(1), fitting);
  shown.Drag(shown.Middle(3, 0), QPoint(widget.CellRect(1, 0).left() + 2, 5));
  EXPECT_EQ((TFacts{widget.GetColumnPlace(0), widget.GetColumnPlace(3), widget.GetColumnPlace(1)}), "0 1 2");
  EXPECT_EQ(shown.Table.GetCell(3, 0), u"Betrag") << "on the screen only";
  EXPECT_EQ(shown.Table.GetSortDirection(), TS_NONE) << "no drag is a click";
  const String layout = widget.GetLayout();
  for (int col = 0; col < 4; ++col) widget.SetColumnHidden(col, true);
  EXPECT_EQ((TFacts{widget.GetColumnHidden(0), widget.GetColumnHidden(3)}), "yes no") << "one is left";
  widget.SetLayout(layout);
  EXPECT_EQ(widget.GetLayout(), layout);
  EXPECT_GT(changed.count(), 4);
}

}  // namespace
}  // namespace vx
