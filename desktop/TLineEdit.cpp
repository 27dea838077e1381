#include "desktop/TLineEdit.h"

#include <QKeyEvent>
#include <algorithm>
#include <limits>
#include <utility>

#include "desktop/QtValues.h"
#include "desktop/detail/UserEvent.h"

namespace vx {

TLineEdit::TLineEdit(QWidget* Parent) : QLineEdit(Parent) {
  QLineEdit::setMaxLength(std::numeric_limits<int>::max());  // the user's is another one than the program's
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!FIsWriting) Changed();
  });
}

TLineEdit::~TLineEdit() = default;

void TLineEdit::Changed() {
  if (FEvents != nullptr) FEvents->Change();
}

// --- the text ---

String TLineEdit::GetText() const { return FromQt(text()); }

void TLineEdit::SetText(const String& Text) {
  if (FUserEvents == 0) {
    FUndo.clear();
    FRedo.clear();
  }
  const bool isOther = Text != GetText();
  if (isOther) {
    const bool wasWriting = std::exchange(FIsWriting, true);
    setText(ToQt(Text));
    FIsWriting = wasWriting;
  }
  SetSelStart(0);
  if (isOther) Changed();
}

int TLineEdit::GetSelStart() const { return hasSelectedText() ? selectionStart() : cursorPosition(); }

void TLineEdit::SetSelStart(int Place) {
  deselect();
  setCursorPosition(std::clamp(Place, 0, static_cast<int>(text().size())));
}

void TLineEdit::SetSelLength(int Length) {
  const int start = GetSelStart();
  setSelection(start, std::clamp(Length, 0, static_cast<int>(text().size()) - start));
}

void TLineEdit::SetSelText(std::u16string_view Text) {
  if (Text.empty() && !hasSelectedText()) return;
  const bool wasWriting = std::exchange(FIsWriting, true);
  insert(ToQt(Text));
  FIsWriting = wasWriting;
  Changed();
}

void TLineEdit::Paste(const QString& Text) {
  if (isReadOnly()) return;
  const TUserEvent event(*this);
  QString line = Text.left(Text.indexOf(u'\r')).left(Text.indexOf(u'\n'));
  if (FMaxLength > 0) {
    const qsizetype room = FMaxLength - (text().size() - selectionLength());
    line.truncate(std::max(room, qsizetype{0}));
  }
  SetSelText(FromQt(line));
}

void TLineEdit::Cut() {
  Copy();
  if (isReadOnly() || !hasSelectedText()) return;
  const TUserEvent event(*this);
  if (TellKeyPress(kCut)) SetSelText({});
}

void TLineEdit::Copy() { copy(); }

// --- undoing ---

void TLineEdit::Go(std::vector<TStep>& From, std::vector<TStep>& To) {
  if (isReadOnly() || From.empty()) return;
  const TStep step = std::move(From.back());
  From.pop_back();
  To.push_back({GetText(), cursorPosition()});
  ++FUserEvents;
  SetText(step.Text);
  --FUserEvents;
  SetSelStart(step.Place);
}

void TLineEdit::Undo() { Go(FUndo, FRedo); }
void TLineEdit::Redo() { Go(FRedo, FUndo); }

// --- focus ---

void TLineEdit::focusInEvent(QFocusEvent* Event) {
  QLineEdit::focusInEvent(Event);
  if (std::exchange(FIsEntered, true)) return;
  if (FEvents != nullptr) FEvents->DoEnter();
}

void TLineEdit::focusOutEvent(QFocusEvent* Event) {
  QLineEdit::focusOutEvent(Event);
  const Qt::FocusReason reason = Event->reason();
  const bool comesBack =
      reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
  if (!comesBack) Leave();
}

void TLineEdit::hideEvent(QHideEvent* Event) {
  QLineEdit::hideEvent(Event);
  if (Event->spontaneous()) return;
  Leave();
  ShowHint({});
}

void TLineEdit::Leave() {
  if (!std::exchange(FIsEntered, false) || FEvents == nullptr) return;
  const TUserEvent event(*this);
  FEvents->DoExit();
}

}  // namespace vx
