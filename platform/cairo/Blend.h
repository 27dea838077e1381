// How a colour comes onto a pixel, for each meaning of a pixel's fourth byte. Of use to this component only.
#pragma once

#include <cstdint>

#include "platform/TBitmap.h"

namespace vx::drawing {

// Src over Dst, all four bytes, by Part of 256.
inline uint32_t Mix(uint32_t Dst, uint32_t Src, uint32_t Part) noexcept {
  const uint32_t rest = 256 - Part;
  const uint32_t even = ((Dst & 0xFF00FF) * rest + (Src & 0xFF00FF) * Part) >> 8 & 0xFF00FF;
  const uint32_t odd = ((Dst >> 8 & 0xFF00FF) * rest + (Src >> 8 & 0xFF00FF) * Part) & 0xFF00FF00;
  return even | odd;
}
// The part of 256 that stands for an opacity up to 255.
constexpr uint32_t PartOf(uint32_t Opacity) noexcept { return Opacity + (Opacity >> 7); }

// A pixel of a colour (0x00RRGGBB), fully there, as a bitmap of such a format stores it.
constexpr uint32_t OpaquePixel(uint32_t Rgb, TAlphaFormat Format) noexcept {
  return Format == afIgnored ? Rgb : 0xFF000000 | Rgb;
}

// A colour (0x00RRGGBB) of an opacity over a pixel.
inline uint32_t Over(uint32_t Dst, uint32_t Rgb, uint32_t Opacity, TAlphaFormat Format) noexcept {
  if (Opacity == 0) return Dst;
  if (Format != afDefined) return Mix(Dst, OpaquePixel(Rgb, Format), PartOf(Opacity));
  // What shows through counts by its own opacity.
  const uint32_t below = (Dst >> 24) * (255 - Opacity) / 255;
  const uint32_t together = Opacity + below;
  const auto channel = [&](int shift) {
    return ((Rgb >> shift & 255) * Opacity + (Dst >> shift & 255) * below + together / 2) / together << shift;
  };
  return together << 24 | channel(16) | channel(8) | channel(0);
}

}  // namespace vx::drawing
