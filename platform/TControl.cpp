#include "platform/TControl.h"

#include <algorithm>
#include <utility>

namespace vx {

void TControl::SetBounds(const TRect& Value) {
  constexpr int kMost = 1 << 27;
  const auto hold = [](int value) { return std::max(-kMost, std::min(value, +kMost)); };
  const int left = hold(Value.Left), top = hold(Value.Top);
  Change(FBounds, {left, top, std::max(left, hold(Value.Right)), std::max(top, hold(Value.Bottom))});
}

TPoint TControl::ClientToScreen(TPoint Place) const noexcept {
  for (const TControl* control = this; control != nullptr; control = control->FParent) {
    Place.X += control->FBounds.Left;
    Place.Y += control->FBounds.Top;
  }
  return Place;
}

TPoint TControl::ScreenToClient(TPoint Place) const noexcept {
  const TPoint origin = ClientToScreen({});
  return {Place.X - origin.X, Place.Y - origin.Y};
}

void TControl::Invalidate() {
  FIsInvalid = true;
  if (FUpdates > 0) return;
  FIsInvalid = false;
  if (FOnInvalidate) FOnInvalidate(this);
}

void TControl::EndUpdate() {
  if (FUpdates == 0 || --FUpdates > 0) return;
  if (FIsInvalid) Invalidate();
}

void TControl::MouseAt(int X, int Y) {
  FMousePos = {X, Y};
  if (std::exchange(FMouseInside, true)) return;
  if (FOnMouseEnter) FOnMouseEnter(this);
}

void TControl::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (!FEnabled) return;
  MouseAt(X, Y);
  if (Button == mbLeft) FLeftIsDown = true;
  if (FOnMouseDown) FOnMouseDown(this, Button, Shift, X, Y);
}

void TControl::MouseMove(TShiftState Shift, int X, int Y) {
  if (!FEnabled) return;
  MouseAt(X, Y);
  if (FOnMouseMove) FOnMouseMove(this, Shift, X, Y);
}

void TControl::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const bool isClick =
      Button == mbLeft && std::exchange(FLeftIsDown, false) && X >= 0 && Y >= 0 && X < GetWidth() && Y < GetHeight();
  if (!FEnabled) return;
  MouseAt(X, Y);
  if (isClick) Shift.Has(ssDouble) ? DblClick() : Click();
  if (FOnMouseUp) FOnMouseUp(this, Button, Shift, X, Y);
}

void TControl::MouseLeave() {
  FMousePos = {-1, -1};
  if (std::exchange(FMouseInside, false) && FOnMouseLeave) FOnMouseLeave(this);
}

void TControl::Click() {
  if (FOnClick) FOnClick(this);
}

void TControl::DblClick() {
  if (FOnDblClick) FOnDblClick(this);
}

}  // namespace vx
