#include "controls/uVxFilter/TVxFilterForm.h"

#include <algorithm>

#include "controls/uVxFilter/detail/FilterPaint.h"
#include "platform/TCanvas.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr int kWidth = 160;
constexpr int kMostLines = 12;  // to be seen at once
constexpr char16_t kBackspace = 8;

}  // namespace

TVxFilterForm::TVxFilterForm() {
  SetVisible(false);
  SetBounds({0, 0, kWidth, 2 * LineHeight});
}

void TVxFilterForm::SetButton(const TFilterButton& Value) {
  FButton = Value;
  Invalidate();
}

const TFilterLine& TVxFilterForm::GetLine(int Index) const noexcept {
  static const TFilterLine kNone;
  return Index >= 0 && Index < GetLineCount() ? FLines[static_cast<size_t>(Index)] : kNone;
}

void TVxFilterForm::SetLines(std::vector<TFilterLine> Lines) {
  FLines = std::move(Lines);
  FTopLine = 0;
  FItemIndex = -1;
  SetHeight(FirstLineTop() + std::min(GetLineCount(), kMostLines) * LineHeight + 1);
  Invalidate();
}

String TVxFilterForm::GetCheckedValues() const {
  TCells values;
  for (const TFilterLine& line : FLines) {
    if (line.Checked) values.push_back(line.Value);
  }
  return WriteCommatext(values);
}

void TVxFilterForm::SetTopLine(int Value) { Change(FTopLine, std::clamp(Value, 0, std::max(GetLineCount() - 1, 0))); }

TRect TVxFilterForm::GetLineRect(int Index) const noexcept {
  const int top = FirstLineTop() + (Index - FTopLine) * LineHeight;
  return {1, top, GetWidth() - 1, top + LineHeight};
}

TRect TVxFilterForm::GetButtonRect() const noexcept { return {GetWidth() - LineHeight, 1, GetWidth() - 1, LineHeight}; }

void TVxFilterForm::Changed() {
  Invalidate();
  if (FOnChange) FOnChange(this);
}

void TVxFilterForm::KeyPress(char16_t Key) {
  const bool hasText = HasText();
  if (FOnKeyPress) FOnKeyPress(this, Key);
  if ((Key < 32 && Key != kBackspace) || !hasText) return;  // in this order: Enter may have ended the window
  if (Key != kBackspace) {
    FText += Key;
  } else if (!FText.empty()) {
    const int size = FText.size();
    const bool isPair = size > 1 && (FText[size - 1] & 0xFC00) == 0xDC00 && (FText[size - 2] & 0xFC00) == 0xD800;
    FText = FText.Slice(0, size - (isPair ? 2 : 1));
  }
  FItemIndex = -1;
  Changed();
}

void TVxFilterForm::EditText(const String& Value) {
  if (!HasText() || Value == FText) return;
  FText = Value;
  FItemIndex = -1;
  Changed();
}

void TVxFilterForm::ClickLine(int Index) {
  if (!HasLines() || Index < 0 || Index >= GetLineCount()) return;
  if (FKind == ffChecks) {
    bool& isChecked = FLines[static_cast<size_t>(Index)].Checked;
    isChecked = !isChecked;
  } else {
    FItemIndex = Index;
    FText = GetLine(Index).Value;
  }
  Changed();
}

void TVxFilterForm::ClickButton() {
  if (!FButton.Visible) return;
  FButton.Down = !FButton.Down;
  Invalidate();
  if (FOnButton) FOnButton(this);
}

void TVxFilterForm::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  TControl::MouseDown(Button, Shift, X, Y);
  if (Button != mbLeft || !GetEnabled()) return;
  const TRect button = GetButtonRect();
  if (Y < LineHeight) {
    if (X >= button.Left && X < button.Right) ClickButton();
  } else if (Y >= FirstLineTop() && X >= 0 && X < GetWidth() && Y < GetHeight()) {
    ClickLine(FTopLine + (Y - FirstLineTop()) / LineHeight);
  }
}

void TVxFilterForm::PaintHead(TCanvas& Canvas) const {
  using namespace detail;
  Canvas.SetBrush({clBtnFace});
  Canvas.FillRect({0, 0, GetWidth(), LineHeight});
  PaintText(Canvas, {1, 0, GetButtonRect().Left, LineHeight}, FCaption, clWindowText);
  if (FButton.Visible) PaintMultiSelect(Canvas, GetButtonRect(), FButton.Down);
  if (HasText()) PaintText(Canvas, {1, LineHeight, GetWidth() - 1, 2 * LineHeight}, FText, clWindowText);
}

void TVxFilterForm::PaintPicture(TCanvas& Canvas, int Index, TRect Rect) const {
  if (HasPicture(Index)) FOnDrawLine(Canvas, Index, Rect);
}

void TVxFilterForm::PaintLine(TCanvas& Canvas, int Index) const {
  const TFilterLine& line = GetLine(Index);
  TRect rect = GetLineRect(Index);
  const bool isChosen = FKind != ffChecks && Index == FItemIndex;
  if (isChosen) {
    Canvas.SetBrush({clHighlight});
    Canvas.FillRect(rect);
  }
  if (FKind == ffChecks) {
    detail::PaintCheckBox(Canvas, {rect.Left, rect.Top, rect.Left + LineHeight, rect.Bottom}, line.Checked);
    rect.Left += LineHeight;
  }
  if (HasPicture(Index))
    PaintPicture(Canvas, Index, rect);
  else
    detail::PaintText(Canvas, rect, line.Caption, isChosen ? clHighlightText : clWindowText);
}

void TVxFilterForm::Paint() {
  TCanvas* canvas = GetCanvas();
  if (canvas == nullptr) return;
  const TCanvasState saved(*canvas);
  canvas->SetFont(GetFont());
  canvas->SetBrush({clWindow});
  canvas->FillRect(GetClientRect());
  PaintHead(*canvas);
  for (int i = FTopLine; HasLines() && i < GetLineCount() && GetLineRect(i).Top < GetHeight(); ++i)
    PaintLine(*canvas, i);
  canvas->SetBrush({clBtnShadow});
  canvas->FrameRect(GetClientRect());
}

}  // namespace vx
