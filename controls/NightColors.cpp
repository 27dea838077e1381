#include "controls/NightColors.h"

#include <algorithm>
#include <cmath>

namespace vx {
namespace {

// The share of light of each channel, from 0 to 1.
struct TLight {
  double Red, Green, Blue;
  double Luminance() const noexcept { return 0.2126 * Red + 0.7152 * Green + 0.0722 * Blue; }
};

double ChannelLight(unsigned Channel) noexcept {
  const double value = Channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

TLight LightOf(TColor Color) noexcept {
  const TColor rgb = ColorToRGB(Color);
  return {ChannelLight(rgb & 0xFF), ChannelLight(rgb >> 8 & 0xFF), ChannelLight(rgb >> 16 & 0xFF)};
}

TColor ColorOf(const TLight& Light) noexcept {
  const auto channel = [](double light) {
    const double value = light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
    return static_cast<TColor>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
  };
  return channel(Light.Red) | channel(Light.Green) << 8 | channel(Light.Blue) << 16;
}

// How light a colour looks, from 0 to 1, and the luminance that looks so.
double LightnessOf(double Luminance) noexcept {
  return (Luminance <= 0.008856 ? Luminance * 903.3 : 116 * std::cbrt(Luminance) - 16) / 100;
}
double LuminanceOf(double Lightness) noexcept {
  const double lightness = Lightness * 100;
  return lightness <= 8 ? lightness / 903.3 : std::pow((lightness + 16) / 116, 3);
}

// The colour of the same hue that is so light: darker by less of all, lighter by more white.
TColor WithLightness(const TLight& Light, double Lightness) noexcept {
  const double from = Light.Luminance(), to = LuminanceOf(std::clamp(Lightness, 0.0, 1.0));
  if (to <= from) {
    const double part = from > 0 ? to / from : 0;
    return ColorOf({Light.Red * part, Light.Green * part, Light.Blue * part});
  }
  const double white = (to - from) / (1 - from);
  const auto mix = [white](double light) { return light + (1 - light) * white; };
  return ColorOf({mix(Light.Red), mix(Light.Green), mix(Light.Blue)});
}

bool IsSystem(TColor Color) noexcept { return Color >> 24 == 0xFF; }

double WindowLightness() noexcept { return LightnessOf(LightOf(clWindow).Luminance()); }

}  // namespace

bool IsNight() noexcept { return LightOf(clWindow).Luminance() < LightOf(clWindowText).Luminance(); }

double ContrastOf(TColor A, TColor B) noexcept {
  const auto [low, high] = std::minmax({LightOf(A).Luminance(), LightOf(B).Luminance()});
  return (high + 0.05) / (low + 0.05);
}

TColor NightGround(TColor Color) noexcept {
  if (IsSystem(Color)) return ColorToRGB(Color);
  if (ColorToRGB(Color) == clWhite) return ColorToRGB(clWindow);
  const TLight light = LightOf(Color);
  const double lightness = LightnessOf(light.Luminance()), window = WindowLightness();
  constexpr double middle = 0.5, lightest = 0.4, tint = 0.2;
  if (lightness <= middle) return ColorToRGB(Color);
  // What has a hue is to be told from the window by it, and so a little lighter than what has none.
  const auto [least, most] = std::minmax({light.Red, light.Green, light.Blue});
  const double plain = window + (1 - lightness) / middle * std::max(lightest - window, 0.0);
  return WithLightness(light, std::min(plain + tint * (most - least) / most, std::max(lightest, plain)));
}

TColor NightLine(TColor Color) noexcept {
  if (IsSystem(Color)) return ColorToRGB(Color);
  const TLight light = LightOf(Color);
  const double window = WindowLightness();
  return WithLightness(light, window + (1 - LightnessOf(light.Luminance())) * (1 - window));
}

TColor NightText(TColor Color, TColor Ground) noexcept {
  const TColor line = NightLine(Color);
  if (ContrastOf(line, Ground) >= kTextContrast) return line;
  const TLight light = LightOf(line);
  const bool isLighter = ContrastOf(clWhite, Ground) >= ContrastOf(clBlack, Ground);
  double none = LightnessOf(light.Luminance()), enough = isLighter ? 1 : 0;
  for (int step = 0; step < 8; ++step) {
    const double middle = (none + enough) / 2;
    (ContrastOf(WithLightness(light, middle), Ground) >= kTextContrast ? enough : none) = middle;
  }
  return WithLightness(light, enough);
}

// --- the surface ---

TColor TNightDevice::Map(TUse Use, TColor Color, TColor Ground) noexcept {
  const size_t hash = (Color * 2654435761U ^ Ground * 40503U ^ Use) >> 7;
  TKnown& known = FKnown[hash % FKnown.size()];
  if (!known.IsSet || known.Color != Color || known.Ground != Ground || known.Use != Use) {
    const TColor night = Use == usGround ? NightGround(Color)
                         : Use == usLine ? NightLine(Color)
                                         : NightText(Color, Ground);
    known = {Color, Ground, night, Use, true};
  }
  return known.Night;
}

TPen TNightDevice::Map(TPen Pen) noexcept {
  Pen.Color = Map(usLine, Pen.Color);
  return Pen;
}

void TNightDevice::Note(const TRect& Rect, TColor Color) noexcept {
  FFilled[FNextFilled++ % FFilled.size()] = {Rect, Color};
}

void TNightDevice::Fill(const TRect& Rect, TColor Color) {
  const TColor night = Map(usGround, Color);
  Note(Rect, night);
  FDevice.Fill(Rect, night);
}

void TNightDevice::Frame(const TRect& Rect, const TPen& Pen) { FDevice.Frame(Rect, Map(Pen)); }

void TNightDevice::Line(TPoint From, TPoint To, const TPen& Pen) { FDevice.Line(From, To, Map(Pen)); }

void TNightDevice::Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  const TColor brush = Brush ? Map(usGround, *Brush) : 0;
  const TPen pen = Pen ? Map(*Pen) : TPen();
  if (Brush) Note(Rect, brush);
  FDevice.Ellipse(Rect, Brush ? &brush : nullptr, Pen ? &pen : nullptr);
}

void TNightDevice::Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) {
  TGradient night = Gradient;
  night.From = Map(usGround, Gradient.From);
  night.To = Map(usGround, Gradient.To);
  // Texts are held against the lighter end, which is the worse one for light texts.
  Note(Rect, ContrastOf(night.From, clWhite) < ContrastOf(night.To, clWhite) ? night.From : night.To);
  FDevice.Gradient(Rect, night, InEllipse);
}

void TNightDevice::Text(const TTextRun& Run) {
  // The newest ground at the place of the first letter.
  const int half = FDevice.Metrics().Ascent / 2;
  const TPoint at{Run.Origin.X + (Run.Upward ? -half : 1), Run.Origin.Y - (Run.Upward ? 1 : half)};
  TColor ground = ColorToRGB(clWindow);
  for (size_t i = 0; i < FFilled.size(); ++i) {
    const TFilled& filled = FFilled[(FNextFilled + FFilled.size() - 1 - i) % FFilled.size()];
    const TRect& rect = filled.Rect;
    if (at.X < rect.Left || at.X >= rect.Right || at.Y < rect.Top || at.Y >= rect.Bottom) continue;
    ground = filled.Color;
    break;
  }
  TTextRun run = Run;
  run.Color = Map(usText, Run.Color, ground);
  FDevice.Text(run);
}

}  // namespace vx
