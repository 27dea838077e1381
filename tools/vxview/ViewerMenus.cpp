// The menus of the viewer's window, and what they do with the table beside opening and saving.
#include <QFileDialog>
#include <QMenuBar>
#include <QStatusBar>

#include "desktop/QtValues.h"
#include "desktop/TQtPages.h"
#include "platform/Dialogs.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/UserMessages.h"
#include "tables/TTablePrinter.h"
#include "tools/vxtab/CommandHelpers.h"
#include "tools/vxtab/Painting.h"
#include "tools/vxview/TViewerWindow.h"

namespace vx::vxview {

namespace {

const QString kOpened = QStringLiteral("Tabellen (*.csv *.txt *.vxt *.tab *.tsv);;Alle Dateien (*)");
const QString kExported = QStringLiteral("PDF (*.pdf);;Bild (*.png);;CSV in UTF-8 (*.csv)");

}  // namespace

void TViewerWindow::MakeFileMenu() {
  QMenu* file = menuBar()->addMenu(QStringLiteral("&Datei"));
  file->addAction(QStringLiteral("Ö&ffnen …"), QKeySequence::Open, this, [this] {
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Tabelle öffnen"), {}, kOpened);
    if (!path.isEmpty()) Open(FromQt(path));
  });
  QMenu* last = file->addMenu(QStringLiteral("&Zuletzt geöffnet"));
  connect(last, &QMenu::aboutToShow, this, [this, last] { ShowLastFiles(*last); });
  file->addAction(QStringLiteral("&Neu laden"), QKeySequence(Qt::Key_F5), this, [this] {
    if (FView) Open(FPath);
  });
  file->addSeparator();
  file->addAction(QStringLiteral("&Speichern"), QKeySequence::Save, this, [this] { Save(); });
  file->addAction(QStringLiteral("Speichern &unter …"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), this,
                  [this] { SaveAs(); });
  file->addAction(QStringLiteral("&Exportieren …"), QKeySequence(Qt::CTRL | Qt::Key_E), this, [this] { Export(); });
  file->addSeparator();
  file->addAction(QStringLiteral("&Drucken …"), QKeySequence::Print, this, [this] { Print(false); });
  file->addAction(QStringLiteral("Druck&vorschau …"), this, [this] { Print(true); });
  file->addSeparator();
  file->addAction(QStringLiteral("&Beenden"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
}

// The table has keys of its own for some of these, which work while it has the focus: they are told behind a tab, and
// stay free for the editors and the find bar.
void TViewerWindow::MakeEditMenu() {
  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Bearbeiten"));
  QAction* undo = edit->addAction(QStringLiteral("&Rückgängig\tStrg+Z"), FTable, [this] { FTable->Undo(); });
  QAction* redo = edit->addAction(QStringLiteral("&Wiederholen\tStrg+Y"), FTable, [this] { FTable->Redo(); });
  edit->addSeparator();
  QAction* change = edit->addAction(QStringLiteral("Zelle ä&ndern\tF2"), FTable, [this] { FTable->BeginEdit(); });
  QAction* cut = edit->addAction(QStringLiteral("&Ausschneiden\tStrg+X"), FTable, [this] { FTable->Cut(); });
  QAction* copy = edit->addAction(QStringLiteral("&Kopieren\tStrg+C"), FTable, [this] { FTable->Copy(); });
  QAction* paste = edit->addAction(QStringLiteral("&Einfügen\tStrg+V"), FTable, [this] { FTable->Paste(); });
  edit->addSeparator();
  edit->addAction(QStringLiteral("&Suchen …"), QKeySequence(Qt::CTRL | Qt::Key_F), FFind, [this] { FFind->Open(); });
  edit->addAction(QStringLiteral("W&eitersuchen"), QKeySequence(Qt::Key_F3), FFind, [this] { FFind->FindNext(false); });
  edit->addAction(QStringLiteral("Rückwär&ts suchen"), QKeySequence(Qt::SHIFT | Qt::Key_F3), FFind,
                  [this] { FFind->FindNext(true); });
  connect(edit, &QMenu::aboutToShow, this, [=, this] {
    undo->setEnabled(FHistory && FHistory->CanUndo());
    redo->setEnabled(FHistory && FHistory->CanRedo());
    for (QAction* action : {change, cut, copy, paste}) action->setEnabled(FView != nullptr);
  });
  QMenu* view = menuBar()->addMenu(QStringLiteral("&Ansicht"));
  view->addAction(QStringLiteral("Spalten an&passen"), FTable, [this] { FTable->FitColumns(); });
  view->addAction(QStringLiteral("Spalten &wählen …"), FTable,
                  [this] { FTable->ShowColumnMenu(-1, FTable->mapToGlobal(QPoint(40, 20))); });
}

void TViewerWindow::ShowLastFiles(QMenu& Menu) {
  Menu.clear();
  for (const String& path : FSettings.LastFiles()) {
    Menu.addAction(ToQt(path).replace(u'&', QStringLiteral("&&")), this, [this, path] { Open(path); });
  }
  if (Menu.isEmpty()) Menu.addAction(QStringLiteral("(keine)"))->setEnabled(false);
}

// What is shown, in the order and with the looks that it is shown with; CSV as other programs read it.
void TViewerWindow::Export() {
  if (!FView || !FTable->EndEdit(true)) return;
  const QString proposed = ToQt(ChangeFileExt(FPath, u".pdf"));
  QString filter;
  QString name = QFileDialog::getSaveFileName(this, QStringLiteral("Exportieren"), proposed, kExported, &filter);
  if (name.isEmpty()) return;
  if (QFileInfo(name).suffix().isEmpty()) name += filter.section(u'*', 1).section(u')', 0, 0);
  const String path = FromQt(name);
  const String extension = LowerCase(FromQt(u'.' + QFileInfo(name).suffix()));
  if (path == FPath) {
    return ShowWarning(
        u"In die geöffnete Datei kann nicht exportiert werden: ihre ausgeblendeten Zeilen gingen verloren.");
  }
  String trouble;
  try {
    if (extension == u".pdf") {
      vxtab::PaintPages(*FView, path.ToUtf8(), true);
    } else if (extension == u".png") {
      vxtab::PaintPicture(*FView, path.ToUtf8());
    } else {
      const TSaved saved = SaveCsv(*FView, path, {});
      if (!saved.IsSaved) trouble = saved.Lost.ToText();
    }
  } catch (const Exception& e) {
    trouble = UserMessage(e);
  } catch (const vxtab::TFailure& e) {
    trouble = String::FromUtf8(e.what());
  }
  if (trouble.empty()) {
    statusBar()->showMessage(QStringLiteral("Exportiert: ") + name, 8000);
  } else {
    ShowWarning(Concat({u"Die Datei\r\n", path, u"\r\nkann nicht geschrieben werden:\r\n", trouble}));
  }
}

void TViewerWindow::Print(bool IsPreview) {
  if (!FView || !FTable->EndEdit(true)) return;
  const auto print = [this](TPrintPages& pages) { PrintTable(*FView, pages); };
  try {
    if (IsPreview) {
      PreviewPrint(this, ExtractFileName(FPath), print);
    } else {
      PrintWithDialog(this, ExtractFileName(FPath), print);
    }
  } catch (const Exception& e) {
    ShowWarning(UserMessage(e));
  }
}

}  // namespace vx::vxview
