// What measuring and painting of a cell have in common.
#pragma once

#include <algorithm>
#include <cstdint>

#include "core/uVxFunctions/Rounding.h"
#include "platform/TCanvas.h"
#include "platform/TImageList.h"
#include "rendering/uDecoration/TDecorationList.h"

namespace vx::detail {

// Rounded and held to what a TPoint can say.
inline int64_t Pixels(Extended Value) { return RoundMath(std::clamp<Extended>(Value, INT32_MIN, INT32_MAX)); }

struct TSize {
  int64_t Width = 0;
  int64_t Height = 0;
};

// -1, 0 and 1 for what stands at the top, between, and at the bottom.
inline int BandOf(TAlignSet Align) noexcept { return Align.Has(alTop) ? -1 : Align.Has(alBottom) ? 1 : 0; }

// The content of such a cell are indices of images.
inline bool IsOfImages(TVxFieldType Type) noexcept {
  return Type == vftImage || Type == vftToggle || Type == vftButton;
}

inline bool IsTopFixed(const TDecorationList& List) noexcept {
  return List.FixedCell(List.GetCell().X, List.GetCell().Y, {alTop});
}
// The head of a column that can be clicked.
inline bool IsClickedHead(const TDecorationList& List) noexcept {
  return List.GetOptions().Has(dloColumnClick) && IsTopFixed(List);
}

// The size of an image on the device of the list, with tmFitImage as high as a line of the canvas's font.
TSize ScaledImage(const TCanvas& Canvas, const TDecorationList& List, const TImageList& Images);

}  // namespace vx::detail
