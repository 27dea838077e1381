// The parts of InstallDesktop. Each takes its service over as long as it lives.
#pragma once

#include <QObject>
#include <array>
#include <functional>
#include <memory>

#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/Graphics.h"
#include "platform/TPopupMenu.h"

class QPalette;

namespace vx::detail {

class TDesktopDialogs {
 public:
  TDesktopDialogs();
  ~TDesktopDialogs();
  TDesktopDialogs(const TDesktopDialogs&) = delete;
  TDesktopDialogs& operator=(const TDesktopDialogs&) = delete;

 private:
  TDialogSink FDialogs;
  TTaskDialogSink FTaskDialogs;
  TShowPopup FPopups;
  TSelectDirectory FDirectories;
};

// The queue of the main thread on Qt's events.
class TMainLoop {
 public:
  TMainLoop();
  ~TMainLoop();
  TMainLoop(const TMainLoop&) = delete;
  TMainLoop& operator=(const TMainLoop&) = delete;

 private:
  class TReceiver;
  std::shared_ptr<TReceiver> FReceiver;
  std::function<void()> FPrevious;
};

using TDesktopColors = std::array<TColor, SystemColorCount>;
// What a palette has for the library's system colours.
TDesktopColors ColorsOf(const QPalette& Palette);

// Colours and pixels per inch, followed.
class TDesktopLook : public QObject {
 public:
  TDesktopLook();
  ~TDesktopLook() override;

 protected:
  bool eventFilter(QObject* Object, QEvent* Event) override;

 private:
  TDesktopColors FColors;
  TPoint FPixelsPerInch;
};

}  // namespace vx::detail
