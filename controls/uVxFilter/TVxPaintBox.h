// A control that paints itself, with a border if wanted.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include "platform/TPaintBox.h"

namespace vx {

enum TBorderStyle : uint8_t { bsNone, bsSingle };

// Fills its place with its colour, calls PaintContent and then OnPaint, and draws the border.
class TVxPaintBox : public TPaintBox {
 public:
  String ClassName() const override { return u"TVxPaintBox"; }
  void Paint() override;
  // One pixel at each side; bsNone at first.
  TBorderStyle GetBorderStyle() const noexcept { return iBorderStyle; }
  void SetBorderStyle(TBorderStyle Value) { Change(iBorderStyle, Value); }

 protected:
  // Paints what the control shows, on a canvas in the control's font.
  virtual void PaintContent(TCanvas& /*Canvas*/) {}

 private:
  TBorderStyle iBorderStyle = bsNone;
};

}  // namespace vx
