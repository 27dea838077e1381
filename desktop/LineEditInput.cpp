// What the user does with a line: keys, input methods, mouse, menu.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>

#include "desktop/QtValues.h"
#include "desktop/TLineEdit.h"
#include "desktop/detail/UserEvent.h"

namespace vx {

namespace {

// The character of a key that gives no letter; 0 for none.
char16_t ControlOf(const QKeyEvent& Event) {
  if (Event.matches(QKeySequence::SelectAll)) return chSelectAll;
  if (Event.matches(QKeySequence::Copy)) return chCopy;
  if (Event.matches(QKeySequence::Paste)) return chPaste;
  switch (Event.key()) {
    case Qt::Key_Backspace:
      return chBack;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return chReturn;
    case Qt::Key_Escape:
      return chEscape;
    default:
      return 0;
  }
}

// Alt and Ctrl together are what some keyboards have for a third letter of a key.
QString TypedBy(const QKeyEvent& Event) {
  const bool isCommand = (Event.modifiers() & Qt::ControlModifier) && !(Event.modifiers() & Qt::AltModifier);
  const QString text = Event.text();
  return isCommand || text.isEmpty() || text.at(0) < u' ' || text.at(0) == QChar(0x7F) ? QString() : text;
}

}  // namespace

// --- keys ---

bool TLineEdit::TellKeyDown(const QKeyEvent& Event) {
  uint16_t key = KeyFromQt(Event.key());
  if (key == 0 || FEvents == nullptr) return true;
  FEvents->KeyDown(key, FromQt(Event.modifiers()));
  return key != 0;
}

bool TLineEdit::TellKeyPress(char16_t Key) {
  if (FEvents != nullptr) FEvents->KeyPress(Key);
  return Key != 0;
}

// Tab never comes as a key press where the focus moves on by it.
bool TLineEdit::event(QEvent* Event) {
  if (Event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Tab) TellKeyPress(chTab);
  return QLineEdit::event(Event);
}

void TLineEdit::keyPressEvent(QKeyEvent* Event) {
  if (Event->matches(QKeySequence::Undo)) return Undo();
  if (Event->matches(QKeySequence::Redo)) return Redo();
  const TUserEvent event(*this);
  if (!TellKeyDown(*Event)) return Event->accept();
  if (Event->matches(QKeySequence::Cut)) return Cut();
  if (const char16_t control = ControlOf(*Event)) return Control(control, *Event);
  if (const QString typed = TypedBy(*Event); !typed.isEmpty()) return Type(typed);
  Move(*Event);
}

void TLineEdit::Control(char16_t Key, QKeyEvent& Event) {
  const bool isLeft = TellKeyPress(Key);
  if (Key == chReturn) return QLineEdit::keyPressEvent(&Event);
  if (!isLeft) return;
  switch (Key) {
    case chSelectAll:
      return selectAll();
    case chCopy:
      return Copy();
    case chPaste:
      return Paste(QApplication::clipboard()->text());
    case chEscape:
      return Event.ignore();
    default:
      QLineEdit::keyPressEvent(&Event);
  }
}

void TLineEdit::Type(const QString& Text) {
  const TUserEvent event(*this);
  for (const QChar unit : Text) {
    if (TellKeyPress(unit.unicode())) Paste(unit);
  }
}

// Up and down go to the left and to the right, as in the line editors of other desktops.
void TLineEdit::Move(QKeyEvent& Event) {
  const bool isMarking = Event.modifiers() & Qt::ShiftModifier;
  switch (Event.key()) {
    case Qt::Key_Up:
      return cursorBackward(isMarking);
    case Qt::Key_Down:
      return cursorForward(isMarking);
    default:
      QLineEdit::keyPressEvent(&Event);
  }
}

// What is being composed is Qt's affair; what comes out of it was typed.
void TLineEdit::inputMethodEvent(QInputMethodEvent* Event) {
  const QString typed = Event->commitString();
  if (typed.isEmpty() || isReadOnly()) return QLineEdit::inputMethodEvent(Event);
  const TUserEvent event(*this);
  QInputMethodEvent rest(Event->preeditString(), Event->attributes());
  rest.setCommitString({}, Event->replacementStart(), Event->replacementLength());
  QLineEdit::inputMethodEvent(&rest);
  Type(typed);
}

// --- mouse ---

void TLineEdit::mouseReleaseEvent(QMouseEvent* Event) {
  const QClipboard& clipboard = *QApplication::clipboard();
  if (Event->button() != Qt::MiddleButton || !clipboard.supportsSelection()) {
    return QLineEdit::mouseReleaseEvent(Event);
  }
  deselect();
  Paste(clipboard.text(QClipboard::Selection));
}

void TLineEdit::dropEvent(QDropEvent* Event) {
  const TUserEvent event(*this);
  if (Event->source() == this || isReadOnly()) return QLineEdit::dropEvent(Event);
  SetSelStart(cursorPositionAt(Event->position().toPoint()));
  Paste(Event->mimeData()->text());
  Event->acceptProposedAction();
}

void TLineEdit::contextMenuEvent(QContextMenuEvent* Event) {
  QMenu menu;
  const auto add = [&menu](const char16_t* text, bool isEnabled, const QKeySequence& keys, auto act) {
    QAction* action = menu.addAction(ToQt(text), act);
    action->setEnabled(isEnabled);
    action->setShortcut(keys);
  };
  const bool isOpen = !isReadOnly(), hasSelection = hasSelectedText();
  add(u"&Rückgängig", isOpen && !FUndo.empty(), QKeySequence::Undo, [this] { Undo(); });
  add(u"&Wiederherstellen", isOpen && !FRedo.empty(), QKeySequence::Redo, [this] { Redo(); });
  menu.addSeparator();
  add(u"&Ausschneiden", isOpen && hasSelection, QKeySequence::Cut, [this] { Cut(); });
  add(u"&Kopieren", hasSelection, QKeySequence::Copy, [this] { Copy(); });
  add(u"&Einfügen", isOpen && !QApplication::clipboard()->text().isEmpty(), QKeySequence::Paste,
      [this] { Paste(QApplication::clipboard()->text()); });
  menu.addSeparator();
  add(u"A&lles markieren", !text().isEmpty(), QKeySequence::SelectAll, [this] { selectAll(); });
  menu.exec(Event->globalPos());
}

}  // namespace vx
