// The selection of a table widget, and what keys and mouse do with it.
#include "desktop/detail/TableEditing.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "controls/TableEditing/CellEditing.h"
#include "desktop/QtValues.h"
#include "desktop/detail/TableParts.h"
#include "tables/uTypeCsv.h"

namespace vx::detail {

// --- in step ---

void TTableEditing::Sync() {
  const TTypeCsv* table = FParts.Scene.GetTable();
  const TTableColumns& columns = FParts.Scene.Columns();
  const TPoint before = Current();
  FColumns.clear();
  FPlaces.assign(static_cast<size_t>(columns.GetCount()), -1);
  int fixed = 0;
  const int fixedCols = table ? table->GetDecorations().GetFixed().Left : 0;
  for (int place = 0; place < columns.GetCount(); ++place) {
    const int col = columns.TableCol(place);
    if (columns.GetHidden(col)) continue;
    if (place < fixedCols) ++fixed;
    FPlaces[static_cast<size_t>(col)] = static_cast<int>(FColumns.size());
    FColumns.push_back(col);
  }
  if (table == nullptr) return Selection.SetArea({});
  const TRect area{fixed, table->GetContentTop(), static_cast<int>(FColumns.size()), table->GetContentCount()};
  const int row = before.Y < 0 || FRow == nullptr                                     ? -1
                  : before.Y < table->GetCount() && table->GetLines(before.Y) == FRow ? before.Y
                                                                                      : table->IndexOf(FRow);
  const TPoint place = PlaceOf(before.X, row);
  const bool selectsRows = table->GetDecorations().GetOptions().Has(dloRowSelect);
  if (selectsRows != Selection.GetSelectsRows()) Selection.SetSelectsRows(selectsRows);
  const bool stays = area == Selection.GetArea() && place == Selection.GetCurrent();
  Selection.SetArea(area);
  if (!stays && before.X >= 0) Selection.MoveTo({std::max(place.X, 0), row < 0 ? Selection.GetCurrent().Y : row});
  Changed(before);
}

void TTableEditing::Forget() {
  EndEdit(false);
  FRow = nullptr;
  Selection.SetArea({});
}

TPoint TTableEditing::PlaceOf(int Col, int Row) const noexcept {
  const bool isShown = Col >= 0 && static_cast<size_t>(Col) < FPlaces.size();
  return {isShown ? FPlaces[static_cast<size_t>(Col)] : -1, Row};
}

TPoint TTableEditing::Current() const noexcept {
  const TPoint place = Selection.GetCurrent();
  if (place.X < 0 || static_cast<size_t>(place.X) >= FColumns.size()) return {-1, -1};
  return {FColumns[static_cast<size_t>(place.X)], place.Y};
}

bool TTableEditing::IsSelected(int Col, int Row) const {
  return Selection.GetCellCount() > 1 && Selection.IsSelected(PlaceOf(Col, Row));
}

void TTableEditing::MoveTo(int Col, int Row) {
  const TPoint before = Current(), place = PlaceOf(Col, Row);
  if (place.X < 0) return;
  Selection.MoveTo(place);
  Changed(before);
}

void TTableEditing::Changed(TPoint Before) {
  const TPoint now = Current();
  const TTypeCsv* table = FParts.Scene.GetTable();
  FRow = table && now.Y >= 0 && now.Y < table->GetCount() ? table->GetLines(now.Y) : nullptr;
  FParts.Invalidate();
  emit FParts.Widget.SelectionChanged();
  if (now == Before) return;
  FParts.Current = now;
  if (now.X >= 0) FParts.Widget.EnsureVisible(now.X, now.Y);
  emit FParts.Widget.CurrentCellChanged(now.X, now.Y);
}

// --- mouse ---

void TTableEditing::Press(const QMouseEvent& Event, TPoint Cell) {
  const TPoint before = Current(), place = PlaceOf(Cell.X, Cell.Y);
  if (place.X < 0 || !EndEdit(true)) return;
  if (Event.modifiers() & Qt::ShiftModifier) {
    Selection.ExtendTo(place);
  } else if (Event.modifiers() & Qt::ControlModifier) {
    Selection.Toggle(place);
  } else {
    Selection.MoveTo(place);
  }
  Changed(before);
}

bool TTableEditing::Drag(const QMouseEvent& Event) {
  if (!(Event.buttons() & Qt::LeftButton) || IsEditing()) return false;
  const TPoint cell = FParts.Scene.CellAt(FromQt(Event.position().toPoint()));
  const TPoint before = Current(), place = PlaceOf(cell.X, cell.Y);
  if (place.X < 0 || place.Y < 0 || place == Selection.GetCurrent()) return false;
  Selection.ExtendTo(place);
  Changed(before);
  return true;
}

// --- keys ---

bool TTableEditing::CommandKey(QKeyEvent& Event) {
  struct TCommand {
    QKeySequence::StandardKey Key;
    void (TTableEditing::*Act)();
  };
  static constexpr TCommand commands[] = {{QKeySequence::Cut, &TTableEditing::Cut},
                                          {QKeySequence::Paste, &TTableEditing::Paste},
                                          {QKeySequence::Undo, &TTableEditing::Undo},
                                          {QKeySequence::Redo, &TTableEditing::Redo},
                                          {QKeySequence::Delete, &TTableEditing::ClearSelected}};
  for (const auto& [key, act] : commands) {
    if (!Event.matches(key)) continue;
    (this->*act)();
    return true;
  }
  if (Event.matches(QKeySequence::Copy)) return Copy(), true;
  const TPoint cell = Current();
  switch (Event.key()) {
    case Qt::Key_F2:
      return BeginEdit();
    case Qt::Key_F7:
      FParts.Head.SortBy(cell.X, Event.modifiers() & Qt::ShiftModifier);
      return true;
    case Qt::Key_Y:  // as well as the desktop's own key
      if (Event.modifiers() != Qt::ControlModifier) return false;
      Redo();
      return true;
    case Qt::Key_Space:
      return Event.modifiers() == Qt::NoModifier && Toggle();
    default:
      return false;
  }
}

// A letter begins to edit with it.
bool TTableEditing::TypedKey(const QKeyEvent& Event) {
  const bool isCommand = (Event.modifiers() & Qt::ControlModifier) && !(Event.modifiers() & Qt::AltModifier);
  const QString text = Event.text();
  return !isCommand && !text.isEmpty() && text[0] > u' ' && text[0] != QChar(0x7F) && BeginEdit(text);
}

bool TTableEditing::Key(QKeyEvent& Event) {
  const TPoint before = Current();
  const int page = FParts.Scene.RowsView().MiddleRoom() / std::max(1, FParts.Scene.GetRowHeight());
  if (CommandKey(Event)) return true;
  // A table without changes leaves Tab and Return to the window.
  const bool isWindows = Event.key() == Qt::Key_Return || Event.key() == Qt::Key_Enter;
  if (isWindows && History == nullptr) return false;
  if (Selection.Key(KeyFromQt(Event.key()), FromQt(Event.modifiers()), page - 1)) return Changed(before), true;
  return TypedKey(Event);
}

bool TTableEditing::Find(const String& Text, TFindOptions Options) {
  const TTypeCsv* table = FParts.Scene.GetTable();
  if (table == nullptr) return false;
  const TPoint before = Current(), found = FindCell(*table, Text, FColumns, Selection.GetCurrent(), Options);
  if (found.X < 0) return false;
  Selection.MoveTo(found);
  Changed(before);
  return true;
}

}  // namespace vx::detail
