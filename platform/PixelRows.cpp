#include "platform/PixelRows.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace vx::pixels {
namespace {

constexpr uint32_t kOpaque = 0xFF000000;

constexpr uint32_t Channel(uint32_t Pixel, int Shift) noexcept { return Pixel >> Shift & 0xFF; }

// Between a channel of 8 bits and one whose highest value is Top, to the nearest.
constexpr uint32_t Widen(uint32_t Value, uint32_t Top) noexcept { return (Value * 255 + Top / 2) / Top; }
constexpr uint32_t Narrow(uint32_t Value, uint32_t Top) noexcept { return (Value * Top + 127) / 255; }

uint32_t Pixel15(uint32_t Word) noexcept {
  return kOpaque | Widen(Word >> 10 & 31, 31) << 16 | Widen(Word >> 5 & 31, 31) << 8 | Widen(Word & 31, 31);
}
uint32_t Pixel16(uint32_t Word) noexcept {
  return kOpaque | Widen(Word >> 11, 31) << 16 | Widen(Word >> 5 & 63, 63) << 8 | Widen(Word & 31, 31);
}
uint32_t Word15(uint32_t Pixel) noexcept {
  return Narrow(Channel(Pixel, 16), 31) << 10 | Narrow(Channel(Pixel, 8), 31) << 5 | Narrow(Channel(Pixel, 0), 31);
}
uint32_t Word16(uint32_t Pixel) noexcept {
  return Narrow(Channel(Pixel, 16), 31) << 11 | Narrow(Channel(Pixel, 8), 63) << 5 | Narrow(Channel(Pixel, 0), 31);
}

uint32_t Multiplied(uint32_t Pixel) noexcept {
  const uint32_t alpha = Pixel >> 24;
  uint32_t result = Pixel & kOpaque;
  for (int shift : {0, 8, 16}) result |= (Channel(Pixel, shift) * alpha + 127) / 255 << shift;
  return result;
}
uint32_t Divided(uint32_t Pixel) noexcept {
  const uint32_t alpha = Pixel >> 24;
  if (alpha == 0) return 0;
  uint32_t result = Pixel & kOpaque;
  for (int shift : {0, 8, 16}) result |= std::min(255u, (Channel(Pixel, shift) * 255 + alpha / 2) / alpha) << shift;
  return result;
}

uint32_t LoadPixel(const uint8_t* From) noexcept {
  return From[0] | uint32_t{From[1]} << 8 | uint32_t{From[2]} << 16 | uint32_t{From[3]} << 24;
}
void StorePixel(uint8_t* To, uint32_t Pixel) noexcept {
  for (int i = 0; i < 4; ++i) To[i] = static_cast<uint8_t>(Pixel >> 8 * i);
}

void UnpackIndexes(const uint8_t* Row, int Bits, std::span<const TPaletteEntry> Palette,
                   std::span<uint32_t> Pixels) noexcept {
  std::array<uint32_t, 256> colors;
  colors.fill(kOpaque);
  for (size_t i = 0; i < std::min<size_t>(Palette.size(), 256); ++i) {
    colors[i] = kOpaque | uint32_t{Palette[i].peRed} << 16 | uint32_t{Palette[i].peGreen} << 8 | Palette[i].peBlue;
  }
  const size_t perByte = 8 / static_cast<size_t>(Bits);
  const unsigned mask = (1u << Bits) - 1;
  for (size_t x = 0; x < Pixels.size(); ++x) {
    const int shift = 8 - Bits - static_cast<int>(x % perByte) * Bits;
    Pixels[x] = colors[Row[x / perByte] >> shift & mask];
  }
}

std::array<TPaletteEntry, 256> MakeDefaults() noexcept {
  constexpr uint8_t kSteps[] = {0, 51, 102, 153, 204, 255};
  std::array<TPaletteEntry, 256> all;
  size_t next = 0;
  for (TColor color : {clBlack, clMaroon, clGreen, clOlive, clNavy, clPurple, clTeal, clGray, clSilver, clRed, clLime,
                       clYellow, clBlue, clFuchsia, clAqua, clWhite}) {
    all[next++] = {static_cast<uint8_t>(color), static_cast<uint8_t>(color >> 8), static_cast<uint8_t>(color >> 16), 0};
  }
  for (uint8_t red : kSteps) {
    for (uint8_t green : kSteps) {
      for (uint8_t blue : kSteps) all[next++] = {red, green, blue, 0};
    }
  }
  for (unsigned i = 1; i <= 24; ++i) {
    const auto gray = static_cast<uint8_t>(255 * i / 24);
    all[next++] = {gray, gray, gray, 0};
  }
  return all;
}

}  // namespace

