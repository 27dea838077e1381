// What the reader and the writer of BMP files have in common.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vx::bmp {

inline constexpr size_t kFileHeader = 14;
inline constexpr uint32_t kCoreHeader = 12, kInfoHeader = 40, kV4Header = 108, kV5Header = 124;

enum TCompression : uint32_t { kPlain = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6 };

// The bits of a pixel's word that a channel has.
struct TFields {
  uint32_t Red = 0, Green = 0, Blue = 0, Alpha = 0;
  friend bool operator==(const TFields&, const TFields&) noexcept = default;
};
inline constexpr TFields kFields15{0x7C00, 0x3E0, 0x1F, 0};
inline constexpr TFields kFields16{0xF800, 0x7E0, 0x1F, 0};
inline constexpr TFields kFields32{0xFF0000, 0xFF00, 0xFF, 0};
inline constexpr TFields kFields32Alpha{0xFF0000, 0xFF00, 0xFF, 0xFF000000};

}  // namespace vx::bmp
