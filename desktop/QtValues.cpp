#include "desktop/QtValues.h"

namespace vx {

QString ToQt(std::u16string_view Text) {
  return QString(reinterpret_cast<const QChar*>(Text.data()), static_cast<qsizetype>(Text.size()));
}

String FromQt(const QString& Text) {
  return std::u16string_view(reinterpret_cast<const char16_t*>(Text.utf16()), static_cast<size_t>(Text.size()));
}

QColor ColorToQt(TColor Color) noexcept {
  const TColor rgb = ColorToRGB(Color);
  return {static_cast<int>(rgb & 0xFF), static_cast<int>(rgb >> 8 & 0xFF), static_cast<int>(rgb >> 16 & 0xFF)};
}

TColor ColorFromQt(const QColor& Color) noexcept {
  return static_cast<TColor>(Color.red() | Color.green() << 8 | Color.blue() << 16);
}

TMouseButton FromQt(Qt::MouseButton Button) noexcept {
  if (Button == Qt::LeftButton) return mbLeft;
  return Button == Qt::RightButton ? mbRight : mbMiddle;
}

TShiftState FromQt(Qt::KeyboardModifiers Modifiers, Qt::MouseButtons Buttons) noexcept {
  TShiftState state;
  if (Modifiers & Qt::ShiftModifier) state.Include(ssShift);
  if (Modifiers & Qt::AltModifier) state.Include(ssAlt);
  if (Modifiers & Qt::ControlModifier) state.Include(ssCtrl);
  if (Buttons & Qt::LeftButton) state.Include(ssLeft);
  if (Buttons & Qt::RightButton) state.Include(ssRight);
  if (Buttons & Qt::MiddleButton) state.Include(ssMiddle);
  return state;
}

uint16_t KeyFromQt(int Key) noexcept {
  switch (Key) {
    case Qt::Key_Backspace:
      return vkBack;
    case Qt::Key_Tab:
      return vkTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return vkReturn;
    case Qt::Key_Escape:
      return vkEscape;
    case Qt::Key_Space:
      return vkSpace;
    case Qt::Key_PageUp:
      return vkPrior;
    case Qt::Key_PageDown:
      return vkNext;
    case Qt::Key_End:
      return vkEnd;
    case Qt::Key_Home:
      return vkHome;
    case Qt::Key_Left:
      return vkLeft;
    case Qt::Key_Up:
      return vkUp;
    case Qt::Key_Right:
      return vkRight;
    case Qt::Key_Down:
      return vkDown;
    case Qt::Key_Delete:
      return vkDelete;
    case Qt::Key_A:
      return vkA;
    case Qt::Key_F2:
      return vkF2;
    case Qt::Key_F3:
      return vkF3;
    default:
      return 0;
  }
}

}  // namespace vx
