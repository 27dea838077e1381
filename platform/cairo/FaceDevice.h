// What the surfaces of this component share: their pixels per inch, and the font that they measure by. Of use to this
// component only.
#pragma once

#include <memory>

#include "platform/TCanvasDevice.h"
#include "platform/cairo/Face.h"

namespace vx::drawing {

// Raises what drawing on a file raises that is closed.
[[noreturn]] void RaiseClosed();

class TFaceDevice : public TCanvasDevice {
 public:
  TPoint PixelsPerInch() const noexcept final { return FPixelsPerInch; }
  void SetFont(const TFont& Font) final;
  TFontMetrics Metrics() final { return FFace->Metrics(); }
  int TextWidth(std::u16string_view Text) final;
  int Advance(char16_t Unit) final;

 protected:
  explicit TFaceDevice(TPoint PixelsPerInch) : FPixelsPerInch(PixelsPerInch) {}

  const TPoint FPixelsPerInch;
  // Both as they were set last; the canvas sets a font before it asks for anything else.
  TFontStyles FStyle;
  std::shared_ptr<TFace> FFace;
};

}  // namespace vx::drawing
