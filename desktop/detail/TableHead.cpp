// What the mouse does on the head of a table.
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/QtValues.h"
#include "desktop/detail/TableParts.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx::detail {
namespace {

constexpr int kNear = 4;  // pixels around an edge
constexpr int kLeastWidth = 8;

}  // namespace

bool TTableHead::IsHead(QPoint Place) const { return FParts.Scene.IsHead(FParts.Scene.CellAt(FromQt(Place)).Y); }

int TTableHead::EdgeAt(QPoint Place) const {
  if (!IsHead(Place)) return -1;
  const TTableScene& scene = FParts.Scene;
  for (const int x : {Place.x() - kNear, Place.x() + kNear}) {
    const TPoint cell = scene.CellAt({std::max(x, 0), Place.y()});
    if (cell.X >= 0 && std::abs(scene.CellRect(cell.X, cell.Y).Right - Place.x()) <= kNear) return cell.X;
  }
  return -1;
}

bool TTableHead::Press(const QMouseEvent& Event) {
  const QPoint place = Event.position().toPoint();
  if (!IsHead(place)) return false;
  if (Event.button() != Qt::LeftButton) return true;
  FStart = place;
  FTarget = -1;
  const int edge = EdgeAt(place);
  FCell = edge >= 0 ? TPoint{edge, 0} : FParts.Scene.CellAt(FromQt(place));
  FState = edge >= 0 ? hsSizing : FCell.X >= 0 ? hsPressed : hsIdle;
  FWidth = FParts.Scene.Columns().GetWidth(FCell.X);
  if (FState == hsPressed) FParts.Mouse.SetPressed(FCell);
  return true;
}

bool TTableHead::Move(const QMouseEvent& Event) {
  const QPoint place = Event.position().toPoint();
  if (FState == hsIdle) {
    const bool isEdge = Event.buttons() == Qt::NoButton && EdgeAt(place) >= 0;
    FParts.Widget.viewport()->setCursor(isEdge ? Qt::SplitHCursor : Qt::ArrowCursor);
    return isEdge;
  }
  if (FState == hsSizing) {
    FParts.Widget.SetColumnWidth(FCell.X, std::max(FWidth + place.x() - FStart.x(), kLeastWidth));
    return true;
  }
  const TAxisView cols = FParts.Scene.ColsView();
  const bool canMove = cols.ZoneOf(FParts.Scene.Columns().PlaceOf(FCell.X)) == TAxisView::zoMiddle;
  if (FState == hsPressed && canMove && std::abs(place.x() - FStart.x()) >= QApplication::startDragDistance()) {
    FState = hsMoving;
    FParts.Mouse.SetPressed({-1, -1});
    FParts.Widget.viewport()->setCursor(Qt::ClosedHandCursor);
  }
  if (FState == hsMoving) MoveTo(place.x());
  return true;
}

// The gap between columns that is next to X; at the border of what scrolls it scrolls.
void TTableHead::MoveTo(int X) {
  TTableScene& scene = FParts.Scene;
  const TRect middle = scene.MiddleRect();
  QScrollBar& bar = *FParts.Widget.horizontalScrollBar();
  if (X > middle.Right - 16) bar.setValue(bar.value() + 16);
  if (X < middle.Left + 16) bar.setValue(bar.value() - 16);
  const TAxisView cols = scene.ColsView();
  const int x = std::clamp(X, middle.Left, std::max(std::min(middle.Right, scene.End().X) - 1, middle.Left));
  const int place = cols.At(x);
  if (place < 0) return;
  FTarget = place + (x - cols.PlaceOf(place) > scene.Columns().GetAxis().GetSize(place) / 2 ? 1 : 0);
  FParts.Widget.viewport()->update();
}

void TTableHead::Drop() {
  const int from = FParts.Scene.Columns().PlaceOf(FCell.X);
  if (FTarget < 0) return;
  FParts.Widget.SetColumnPlace(FCell.X, FTarget > from ? FTarget - 1 : FTarget);
}

bool TTableHead::Release(const QMouseEvent& Event) {
  if (Event.button() != Qt::LeftButton || FState == hsIdle) return false;
  const TState state = std::exchange(FState, hsIdle);
  const TPoint cell = FParts.Scene.CellAt(FromQt(Event.position().toPoint()));
  FParts.Mouse.SetPressed({-1, -1});
  FParts.Widget.viewport()->unsetCursor();
  if (state == hsMoving) Drop();
  TTypeCsv* table = FParts.Scene.GetTable();
  if (state == hsPressed && cell == FCell && table) Click(cell, mbLeft, Event.position().toPoint());
  FParts.Widget.viewport()->update();
  return true;
}

bool TTableHead::DoubleClick(const QMouseEvent& Event) {
  const QPoint place = Event.position().toPoint();
  const int edge = EdgeAt(place);
  if (edge >= 0 && Event.button() == Qt::LeftButton) FParts.Widget.FitColumn(edge);
  // Any other second click is one more click.
  return edge >= 0 || Press(Event);
}

void TTableHead::Menu(QPoint Place, bool WantsColumns) {
  const TPoint cell = FParts.Scene.CellAt(FromQt(Place));
  TTypeCsv* table = FParts.Scene.GetTable();
  if (table == nullptr) return;
  const TVxFieldType type = cell.X >= 0 ? table->GetDecorations().GetColumnFieldType(cell.X) : vftUnknown;
  const bool isDate =
      (type == vftDate || type == vftDateTime) && table->GetDecorations().GetOptions().Has(dloColumnClick);
  if (!isDate || WantsColumns || !FParts.Scene.IsHead(cell.Y)) {
    FParts.Widget.ShowColumnMenu(cell.X, FParts.Widget.viewport()->mapToGlobal(Place));
    return;
  }
  Click(cell, mbRight, Place);
}

void TTableHead::Click(TPoint Cell, TMouseButton Button, QPoint Place) {
  FParts.Scene.GetTable()->ClickHead(&FParts.ControlAt(Place), Cell.X, Cell.Y, Button, [&] {
    FParts.Widget.TableChanged();
    emit FParts.Widget.Sorted(Cell.X);
  });
}

void TTableHead::SortBy(int Col, bool OffersGrouping) {
  const TTypeCsv* table = FParts.Scene.GetTable();
  if (table == nullptr || Col < 0 || table->GetContentTop() == 0) return;
  const TRect cell = FParts.Scene.CellRect(Col, 0);
  Click({Col, 0}, OffersGrouping ? mbRight : mbLeft, QPoint(cell.Left, cell.Bottom));
}

void TTableHead::Show(QPainter& Painter) const {
  if (FState != hsMoving || FTarget < 0) return;
  const TTableScene& scene = FParts.Scene;
  const int x = scene.ColsView().PlaceOf(FTarget);
  Painter.fillRect(x - 1, 0, 3, scene.RowsView().ZoneEnd(TAxisView::zoFirst), ColorToQt(clHighlight));
}

}  // namespace vx::detail
