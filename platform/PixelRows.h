// Rows of pixels from one format to another, by way of 0xAARRGGBB.
//
//   UnpackRow     a row of any format
//   TRowPacker    rows of one format out of such pixels
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "platform/TBitmap.h"

namespace vx::pixels {

// Bytes from one row to the next: a multiple of 4.
constexpr int64_t StrideOf(int Width, int Bits) noexcept { return (int64_t{Width} * Bits + 31) / 32 * 4; }

// Fills Pixels from the row of a bitmap of Format; entries beyond the palette are black.
void UnpackRow(const uint8_t* Row, TPixelFormat Format, TAlphaFormat Alpha, std::span<const TPaletteEntry> Palette,
               std::span<uint32_t> Pixels) noexcept;

// Remembers which entry of the palette is nearest to colours it has met; the palette must outlive it.
class TRowPacker {
 public:
  TRowPacker(TPixelFormat Format, TAlphaFormat Alpha, std::span<const TPaletteEntry> Palette) noexcept;
  void Pack(std::span<const uint32_t> Pixels, uint8_t* Row) noexcept;

 private:
  uint8_t IndexOf(uint32_t Pixel) noexcept;

  struct TKnown {
    uint32_t Pixel = 0;  // with 0xFF in front once it is known
    uint8_t Index = 0;
  };
  TPixelFormat FFormat;
  TAlphaFormat FAlpha;
  std::span<const TPaletteEntry> FPalette;
  std::array<TKnown, 1024> FKnown{};
};

// The colours that a format of indexes has where nobody gave it any.
std::span<const TPaletteEntry> DefaultPalette(TPixelFormat Format) noexcept;

}  // namespace vx::pixels
