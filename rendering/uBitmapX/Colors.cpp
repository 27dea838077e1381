#include "rendering/uBitmapX/Colors.h"

#include <algorithm>
#include <cmath>

#include "core/uVxFunctions/Rounding.h"

namespace vx {
namespace {

uint8_t Protected(Extended Value, uint8_t Top) {
  return Value <= 0 ? uint8_t{0} : Value >= Top ? Top : static_cast<uint8_t>(RoundMath(Value));
}

// Held to Low to High, and Low for what is no number.
double Held(double Value, double Low, double High) noexcept { return Value > Low ? std::min(Value, High) : Low; }

}  // namespace

TColor SubtractColor(TColor A, TColor B) noexcept {
  const TColor a = ColorToRGB(A), b = ColorToRGB(B);
  TColor sum = 0;
  for (int shift : {0, 8, 16}) sum |= (((a >> shift & 0xFF) - (255 - (b >> shift & 0xFF))) & 0xFF) << shift;
  return sum;
}

void ProtectRound(Extended Value, uint8_t& Byte) { Byte = Protected(Value, 255); }
void ProtectRound64(Extended Value, uint8_t& Byte) { Byte = Protected(Value, 63); }

THSV ConvertRGBToHSV(TRGB RGB) noexcept {
  const double red = RGB.Red, green = RGB.Green, blue = RGB.Blue;
  const double highest = std::max({red, green, blue}), range = highest - std::min({red, green, blue});
  THSV hsv{0, 0, highest};
  if (range == 0) return hsv;
  hsv.Saturation = range / highest;
  const double sixth = highest == red     ? (green - blue) / range
                       : highest == green ? (blue - red) / range + 2
                                          : (red - green) / range + 4;
  hsv.Hue = 60 * (sixth < 0 ? sixth + 6 : sixth);
  return hsv;
}

TRGB ConvertHSVToRGB(const THSV& HSV) noexcept {
  const double value = Held(HSV.Value, 0, 255), saturation = Held(HSV.Saturation, 0, 1);
  double hue = std::fmod(HSV.Hue, 360);
  if (!(hue >= 0)) hue = hue < 0 ? hue + 360 : 0;
  // How far each channel is from the highest one, by its distance from the hue where it is full.
  auto channel = [&](double Offset) {
    const double sixth = std::fmod(Offset + hue / 60, 6);
    const double off = Held(std::min(sixth, 4 - sixth), 0, 1);
    return static_cast<uint8_t>(std::lround(value - value * saturation * off));
  };
  return {channel(5), channel(3), channel(1), 0};
}

void BrightnessSaturation(TRGB& RGB, double Brightness, double Saturation) noexcept {
  if (Brightness == 0 && Saturation == 1) return;
  THSV hsv = ConvertRGBToHSV(RGB);
  hsv.Value += Brightness;
  if (hsv.Saturation > 0) hsv.Saturation *= Saturation;
  const uint8_t fourth = RGB.Fourth;
  RGB = ConvertHSVToRGB(hsv);
  RGB.Fourth = fourth;
}

}  // namespace vx
