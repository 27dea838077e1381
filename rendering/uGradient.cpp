#include "rendering/uGradient.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "platform/TCanvas.h"

namespace vx {
namespace {

std::atomic<bool> gEnabled{true};

}  // namespace

bool GetGradientsEnabled() noexcept { return gEnabled; }
void SetGradientsEnabled(bool Value) noexcept { gEnabled = Value; }

void PaintGradient(TCanvas& Canvas, const TRect& Rect, TColor ColorFrom, int Flag, TColor ColorTo) {
  if (GetGradientsEnabled()) {
    Canvas.GradientRect(Rect, {ColorFrom, ColorTo, Flag == 1 ? gdVertical : gdHorizontal});
    return;
  }
  TCanvasState saved(Canvas);
  Canvas.SetBrush({AverageGradient(ColorFrom, ColorTo)});
  Canvas.FillRect(Rect);
}

TColor AverageGradient(TColor A, TColor B) noexcept {
  const TColor a = ColorToRGB(A), b = ColorToRGB(B);
  TColor mean = 0;
  for (int shift : {0, 8, 16}) mean |= ((a >> shift & 0xFF) + (b >> shift & 0xFF)) / 2 << shift;
  return mean;
}

TColor ColorAdjustLuma(TColor Color, int Amount) noexcept {
  const TColor rgb = ColorToRGB(Color);
  const double channels[] = {(rgb & 0xFF) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb >> 16 & 0xFF) / 255.0};
  const double highest = *std::max_element(channels, channels + 3), lowest = *std::min_element(channels, channels + 3);
  const double luma = (highest + lowest) / 2;
  const double target = std::clamp(luma + Amount / 1000.0, 0.0, 1.0);
  // How far channels may lie from the lightness at full saturation.
  auto reach = [](double Luma) { return std::min(Luma, 1 - Luma); };
  const double factor = highest > lowest ? reach(target) / reach(luma) : 0;
  TColor result = 0;
  for (int i = 0; i < 3; ++i) {
    const double channel = std::clamp(target + (channels[i] - luma) * factor, 0.0, 1.0);
    result |= static_cast<TColor>(std::lround(channel * 255)) << 8 * i;
  }
  return result;
}

}  // namespace vx
