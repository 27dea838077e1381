// The library's values as Qt has them, and back.
//
//   ToQt, FromQt              texts, places, rectangles; buttons and what is held down with them from Qt alone
//   ColorToQt, ColorFromQt    colours
//   KeyFromQt                 keys
//
// Example:
//   QLabel label(vx::ToQt(table.GetCell(1, 2)));
//   table.SetCell(1, 2, vx::FromQt(edit.text()));
//
// Texts are copied unit by unit and come back as they were, half a pair included. For any thread.
#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>
#include <cstdint>
#include <string_view>

#include "platform/Graphics.h"
#include "platform/Keys.h"
#include "platform/Mouse.h"
#include "platform/String.h"

namespace vx {

QString ToQt(std::u16string_view Text);
String FromQt(const QString& Text);

// System colours by the table of the library (SetSystemColors).
QColor ColorToQt(TColor Color) noexcept;
TColor ColorFromQt(const QColor& Color) noexcept;

inline QPoint ToQt(TPoint Place) noexcept { return {Place.X, Place.Y}; }
inline TPoint FromQt(QPoint Place) noexcept { return {Place.x(), Place.y()}; }
// Right and Bottom are behind the rectangle; Qt counts sizes.
inline QRect ToQt(const TRect& Rect) noexcept { return {Rect.Left, Rect.Top, Rect.Width(), Rect.Height()}; }
inline TRect FromQt(const QRect& Rect) noexcept {
  return {Rect.x(), Rect.y(), Rect.x() + Rect.width(), Rect.y() + Rect.height()};
}

// Any other button than the left and the right one is mbMiddle.
TMouseButton FromQt(Qt::MouseButton Button) noexcept;
TShiftState FromQt(Qt::KeyboardModifiers Modifiers, Qt::MouseButtons Buttons = Qt::NoButton) noexcept;
// vkUp and so on by Qt's number of a key (Qt::Key); 0 for a key that the library does not know.
uint16_t KeyFromQt(int Key) noexcept;

}  // namespace vx
