#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

#include "desktop/QtValues.h"
#include "desktop/TTableWidget.h"
#include "tables/uTypeCsv.h"
#include "tests/support/Test.h"

namespace vx {
namespace {

// Name, birthday, hours, a box, notes; the head is fixed.
struct Editing : testing::Test {
  Editing() {
    view.SetText(
        u"Name,Geboren,Stunden,Fertig,Notiz\r\nMeier,04.05.1944,7:30,0,a\r\nErnst,01.02.1950,:45,1,b\r\nAbel,,1:00,0,"
        u"c");
    TDecorationList& look = view.GetDecorations();
    look.SetFixed({0, 1, 0, 0});
    TDecorationListOptions options = look.GetOptions();
    options.Include(dloColumnClick);
    look.SetOptions(options);
    for (const auto& [col, type] : TCases<int, TVxFieldType>{{1, vftDate}, {2, vftHour}, {3, vftToggle}}) {
      look.CreateRange(rtColumn, col, -1, col, -1)->SetFieldType(type);
    }
    widget.resize(600, 200);
    widget.SetTable(&view);
    widget.SetHistory(&history);
    widget.show();
    QApplication::setActiveWindow(&widget);
    widget.setFocus();
  }
  ~Editing() override { widget.SetTable(nullptr); }
  // Keys go to whatever has the focus.
  void Type(const char* Text) {
    for (const char* c = Text; *c; ++c) QTest::keyClick(QApplication::focusWidget(), *c);
  }
  void Key(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), Key, Modifiers);
  }
  std::string Cell(int Col, int Row) { return view.GetCell(Col, Row).ToUtf8(); }
  TCsvView view;
  TTableHistory history{view};
  TTableWidget widget;
};

TEST_F(Editing, ADateByKeysAlone) {
  EXPECT_EQ(widget.GetCurrentCell(), (TPoint{0, 1}));
  Key(Qt::Key_Right);
  Key(Qt::Key_F2);
  ASSERT_NE(widget.GetEditor(), nullptr);
  Key(Qt::Key_Home);
  Key(Qt::Key_Up);
  Key(Qt::Key_Return);
  EXPECT_EQ((TFacts{Cell(1, 1), widget.GetEditor() == nullptr, widget.GetCurrentCell().Y}), "05.05.1944 yes 2");
  Type("3.");  // a letter begins anew
  Type("3.1960");
  Key(Qt::Key_Tab);
  EXPECT_EQ((TFacts{Cell(1, 2), widget.GetCurrentCell().X, widget.GetCurrentCell().Y}), "03.03.1960 2 2");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ((TFacts{Cell(1, 2), widget.GetCurrentCell().X}), "01.02.1950 1");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(history.IsChanged());
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 1), "05.05.1944");
}

TEST_F(Editing, WhatIsNoValueIsRefusedAndGivenUp) {
  QSignalSpy refused(&widget, &TTableWidget::Refused), edited(&widget, &TTableWidget::Edited);
  widget.SetCurrentCell({1, 1});
  Type("3102");
  Key(Qt::Key_Return);
  EXPECT_EQ((TFacts{refused.count(), widget.GetEditor() != nullptr, Cell(1, 1)}), "1 yes 04.05.1944");
  Key(Qt::Key_Escape);
  EXPECT_EQ((TFacts{widget.GetEditor() == nullptr, Cell(1, 1), edited.count()}), "yes 04.05.1944 0");
  Key(Qt::Key_F2);
  Key(Qt::Key_Return);
  EXPECT_EQ(edited.count(), 0);  // nothing was changed
  widget.SetMayEdit([](int col, int) { return col != 0; });
  widget.SetCurrentCell({0, 1});
  Type("x");
  EXPECT_EQ((TFacts{widget.GetEditor() == nullptr, Cell(0, 1)}), "yes Meier");
}

