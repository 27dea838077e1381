#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QToolTip>

#include "desktop/QtValues.h"
#include "desktop/detail/DesktopServices.h"
#include "platform/Drawing.h"

namespace vx::detail {

namespace {

TDesktopColors PresentColors() {
  TDesktopColors colors;
  for (size_t i = 0; i < colors.size(); ++i) colors[i] = ColorToRGB(clScrollBar + static_cast<TColor>(i));
  return colors;
}

void FollowScreen() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  SetScreenPixelsPerInch({qRound(screen->logicalDotsPerInchX()), qRound(screen->logicalDotsPerInchY())});
}

}  // namespace

TDesktopColors ColorsOf(const QPalette& Palette) {
  const struct {
    TColor Color;
    QPalette::ColorRole Role;
    QPalette::ColorGroup Group = QPalette::Active;
  } roles[] = {{clScrollBar, QPalette::Midlight},
               {clBackground, QPalette::Dark},
               {clActiveCaption, QPalette::Highlight},
               {clInactiveCaption, QPalette::Midlight},
               {clMenu, QPalette::Window},
               {clWindow, QPalette::Base},
               {clWindowFrame, QPalette::Shadow},
               {clMenuText, QPalette::WindowText},
               {clWindowText, QPalette::Text},
               {clCaptionText, QPalette::HighlightedText},
               {clActiveBorder, QPalette::Mid},
               {clInactiveBorder, QPalette::Midlight},
               {clAppWorkSpace, QPalette::Mid},
               {clHighlight, QPalette::Highlight},
               {clHighlightText, QPalette::HighlightedText},
               {clBtnFace, QPalette::Button},
               {clBtnShadow, QPalette::Mid},
               {clGrayText, QPalette::Text, QPalette::Disabled},
               {clBtnText, QPalette::ButtonText},
               {clInactiveCaptionText, QPalette::WindowText},
               {clBtnHighlight, QPalette::Light},
               {cl3DDkShadow, QPalette::Dark},
               {cl3DLight, QPalette::Midlight},
               {clHotLight, QPalette::Link},
               {clGradientActiveCaption, QPalette::Highlight},
               {clGradientInactiveCaption, QPalette::Midlight},
               {clMenuHighlight, QPalette::Highlight},
               {clMenuBar, QPalette::Window}};
  TDesktopColors colors = PresentColors();
  for (const auto& role : roles) {
    colors[role.Color - clScrollBar] = ColorFromQt(Palette.color(role.Group, role.Role));
  }
  const QPalette tips = QToolTip::palette();
  colors[clInfoBk - clScrollBar] = ColorFromQt(tips.color(QPalette::ToolTipBase));
  colors[clInfoText - clScrollBar] = ColorFromQt(tips.color(QPalette::ToolTipText));
  return colors;
}

TDesktopLook::TDesktopLook() : FColors(PresentColors()), FPixelsPerInch(GetScreenPixelsPerInch()) {
  SetSystemColors(ColorsOf(QApplication::palette()));
  FollowScreen();
  qApp->installEventFilter(this);
  const auto follow = [this] {
    FollowScreen();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
      connect(screen, &QScreen::logicalDotsPerInchChanged, this, &FollowScreen, Qt::UniqueConnection);
    }
  };
  connect(qApp, &QGuiApplication::primaryScreenChanged, this, follow);
}

TDesktopLook::~TDesktopLook() {
  SetSystemColors(FColors);
  SetScreenPixelsPerInch(FPixelsPerInch);
}

// Comes before any widget hears of the new palette.
bool TDesktopLook::eventFilter(QObject* Object, QEvent* Event) {
  if (Object == qApp && Event->type() == QEvent::ApplicationPaletteChange) {
    SetSystemColors(ColorsOf(QApplication::palette()));
  }
  return QObject::eventFilter(Object, Event);
}

}  // namespace vx::detail
