// A small care application with windows: a table of patients with its filter, a form of masked editors, saving.
//
//   desktop_care TABLE [--picture FILE]
//
// With --picture the window is saved as a PNG file instead of being shown to a person.
#include <QApplication>
#include <QBoxLayout>
#include <QFormLayout>
#include <QPushButton>
#include <cstdio>
#include <vector>

#include "desktop/InstallDesktop.h"
#include "desktop/QtValues.h"
#include "desktop/TFilterWidget.h"
#include "desktop/TMaskEditWidget.h"
#include "desktop/TQtPages.h"
#include "desktop/TTableWidget.h"
#include "platform/Dialogs.h"
#include "tables/TTablePrinter.h"
#include "tables/uTypeCsv.h"

namespace {

using vx::TMaskEditWidget, vx::TNotifyEvent;

constexpr int kName = 1, kBorn = 2, kPostcode = 4, kTown = 5, kLevel = 6;

// A field of the form, which holds one column of the current patient.
struct TField {
  int Col;
  const char16_t* Label;
  vx::TVxMaskMode Mode;
};
constexpr TField kFields[] = {{kName, u"&Name", vx::mmNone},
                              {kBorn, u"&Geboren", vx::mmDate},
                              {kPostcode, u"&PLZ", vx::mmMask},
                              {kTown, u"&Ort", vx::mmNone},
                              {kLevel, u"Pfle&gegrad", vx::mmInteger}};

class TCareWindow : public QWidget {
 public:
  explicit TCareWindow(const vx::String& Path) : FPath(Path) {
    if (!FPatients.LoadFromFile(Path)) throw vx::EFOpenError(u"Die Tabelle \"" + Path + u"\" lässt sich nicht laden.");
    FPatients.GetDecorations().SetFixed(1, 1, 0, 0);
    FTable.SetTable(&FPatients);
    FTable.FitColumns();
    FFilter.SetTable(&FTable);
    auto* form = new QFormLayout;
    for (const TField& field : kFields) AddField(*form, field);
    auto* buttons = new QHBoxLayout;
    AddButton(*buttons, u"&Drucken...", &TCareWindow::Print);
    buttons->addStretch();
    AddButton(*buttons, u"&Speichern", &TCareWindow::Save);
    auto* list = new QVBoxLayout;
    list->setSpacing(0);
    list->addWidget(&FFilter);
    list->addWidget(&FTable);
    auto* all = new QVBoxLayout(this);
    all->addLayout(list);
    all->addLayout(form);
    all->addLayout(buttons);
    connect(&FTable, &vx::TTableWidget::CurrentCellChanged, this, [this](int, int row) { ShowPatient(row); });
    connect(&FTable, &vx::TTableWidget::Sorted, this, [this] { ShowPatient(FTable.GetCurrentCell().Y); });
    connect(&FFilter, &vx::TFilterWidget::Filtered, this, [this] { FTable.SetCurrentCell({-1, -1}); });
    setWindowTitle(QStringLiteral("Patienten"));
    resize(820, 560);
    FTable.SetCurrentCell({kName, FPatients.GetContentTop()});
  }

 private:
  void AddField(QFormLayout& Form, const TField& Field) {
    auto* widget = new TMaskEditWidget(this);
    widget->setMaximumWidth(260);
    widget->Editor().SetMaskString(u"00000");  // of the postcode
    widget->Editor().SetMaskMode(Field.Mode);
    if (Field.Col == kLevel) widget->Editor().SetLimitationMax(5);
    widget->Editor().OnChanged = TNotifyEvent::Of<&TCareWindow::TakeField>(*this);
    Form.addRow(vx::ToQt(Field.Label), widget);
    FEditors.push_back(widget);
  }
  void AddButton(QBoxLayout& Row, const char16_t* Caption, void (TCareWindow::*Act)()) {
    auto* button = new QPushButton(vx::ToQt(Caption), this);
    connect(button, &QPushButton::clicked, this, Act);
    Row.addWidget(button);
  }
  void ShowPatient(int Row) {
    for (size_t i = 0; i < FEditors.size(); ++i) {
      FEditors[i]->setEnabled(Row >= FPatients.GetContentTop());
      FEditors[i]->Editor().SetText(Row >= 0 ? FPatients.GetCell(kFields[i].Col, Row) : vx::String());
    }
  }
  // A field was left with another valid value.
  void TakeField(vx::TObject* Sender) {
    const int row = FTable.GetCurrentCell().Y;
    for (size_t i = 0; i < FEditors.size() && row >= 0; ++i) {
      if (Sender != &FEditors[i]->Editor()) continue;
      FPatients.SetCell(kFields[i].Col, row, FEditors[i]->GetText());
      FTable.CellChanged(kFields[i].Col, row);
    }
  }
  void Print() {
    vx::PrintWithDialog(this, u"Patienten", [this](vx::TPrintPages& pages) { vx::PrintTable(FPatients, pages); });
  }
  // All patients, those that the filter hides as well.
  void Save() {
    for (TMaskEditWidget* editor : FEditors) editor->Editor().Finishing();
    if (FPatients.SaveToFile(FPath)) vx::ShowMessage(u"Gespeichert.");
  }

  const vx::String FPath;
  vx::TCsvView FPatients;  // longer than who shows it
  vx::TTableWidget FTable{this};
  vx::TFilterWidget FFilter{this};
  std::vector<TMaskEditWidget*> FEditors;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  vx::InstallDesktop();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) {
    std::fprintf(stderr, "usage: desktop_care TABLE [--picture FILE]\n");
    return 2;
  }
  try {
    TCareWindow window(vx::FromQt(arguments[1]));
    window.show();
    if (arguments.size() < 4) return QApplication::exec();
    QApplication::processEvents();
    return window.grab().save(arguments[3]) ? 0 : 1;
  } catch (const vx::Exception& error) {
    vx::MessageDlg(error.GetMessage(), vx::mtError, {vx::mbOK});
    return 1;
  }
}
