// Values wrapped as objects, to be handed over as EventArgs.
#pragma once

#include <utility>

#include "platform/Mouse.h"
#include "platform/String.h"
#include "platform/TObject.h"

namespace vx {

class TProgressString : public TObject {
 public:
  explicit TProgressString(String Caption = {}) noexcept : iCaption(std::move(Caption)) {}
  String ClassName() const override { return u"TProgressString"; }
  const String& GetCaption() const noexcept { return iCaption; }
  void SetCaption(String Value) noexcept { iCaption = std::move(Value); }
  String ToString() const { return iCaption; }

 private:
  String iCaption;
};

// X and Y in pixels.
class TMouseDownWrapper : public TObject {
 public:
  TMouseDownWrapper(TMouseButton aButton, TShiftState aShift, int aX, int aY) noexcept
      : Button(aButton), Shift(aShift), X(aX), Y(aY) {}
  String ClassName() const override { return u"TMouseDownWrapper"; }
  TMouseButton Button;
  TShiftState Shift;
  int X, Y;
};

class TMouseMoveWrapper : public TObject {
 public:
  TMouseMoveWrapper(TShiftState aShift, int aX, int aY) noexcept : Shift(aShift), X(aX), Y(aY) {}
  String ClassName() const override { return u"TMouseMoveWrapper"; }
  TShiftState Shift;
  int X, Y;
};

}  // namespace vx
