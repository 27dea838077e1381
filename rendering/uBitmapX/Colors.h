// Pixels as colours.
//
//   TRGB                       red, green, blue and a fourth byte
//   ConvertColorToRGB, ConvertRGBToColor, EqualsRGB, InitRGB
//   THSV, ConvertRGBToHSV, ConvertHSVToRGB, BrightnessSaturation   hue, saturation and value
//   SubtractColor, ProtectRound, ProtectRound64
//
// Example:
//   vx::TRGB rgb;
//   vx::ConvertColorToRGB(vx::clMaroon, rgb);
//   vx::BrightnessSaturation(rgb, 60, 0.5);      // brighter and paler
#pragma once

#include <cstdint>

#include "platform/Graphics.h"
#include "platform/Types.h"

namespace vx {

struct TRGB {
  uint8_t Red = 0;
  uint8_t Green = 0;
  uint8_t Blue = 0;
  uint8_t Fourth = 0;
  friend bool operator==(const TRGB&, const TRGB&) noexcept = default;
};

enum TBaseColor : uint8_t { bcNone, bcRed, bcGreen, bcBlue };

// The four bytes of Color, the lowest first. System colours are not resolved.
constexpr void ConvertColorToRGB(TColor Color, TRGB& RGB) noexcept {
  RGB = {static_cast<uint8_t>(Color), static_cast<uint8_t>(Color >> 8), static_cast<uint8_t>(Color >> 16),
         static_cast<uint8_t>(Color >> 24)};
}
// 0x00BBGGRR, without the fourth byte.
constexpr TColor ConvertRGBToColor(TRGB RGB) noexcept {
  return RGB.Red | TColor{RGB.Green} << 8 | TColor{RGB.Blue} << 16;
}
// All four bytes are equal.
inline bool EqualsRGB(TRGB A, TRGB B) noexcept { return A == B; }
// All four bytes take Value.
constexpr void InitRGB(TRGB& RGB, uint8_t Value) noexcept { RGB = {Value, Value, Value, Value}; }

// Of each channel A - (255 - B), which wraps and so is (A + B + 1) mod 256: red 10 and 20 give 31. A sum under this
// name is wanted. System colours count as what they stand for; the high byte is 0.
TColor SubtractColor(TColor A, TColor B) noexcept;

// 0 for a Value at or below 0, 255 at or above 255, otherwise RoundMath of it. EInvalidOp for what is no number.
void ProtectRound(Extended Value, uint8_t& Byte);
// The same with 63 as top.
void ProtectRound64(Extended Value, uint8_t& Byte);

struct THSV {
  double Hue = 0;         // degrees, from 0 (red) over 120 (green) and 240 (blue) to below 360; 0 for grays
  double Saturation = 0;  // 0 for grays to 1
  double Value = 0;       // the highest channel, 0 to 255
};
THSV ConvertRGBToHSV(TRGB RGB) noexcept;
// Any hue counts by its rest of 360; saturation and value are held to their ranges. The fourth byte is 0.
TRGB ConvertHSVToRGB(const THSV& HSV) noexcept;

// Adds Brightness to the value, and multiplies the saturation, if it is above 0, by Saturation; both are held
// to their ranges. The fourth byte stays; with 0 and 1 nothing happens.
void BrightnessSaturation(TRGB& RGB, double Brightness, double Saturation) noexcept;

}  // namespace vx
