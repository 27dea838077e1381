#include "desktop/TFilterWidget.h"

#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/QtValues.h"
#include "desktop/detail/FilterPopup.h"
#include "platform/cairo/CairoDrawing.h"
#include "tables/uTypeCsv.h"
#include "tests/support/Test.h"

namespace vx {
namespace {

// A table of names, places and numbers with its bar, and keys for the widget or window that is open.
struct TFilterDesk : testing::Test {
  TFilterDesk() {
    InstallDrawing();
    View.AddRow({u"Name", u"Ort", u"Pflegegrad"});
    for (int i = 0; i < 40; ++i) {
      View.AddRow({u"Meier" + IntToStr(i), i % 2 == 0 ? u"Köln" : u"Bonn", IntToStr(i % 5)});
    }
    View.GetDecorations().SetFixed({1, 1, 0, 0});
    Table.SetTable(&View);
    auto* layout = new QVBoxLayout(&Window);
    layout->addWidget(&Filter);
    layout->addWidget(&Table);
    Filter.SetTable(&Table);
    Window.resize(300, 200);
    Window.show();
    QApplication::setActiveWindow(&Window);
    QTest::qWait(1);
  }
  ~TFilterDesk() override { Filter.SetTable(nullptr); }
  detail::TFilterPopup& Popup() { return *Filter.findChild<detail::TFilterPopup*>(); }
  template <typename T>
  T& Part() {
    return *Popup().findChild<T*>();
  }
  void Click(int Item) {
    const TRect rect = Filter.Bar().ItemRect(Item);
    QTest::mouseClick(&Filter, Qt::LeftButton, {}, QPoint(rect.Left + 3, 5));
  }
  int Shown() {
    QTest::qWait(1);
    return View.GetCount() - 1;
  }
  TCsvView View;
  QWidget Window;
  TTableWidget Table;
  TFilterWidget Filter;
};

TEST_F(TFilterDesk, TakesKeysTogether) {
  View.GetDecorations().SetFixed({0, 1, 0, 0});
  Filter.SetTable(&Table);
  const QSignalSpy runs(&Filter, &TFilterWidget::Filtered);
  Click(0);
  QTest::keyClicks(&Part<TLineEdit>(), QStringLiteral("R2x"));
  QTest::keyClick(&Part<TLineEdit>(), Qt::Key_Backspace);
  EXPECT_EQ(Shown(), 11);
  EXPECT_EQ(runs.count(), 1);
  QTest::keyClick(&Part<TLineEdit>(), Qt::Key_Escape);
  EXPECT_FALSE(Popup().isVisible());

  Filter.setFocus();
  QTest::keyClick(&Filter, Qt::Key_Delete);
  EXPECT_EQ(Shown(), 40);
  QTest::keyClicks(&Filter, QStringLiteral("="));
  QTest::keyClicks(&Part<TLineEdit>(), QStringLiteral("("));
  QTest::keyClick(&Part<TLineEdit>(), Qt::Key_Return);
  EXPECT_TRUE(Popup().isVisible());
  EXPECT_EQ(Shown(), 40);
  const QList<QLabel*> labels = Popup().findChildren<QLabel*>();
  EXPECT_TRUE(
      std::ranges::any_of(labels, [](QLabel* label) { return label->text().contains(QStringLiteral("missing")); }));
  QTest::keyClicks(&Part<TLineEdit>(), QStringLiteral("7|8)$"));
  QTest::keyClick(&Part<TLineEdit>(), Qt::Key_Return);
  EXPECT_EQ(Shown(), 8);
}

TEST_F(TFilterDesk, OffersValues) {
  Click(1);
  auto& list = Part<QListView>();
  const auto caption = [&list](int row) { return list.model()->index(row, 0).data().toString().toStdString(); };
  EXPECT_EQ((TFacts{list.model()->rowCount(), caption(0), caption(1), caption(2)}), "3 ohne Wert Bonn Köln");
  QTest::keyClick(&Part<TLineEdit>(), Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_EQ((TFacts{Filter.Bar().GetItems().Get(1).GetValue(), Shown()}), "Bonn 20");

  Click(2);
  QTest::mouseClick(&Part<QToolButton>(), Qt::LeftButton);
  EXPECT_EQ(Part<QToolButton>().toolTip().toStdString(), "mehrere auswählen");
  EXPECT_FALSE(Part<TLineEdit>().isVisible());
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Space);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(3, 0)).center());
  EXPECT_EQ((TFacts{Filter.Bar().GetItems().Get(2).GetValue(), Shown()}), "0,3 8");
  Popup().hide();
  Filter.Bar().Reset();
  EXPECT_EQ(Shown(), 40);
}

// Of each item what can be seen, and of its column.
TEST_F(TFilterDesk, StandsAboveTheColumns) {
  const auto places = [this](bool ofItems) {
    std::string text;
    const QPoint corner = Table.viewport()->mapTo(&Window, QPoint()) - Filter.pos();
    for (int col = 0; col < 3; ++col) {
      const int from = col == 0 ? 0 : Table.CellRect(0, 0).right() + 2;
      const QRect middle(from, 0, Table.viewport()->width() - from, 99);
      const QRect seen = (Table.CellRect(col, 0) & middle).translated(corner);
      const TRect item = ofItems ? Filter.Bar().ItemRect(col) : FromQt(seen);
      text += std::to_string(item.Left) + "-" + std::to_string(item.Right) + " ";
    }
    return text;
  };
  Table.SetColumnWidth(0, 90);
  Table.SetColumnWidth(1, 200);
  Table.SetColumnWidth(2, 200);
  Filter.grab();
  EXPECT_EQ(places(true), places(false));
  Table.SetColumnPlace(2, 1);
  Filter.grab();
  EXPECT_EQ(places(true), places(false));
  Table.EnsureVisible(1, 0);
  Filter.grab();
  EXPECT_EQ(places(true), places(false));
  Table.SetColumnHidden(2, true);
  Filter.grab();
  EXPECT_EQ(Filter.Bar().ItemRect(2), TRect());
}

}  // namespace
}  // namespace vx
