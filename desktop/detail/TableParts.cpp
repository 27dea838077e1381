#include "desktop/detail/TableParts.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <climits>

#include "controls/NightColors.h"
#include "desktop/QtValues.h"
#include "tables/uTypeCsv/TCsvView.h"

namespace vx::detail {

bool TTableParts::HasCell(TPoint Cell) const {
  const TTypeCsv* table = Scene.GetTable();
  return table && Cell.X >= 0 && Cell.Y >= 0 && Cell.X < Scene.Columns().GetCount() && Cell.Y < table->GetCount();
}

void TTableParts::Sync() {
  if (!Scene.Sync()) return;
  Editing.Sync();
  Mouse.Forget();
  Head.Forget();
  Invalidate();
  UpdateBars();
}

void TTableParts::UpdateBars() {
  const QSize room = Widget.viewport()->size();
  Scene.SetRoom({room.width(), room.height()});
  const TTableScene::TOffset most = Scene.MaxOffset(), at = Scene.GetOffset();
  const auto set = [](QScrollBar& bar, int64_t maximum, int64_t value, int page, int step) {
    bar.setRange(0, static_cast<int>(std::min<int64_t>(maximum, INT_MAX)));
    bar.setPageStep(std::max(page, 1));
    bar.setSingleStep(step);
    bar.setValue(static_cast<int>(std::min<int64_t>(value, INT_MAX)));
  };
  set(*Widget.horizontalScrollBar(), most.X, at.X, Scene.ColsView().MiddleRoom(), 40);
  set(*Widget.verticalScrollBar(), most.Y, at.Y, Scene.RowsView().MiddleRoom(), Scene.GetRowHeight());
  Scene.ScrollTo({Widget.horizontalScrollBar()->value(), Widget.verticalScrollBar()->value()});
}

void TTableParts::Invalidate() {
  Picture.Invalidate();
  Widget.viewport()->update();
}

void TTableParts::InvalidateCell(TPoint Cell) {
  const QRect rect = ToQt(Scene.CellRect(Cell.X, Cell.Y));
  if (rect.isEmpty()) return;
  const QRect around = rect.adjusted(-3, -3, 3, 3);
  Picture.Invalidate(around);
  Widget.viewport()->update(around);
}

void TTableParts::InvalidateRow(int Row) {
  const TAxisView rows = Scene.RowsView();
  if (Row < 0 || Row >= rows.Axis.GetCount()) return;
  const QRect rect(0, rows.PlaceOf(Row), Widget.viewport()->width(), rows.Axis.GetSize(Row));
  Picture.Invalidate(rect);
  Widget.viewport()->update(rect);
}

void TTableParts::LayoutChanged() {
  UpdateBars();
  Editing.Sync();
  Editing.PlaceEditor();
  Invalidate();
  emit Widget.LayoutChanged();
}

// The bars say where to. What is fixed stays; heads go along with their columns, and fixed columns with their rows.
void TTableParts::Scrolled(int DX, int DY) {
  const TTableScene::TOffset before = Scene.GetOffset();
  Scene.ScrollTo({Widget.horizontalScrollBar()->value(), Widget.verticalScrollBar()->value()});
  if (Scene.GetOffset() == before) return;
  const QSize size = Widget.viewport()->size();
  const QRect middle = ToQt(Scene.MiddleRect());
  if (DX != 0) Picture.Scroll({middle.left(), 0, middle.width(), size.height()}, DX, 0);
  if (DY != 0) Picture.Scroll({0, middle.top(), size.width(), middle.height()}, 0, DY);
  Widget.viewport()->update();
  Editing.PlaceEditor();
  emit Widget.Scrolled(Widget.horizontalScrollBar()->value(), Widget.verticalScrollBar()->value());
}

TGridDrawStates TTableParts::StatesOf(int Col, int Row) const {
  TGridDrawStates states;
  const TPoint cell{Col, Row};
  if (cell == Current) states.Include(gdFocused);
  if (Editing.IsSelected(Col, Row)) states.Include(gdSelected);
  if (cell == Mouse.GetHot()) states.Include(gdHotTrack);
  if (cell == Mouse.GetPressed() && cell == Mouse.GetHot()) states.Include(gdPressed);
  return states;
}

void TTableParts::Paint(const QPaintEvent& Event) {
  Sync();
  const QSize size = Widget.viewport()->size();
  Picture.SetSize(size, Widget.viewport()->devicePixelRatioF(), IsNight());
  Picture.Refresh([this](TCanvas& canvas, const TRect& area) {
    Painter.Paint(canvas, area, [this](int col, int row) { return StatesOf(col, row); });
  });
  QPainter painter(Widget.viewport());
  Picture.Show(painter, Event.region());
  painter.setClipping(false);
  const TRect current = Scene.CellRect(Current.X, Current.Y);
  if (!current.IsEmpty() && Widget.hasFocus()) {
    const TRect middle = Scene.MiddleRect();
    const bool isFixed = Scene.ColsView().ZoneOf(Scene.Columns().PlaceOf(Current.X)) != TAxisView::zoMiddle ||
                         Scene.RowsView().ZoneOf(Current.Y) != TAxisView::zoMiddle;
    if (!isFixed) painter.setClipRect(ToQt(middle));
    painter.setPen(ColorToQt(clHighlight));
    painter.drawRect(ToQt(current).adjusted(0, 0, -1, -1));
    painter.setClipping(false);
  }
  const String note = Note();
  if (!note.empty()) {
    const int top = Scene.End().Y;
    painter.setPen(ColorToQt(clGrayText));
    painter.drawText(QRect(0, top, size.width(), size.height() - top), Qt::AlignCenter | Qt::TextWordWrap, ToQt(note));
  }
  Head.Show(painter);
}

String TTableParts::Note() const {
  const TTypeCsv* table = Scene.GetTable();
  if (table == nullptr || table->GetContentCount() > table->GetContentTop()) return {};
  return EmptyText;
}

TControl& TTableParts::ControlAt(QPoint Place) {
  const QPoint origin = Widget.viewport()->mapToGlobal(QPoint());
  const QSize size = Widget.viewport()->size();
  Control.SetBounds({origin.x(), origin.y(), origin.x() + size.width(), origin.y() + size.height()});
  Control.MouseMove({}, Place.x(), Place.y());
  return Control;
}

}  // namespace vx::detail