void UnpackRow(const uint8_t* Row, TPixelFormat Format, TAlphaFormat Alpha, std::span<const TPaletteEntry> Palette,
               std::span<uint32_t> Pixels) noexcept {
  uint16_t word;
  switch (Format) {
    case pf1bit:
    case pf4bit:
    case pf8bit:
      return UnpackIndexes(Row, BitsOfPixelFormat(Format), Palette, Pixels);
    case pf15bit:
    case pf16bit:
      for (size_t x = 0; x < Pixels.size(); ++x) {
        std::memcpy(&word, Row + 2 * x, sizeof word);
        Pixels[x] = Format == pf15bit ? Pixel15(word) : Pixel16(word);
      }
      return;
    case pf24bit:
      for (size_t x = 0; x < Pixels.size(); ++x) {
        Pixels[x] = kOpaque | uint32_t{Row[3 * x + 2]} << 16 | uint32_t{Row[3 * x + 1]} << 8 | Row[3 * x];
      }
      return;
    default:
      for (size_t x = 0; x < Pixels.size(); ++x) {
        const uint32_t pixel = LoadPixel(Row + 4 * x);
        Pixels[x] = Alpha == afIgnored ? pixel | kOpaque : Alpha == afDefined ? pixel : Divided(pixel);
      }
  }
}

TRowPacker::TRowPacker(TPixelFormat Format, TAlphaFormat Alpha, std::span<const TPaletteEntry> Palette) noexcept
    : FFormat(Format), FAlpha(Alpha), FPalette(Palette) {}

uint8_t TRowPacker::IndexOf(uint32_t Pixel) noexcept {
  Pixel |= kOpaque;
  TKnown& known = FKnown[(Pixel * 2654435761u) >> 22];
  if (known.Pixel == Pixel) return known.Index;
  int least = INT_MAX;
  known = {Pixel, 0};
  for (size_t i = 0; i < FPalette.size() && least > 0; ++i) {
    const int red = static_cast<int>(Channel(Pixel, 16)) - FPalette[i].peRed;
    const int green = static_cast<int>(Channel(Pixel, 8)) - FPalette[i].peGreen;
    const int blue = static_cast<int>(Channel(Pixel, 0)) - FPalette[i].peBlue;
    const int distance = red * red + green * green + blue * blue;
    if (distance < least) {
      least = distance;
      known.Index = static_cast<uint8_t>(i);
    }
  }
  return known.Index;
}

void TRowPacker::Pack(std::span<const uint32_t> Pixels, uint8_t* Row) noexcept {
  uint16_t word;
  switch (FFormat) {
    case pf1bit:
    case pf4bit: {
      const int bits = BitsOfPixelFormat(FFormat);
      const size_t perByte = 8 / static_cast<size_t>(bits);
      for (size_t x = 0; x < Pixels.size(); ++x) {
        const int shift = 8 - bits - static_cast<int>(x % perByte) * bits;
        const unsigned mask = ((1u << bits) - 1) << shift;
        uint8_t& byte = Row[x / perByte];
        byte = static_cast<uint8_t>((byte & ~mask) | (static_cast<unsigned>(IndexOf(Pixels[x])) << shift & mask));
      }
      return;
    }
    case pf8bit:
      for (size_t x = 0; x < Pixels.size(); ++x) Row[x] = IndexOf(Pixels[x]);
      return;
    case pf15bit:
    case pf16bit:
      for (size_t x = 0; x < Pixels.size(); ++x) {
        word = static_cast<uint16_t>(FFormat == pf15bit ? Word15(Pixels[x]) : Word16(Pixels[x]));
        std::memcpy(Row + 2 * x, &word, sizeof word);
      }
      return;
    case pf24bit:
      for (size_t x = 0; x < Pixels.size(); ++x) {
        for (size_t i = 0; i < 3; ++i) Row[3 * x + i] = static_cast<uint8_t>(Pixels[x] >> 8 * i);
      }
      return;
    default:
      for (size_t x = 0; x < Pixels.size(); ++x) {
        const uint32_t pixel = Pixels[x];
        StorePixel(Row + 4 * x, FAlpha == afIgnored   ? pixel & ~kOpaque
                                : FAlpha == afDefined ? pixel
                                                      : Multiplied(pixel));
      }
  }
}

std::span<const TPaletteEntry> DefaultPalette(TPixelFormat Format) noexcept {
  static constexpr TPaletteEntry kBlackWhite[] = {{0, 0, 0, 0}, {255, 255, 255, 0}};
  static const std::array<TPaletteEntry, 256> all = MakeDefaults();
  if (Format == pf1bit) return kBlackWhite;
  return std::span(all).first(Format == pf4bit ? 16 : 256);
}

}  // namespace vx::pixels
