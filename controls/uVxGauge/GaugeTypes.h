// What gauges share: windows, values, and the task bar.
//
// Example:
//   vx::SetTaskbarSink([](const vx::TTaskbarProgress& progress) {
//     ShowInTaskbar(progress.Shown ? progress.Percent : -1);
//   });
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Graphics.h"
#include "platform/Types.h"

namespace vx {

class TBitmap;

// Milliseconds that the glow needs for a pixel, 1 to 1000.
using TGlowDelay = int;
// Per cent of the gauge's width that the glow takes, 1 to 100.
using TGlowWidthPercent = int;

enum TVxGaugeGlowState : uint8_t {
  ggsOff,
  ggsAuto,  // runs while the position is between the limits and on neither of them
  ggsOn
};

// A ramp of colours, as many as the gauge is high, the topmost first.
using TColorArray = std::vector<TColor>;

struct TGaugeValues {
  Extended Max = 100;
  Extended Min = 0;
  Extended Position = 0;
  friend bool operator==(const TGaugeValues&, const TGaugeValues&) noexcept = default;
};

// A window that the painter thread paints gauges into. Whoever paints shares it: it may go as soon as the last gauge
// that has it is gone or has another one, and a painting that is under way has ended, in whichever thread that is.
class TGaugeWindow {
 public:
  virtual ~TGaugeWindow() = default;

  // Called by any thread, the first one under the painter's locks. Neither may wait for the window's thread, which may
  // be waiting for the painter, nor make or free what the painter paints.
  //
  // Whether there is anything to see of the window.
  virtual bool IsWindowVisible() = 0;
  // Puts Picture with its top left pixel at (X, Y) of the window; false if nothing can be put there at present. What it
  // raises passes through whoever paints.
  virtual bool BitBlt(int X, int Y, const TBitmap& Picture) = 0;
};

// What the task bar is to show for a window; not Shown: nothing any more.
struct TTaskbarProgress {
  std::shared_ptr<TGaugeWindow> Window;
  bool Shown = false;
  int Percent = 0;  // 0 to 100
};
using TTaskbarSink = std::function<void(const TTaskbarProgress& Progress)>;
// Sets who is told and returns who was told before; empty at first: nobody. A sink raises nothing.
TTaskbarSink SetTaskbarSink(TTaskbarSink Sink);
void ShowTaskbarProgress(const TTaskbarProgress& Progress);

}  // namespace vx
