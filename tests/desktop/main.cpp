#include <gtest/gtest.h>

#include <QApplication>

#include "platform/cairo/CairoDrawing.h"

// What fontconfig keeps for the whole program is no leak of ours.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  vx::InstallDrawing();
  return RUN_ALL_TESTS();
}
