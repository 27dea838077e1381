// A place that the program paints.
//
//   TPaintBox   a control with an OnPaint
//
// Example:
//   vx::TRecordingCanvas canvas;
//   vx::TPaintBox box;
//   box.SetCanvas(&canvas);
//   box.SetOnPaint(vx::TNotifyEvent::Of<&PaintLegend>());    // called with the box as its sender
//   box.Paint();
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfall: the box fills no ground; what OnPaint leaves out stays as it was.
#pragma once

#include "platform/TControl.h"

namespace vx {

class TPaintBox : public TControl {
 public:
  // 105 pixels wide and high.
  TPaintBox() { SetBounds({0, 0, 105, 105}); }
  String ClassName() const override { return u"TPaintBox"; }
  // Calls OnPaint with the canvas in the font of the box, if there is a canvas.
  void Paint() override;
  const TNotifyEvent& GetOnPaint() const noexcept { return FOnPaint; }
  void SetOnPaint(TNotifyEvent Value) noexcept { FOnPaint = Value; }

 private:
  TNotifyEvent FOnPaint;
};

}  // namespace vx
