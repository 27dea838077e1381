// How wide formatted numbers can be at most, by their digits alone. Internal to uDecoration.
#pragma once

#include "platform/TextBounds.h"
#include "rendering/uDecoration/TDecoration.h"

namespace vx::detail {

class TNumberBounds {
 public:
  // For values that the decoration shows, in the font of Bounds.
  TNumberBounds(const TDecoration& Look, const TTextBounds& Bounds);
  // Whether there are any for this decoration.
  bool IsKnown() const noexcept { return FIsKnown; }
  // No less than the width of what is shown for Value, in pixels; TTextBounds::Unknown for what is no plain number of
  // digits with at most one comma between them, and for amounts of money dots.
  int64_t Of(std::u16string_view Value) const noexcept;

 private:
  void ReadMask(std::u16string_view Mask);

  bool FIsKnown = false;
  bool FHasThousands = true;
  bool FTakesThousands = false;
  int FIntegers = 1;   // digits before the separator that stand in any case
  int FDecimals = 2;   // digits behind it that can be shown
  int64_t FPlus = 0;   // width of the shortest value
  int64_t FMinus = 0;  // the same with a sign
  int64_t FDigit = 0, FThousand = 0;
  int64_t FOthers = 0;  // a sign and a comma
};

}  // namespace vx::detail
