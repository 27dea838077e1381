#include "platform/TPaintBox.h"

#include "platform/TCanvas.h"

namespace vx {

void TPaintBox::Paint() {
  if (GetCanvas() == nullptr || !FOnPaint) return;
  const TCanvasState saved(*GetCanvas());
  GetCanvas()->SetFont(GetFont());
  FOnPaint(this);
}

}  // namespace vx
