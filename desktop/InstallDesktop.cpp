#include "desktop/InstallDesktop.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

#include "desktop/detail/DesktopServices.h"
#include "platform/cairo/CairoDrawing.h"

namespace vx {

namespace {

struct TInstalled {
  TInstalled() : DrawingBefore(SetDrawingBackend(nullptr)) {
    InstallDrawing();
    const QString texts = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (Texts.load(QLocale(QLocale::German), QStringLiteral("qtbase"), QStringLiteral("_"), texts)) {
      QCoreApplication::installTranslator(&Texts);
    }
  }
  ~TInstalled() { SetDrawingBackend(DrawingBefore); }
  TInstalled(const TInstalled&) = delete;
  TInstalled& operator=(const TInstalled&) = delete;

  std::shared_ptr<TDrawingBackend> DrawingBefore;
  QTranslator Texts;
  detail::TDesktopLook Look;
  detail::TDesktopDialogs Dialogs;
  detail::TMainLoop Loop;
};

std::unique_ptr<TInstalled>& Installed() {
  static std::unique_ptr<TInstalled> installed;
  return installed;
}

}  // namespace

void InstallDesktop() {
  if (Installed() != nullptr) return;
  Installed() = std::make_unique<TInstalled>();
  qAddPostRoutine([] { Installed().reset(); });
}

}  // namespace vx
