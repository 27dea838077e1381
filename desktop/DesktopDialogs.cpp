#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>

#include "desktop/QtValues.h"
#include "desktop/detail/DesktopServices.h"
#include "platform/Paths.h"
#include "platform/Threads.h"

namespace vx::detail {

namespace {

// A text of more lines is scrolled.
constexpr int kMostLines = 20;

struct TButtonWord {
  TMsgDlgBtn Button;
  const char16_t* Caption;
  TModalResult Result;
  QMessageBox::ButtonRole Role;
};
// In the order in which they stand.
constexpr TButtonWord kButtons[] = {{mbYes, u"&Ja", mrYes, QMessageBox::YesRole},
                                    {mbYesToAll, u"Ja für &alle", mrYes, QMessageBox::YesRole},
                                    {mbNo, u"&Nein", mrNo, QMessageBox::NoRole},
                                    {mbNoToAll, u"Nein für a&lle", mrNo, QMessageBox::NoRole},
                                    {mbOK, u"OK", mrOk, QMessageBox::AcceptRole},
                                    {mbAll, u"&Alle", mrYes, QMessageBox::AcceptRole},
                                    {mbRetry, u"&Wiederholen", mrRetry, QMessageBox::AcceptRole},
                                    {mbIgnore, u"&Ignorieren", mrIgnore, QMessageBox::AcceptRole},
                                    {mbAbort, u"Abb&rechen", mrAbort, QMessageBox::RejectRole},
                                    {mbCancel, u"Abbrechen", mrCancel, QMessageBox::RejectRole},
                                    {mbClose, u"&Schließen", mrClose, QMessageBox::RejectRole},
                                    {mbHelp, u"&Hilfe", mrNone, QMessageBox::HelpRole}};

QMessageBox::Icon IconOf(TMsgDlgType Kind) {
  switch (Kind) {
    case mtWarning:
      return QMessageBox::Warning;
    case mtError:
      return QMessageBox::Critical;
    case mtInformation:
      return QMessageBox::Information;
    case mtConfirmation:
      return QMessageBox::Question;
    default:
      return QMessageBox::NoIcon;
  }
}

QString CaptionOf(TMsgDlgType Kind) {
  switch (Kind) {
    case mtWarning:
      return QStringLiteral("Warnung");
    case mtError:
      return QStringLiteral("Fehler");
    case mtInformation:
      return QStringLiteral("Information");
    case mtConfirmation:
      return QStringLiteral("Bestätigung");
    default:
      return QGuiApplication::applicationDisplayName();
  }
}

// The first of Wanted that is among Buttons; the last one for none.
TMsgDlgBtn FirstOf(TMsgDlgButtons Buttons, std::initializer_list<TMsgDlgBtn> Wanted) {
  const auto found = std::find_if(Wanted.begin(), Wanted.end(), [&](TMsgDlgBtn wanted) { return Buttons.Has(wanted); });
  return found != Wanted.end() ? *found : *(Wanted.end() - 1);
}

class TBox {
 public:
  TBox(TMsgDlgType Kind, const QString& Caption) : FBox(QApplication::activeWindow()) {
    FBox.setIcon(IconOf(Kind));
    FBox.setWindowTitle(Caption);
    FBox.setTextFormat(Qt::PlainText);
    FBox.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
  QMessageBox& Box() { return FBox; }
  QPushButton* Add(std::u16string_view Caption, QMessageBox::ButtonRole Role, TModalResult Result) {
    QPushButton* button = FBox.addButton(ToQt(Caption), Role);
    FResults.emplace_back(button, Result);
    return button;
  }
  // Below a text that is short.
  void AddLongText(const QString& Text) {
    auto* edit = new QPlainTextEdit(Text);
    edit->setReadOnly(true);
    edit->setMinimumSize(520, 300);
    auto* grid = static_cast<QGridLayout*>(FBox.layout());
    grid->addWidget(edit, grid->rowCount(), 0, 1, grid->columnCount());
  }
  TModalResult Show() {
    FBox.exec();
    for (const auto& [button, result] : FResults) {
      if (FBox.clickedButton() == button) return result;
    }
    return mrCancel;
  }

 private:
  QMessageBox FBox;
  std::vector<std::pair<const QAbstractButton*, TModalResult>> FResults;
};

TModalResult ShowBox(const TDialog& Dialog) {
  TBox box(Dialog.Kind, CaptionOf(Dialog.Kind));
  const TMsgDlgButtons buttons = Dialog.Buttons == TMsgDlgButtons() ? TMsgDlgButtons{mbOK} : Dialog.Buttons;
  const TMsgDlgBtn first = FirstOf(buttons, {mbOK, mbYes, mbRetry}), escape = FirstOf(buttons, {mbCancel, mbNo, mbOK});
  for (const TButtonWord& word : kButtons) {
    if (!buttons.Has(word.Button)) continue;
    QPushButton* button = box.Add(word.Caption, word.Role, word.Result);
    if (word.Button == first) box.Box().setDefaultButton(button);
    if (word.Button == escape) box.Box().setEscapeButton(button);
  }
  const QString text = ToQt(Dialog.Text);
  if (text.count(u'\n') < kMostLines) {
    box.Box().setText(text);
  } else {
    box.Box().setText(text.left(text.indexOf(u'\n')).trimmed());
    box.AddLongText(text);
  }
  return box.Show();
}

TModalResult ShowTaskBox(const TTaskDialog& Dialog) {
  TBox box(Dialog.Kind, ToQt(Dialog.Caption));
  const QString title = ToQt(Dialog.Title), text = ToQt(Dialog.Text);
  box.Box().setText(title);
  if (text.count(u'\n') < kMostLines) {
    box.Box().setInformativeText(text);
  } else {
    box.AddLongText(text);
  }
  QPushButton* ok = box.Add(u"OK", QMessageBox::AcceptRole, mrOk);
  box.Box().setDefaultButton(ok);
  box.Box().setEscapeButton(ok);
  if (!Dialog.ExtraButton.empty()) box.Add(Dialog.ExtraButton, QMessageBox::ActionRole, Dialog.ExtraResult);
  return box.Show();
}

// In the main thread, for which any other one waits, also while that waits for a thread.
template <typename TResult>
TResult InMainThread(FunctionRef<TResult()> Ask, TResult None) {
  TThread::Synchronize([&] { None = Ask(); });
  return None;
}

TMenuItem* ShowMenu(TPopupMenu& Menu, int X, int Y) {
  QMenu menu(QApplication::activeWindow());
  menu.setToolTipsVisible(true);
  for (int i = 0; i < Menu.GetCount(); ++i) {
    const TMenuItem& item = Menu.GetItems(i);
    if (!item.GetVisible()) continue;
    if (item.GetCaption() == u"-") {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(ToQt(item.GetCaption()));
    action->setData(i);
    action->setEnabled(item.GetEnabled());
    action->setToolTip(ToQt(item.GetHint()));
    action->setCheckable(item.GetChecked());
    action->setChecked(item.GetChecked());
  }
  const QAction* taken = menu.exec(QPoint(X, Y));
  const int index = taken != nullptr ? taken->data().toInt() : Menu.GetCount();
  return index < Menu.GetCount() ? &Menu.GetItems(index) : nullptr;
}

// A choice outside of the root is asked for again.
bool ChooseDirectory(const TDirectoryQuestion& Question, String& Directory) {
  const QDir root(QString::fromStdString(ToNativePath(Question.Root)));
  const QString start = Directory.empty() ? root.path() : QString::fromStdString(ToNativePath(Directory));
  QFileDialog dialog(QApplication::activeWindow(), ToQt(Question.Caption), start);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  while (dialog.exec() != 0 && !dialog.selectedFiles().isEmpty()) {
    const QString taken = dialog.selectedFiles().constFirst();
    if (Question.Root.empty() || !root.relativeFilePath(taken).startsWith(QStringLiteral(".."))) {
      Directory = FromQt(taken);
      return true;
    }
    dialog.setDirectory(root);
  }
  return false;
}

}  // namespace

TDesktopDialogs::TDesktopDialogs()
    : FDialogs(SetDialogSink(
          [](const TDialog& dialog) { return InMainThread<TModalResult>([&] { return ShowBox(dialog); }, mrNone); })),
      FTaskDialogs(SetTaskDialogSink([](const TTaskDialog& dialog) {
        return InMainThread<TModalResult>([&] { return ShowTaskBox(dialog); }, mrNone);
      })),
      FPopups(SetShowPopup(&ShowMenu)),
      FDirectories(SetSelectDirectory(&ChooseDirectory)) {}

TDesktopDialogs::~TDesktopDialogs() {
  SetDialogSink(std::move(FDialogs));
  SetTaskDialogSink(std::move(FTaskDialogs));
  SetShowPopup(std::move(FPopups));
  SetSelectDirectory(std::move(FDirectories));
}

}  // namespace vx::detail
