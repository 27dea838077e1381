// Progress gauges: a bar with a glow that runs along it, painted by the window's own thread or by one of its own, so
// that the bar moves even while a long job blocks the window.
//
//   TVxGauge                       the gauge of a window; gauges with the same group index show the same value
//   TVxPaintObject, TVxPaintValues the look and the value of a gauge, and its painting as pixels
//   TVxPaintObjectVcl              that of a TVxGauge
//   TVxPaintObjectThreadListed     one that the process's painter thread paints on and on
//   TVxPaintObjectThreadPainter    a snapshot for one painting
//   TVxGaugeThread                 the painter thread
//   TGaugeGroupList                the gauges that have a group index
//   TGaugeWindow                   what the painter thread needs of a window
//   SetTaskbarSink                 the desktop that shows a gauge's progress in its task bar
//
// Example:
//   void Import(std::shared_ptr<vx::TGaugeWindow> window, std::span<const vx::String> rows) {
//     vx::TVxGauge gauge(window);
//     gauge.SetBounds({10, 10, 310, 34});
//     gauge.SetMax(static_cast<vx::Extended>(rows.size()));
//     gauge.GetPaintObject().SetPercentShow(true);
//     gauge.SetThreadPainted(true);                 // the window's thread is busy from here on
//     for (const vx::String& row : rows) {
//       Store(row);
//       gauge.SetPosition(gauge.GetPosition() + 1);
//     }
//   }
//
// A gauge belongs to the thread of its window. Of all the rest only a TVxPaintObjectThreadListed is for several
// threads.
//
// Pitfalls:
//   - A step of less than a pixel is not painted until one is crossed or the glow moves, unless the caption is shown:
//     numbers that are shown without a caption or a glow stand still as long as the bar does.
//   - New limits leave the position where it is, also outside them. Limits that are no finite numbers are ignored.
//   - Text needs somebody who draws on bitmaps (platform/Drawing.h); a gauge without text needs nobody.
#pragma once

#include "controls/uVxGauge/GaugeTypes.h"
#include "controls/uVxGauge/TVxGauge.h"
#include "controls/uVxGauge/TVxGaugeThread.h"
#include "controls/uVxGauge/TVxPaintObject.h"
