#include "platform/TCustomEdit.h"

#include <algorithm>

namespace vx {

int TPlainEdit::Held(int Place) const noexcept { return std::clamp(Place, 0, FText.size()); }

void TPlainEdit::SetText(const String& Text) {
  FAnchor = FCursor = 0;
  if (Text == FText) return;
  FText = Text;
  if (FEvents != nullptr) FEvents->Change();
}

int TPlainEdit::GetSelStart() const { return std::min(FAnchor, FCursor); }
int TPlainEdit::GetSelLength() const { return std::max(FAnchor, FCursor) - GetSelStart(); }

void TPlainEdit::SetSelStart(int Place) { FAnchor = FCursor = Held(Place); }

void TPlainEdit::SetSelLength(int Length) {
  FAnchor = GetSelStart();
  FCursor = FAnchor + std::clamp(Length, 0, FText.size() - FAnchor);
}

void TPlainEdit::SetSelText(std::u16string_view Text) {
  const int start = GetSelStart(), length = GetSelLength();
  if (length == 0 && Text.empty()) return;
  FText = Concat({FText.view().substr(0, static_cast<size_t>(start)), Text,
                  FText.view().substr(static_cast<size_t>(start) + static_cast<size_t>(length))});
  FAnchor = FCursor = start + static_cast<int>(Text.size());
  if (FEvents != nullptr) FEvents->Change();
}

void TPlainEdit::Enter() {
  FAnchor = 0;
  FCursor = FText.size();
  if (FEvents != nullptr) FEvents->DoEnter();
}

void TPlainEdit::Exit() {
  if (FEvents != nullptr) FEvents->DoExit();
}

void TPlainEdit::Type(std::u16string_view Keys) {
  for (char16_t key : Keys) TypeUnit(key);
}

void TPlainEdit::TypeUnit(char16_t Key) {
  if (FEvents != nullptr) FEvents->KeyPress(Key);
  if (FIsReadOnly) return;
  if (Key == chBack) {
    Remove(-1);
  } else if (Key >= u' ') {
    Paste({&Key, 1});
  }
}

void TPlainEdit::Down(uint16_t Key, TShiftState Shift) {
  if (FEvents != nullptr) FEvents->KeyDown(Key, Shift);
  const bool isSelecting = Shift.Has(ssShift);
  switch (Key) {
    case vkLeft:
    case vkUp:
      return MoveTo(FCursor - 1, isSelecting);
    case vkRight:
    case vkDown:
      return MoveTo(FCursor + 1, isSelecting);
    case vkHome:
      return MoveTo(0, isSelecting);
    case vkEnd:
      return MoveTo(FText.size(), isSelecting);
    case vkDelete:
      if (!FIsReadOnly) Remove(1);
      return;
    default:
      return;
  }
}

void TPlainEdit::MoveTo(int Place, bool IsSelecting) noexcept {
  FCursor = Held(Place);
  if (!IsSelecting) FAnchor = FCursor;
}

// Removes the selection, or the code unit beside the cursor.
void TPlainEdit::Remove(int Step) {
  if (FAnchor == FCursor) FAnchor = Held(FCursor + Step);
  SetSelText({});
}

void TPlainEdit::Paste(std::u16string_view Text) {
  if (FIsReadOnly) return;
  if (FMaxLength > 0) {
    const int room = FMaxLength - (FText.size() - GetSelLength());
    Text = Text.substr(0, static_cast<size_t>(std::max(room, 0)));
  }
  SetSelText(Text);
}

}  // namespace vx
