#include "rendering/uDecoration/detail/NumberBounds.h"

#include <algorithm>

#include "platform/FormatSettings.h"
#include "rendering/uDecoration/TDecorator.h"

namespace vx::detail {

TNumberBounds::TNumberBounds(const TDecoration& Look, const TTextBounds& Bounds) {
  const TVxFieldType type = Look.GetFieldType();
  const String& format = Look.GetFormatString();
  FIsKnown = type == vftCurrency || ((type == vftInteger || type == vftFloat) && !format.empty());
  if (!FIsKnown) return;
  int64_t optional = 0;  // what decimals add that do not stand in any case
  if (type != vftCurrency) {
    ReadMask(format);
    optional = std::count(format.begin(), format.end(), u'#') * Bounds.Digit();
  }
  const char16_t thousand = GetFormatSettings().ThousandSeparator, decimal = GetFormatSettings().DecimalSeparator;
  optional += Bounds.Of({&decimal, 1});
  FDigit = Bounds.Digit();
  FThousand = std::max(Bounds.Of({&thousand, 1}), Bounds.Of(u"."));
  FOthers = Bounds.Of(u"-,");
  FTakesThousands = type == vftCurrency;
  bool isFraction;
  const auto widthOf = [&](std::u16string_view value) {
    const String shown = TDecorator::FormatText(value, type, format, isFraction);
    int64_t width = Bounds.Of(shown);
    for (char16_t unit : shown) {
      if (unit >= u'0' && unit <= u'9') width += FDigit - Bounds.Of({&unit, 1});
    }
    const bool hasDecimals = shown.view().find(decimal) != std::u16string_view::npos;
    return width + (type == vftCurrency || (hasDecimals && optional == Bounds.Of({&decimal, 1})) ? 0 : optional);
  };
  FPlus = widthOf(u"1");
  FMinus = widthOf(u"-1");
  FIsKnown = FIsKnown && std::max({FPlus, FMinus, FThousand}) < TTextBounds::Unknown;
}

// Only masks of digits, separators and signs that stand for themselves.
void TNumberBounds::ReadMask(std::u16string_view Mask) {
  constexpr std::u16string_view kPlain = u"0#,. €";
  const size_t point = Mask.find(u'.');
  const std::u16string_view front = Mask.substr(0, point), behind = point < Mask.size() ? Mask.substr(point) : u"";
  if (Mask.find_first_not_of(kPlain) != Mask.npos || behind.find(u'.', 1) != behind.npos) FIsKnown = false;
  if (Mask.find(u'0') == Mask.npos) FIsKnown = false;  // 0 may show as nothing
  FHasThousands = Mask.find(u',') != Mask.npos;
  // From the first zero on all places are filled.
  const size_t zero = front.find(u'0');
  FIntegers = 0;
  if (zero != front.npos) {
    FIntegers = static_cast<int>(std::count_if(front.begin() + static_cast<std::ptrdiff_t>(zero), front.end(),
                                               [](char16_t unit) { return unit == u'0' || unit == u'#'; }));
  }
  FIntegers = std::max(FIntegers, 1);
  FDecimals = static_cast<int>(
      std::count_if(behind.begin(), behind.end(), [](char16_t unit) { return unit == u'0' || unit == u'#'; }));
}

int64_t TNumberBounds::Of(std::u16string_view Value) const noexcept {
  constexpr int kMostDigits = 14;  // beyond, values are rounded or written in another form
  const bool isNegative = !Value.empty() && Value[0] == u'-';
  if (isNegative) Value.remove_prefix(1);
  int integers = 0, decimals = -1, dots = 0;
  for (char16_t unit : Value) {
    if (unit == u',' && decimals < 0) {
      decimals = 0;
    } else if (unit == u'.' && FTakesThousands) {
      ++dots;
    } else if (unit < u'0' || unit > u'9') {
      return TTextBounds::Unknown;
    } else {
      ++(decimals < 0 ? integers : decimals);
    }
  }
  if (integers == 0 || decimals == 0 || integers + std::max(decimals, 0) > kMostDigits) return TTextBounds::Unknown;
  // With dots at odd places it is shown as it stands.
  const int64_t asItStands = (integers + std::max(decimals, 0)) * FDigit + dots * FThousand + FOthers;
  if (decimals > FDecimals) ++integers;  // it may be rounded up to another digit
  const int shown = std::max(integers, FIntegers);
  int64_t width = (isNegative ? FMinus : FPlus) + (shown - FIntegers) * FDigit;
  if (FHasThousands) width += ((shown - 1) / 3 - (FIntegers - 1) / 3) * FThousand;
  return dots > 0 ? std::max(width, asItStands) : width;
}

}  // namespace vx::detail
