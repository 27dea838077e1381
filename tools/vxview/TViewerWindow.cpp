#include "tools/vxview/TViewerWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>

#include "desktop/QtValues.h"
#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Dialogs.h"
#include "platform/NumberMasks.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/UserMessages.h"
#include "tools/vxview/SelectionSum.h"

namespace vx::vxview {

namespace {

const String kLayout = u"Spalten", kFilter = u"Filter", kGeometry = u"Lage";
const QString kFilters = QStringLiteral("Tabellen (*.csv *.txt *.vxt *.tab *.tsv);;Alle Dateien (*)");

bool AsksYes(const String& Text) { return MessageDlg(Text, mtConfirmation, {mbYes, mbNo}) == mrYes; }

String Counted(int Count) { return FormatFloat(u"#,##0", Count); }

}  // namespace

TViewerWindow::TViewerWindow(const String& SettingsPath)
    : FSettings(SettingsPath),
      FFilter(new TFilterWidget),
      FTable(new TTableWidget),
      FLoader(new TTableLoader),
      FFind(new TFindBar(*FTable)),
      FStatus(new QLabel) {
  constexpr int kLookMilliseconds = 2000;
  auto* centre = new QWidget;
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(FLoader);
  column->addWidget(FFilter);
  column->addWidget(FTable, 1);
  column->addWidget(FFind);
  setCentralWidget(centre);
  statusBar()->addPermanentWidget(FStatus, 1);
  setAcceptDrops(true);
  resize(1000, 640);
  restoreGeometry(QByteArray::fromHex(ToQt(FSettings.Read({}, kGeometry)).toLatin1()));
  MakeFileMenu();
  MakeEditMenu();
  constexpr int kSumMilliseconds = 60;
  FStatusTimer.setSingleShot(true);
  FStatusTimer.setInterval(kSumMilliseconds);
  connect(&FStatusTimer, &QTimer::timeout, this, &TViewerWindow::UpdateStatus);
  const auto later = [this] { FStatusTimer.start(); };
  connect(FFilter, &TFilterWidget::Filtered, this, later);
  connect(FTable, &TTableWidget::SelectionChanged, this, later);
  connect(FTable, &TTableWidget::Edited, this, &TViewerWindow::UpdateTitle);
  connect(FTable, &TTableWidget::Edited, this, later);
  connect(FTable, &TTableWidget::Refused, this, [this](const QString& text) { statusBar()->showMessage(text, 8000); });
  FLookTimer.setInterval(kLookMilliseconds);
  connect(&FLookTimer, &QTimer::timeout, this, &TViewerWindow::LookAtFile);
  UpdateTitle();
}

TViewerWindow::~TViewerWindow() {
  FFilter->SetTable(nullptr);
  FTable->SetTable(nullptr);
}

// --- opening ---

void TViewerWindow::Open(const String& Path) {
  if (MayLeave()) Load(Path);
}

void TViewerWindow::Load(const String& Path) {
  FLoader->Start(Path, {}, [this, Path](TLoadResult result) {
    if (!result.Loaded) return Failed(result.Error);
    const String question = Concat({u"Die Datei\r\n", Path,
                                    u"\r\nsieht aus wie die eines anderen Programms. Soll sie nach dessen Regeln "
                                    u"gelesen werden?"});
    if (!result.Loaded->LooksForeign || !AsksYes(question)) return Show(Path, std::move(*result.Loaded));
    FLoader->Start(Path, TFileForm{frForeign, {}}, [this, Path](TLoadResult foreign) {
      foreign.Loaded ? Show(Path, std::move(*foreign.Loaded)) : Failed(foreign.Error);
    });
  });
}

void TViewerWindow::Failed(const String& Text) {
  if (!Text.empty()) ShowWarning(Text);
  emit Settled(false);
}

void TViewerWindow::Show(const String& Path, TLoadedTable Loaded) {
  Remember();
  FFilter->SetTable(nullptr);
  FTable->SetTable(nullptr);
  FHistory.reset();
  FView = std::move(Loaded.View);
  FHistory = std::make_unique<TTableHistory>(*FView);
  FPath = Path;
  FForm = Loaded.Form;
  FStamp = Loaded.Stamp;
  try {
    TakeLook(*FView, Path);
  } catch (const EStreamError& e) {
    ShowWarning(UserMessage(e));
  }
  FTable->SetTable(FView.get());
  FTable->SetHistory(FHistory.get());
  FFilter->SetTable(FTable);
  TakeRemembered();
  FTable->setFocus();
  FSettings.Opened(Path);
  FLookTimer.start();
  UpdateTitle();
  UpdateStatus();
  if (!Loaded.Note.empty()) ShowWarning(Loaded.Note);
  emit Settled(true);
}

void TViewerWindow::dragEnterEvent(QDragEnterEvent* Event) {
  if (Event->mimeData()->hasUrls()) Event->acceptProposedAction();
}

void TViewerWindow::dropEvent(QDropEvent* Event) {
  const QList<QUrl> urls = Event->mimeData()->urls();
  if (!urls.isEmpty() && urls[0].isLocalFile()) Open(FromQt(urls[0].toLocalFile()));
}

// --- saving ---

bool TViewerWindow::Save() { return FView && FTable->EndEdit(true) && SaveTo(FPath, FForm, true); }

bool TViewerWindow::SaveAs() {
  if (!FView || !FTable->EndEdit(true)) return false;
  const QString name = QFileDialog::getSaveFileName(this, QStringLiteral("Tabelle speichern"), ToQt(FPath), kFilters);
  return !name.isEmpty() && SaveTo(FromQt(name), FForm, FromQt(name) == FPath);
}

bool TViewerWindow::SaveTo(const String& Path, const TFileForm& Form, bool IsSameFile) {
  std::optional<TFileStamp> expected;
  if (IsSameFile) expected = FStamp;
  TIfLost ifLost = ilRefuse;
  TFileForm form = Form;
  for (;;) {
    const TSaveOutcome outcome = SaveTable(*FView, Path, form, expected, ifLost);
    switch (outcome.Kind) {
      case skSaved:
        FPath = Path;
        FForm = form;
        FStamp = outcome.Stamp;
        FHistory->MarkSaved();
        UpdateTitle();
        return true;
      case skChanged:
        if (!AsksYes(outcome.Text + u"\r\n\r\nSoll sie trotzdem ersetzt werden?")) return false;
        expected.reset();
        break;
      case skLost:
        if (!AsksYes(outcome.Text + u"\r\n\r\nSoll die Datei in UTF-8 gespeichert werden, das alles aufnimmt?")) {
          return false;
        }
        form = {frForeign, {}};
        break;
      case skFailed:
        ShowWarning(outcome.Text);
        return false;
    }
  }
}

bool TViewerWindow::MayLeave() {
  if (FTable->GetEditor() && !FTable->EndEdit(true)) return false;
  if (!IsChanged()) return true;
  const TModalResult answer = MessageDlg(
      Concat({u"Die Änderungen an\r\n", FPath, u"\r\nsind nicht gespeichert. Sollen sie gespeichert werden?"}),
      mtConfirmation, {mbYes, mbNo, mbCancel});
  return answer == mrNo || (answer == mrYes && Save());
}

void TViewerWindow::closeEvent(QCloseEvent* Event) {
  if (!MayLeave()) return Event->ignore();
  FLookTimer.stop();
  Remember();
  FSettings.Write({}, kGeometry, FromQt(QString::fromLatin1(saveGeometry().toHex())));
  FSettings.Store();
  Event->accept();
}

// --- what is shown ---

void TViewerWindow::Remember() {
  if (!FView) return;
  TVxStringList values;
  TVxFilterItems& items = FFilter->Bar().GetItems();
  for (int i = 0; i < items.GetCount(); ++i) values.Add(items.Get(i).GetValue());
  FSettings.Write(FPath, kLayout, FTable->GetLayout());
  FSettings.Write(FPath, kFilter, values.GetCommatext());
  FSettings.Store();
}

void TViewerWindow::TakeRemembered() {
  FTable->SetLayout(FSettings.Read(FPath, kLayout));
  TVxStringList values;
  values.SetCommatext(FSettings.Read(FPath, kFilter));
  TVxFilterItems& items = FFilter->Bar().GetItems();
  for (int i = 0; i < std::min(items.GetCount(), values.GetCount()); ++i) {
    if (!values.Get(i).empty()) items.Get(i).SetValue(values.Get(i));
  }
}

void TViewerWindow::UpdateTitle() {
  const QString name = FView ? ToQt(ExtractFileName(FPath)) : QStringLiteral("Keine Tabelle");
  setWindowTitle(name + QStringLiteral("[*] – Tabellen"));
  setWindowModified(IsChanged());
}

void TViewerWindow::UpdateStatus() {
  if (!FView) return FStatus->clear();
  const int head = FView->GetContentTop(), shown = FView->GetContentCount() - head;
  const int all = FView->GetAllCount() - head;
  const String selected = SelectionText(*FView, FTable->GetSelection(), FTable->GetShownColumns());
  FStatus->setText(
      ToQt(Concat({Counted(shown), u" von ", Counted(all), u" Zeilen", selected.empty() ? u"" : u"   ", selected})));
}

// Another program was at the file.
void TViewerWindow::LookAtFile() {
  const TFileStamp stamp = StampOf(FPath);
  const bool isKnown = stamp.Size < 0 || stamp == FStamp || stamp == FDeclined;
  if (!FView || FLoader->IsLoading() || isKnown || QApplication::activeModalWidget()) return;
  FDeclined = stamp;  // is not offered again; saving still asks, for FStamp is what was read
  const String text = Concat({u"Die Datei\r\n", FPath,
                              u"\r\nist von einem anderen Programm geändert worden. Soll sie neu gelesen werden?",
                              IsChanged() ? u"\r\n\r\nDie eigenen Änderungen gehen dabei verloren." : u""});
  if (AsksYes(text)) Load(FPath);
}

}  // namespace vx::vxview
