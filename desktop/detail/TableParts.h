// The inner parts of TTableWidget: what it shows (TTableScene, TTablePainter, TTablePicture) and what the mouse does
// on heads and on cells.
#pragma once

#include <QPoint>

#include "controls/TablePainter.h"
#include "controls/TableScene.h"
#include "desktop/TTableWidget.h"
#include "desktop/detail/TableEditing.h"
#include "desktop/detail/TablePicture.h"
#include "platform/TControl.h"

class QHelpEvent;
class QMouseEvent;
class QPaintEvent;

namespace vx::detail {

class TTableParts;

// Sorting, widths, and moving of columns by the mouse on the fixed rows at the top.
class TTableHead {
 public:
  explicit TTableHead(TTableParts& Parts) noexcept : FParts(Parts) {}
  // Whether the event is one of the head and dealt with.
  bool Press(const QMouseEvent& Event);
  bool Move(const QMouseEvent& Event);
  bool Release(const QMouseEvent& Event);
  bool DoubleClick(const QMouseEvent& Event);
  // The right button, at a place of the viewport.
  void Menu(QPoint Place, bool WantsColumns);
  // Where a dragged column would go, drawn over the picture.
  void Show(QPainter& Painter) const;
  void Forget() noexcept { FState = hsIdle; }
  // As a click of the left button on the column's head, or of the right one.
  void SortBy(int Col, bool OffersGrouping);

 private:
  void Click(TPoint Cell, TMouseButton Button, QPoint Place);
  enum TState { hsIdle, hsPressed, hsSizing, hsMoving };
  // The column whose right edge is near, -1 for none.
  int EdgeAt(QPoint Place) const;
  bool IsHead(QPoint Place) const;
  void MoveTo(int X);
  void Drop();

  TTableParts& FParts;
  TState FState = hsIdle;
  TPoint FCell;      // that was pressed, or whose column is sized
  QPoint FStart;     // where
  int FWidth = 0;    // of the column then
  int FTarget = -1;  // the place before which a moved column goes
};

// Buttons, hover and tool tips.
class TTableMouse {
 public:
  explicit TTableMouse(TTableParts& Parts) noexcept : FParts(Parts) {}
  void Press(const QMouseEvent& Event);
  void Move(QPoint Place);
  void Release(const QMouseEvent& Event);
  void Leave();
  bool ToolTip(const QHelpEvent& Event);
  // Under the mouse, and pressed.
  TPoint GetHot() const noexcept { return FHot; }
  TPoint GetPressed() const noexcept { return FPressed; }
  void SetPressed(TPoint Value);
  void Forget() noexcept { FHot = FPressed = {-1, -1}; }

 private:
  bool IsButton(TPoint Cell) const;
  String TipOf(TPoint Cell) const;

  TTableParts& FParts;
  TPoint FHot{-1, -1}, FPressed{-1, -1};
};

class TTableParts {
 public:
  explicit TTableParts(TTableWidget& Owner)
      : Widget(Owner), Painter(Scene), Head(*this), Mouse(*this), Editing(*this) {}

  bool HasCell(TPoint Cell) const;
  // In step with the table, and the scroll bars with both.
  void Sync();
  void UpdateBars();
  // To be painted anew: everything, or a cell with its surroundings.
  void Invalidate();
  void InvalidateCell(TPoint Cell);
  void InvalidateRow(int Row);
  // Widths or order of columns have changed.
  void LayoutChanged();
  void Scrolled(int DX, int DY);
  void Paint(const QPaintEvent& Event);
  TGridDrawStates StatesOf(int Col, int Row) const;
  // The control that the library asks for the place of the mouse, with that place.
  TControl& ControlAt(QPoint Place);
  // The text that stands for missing rows; empty while there are some.
  String Note() const;

  TTableWidget& Widget;
  TTableScene Scene;
  TTablePainter Painter;
  TTablePicture Picture;
  TTableHead Head;
  TTableMouse Mouse;
  TTableEditing Editing;
  TControl Control;
  TPoint Current{-1, -1};
  bool ShowHover = true;
  String EmptyText = u"Keine Zeilen";
};

}  // namespace vx::detail
