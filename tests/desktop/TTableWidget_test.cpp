#include "desktop/TTableWidget.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include "controls/TableScene.h"
#include "desktop/detail/TablePicture.h"
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

TEST(TTableWidget, ButtonsAndToolTips) {
  TShownTable shown(3);
  TTableWidget& widget = shown.Widget;
  TDecoration& button = *shown.Table.GetDecorations().CreateRange(rtCell, 3, 2, 3, 2);
  button.SetFieldType(vftButton);
  button.SetFormatString(u"|boSquare||anrufen");
  QSignalSpy clicked(&widget, &TTableWidget::ButtonClicked);
  shown.Click(shown.Middle(3, 2));
  shown.Click(shown.Middle(3, 1));
  shown.Drag(shown.Middle(3, 2), shown.Middle(1, 2));
  ASSERT_EQ(clicked.count(), 1) << "down and up on the button alone";
  EXPECT_EQ(clicked[0], (QList<QVariant>{3, 2}));
  shown.Table.SetCell(1, 3, u"<b>lang & breit</b>");
  widget.SetColumnWidth(1, 30);
  const auto tip = [&](int col, int row) {
    const QPoint at = shown.Middle(col, row);
    QHelpEvent event(QEvent::ToolTip, at, widget.viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(widget.viewport(), &event);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(tip(0, 3), "") << "it fits";
  EXPECT_NE(tip(1, 3).find("&lt;b&gt;lang &amp; breit&lt;/b&gt;"), std::string::npos);
  EXPECT_NE(tip(3, 2).find("anrufen"), std::string::npos);
  QTest::mouseMove(widget.viewport(), shown.Middle(1, 2));
  EXPECT_EQ(shown.Table.GetDecorations().GetHoverIndex(), 2);
  EXPECT_TRUE(ShowsTheTruth(widget));
}

TEST(TTableWidget, TablesOfAnyShape) {
  TCsvView empty, odd, wide;
  odd.AddRow({u"a", u"b", u"c"});
  odd.AddRow({u"x"});
  odd.AddRow({u"1", u"2", u"3", u"4", u"5"});
  odd.AddRow(std::span<const String>());
  wide.AddEmpty(20000);
  wide.AddEmpty(20000);
  wide.SetCell(19999, 1, u"letzte");
  odd.SetCell(2, 2, String::FromUtf8(std::string(1000000, 'w')));
  TTableWidget widget;
  widget.resize(300, 200);
  widget.show();
  for (TCsvView* table : {&empty, &odd, &wide}) {
    widget.SetTable(table);
    EXPECT_TRUE(ShowsTheTruth(widget));
    widget.EnsureVisible(19999, 1);
    widget.FitColumns();
    EXPECT_TRUE(ShowsTheTruth(widget));
    widget.FitRows();
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(widget.GetCurrentCell(), widget.CellAt({5, 5}));
    table->Clear();
    EXPECT_TRUE(ShowsTheTruth(widget)) << "rows that have gone are not painted";
    EXPECT_EQ(widget.GetCurrentCell(), (TPoint{-1, -1}));
  }
  widget.SetTable(nullptr);
  EXPECT_TRUE(ShowsTheTruth(widget));
}

TEST(TablePicture, ScrollsAtEveryScale) {
  for (const auto& [scale, dx, dy] :
       TCases<double, int, int>{{1, 3, -7}, {1.5, -4, 6}, {1.5, 3, 1}, {2, 5, 30}, {1.25, 0, 8}}) {
    detail::TTablePicture picture;
    TPoint shift;
    const auto paint = [&](TCanvas& canvas, const TRect& area) {
      canvas.SetClip(area);
      for (int x = -40; x < 120; x += 10) {
        for (int y = -40; y < 120; y += 10) {
          canvas.SetBrush({static_cast<TColor>((x + 40) << 8 | (y + 40))});
          canvas.FillRect({x + shift.X, y + shift.Y, x + shift.X + 10, y + shift.Y + 10});
        }
      }
      canvas.ResetClip();
    };
    const auto image = [&, scale = scale] {
      picture.Refresh(paint);
      QImage result(80 * 2, 80 * 2, QImage::Format_RGB32);
      result.setDevicePixelRatio(scale);
      QPainter painter(&result);
      picture.Show(painter, QRect(0, 0, 80, 80));
      painter.end();
      return result.copy(0, 0, static_cast<int>(80 * scale), static_cast<int>(80 * scale));
    };
    picture.SetSize({80, 80}, scale, false);
    image();
    shift = {dx, dy};
    picture.Scroll({0, 0, 80, 80}, dx, dy);
    const QImage scrolled = image();
    picture.Invalidate();
    EXPECT_TRUE(scrolled == image()) << scale;
  }
}

}  // namespace
}  // namespace vx
