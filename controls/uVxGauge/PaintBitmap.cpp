// The layers of a gauge as pixels.
#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "controls/uVxGauge/TVxPaintObject.h"
#include "platform/Clock.h"
#include "rendering/uBitmapX.h"

namespace vx {

namespace {

using TRow = std::vector<TRGB>;

// A channel between From and To; Part of Whole.
uint8_t Mixed(int From, int To, int Part, int Whole) noexcept {
  return static_cast<uint8_t>(From + (To - From) * Part / Whole);
}

TRGB MixedColor(TRGB From, TRGB To, int Part, int Whole) noexcept {
  return {Mixed(From.Red, To.Red, Part, Whole), Mixed(From.Green, To.Green, Part, Whole),
          Mixed(From.Blue, To.Blue, Part, Whole), 0};
}

TRGB PixelOf(TColor Color) noexcept {
  TRGB rgb;
  ConvertColorToRGB(Color, rgb);
  return rgb;
}

std::unique_ptr<TBitmapXWrite> PixelsOf(TBitmap& Bitmap) { return std::make_unique<TBitmap24>(&Bitmap); }

// How much of the full glow there is at each place of a band: none at its ends, kFull in the middle, smoothly between.
constexpr int kFull = 256;
std::vector<int> GlowBand(int Width) {
  std::vector<int> parts;
  parts.reserve(static_cast<size_t>(Width));
  for (int x = 0; x < Width; ++x) {
    const double near = 1 - std::abs((2.0 * x + 1) / Width - 1);
    parts.push_back(static_cast<int>(near * near * (3 - 2 * near) * kFull));
  }
  return parts;
}

}  // namespace

TColorArray GradientRamp(TColor First, TColor Second, TColor Third, int Count) {
  const TRGB stops[] = {PixelOf(ColorToRGB(First)), PixelOf(ColorToRGB(Second)), PixelOf(ColorToRGB(Third))};
  TColorArray ramp;
  ramp.reserve(static_cast<size_t>(std::max(Count, 0)));
  const int last = std::max(Count - 1, 1);
  for (int y = 0; y < Count; ++y) {
    const int64_t place = Count == 1 ? 1 : int64_t{2} * y;  // of 2 * last
    const bool isBelow = place >= last;
    const int part = static_cast<int>(isBelow ? place - last : place);
    // In 256ths, so that products stay small however high the gauge is.
    ramp.push_back(ConvertRGBToColor(
        MixedColor(stops[isBelow], stops[isBelow + 1], static_cast<int>(int64_t{part} * kFull / last), kFull)));
  }
  return ramp;
}

void PaintGradientToBitmap(TBitmap& Bitmap, const TColorArray& Ramp) {
  const auto width = static_cast<size_t>(Bitmap.GetWidth());
  const auto pixels = PixelsOf(Bitmap);
  for (int y = 0; y < std::min(Bitmap.GetHeight(), static_cast<int>(Ramp.size())); ++y) {
    pixels->SetRow(y, TRow(width, PixelOf(Ramp[static_cast<size_t>(y)])));
  }
}

void TVxPaintObject::CreateLayers() {
  for (auto* layer : {&ibmpbg, &ibmpGlowBg, &ibmpGlowProgress, &ibmpprogress, &ibufferbg, &ibufferprogress}) {
    if (!*layer) *layer = std::make_unique<TBitmap>(pf24bit, 0, 0);
  }
  if (!ibmpXglowBG) ibmpXglowBG = PixelsOf(*ibmpGlowBg);
  if (!ibmpXglowProgress) ibmpXglowProgress = PixelsOf(*ibmpGlowProgress);
}

TVxPaintObject::TLayerLook TVxPaintObject::GetLayerLook() const {
  return {{iPaintRect.Width(), iPaintRect.Height()},
          {iBgColorFirst, iBgColorSecond, iBgColorThird, iGaugeColorFirst, iGaugeColorSecond, iGaugeColorThird,
           iGlowColorFirst, iGlowColorSecond, iGlowColorThird},
          iGlowBrightness,
          iGlowColorActive};
}

TColorArray TVxPaintObject::PaintGlowColors(const TColorArray& Ramp) const {
  const auto height = static_cast<int>(Ramp.size());
  TColorArray glow = iGlowColorActive ? GradientRamp(iGlowColorFirst, iGlowColorSecond, iGlowColorThird, height) : Ramp;
  const auto lit = [this](uint8_t Channel) { return static_cast<uint8_t>(std::min(Channel + iGlowBrightness, 255)); };
  for (TColor& color : glow) {
    const TRGB rgb = PixelOf(color);
    color = ConvertRGBToColor({lit(rgb.Red), lit(rgb.Green), lit(rgb.Blue), 0});
  }
  return glow;
}

void TVxPaintObject::PaintLayers() {
  CreateLayers();
  const TLayerLook look = GetLayerLook();
  if (look == FLayerLook) return;
  FLayerLook = {};  // until all are painted
  icArrayBg = GradientRamp(iBgColorFirst, iBgColorSecond, iBgColorThird, look.Size.Y);
  icArrayGauge = GradientRamp(iGaugeColorFirst, iGaugeColorSecond, iGaugeColorThird, look.Size.Y);
  const auto paint = [&look](TBitmap& Layer, const TColorArray& Ramp) {
    SetBitmapDimension(Layer, pf24bit, look.Size.X, look.Size.Y);
    PaintGradientToBitmap(Layer, Ramp);
  };
  paint(*ibmpbg, icArrayBg);
  paint(*ibmpprogress, icArrayGauge);
  paint(*ibmpGlowBg, PaintGlowColors(icArrayBg));
  paint(*ibmpGlowProgress, PaintGlowColors(icArrayGauge));
  FLayerLook = look;
}

int TVxPaintObject::GetGlowWidth() const noexcept {
  return std::max(static_cast<int>(int64_t{iPaintRect.Width()} * iGlowWidthPercent / 100), 1);
}

int TVxPaintObject::GetGlowSteps() const noexcept {
  const int width = std::max(iPaintRect.Width(), 0), glow = GetGlowWidth();
  return iKITT ? std::max(2 * (width - glow), 1) : width + glow;
}

int TVxPaintObject::GetGlowPeriod() const noexcept {
  return static_cast<int>(std::min(int64_t{GetGlowSteps()} * iGlowDelay, int64_t{INT32_MAX}));
}

int TVxPaintObject::GetGlowLeft() const {
  const uint32_t elapsed = static_cast<uint32_t>(GetTickCount()) - static_cast<uint32_t>(iGlowTick);
  const int steps = GetGlowSteps();
  const auto step = static_cast<int>(elapsed / static_cast<uint32_t>(iGlowDelay) % static_cast<uint32_t>(steps));
  return iKITT ? std::min(step, steps - step) : step - GetGlowWidth();
}

void TVxPaintObject::PaintGlow(TBitmap& Bitmap, const TBitmapXWrite& Glow, int Left) const {
  const std::vector<int> band = GlowBand(GetGlowWidth());
  const int first = std::max(Left, 0), last = std::min(Left + static_cast<int>(band.size()), Bitmap.GetWidth());
  const auto pixels = PixelsOf(Bitmap);
  TRow row(static_cast<size_t>(std::max(last, 0))), glow(row.size());
  for (int y = 0; y < Bitmap.GetHeight(); ++y) {
    pixels->GetRow(y, row);
    Glow.GetRow(y, glow);
    for (int x = first; x < last; ++x) {
      const auto at = static_cast<size_t>(x);
      row[at] = MixedColor(row[at], glow[at], band[static_cast<size_t>(x - Left)], kFull);
    }
    pixels->SetRow(y, row);
  }
}

void TVxPaintObject::PaintBitmap(TBitmap& Bitmap) {
  if (iPaintRect.IsEmpty()) {
    SetBitmapDimension(Bitmap, pf24bit, 0, 0);
    return;
  }
  PaintLayers();
  *ibufferbg = *ibmpbg;
  *ibufferprogress = *ibmpprogress;
  if (GetGlowRunning()) {
    const int left = GetGlowLeft();
    PaintGlow(*ibufferbg, *ibmpXglowBG, left);
    PaintGlow(*ibufferprogress, *ibmpXglowProgress, left);
  }
  Bitmap = *ibufferbg;
  const int end = std::clamp(CalcBarEnd(iPaintRect.Width(), Values()), 0, iPaintRect.Width());
  if (end > 0) {
    const auto from = PixelsOf(*ibufferprogress), to = PixelsOf(Bitmap);
    TRow row(static_cast<size_t>(end));
    for (int y = 0; y < Bitmap.GetHeight(); ++y) {
      from->GetRow(y, row);
      to->SetRow(y, row);
    }
  }
  PaintText(Bitmap);
}

}  // namespace vx
