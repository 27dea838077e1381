#include "tools/vxview/TFindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "desktop/QtValues.h"

namespace vx::vxview {

TFindBar::TFindBar(TTableWidget& Table) : FTable(Table), FText(new QLineEdit), FNote(new QLabel) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(6, 3, 6, 3);
  auto* label = new QLabel(QStringLiteral("S&uchen:"));
  label->setBuddy(FText);
  FText->setClearButtonEnabled(true);
  FText->setMaximumWidth(360);
  row->addWidget(label);
  row->addWidget(FText, 1);
  row->addWidget(FNote, 1);
  hide();
}

void TFindBar::Open() {
  show();
  FNote->clear();
  FText->setFocus();
  FText->selectAll();
}

void TFindBar::FindNext(bool IsBackward) {
  if (FText->text().isEmpty()) return Open();
  const TFindOptions options = IsBackward ? TFindOptions{foBackward} : TFindOptions{};
  const bool isFound = FTable.FindNext(FromQt(FText->text()), options);
  FNote->setText(isFound ? QString() : QStringLiteral("nicht gefunden"));
}

void TFindBar::keyPressEvent(QKeyEvent* Event) {
  if (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter) {
    return FindNext(Event->modifiers().testFlag(Qt::ShiftModifier));
  }
  if (Event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(Event);
  hide();
  FTable.setFocus();
}

}  // namespace vx::vxview
