// The editor that stands on a cell, the clipboard, and undoing.
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>

#include "controls/TableEditing/CellEditing.h"
#include "desktop/QtValues.h"
#include "desktop/TMaskEditWidget.h"
#include "desktop/detail/TableEditing.h"
#include "desktop/detail/TableParts.h"
#include "tables/uTypeCsv.h"

namespace vx::detail {

namespace {

const QString kHtmlKind = QStringLiteral("text/html");

// A line for a value, which ends by Return, Tab and Escape.
class TCellLine final : public TMaskEditWidget {
 public:
  TCellLine(QWidget* Parent, TTableEditing& Editing) : TMaskEditWidget(Parent), FEditing(Editing) {}

 protected:
  bool event(QEvent* Event) override {
    if (Event->type() == QEvent::ShortcutOverride) Event->accept();
    if (Event->type() == QEvent::KeyPress && EndsBy(static_cast<QKeyEvent&>(*Event))) return true;
    return TMaskEditWidget::event(Event);
  }
  void focusOutEvent(QFocusEvent* Event) override {
    TMaskEditWidget::focusOutEvent(Event);
    const Qt::FocusReason reason = Event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
    if (!FEditing.EndEdit(true)) FEditing.EndEdit(false);
  }

 private:
  bool EndsBy(QKeyEvent& Event) {
    const int key = Event.key();
    if (key == Qt::Key_Escape) return FEditing.EndEdit(false);
    const bool isEnd = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (isEnd && FEditing.EndEdit(true)) FEditing.Key(Event);
    return isEnd;
  }

  TTableEditing& FEditing;
};

// The same for several lines: Return ends, with Shift or Alt it makes a line.
class TCellLines final : public QPlainTextEdit {
 public:
  TCellLines(QWidget* Parent, TTableEditing& Editing) : QPlainTextEdit(Parent), FEditing(Editing) {}

 protected:
  void keyPressEvent(QKeyEvent* Event) override {
    const bool isReturn = Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter;
    if (Event->key() == Qt::Key_Escape) return static_cast<void>(FEditing.EndEdit(false));
    if (isReturn && Event->modifiers() == Qt::NoModifier) return static_cast<void>(FEditing.EndEdit(true));
    if (isReturn) return insertPlainText(QStringLiteral("\n"));
    QPlainTextEdit::keyPressEvent(Event);
  }
  void focusOutEvent(QFocusEvent* Event) override {
    QPlainTextEdit::focusOutEvent(Event);
    if (Event->reason() != Qt::PopupFocusReason && Event->reason() != Qt::ActiveWindowFocusReason)
      FEditing.EndEdit(true);
  }

 private:
  TTableEditing& FEditing;
};

// The line breaks of Before are those of the cell.
String WithBreaksOf(const String& Before, const QString& Text) {
  const bool isCrLf = Before.view().find(u"\r\n") != std::u16string_view::npos;
  return FromQt(isCrLf ? QString(Text).replace(QStringLiteral("\n"), QStringLiteral("\r\n")) : Text);
}

}  // namespace

bool TTableEditing::CanEdit(TPoint Cell) const {
  return History != nullptr && Cell.X >= 0 && (!MayEdit || MayEdit(Cell.X, Cell.Y));
}

// --- the editor ---

bool TTableEditing::BeginEdit(const QString& Typed) {
  const TPoint cell = Current();
  if (!EndEdit(true) || !CanEdit(cell)) return false;
  const TTypeCsv& table = *FParts.Scene.GetTable();
  const TCellEditor kind = CellEditorOf(table, cell.X, cell.Y);
  if (kind == ceNone || kind == ceToggle) return false;
  FParts.Widget.EnsureVisible(cell.X, cell.Y);
  FEdited = cell;
  const QString text = ToQt(table.GetCell(cell.X, cell.Y));
  if (kind == ceLines) {
    auto* lines = new TCellLines(FParts.Widget.viewport(), *this);
    FEditor = lines;
    lines->setPlainText(text);
    FBefore = lines->toPlainText();
    lines->selectAll();
  } else {
    auto* line = new TCellLine(FParts.Widget.viewport(), *this);
    FEditor = line;
    line->setFrame(false);
    line->Editor().SetMaskMode(EditModeOf(CellTypeOf(table, cell.X, cell.Y)));
    line->Editor().SetAllowEmpty(true);
    line->Editor().SetText(FromQt(text));
    FBefore = line->text();
  }
  PlaceEditor();
  FEditor->show();
  FEditor->setFocus(Qt::TabFocusReason);  // selects the text
  if (Typed.isEmpty() || FEditor == nullptr) return FEditor != nullptr;
  QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, Typed);
  QApplication::sendEvent(FEditor, &key);
  return true;
}