TEST_F(Editing, BoxesAndSeveralLines) {
  widget.SetCurrentCell({3, 1});
  Key(Qt::Key_Space);
  EXPECT_EQ(Cell(3, 1), "1");
  Key(Qt::Key_F2);
  EXPECT_EQ(widget.GetEditor(), nullptr);
  view.SetCell(4, 1, u"eins\r\nzwei");
  widget.SetCurrentCell({4, 1});
  Key(Qt::Key_F2);
  Key(Qt::Key_End, Qt::ControlModifier);
  Key(Qt::Key_Return, Qt::ShiftModifier);
  Type("drei");
  Key(Qt::Key_Return);
  EXPECT_EQ(Cell(4, 1), "eins\r\nzwei\r\ndrei");
}

TEST_F(Editing, SelectedByMouseAndCopied) {
  const auto click = [&](int col, int row, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, modifiers, widget.CellRect(col, row).center());
  };
  click(0, 1, {});
  click(1, 2, Qt::ShiftModifier);
  EXPECT_EQ((TFacts{widget.GetSelection().GetCellCount(), widget.IsSelected(1, 1), widget.IsSelected(2, 1)}),
            "4 yes no");
  click(2, 3, Qt::ControlModifier);
  EXPECT_EQ(widget.GetSelection().GetCellCount(), 5);
  click(0, 1, {});
  QTest::mousePress(widget.viewport(), Qt::LeftButton, {}, widget.CellRect(0, 1).center());
  QTest::mouseMove(widget.viewport(), widget.CellRect(1, 2).center());
  QMouseEvent drag(QEvent::MouseMove, QPointF(widget.CellRect(1, 2).center()), QPointF(), Qt::NoButton, Qt::LeftButton,
                   {});
  QApplication::sendEvent(widget.viewport(), &drag);
  QTest::mouseRelease(widget.viewport(), Qt::LeftButton, {}, widget.CellRect(1, 2).center());
  Key(Qt::Key_C, Qt::ControlModifier);
  const QMimeData* data = QApplication::clipboard()->mimeData();
  EXPECT_EQ(data->text().toStdString(), "Meier\t04.05.1944\r\nErnst\t01.02.1950\r\n");
  EXPECT_TRUE(data->html().contains("<td>Meier</td>"));
}

TEST_F(Editing, PastedWhereTheTypesTakeIt) {
  QSignalSpy refused(&widget, &TTableWidget::Refused);
  QApplication::clipboard()->setText("Otto\t5.6.1960\t8:00\nx\tkein Datum\n");
  widget.SetCurrentCell({0, 2});
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ((TFacts{Cell(0, 2), Cell(1, 2), Cell(2, 2), Cell(0, 3), Cell(1, 3)}), "Otto 05.06.1960 8:00 x ");
  EXPECT_EQ((TFacts{refused.count(), widget.GetSelection().GetCellCount()}), "1 6");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ((TFacts{Cell(0, 2), Cell(2, 2), Cell(0, 3)}), "Ernst :45 Abel");
  widget.SetCurrentCell({0, 1});
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ((TFacts{Cell(0, 1), Cell(0, 2), Cell(0, 3)}), "  Abel");
}

TEST_F(Editing, TheCurrentCellGoesWithItsRow) {
  widget.SetCurrentCell({1, 1});
  Key(Qt::Key_Left);
  Key(Qt::Key_F7);  // by name
  EXPECT_EQ((TFacts{Cell(0, 1), widget.GetCurrentCell().X, widget.GetCurrentCell().Y}), "Abel 0 3");
  view.ShowOnly([](const TVxStringList& row) { return row.Get(0) != u"Abel"; });
  widget.TableChanged();
  EXPECT_EQ(widget.GetCurrentCell().Y, 2);
  widget.SetColumnHidden(0, true);
  EXPECT_EQ(widget.GetCurrentCell(), (TPoint{1, 2}));
  EXPECT_TRUE(widget.FindNext(u"45"));
  EXPECT_EQ(widget.GetCurrentCell(), (TPoint{2, 1}));
  widget.SetHistory(nullptr);
  Type("x");
  EXPECT_EQ(widget.GetEditor(), nullptr);
}

}  // namespace
}  // namespace vx
