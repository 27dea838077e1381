// vxview: shows, filters, sorts and changes table files in a window.
#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <cstdlib>

#include "desktop/InstallDesktop.h"
#include "desktop/QtValues.h"
#include "platform/Paths.h"
#include "tools/vxview/TViewerWindow.h"

namespace {

// Qt ends the program by itself where no screen can be had, and tells it in a way that nobody understands.
bool HasScreen() {
  const auto isSet = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

}  // namespace

int main(int argc, char** argv) {
  if (!HasScreen()) {
    std::fputs("vxview: kein Bildschirm: weder DISPLAY noch WAYLAND_DISPLAY ist gesetzt\n", stderr);
    return 1;
  }
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("vxview"));
  QApplication::setApplicationVersion(QStringLiteral(VX_VERSION));
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Zeigt, filtert, sortiert und ändert Tabellen."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("DATEI"), QStringLiteral("die Tabelle"), QStringLiteral("[DATEI]"));
  const QCommandLineOption picture(QStringLiteral("picture"),
                                   QStringLiteral("Legt ein Bild des Fensters ab und endet."), QStringLiteral("BILD"));
  parser.addOption(picture);
  const QCommandLineOption settings(QStringLiteral("settings"),
                                    QStringLiteral("Wo steht, was sich das Programm merkt."), QStringLiteral("INI"));
  parser.addOption(settings);
  parser.process(application);
  vx::InstallDesktop();
  vx::vxview::TViewerWindow window(parser.isSet(settings) ? vx::FromQt(parser.value(settings))
                                                          : vx::vxview::TViewerSettings::DefaultPath());
  if (parser.isSet(picture)) {
    QObject::connect(&window, &vx::vxview::TViewerWindow::Settled, [&] {
      QTimer::singleShot(300, [&] { QApplication::exit(window.grab().save(parser.value(picture)) ? 0 : 1); });
    });
  }
  window.show();
  if (!parser.positionalArguments().isEmpty()) window.Open(vx::FromQt(parser.positionalArguments()[0]));
  return QApplication::exec();
}
