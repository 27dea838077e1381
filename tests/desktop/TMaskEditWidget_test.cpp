#include "desktop/TMaskEditWidget.h"

#include <QInputMethodEvent>
#include <QMimeData>

#include "fuzz/support/PlainMaskEdit.h"
#include "platform/TBitmap.h"
#include "tests/desktop/TypedLine.h"
#include "tests/support/EditContract.h"

namespace vx {
namespace {

using test::Shown;
using test::TTypedLine;

TEST(TLineEdit, KeepsTheContract) {
  TTypedLine line;
  test::ExpectEditContract(line);
}

// The widget takes the plain editor's place beside the rules told plainly.
TEST(TLineEdit, CarriesAMaskedEditor) {
  const test::TClockAt clock(42046.25);
  const test::TZoneAt zone(0);
  for (unsigned seed = 0; seed < 110; ++seed) {
    std::mt19937 random(seed);
    const auto pick = [&random](int low, int high) {
      return low + static_cast<int>(random() % unsigned(high - low + 1));
    };
    fuzz::TMaskPairOn<TTypedLine> pair(static_cast<TVxMaskMode>(seed % 11), pick);
    for (int i = 0; i < 40; ++i) {
      const std::string done = pair.Act(pick);
      ASSERT_EQ(pair.Real(), pair.Plain()) << "seed " << seed << ", " << i << ": " << done;
    }
    EXPECT_EQ(pair.FinishedTwice(), "") << seed;
  }
}

TEST(TLineEdit, UndoesWhatTheUserDid) {
  TTypedLine line;
  TVxMaskEdit edit(line);
  edit.SetMaskMode(mmHour);
  line.Enter();
  line.Type(u"130");
  line.Exit();
  EXPECT_EQ(line.GetText(), u"1:30");
  line.Enter();
  line.Down(vkUp);
  const auto press = [&line](int key) {
    line.Send(key, Qt::ControlModifier, {});
    return Shown(line);
  };
  EXPECT_EQ(press(Qt::Key_Z), u"1:30|");
  EXPECT_EQ(press(Qt::Key_Z), u"130|");
  EXPECT_EQ(press(Qt::Key_Z), u"13|");
  EXPECT_EQ(press(Qt::Key_Y), u"130|");
  line.Type(u"5");
  EXPECT_EQ(press(Qt::Key_Y), u"1305|");
  edit.sethour(2);
  EXPECT_EQ(press(Qt::Key_Z), u"|2:00");
}

TEST(TLineEdit, CutsDropsAndComposesByTheRules) {
  TTypedLine line;
  TVxMaskEdit edit(line);
  edit.SetMaskMode(mmInteger);
  edit.SetMaxLength(3);
  line.Enter();
  QInputMethodEvent composed;
  composed.setCommitString(QStringLiteral("1a2"));
  QApplication::sendEvent(&line, &composed);
  EXPECT_EQ(Shown(line), u"12|");
  line.Send(Qt::Key_B, Qt::ControlModifier, QStringLiteral("\x02"));
  line.Send(Qt::Key_A, Qt::ControlModifier, QStringLiteral("\x01"));
  EXPECT_EQ(Shown(line), u"[12]");
  line.Send(Qt::Key_X, Qt::ControlModifier, QStringLiteral("\x18"));
  EXPECT_EQ(Shown(line), u"|");
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "12");
  QMimeData dropped;
  dropped.setText(QStringLiteral("7654\r\n8"));
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
  line.dropEvent(&drop);
  EXPECT_EQ(Shown(line), u"765|");
}

TEST(TLineEdit, StaysEnteredWhileAWindowOrAMenuIsElsewhere) {
  TTypedLine line;
  test::TEditEar ear;
  line.Exit();
  line.SetEvents(&ear);
  line.Enter();
  for (auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason), in(QEvent::FocusIn, reason);
    QApplication::sendEvent(&line, &out);
    QApplication::sendEvent(&line, &in);
  }
  line.parentWidget()->hide();
  EXPECT_EQ(ear.Heard, "<>");
  line.SetEvents(nullptr);
}

TEST(TMaskEditWidget, ShowsWhatTheEditorTells) {
  QWidget form;
  TMaskEditWidget widget(&form);
  const TBitmap mark(pf24bit, 16, 16);
  widget.Editor().SetErrorImage(&mark);
  widget.Editor().SetMaskMode(mmPerc);
  widget.Editor().SetHintShow(true);
  const QColor valid = widget.palette().color(QPalette::Text);
  const int margin = widget.textMargins().right();
  form.show();
  EXPECT_GT(margin, 0) << "the sign";
  widget.SetSelText(u"-");
  EXPECT_EQ(widget.palette().color(QPalette::Text).name().toStdString(), "#ff0000");
  EXPECT_EQ(widget.textMargins().right(), margin + 20) << "the image";
  widget.SetSelText(u"5");
  EXPECT_EQ(widget.palette().color(QPalette::Text), valid);
  EXPECT_EQ(widget.GetHint(), u"-5,000000000");
  const auto hint = widget.findChild<QLabel*>();
  EXPECT_EQ(hint->text().toStdString(), "-5,000000000");
  EXPECT_TRUE(hint->isVisible());
  form.hide();
  EXPECT_FALSE(hint->isVisible());
}

}  // namespace
}  // namespace vx
