// A stranger's program that draws: a text on a bitmap. Exit status 0 if it left its colour there.
#include <cstdio>

#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#include "platform/cairo/CairoDrawing.h"

int main() {
  vx::InstallDrawing();
  vx::TBitmap bitmap(vx::pf24bit, 100, 20);
  bitmap.GetCanvas().TextOut(2, 2, u"Müller, שרה");
  int dark = 0;
  for (int y = 0; y < bitmap.GetHeight(); ++y) {
    for (int x = 0; x < bitmap.GetWidth(); ++x) dark += bitmap.GetScanline(y)[3 * x] < 100;
  }
  std::printf("%d dark pixels\n", dark);
  return dark > 50 ? 0 : 1;
}
