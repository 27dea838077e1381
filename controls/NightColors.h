// Told colours on a dark desktop: what was chosen for paper becomes what fits to a dark window.
//
//   NightGround, NightLine, NightText   one colour
//   TNightDevice                        a surface that paints so on another one
//
// Example:
//   vx::TBitmap bitmap(vx::pf32bit, 640, 480);
//   vx::TCanvas canvas(std::make_unique<vx::TNightDevice>(bitmap.GetCanvas().GetDevice()));
//   canvas.SetBrush({vx::clWhite});
//   canvas.FillRect({0, 0, 90, 20});                      // in the colour of windows
//   canvas.TextOut(2, 2, u"Müller");                      // can be read on whatever stands there
//
// System colours are the desktop's and stay as they are, but for texts that could not be read. Pictures stay, too.
// Pitfall: a text is held against the ground that the last few fills have left at its place; what else is there, such
// as a picture, is not known.
#pragma once

#include <array>

#include "platform/TCanvasDevice.h"

namespace vx {

// The desktop's windows are darker than their texts.
bool IsNight() noexcept;

// By WCAG: from 1 for no contrast to 21.
double ContrastOf(TColor A, TColor B) noexcept;
// Contrast that a text has at least.
inline constexpr double kTextContrast = 4.5;

// All give 0x00BBGGRR. A light ground becomes a dark one of its hue, white that of windows; a dark one stays.
TColor NightGround(TColor Color) noexcept;
// What is dark becomes light, and the other way round.
TColor NightLine(TColor Color) noexcept;
// As a line, and lighter or darker as far as it takes to be read on Ground, a colour as it is seen.
TColor NightText(TColor Color, TColor Ground) noexcept;

// Not for longer than the device that it paints on, which is not owned.
class TNightDevice final : public TCanvasDevice {
 public:
  explicit TNightDevice(TCanvasDevice& Device) noexcept : FDevice(Device) {}

  TDeviceKind Kind() const noexcept override { return FDevice.Kind(); }
  TPoint PixelsPerInch() const noexcept override { return FDevice.PixelsPerInch(); }
  TRect Bounds() const noexcept override { return FDevice.Bounds(); }
  void SetClip(const TRect* Clip, double Scale) noexcept override { FDevice.SetClip(Clip, Scale); }
  void Fill(const TRect& Rect, TColor Color) override;
  void Frame(const TRect& Rect, const TPen& Pen) override;
  void Line(TPoint From, TPoint To, const TPen& Pen) override;
  void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) override;
  void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) override;
  void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) override {
    FDevice.Picture(Rect, Bitmap, Source, Transparent);
  }
  void SetFont(const TFont& Font) override { FDevice.SetFont(Font); }
  TFontMetrics Metrics() override { return FDevice.Metrics(); }
  int TextWidth(std::u16string_view Text) override { return FDevice.TextWidth(Text); }
  int Advance(char16_t Unit) override { return FDevice.Advance(Unit); }
  void Text(const TTextRun& Run) override;

 private:
  enum TUse : uint8_t { usGround, usLine, usText };
  struct TKnown {
    TColor Color = 0, Ground = 0, Night = 0;
    TUse Use = usGround;
    bool IsSet = false;
  };
  struct TFilled {
    TRect Rect;
    TColor Color = 0;
  };
  TColor Map(TUse Use, TColor Color, TColor Ground = 0) noexcept;
  TPen Map(TPen Pen) noexcept;
  void Note(const TRect& Rect, TColor Color) noexcept;

  TCanvasDevice& FDevice;
  std::array<TKnown, 64> FKnown;   // colours met last
  std::array<TFilled, 8> FFilled;  // grounds painted last
  size_t FNextFilled = 0;
};

}  // namespace vx
