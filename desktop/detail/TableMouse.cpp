// What the mouse does on the cells of a table.
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <utility>

#include "desktop/QtValues.h"
#include "desktop/detail/TableParts.h"
#include "rendering/uDecoration/TButtonInfo.h"
#include "rendering/uDecoration/TDecoratorStringGrid.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx::detail {

bool TTableMouse::IsButton(TPoint Cell) const {
  if (!FParts.HasCell(Cell)) return false;
  TTypeCsv& table = *FParts.Scene.GetTable();
  const TVxFieldType type = table.GetDecorations().VirtualListForCell(Cell.X, Cell.Y)->Compress()->GetFieldType();
  return (type == vftButton || type == vftToggle) && !table.GetCell(Cell.X, Cell.Y).empty();
}

void TTableMouse::SetPressed(TPoint Value) {
  const TPoint before = std::exchange(FPressed, Value);
  if (before == Value) return;
  FParts.InvalidateCell(before);
  FParts.InvalidateCell(Value);
}

void TTableMouse::Press(const QMouseEvent& Event) {
  const TPoint cell = FParts.Scene.CellAt(FromQt(Event.position().toPoint()));
  if (Event.button() == Qt::LeftButton && IsButton(cell)) SetPressed(cell);
}

void TTableMouse::Move(QPoint Place) {
  const TPoint cell = FParts.Scene.CellAt(FromQt(Place));
  const TPoint before = std::exchange(FHot, cell);
  if (before == cell) return;
  FParts.InvalidateCell(before);
  FParts.InvalidateCell(cell);
  TTypeCsv* table = FParts.Scene.GetTable();
  if (table == nullptr) return;
  const int hover =
      FParts.ShowHover && cell.Y >= table->GetContentTop() && cell.Y < table->GetContentCount() ? cell.Y : -1;
  const int last = table->GetDecorations().GetHoverIndex();
  if (hover == last) return;
  table->SetHoverIndex(nullptr, hover);
  FParts.InvalidateRow(last);
  FParts.InvalidateRow(hover);
}

void TTableMouse::Release(const QMouseEvent& Event) {
  if (Event.button() != Qt::LeftButton) return;
  const TPoint pressed = FPressed;
  SetPressed({-1, -1});
  const TPoint cell = FParts.Scene.CellAt(FromQt(Event.position().toPoint()));
  if (cell == pressed && IsButton(cell)) emit FParts.Widget.ButtonClicked(cell.X, cell.Y);
}

void TTableMouse::Leave() { Move({-1, -1}); }

String TTableMouse::TipOf(TPoint Cell) const {
  if (!FParts.HasCell(Cell)) return {};
  TTypeCsv& table = *FParts.Scene.GetTable();
  const auto list = table.GetDecorations().VirtualListForCell(Cell.X, Cell.Y);
  const auto look = list->Compress();
  const String text = table.GetCell(Cell.X, Cell.Y);
  if (text.empty()) return {};
  if (look->GetFieldType() == vftButton) return TButtonInfo(look->GetFormatString(), text).Hint;
  constexpr size_t most = 2000;
  const String begin = text.view().substr(0, most);
  const TPoint size =
      DecoratorStringGrid().Calculate(FParts.Picture.GetCanvas(), begin, table.CellObject(Cell.X, Cell.Y), *list);
  const TRect rect = FParts.Scene.CellRect(Cell.X, Cell.Y);
  if (size.X <= rect.Width() && size.Y <= rect.Height()) return {};
  return TDecorator::GetText(begin, *look, false);
}

bool TTableMouse::ToolTip(const QHelpEvent& Event) {
  const TPoint cell = FParts.Scene.CellAt(FromQt(Event.pos()));
  const String tip = TipOf(cell);
  if (tip.empty()) {
    QToolTip::hideText();
    return false;
  }
  // As plain text, whatever is in it.
  const QString text = "<p style='white-space:pre-wrap'>" + ToQt(tip).toHtmlEscaped() + "</p>";
  QToolTip::showText(Event.globalPos(), text, FParts.Widget.viewport(), ToQt(FParts.Scene.CellRect(cell.X, cell.Y)));
  return true;
}

}  // namespace vx::detail
