#include "platform/TextBounds.h"

#include <algorithm>

#include "platform/TCanvas.h"

namespace vx {

TTextBounds::TTextBounds(const TCanvas& Canvas) {
  constexpr char16_t kSoftHyphen = 0xAD;
  FAdvances.fill(kOther);
  for (char16_t unit = u' '; unit < kUnits; ++unit) {
    if ((unit > u'~' && unit < 0xA0) || unit == kSoftHyphen) continue;
    const int advance = Canvas.TextWidth({&unit, 1});
    // What takes no room by itself may be a mark, which joins what is before it.
    if (advance > 0) FAdvances[unit] = advance;
  }
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    FDigit = std::max(FDigit, static_cast<int>(std::min<int64_t>(FAdvances[digit], INT_MAX)));
  }
}

}  // namespace vx
