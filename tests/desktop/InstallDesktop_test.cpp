#include "desktop/InstallDesktop.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <thread>

#include "desktop/QtValues.h"
#include "desktop/detail/DesktopServices.h"
#include "platform/Threads.h"
#include "tests/support/Test.h"

namespace vx {
namespace {

// Looks at the box or menu that comes up, and presses a key there.
template <typename TBox>
struct TAnswer {
  TAnswer(Qt::Key AKey, std::function<void(TBox&)> Look) : Key(AKey) {
    Timer.callOnTimeout([this, Look] {
      QWidget* const popup = QApplication::activePopupWidget();
      auto* box = qobject_cast<TBox*>(popup != nullptr ? popup : QApplication::activeModalWidget());
      if (box == nullptr || IsGiven) return;
      IsGiven = true;
      Look(*box);
      QTest::keyClick(box, Key);
    });
    Timer.start(1);
  }
  const Qt::Key Key;
  bool IsGiven = false;
  QTimer Timer;
};

std::string TextOf(const QMessageBox& Box) {
  QStringList texts{Box.windowTitle(), Box.text(), Box.informativeText()};
  QList<QAbstractButton*> buttons = Box.buttons();
  std::ranges::sort(buttons, {}, [](const QAbstractButton* button) { return button->x(); });
  for (const QAbstractButton* button : buttons) texts.append(button->text());
  return texts.join(u'|').toStdString();
}

// What a box shows, and what the key gives.
template <typename TAsk>
std::string Asked(Qt::Key Key, TAsk Ask) {
  std::string shown;
  TAnswer<QMessageBox> answer(Key, [&shown](QMessageBox& box) { shown = TextOf(box); });
  const TModalResult result = Ask();
  return shown + " = " + std::to_string(result);
}

TEST(InstallDesktop, ShowsDialogsWithGermanButtons) {
  const detail::TDesktopDialogs dialogs;
  const auto save = [] { return MessageDlg(u"<b>Speichern?", mtConfirmation, {mbCancel, mbNo, mbYes}); };
  EXPECT_EQ(Asked(Qt::Key_Escape, save), "Bestätigung|<b>Speichern?||&Ja|&Nein|Abbrechen = 2");
  EXPECT_EQ(Asked(Qt::Key_Return, save), "Bestätigung|<b>Speichern?||&Ja|&Nein|Abbrechen = 6");
  const auto warn = [] { return MessageDlg(u"voll", mtWarning, {}); };
  EXPECT_EQ(Asked(Qt::Key_Escape, warn), "Warnung|voll||OK = 1");
  const auto task = [] { return ShowTaskDialog({u"Import", u"3 Fehler", u"Zeile 7", mtError, u"Protokoll", mrRetry}); };
  EXPECT_EQ(Asked(Qt::Key_Return, task), "Import|3 Fehler|Zeile 7|OK|Protokoll = 1");
  std::string scrolled;
  const QString lines = QStringLiteral("viel\n").repeated(30);
  const TAnswer<QMessageBox> answer(Qt::Key_Return, [&scrolled](QMessageBox& box) {
    scrolled = TextOf(box) + " " + std::to_string(box.findChild<QPlainTextEdit*>()->blockCount());
  });
  ShowWarning(FromQt(lines));
  EXPECT_EQ(scrolled, "Warnung|viel||OK 31");
}

TEST(InstallDesktop, RunsWhatThreadsHandOver) {
  const detail::TDesktopDialogs dialogs;
  const detail::TMainLoop loop;
  std::atomic<int> answer = -1;
  std::string shown;
  const TAnswer<QMessageBox> box(Qt::Key_Escape, [&shown](QMessageBox& found) { shown = TextOf(found); });
  std::thread asking([&answer] { answer = MessageDlg(u"Ende?", mtInformation, {mbNo, mbYes}); });
  EXPECT_TRUE(QTest::qWaitFor([&answer] { return answer >= 0; }));
  asking.join();
  EXPECT_EQ(shown + " = " + std::to_string(answer), "Information|Ende?||&Ja|&Nein = 7");

  bool isRun = false;
  const TAnswer<QMessageBox> failed(Qt::Key_Escape, [&shown](QMessageBox& found) { shown = TextOf(found); });
  TThread::Queue([] { throw EReadError(u"broken", u"kaputt"); });
  TThread::Queue([&isRun] { isRun = true; });
  EXPECT_TRUE(QTest::qWaitFor([&isRun] { return isRun; }));
  EXPECT_EQ(shown, "Fehler|kaputt||OK");
}

TEST(InstallDesktop, ShowsMenus) {
  const detail::TDesktopDialogs dialogs;
  TPopupMenu menu;
  menu.AddItem(u"nach Tag").SetHint(u"je Tag eine Gruppe");
  menu.AddItem(u"-");
  menu.AddItem(u"versteckt").SetVisible(false);
  menu.AddItem(u"nach Jahr").SetEnabled(false);
  menu.AddItem(u"nach &Monat").SetChecked(true);
  std::string shown;
  const TAnswer<QMenu> answer(Qt::Key_M, [&shown](QMenu& found) {
    for (const QAction* action : found.actions()) {
      shown += action->isSeparator() ? "-" : action->text().toStdString() + (action->isEnabled() ? "" : " aus");
      shown += action->isChecked() ? " an;" : ";";
    }
    shown += found.actions().constFirst()->toolTip().toStdString();
  });
  EXPECT_EQ(menu.Popup(10, 10), &menu.GetItems(4));
  EXPECT_EQ(shown, "nach Tag;-;nach Jahr aus;nach &Monat an;je Tag eine Gruppe");
}

TEST(InstallDesktop, FollowsTheColoursOfTheDesktop) {
  const TColor before = ColorToRGB(clWindow);
  const QPalette palette = QApplication::palette();
  {
    const detail::TDesktopLook look;
    QPalette dark = palette;
    dark.setColor(QPalette::Base, QColor(0x20, 0x21, 0x22));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x81, 0x82));
    QApplication::setPalette(dark);
    EXPECT_EQ(ColorToRGB(clWindow), 0x222120U);
    EXPECT_EQ(ColorToRGB(clGrayText), 0x828180U);
    EXPECT_NE(ColorToRGB(clHighlight), ColorToRGB(clHighlightText));
    QApplication::setPalette(palette);
  }
  EXPECT_EQ(ColorToRGB(clWindow), before);
}

}  // namespace
}  // namespace vx
