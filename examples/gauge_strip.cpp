// Draws progress gauges frame by frame, as they look over one round of their glow, and saves the strip as a picture:
//
//   gauge_strip PICTURE [FRAMES]
//
// From left to right: the plain gauge; one with a glow in colours of its own that swings between both ends; one with
// a caption; one with its numbers in the middle. From top to bottom: one frame after the other.
#include <cstdio>
#include <memory>
#include <vector>

#include "controls/uVxGauge.h"
#include "platform/Clock.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"

namespace {

constexpr int kWidth = 200, kHeight = 24, kGap = 6;

using TGauges = std::vector<std::unique_ptr<vx::TVxPaintObjectData>>;

TGauges MakeGauges() {
  TGauges gauges;
  for (int i = 0; i < 4; ++i) {
    vx::TVxPaintObject& gauge = *gauges.emplace_back(std::make_unique<vx::TVxPaintObjectData>());
    gauge.SetPaintRect({0, 0, kWidth, kHeight});
    gauge.SetValues(40, 0, 25);
    gauge.SetCaptionMargin(6);
    vx::TFont font;
    font.Size = 9;
    gauge.SetFont(font);
  }
  vx::TVxPaintObject &swinging = *gauges[1], &captioned = *gauges[2], &counting = *gauges[3];
  swinging.SetKITT(true);
  swinging.SetGlowColorActive(true);
  swinging.SetGlowColorFirst(0x00C0C0FF);
  swinging.SetGlowColorSecond(0x002020E0);
  swinging.SetGlowColorThird(0x004040FF);
  swinging.SetGlowBrightness(0);
  swinging.SetGlowWidthPercent(25);
  captioned.SetCaption(u"Abrechnung für März wird erstellt, bitte warten");
  captioned.SetCaptionShow(true);
  counting.SetPercentShow(true);
  counting.SetValueShow(true);
  counting.SetCaptionAlignment(vx::taCenter);
  counting.SetGaugeColorFirst(0x00E0B080);
  counting.SetGaugeColorSecond(0x00A05010);
  counting.SetGaugeColorThird(0x00B86820);
  counting.SetCaptionShadow(true);
  counting.SetCaptionShadowColor(vx::clBlack);
  vx::TFont font = counting.GetFont();
  font.Color = vx::clWhite;
  font.Style = {vx::fsBold};
  counting.SetFont(font);
  return gauges;
}

void SaveStrip(const vx::String& Filename, int Frames) {
  vx::TManualClock clock(46000);
  const vx::TClockScope scope(clock);
  const TGauges gauges = MakeGauges();
  const int period = gauges[0]->GetGlowPeriod();
  vx::TBitmap strip(vx::pf24bit, static_cast<int>(gauges.size()) * (kWidth + kGap) + kGap,
                    Frames * (kHeight + kGap) + kGap);
  strip.GetCanvas().SetBrush({vx::clBtnFace});
  strip.GetCanvas().FillRect({0, 0, strip.GetWidth(), strip.GetHeight()});
  for (int frame = 0; frame < Frames; ++frame) {
    vx::TBitmap picture;
    for (size_t i = 0; i < gauges.size(); ++i) {
      gauges[i]->PaintBitmap(picture);
      strip.GetCanvas().Draw(kGap + static_cast<int>(i) * (kWidth + kGap), kGap + frame * (kHeight + kGap), picture);
    }
    clock.Advance(period * (frame + 1) / Frames - period * frame / Frames);
  }
  strip.SaveToFile(Filename);
  std::printf("%d frames of %zu gauges over %d ms\n", Frames, gauges.size(), period);
}

}  // namespace

int main(int argc, char** argv) {
  const int frames = argc > 2 ? vx::StrToIntDef(vx::String::FromUtf8(argv[2]), 0) : 16;
  if (argc < 2 || frames < 1 || frames > 1000) {
    std::fprintf(stderr, "usage: gauge_strip PICTURE [FRAMES]; FRAMES from 1 to 1000\n");
    return 2;
  }
  vx::InstallDrawing();
  try {
    SaveStrip(vx::String::FromUtf8(argv[1]), frames);
  } catch (const vx::Exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
}
