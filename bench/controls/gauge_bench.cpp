// Progress gauges.
#include "bench/controls/Topic.h"
#include "bench/support/Bench.h"
#include "controls/uVxGauge.h"

namespace vx::bench {
namespace {

// Short rounds, so that most of them are not interrupted.
constexpr int kCount = 10000, kRounds = 101;
constexpr TBar kMostOfAStep = TBar::AtMost(50);

struct THiddenWindow : TGaugeWindow {
  bool IsWindowVisible() override { return false; }
  bool BitBlt(int, int, const TBitmap&) override { return true; }
};

// Steps of a job of a milliard, of which none is seen.
template <typename TGauge>
void RunSteps(const char* What, TGauge& Gauge) {
  Gauge.SetValues(1e9L, 0, 1);
  Gauge.SetPaintRect({0, 0, 100, 20});
  int position = 1;
  const double seconds = Medians(kRounds, [&] {
    return Time([&] {
      for (int i = 0; i < kCount; ++i) Gauge.SetPosition(++position);
    });
  })[0];
  Expect(Gauge.GetPosition() == position && position > kCount * kRounds, "the position of a gauge");
  ReportOurs(What, seconds, kCount, kMostOfAStep);
}

void RunGauges() {
  TVxPaintObjectData plain;
  RunSteps("gauge_step", plain);
  TVxPaintObjectThreadListed listed;
  RunSteps("gauge_step_listed", listed);
  TVxGauge gauge;
  RunSteps("gauge_step_of_window", gauge);

  listed.SethParent(std::make_shared<THiddenWindow>());
  const double idle = Medians(kRounds, [&listed] {
    return Time([&listed] {
      for (int i = 0; i < kCount; ++i) Expect(listed.GetPainter() == nullptr, "an idle gauge");
    });
  })[0];
  ReportOurs("gauge_idle", idle, kCount);

  constexpr int kFrames = 10;
  TBitmap bitmap;
  plain.SetPaintRect({0, 0, 300, 24});
  plain.SetPosition(6e8L);
  const double frames = Medians(kRounds, [&] {
    return Time([&] {
      for (int i = 0; i < kFrames; ++i) plain.PaintBitmap(bitmap);
    });
  })[0];
  Expect(bitmap.GetWidth() == 300, "a frame");
  ReportOurs("gauge_frame_300x24", frames, kFrames);
}

const TTopic topic("gauge", RunGauges);

}  // namespace
}  // namespace vx::bench
