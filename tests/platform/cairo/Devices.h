// The surfaces that the contract tests draw on, and what their drawings look like.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"

namespace vx::test {

struct TDevice {
  const char* Name;
  // Lets Draw draw on a white surface of 120 x 80 pixels and gives what is seen then, 24 bits; nothing if the
  // program that makes files visible is not installed.
  std::optional<TBitmap> (*Seen)(const std::function<void(TCanvas&)>& Draw);
};

std::span<const TDevice> Devices();

// The smallest rectangle that holds all pixels that are not white.
TRect InkOf(const TBitmap& Bitmap);
// The pixel at a place, 0x00RRGGBB.
uint32_t PixelAt(const TBitmap& Bitmap, int X, int Y);

}  // namespace vx::test