void TTableEditing::PlaceEditor() {
  if (!FEditor) return;
  constexpr int kLeastWidth = 60, kLinesHeight = 90;
  QRect rect = ToQt(FParts.Scene.CellRect(FEdited.X, FEdited.Y));
  const bool isLines = qobject_cast<QPlainTextEdit*>(FEditor) != nullptr;
  rect.setWidth(std::max(rect.width(), isLines ? 3 * kLeastWidth : kLeastWidth));
  if (isLines) rect.setHeight(std::max(rect.height(), kLinesHeight));
  FEditor->setGeometry(rect);
}

QString TTableEditing::EditorText() const {
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(FEditor)) return lines->toPlainText();
  return static_cast<const TCellLine*>(FEditor.data())->text();
}

bool TTableEditing::EndEdit(bool Keep) {
  if (!FEditor) return true;
  const TTypeCsv* table = FParts.Scene.GetTable();
  const QString typed = EditorText();
  bool isChanged = Keep && typed != FBefore && History != nullptr && FParts.HasCell(FEdited);
  String text;
  if (isChanged) {
    text = WithBreaksOf(table->GetCell(FEdited.X, FEdited.Y), typed);
    if (!RepairCellText(CellTypeOf(*table, FEdited.X, FEdited.Y), text)) {
      emit FParts.Widget.Refused(typed);
      return false;
    }
  }
  QWidget* editor = FEditor;
  FEditor = nullptr;
  editor->hide();
  editor->deleteLater();
  FParts.Widget.setFocus();
  if (isChanged && History->SetCell(FEdited.X, FEdited.Y, text)) Edited({1, 0, FEdited});
  return true;
}

bool TTableEditing::Toggle() {
  const TPoint cell = Current();
  if (!CanEdit(cell)) return false;
  const TTypeCsv& table = *FParts.Scene.GetTable();
  if (CellEditorOf(table, cell.X, cell.Y) != ceToggle) return false;
  const bool isOn = table.GetCell(cell.X, cell.Y) == u"1";
  if (History->SetCell(cell.X, cell.Y, isOn ? u"0" : u"1")) Edited({1, 0, cell});
  return true;
}

// --- changes ---

void TTableEditing::Edited(const TTableStep& Step) {
  FParts.Widget.TableChanged();
  if (Step.Place.X >= 0 && Step.Place.Y >= 0) MoveTo(Step.Place.X, Step.Place.Y);
  emit FParts.Widget.Edited();
}

void TTableEditing::Undo() {
  if (EndEdit(false) && History != nullptr && History->CanUndo()) Edited(History->Undo());
}

void TTableEditing::Redo() {
  if (EndEdit(false) && History != nullptr && History->CanRedo()) Edited(History->Redo());
}

TMayPut TTableEditing::MayPut() const {
  return [this](int col, int row, String& text) {
    const TTypeCsv& table = *FParts.Scene.GetTable();
    const int known = std::min(row, table.GetContentCount() - 1);
    if (MayEdit && !MayEdit(col, row)) return false;
    return CellEditorOf(table, col, known) != ceNone && RepairCellText(CellTypeOf(table, col, known), text);
  };
}

void TTableEditing::Copy() const {
  const TTypeCsv* table = FParts.Scene.GetTable();
  if (table == nullptr || Selection.GetCellCount() == 0) return;
  auto* data = new QMimeData;  // the clipboard's
  data->setText(ToQt(CopyAsText(*table, Selection, FColumns)));
  data->setHtml(ToQt(CopyAsHtml(*table, Selection, FColumns)));
  QApplication::clipboard()->setMimeData(data);
}

void TTableEditing::Cut() {
  Copy();
  ClearSelected();
}

void TTableEditing::ClearSelected() {
  if (History == nullptr || !EndEdit(false)) return;
  if (ClearCells(*FParts.Scene.GetTable(), *History, Selection, FColumns, MayPut()) > 0) Edited({});
}

void TTableEditing::Paste() {
  if (History == nullptr || !EndEdit(false)) return;
  const String text = FromQt(QApplication::clipboard()->text());
  const TPasteResult result = PasteText(*FParts.Scene.GetTable(), *History, text, Selection, FColumns,
                                        {.MayAddRows = true, .MayPut = MayPut()});
  if (result.Changed > 0 || !result.Places.IsEmpty()) {
    Edited({});
    const TRect& places = result.Places;
    Selection.MoveTo({places.Left, places.Top});
    Selection.ExtendTo({places.Right - 1, places.Bottom - 1});
    Changed({-1, -1});
  }
  if (result.Refused > 0) {
    emit FParts.Widget.Refused(ToQt(Concat({IntToStr(result.Refused), u" Zellen nehmen diese Texte nicht auf."})));
  } else if (result.Outside > 0) {
    emit FParts.Widget.Refused(ToQt(Concat({u"Für ", IntToStr(result.Outside), u" Zellen ist kein Platz."})));
  }
}

}  // namespace vx::detail
