#include "platform/TextBounds.h"

#include <algorithm>

#include "platform/TCanvas.h"
#include "platform/TCanvasDevice.h"

namespace vx {

TTextBounds::TTextBounds(const TCanvas& Canvas) {
  FAdvances.fill(kOther);
  Canvas.TextWidth(u"0");  // the device knows the font then
  // Units below the blank end lines, and the first one stands for others.
  for (char16_t unit = u' '; unit < kUnits; ++unit) {
    const int advance = Canvas.GetDevice().Advance(unit);
    // What takes no room by itself may be a mark, which joins what is before it.
    if (advance > 0) FAdvances[unit] = advance;
  }
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    FDigit = std::max(FDigit, static_cast<int>(std::min<int64_t>(FAdvances[digit], INT_MAX)));
  }
}

}  // namespace vx
