#include "desktop/TTableWidget.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <algorithm>
#include <vector>

#include "desktop/QtValues.h"
#include "desktop/detail/TableParts.h"
#include "platform/TPopupMenu.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

TTableWidget::TTableWidget(QWidget* Parent)
    : QAbstractScrollArea(Parent), FParts(std::make_unique<detail::TTableParts>(*this)) {
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
}

TTableWidget::~TTableWidget() = default;

// --- the table ---

TTypeCsv* TTableWidget::GetTable() const noexcept { return FParts->Scene.GetTable(); }

void TTableWidget::SetTable(TTypeCsv* Value) {
  FParts->Editing.Forget();
  FParts->Editing.History = nullptr;
  FParts->Scene.SetTable(Value);
  FParts->Current = {-1, -1};
  FParts->Mouse.Forget();
  FParts->Head.Forget();
  FParts->UpdateBars();
  FParts->Scene.MeasureSample(FParts->Picture.GetCanvas());
  FParts->UpdateBars();
  FParts->Editing.Sync();
  FParts->Invalidate();
}

void TTableWidget::TableChanged() {
  const bool hadRows = FParts->Scene.RowsView().Axis.GetCount() > 0;
  FParts->Scene.UnfitRows();
  FParts->Sync();
  if (!hadRows) FParts->Scene.MeasureSample(FParts->Picture.GetCanvas());
  FParts->UpdateBars();
  FParts->Editing.Sync();
  FParts->Invalidate();
}

void TTableWidget::CellChanged(int Col, int Row) { FParts->InvalidateCell({Col, Row}); }

const TTableScene& TTableWidget::GetScene() const noexcept { return FParts->Scene; }

// --- places ---

TPoint TTableWidget::CellAt(QPoint Place) const { return FParts->Scene.CellAt(FromQt(Place)); }

QRect TTableWidget::CellRect(int Col, int Row) const { return ToQt(FParts->Scene.CellRect(Col, Row)); }

void TTableWidget::EnsureVisible(int Col, int Row) {
  FParts->Sync();
  const TTableScene::TOffset to = FParts->Scene.OffsetToSee(Col, Row);
  horizontalScrollBar()->setValue(static_cast<int>(to.X));
  verticalScrollBar()->setValue(static_cast<int>(to.Y));
}

TPoint TTableWidget::GetCurrentCell() const noexcept { return FParts->Current; }

void TTableWidget::SetCurrentCell(TPoint Value) { FParts->Editing.MoveTo(Value.X, Value.Y); }

// --- selection and editing ---

const TTableSelection& TTableWidget::GetSelection() const noexcept { return FParts->Editing.Selection; }

const std::vector<int>& TTableWidget::GetShownColumns() const noexcept { return FParts->Editing.ShownColumns(); }

bool TTableWidget::IsSelected(int Col, int Row) const {
  return TPoint{Col, Row} == FParts->Current || FParts->Editing.IsSelected(Col, Row);
}

TTableHistory* TTableWidget::GetHistory() const noexcept { return FParts->Editing.History; }

void TTableWidget::SetHistory(TTableHistory* Value) {
  FParts->Editing.EndEdit(false);
  FParts->Editing.History = Value;
}

void TTableWidget::SetMayEdit(std::function<bool(int Col, int Row)> Value) {
  FParts->Editing.MayEdit = std::move(Value);
}

bool TTableWidget::BeginEdit() { return FParts->Editing.BeginEdit(); }

bool TTableWidget::EndEdit(bool Keep) { return FParts->Editing.EndEdit(Keep); }

QWidget* TTableWidget::GetEditor() const noexcept { return FParts->Editing.Editor(); }

void TTableWidget::Undo() { FParts->Editing.Undo(); }

void TTableWidget::Redo() { FParts->Editing.Redo(); }

void TTableWidget::Cut() { FParts->Editing.Cut(); }

void TTableWidget::Copy() { FParts->Editing.Copy(); }

void TTableWidget::Paste() { FParts->Editing.Paste(); }

void TTableWidget::ClearSelected() { FParts->Editing.ClearSelected(); }

bool TTableWidget::FindNext(const String& Text, TFindOptions Options) { return FParts->Editing.Find(Text, Options); }

// --- columns ---

int TTableWidget::GetColumnWidth(int Col) const { return FParts->Scene.Columns().GetWidth(Col); }

void TTableWidget::SetColumnWidth(int Col, int Value) {
  if (GetColumnWidth(Col) == Value) return;
  FParts->Scene.Columns().SetWidth(Col, Value);
  FParts->LayoutChanged();
}

bool TTableWidget::GetColumnHidden(int Col) const { return FParts->Scene.Columns().GetHidden(Col); }

void TTableWidget::SetColumnHidden(int Col, bool Value) {
  TTableColumns& columns = FParts->Scene.Columns();
  if (columns.GetHidden(Col) == Value || (Value && columns.CountShown() < 2)) return;
  columns.SetHidden(Col, Value);
  FParts->LayoutChanged();
}

int TTableWidget::GetColumnPlace(int Col) const { return FParts->Scene.Columns().PlaceOf(Col); }

void TTableWidget::SetColumnPlace(int Col, int Place) {
  const int from = GetColumnPlace(Col);
  if (from < 0 || from == Place) return;
  FParts->Scene.Columns().Move(from, Place);
  FParts->LayoutChanged();
}

void TTableWidget::FitColumns() {
  FParts->Scene.FitColumns(FParts->Picture.GetCanvas());
  FParts->LayoutChanged();
}

void TTableWidget::FitColumn(int Col) {
  FParts->Scene.FitColumn(FParts->Picture.GetCanvas(), Col);
  FParts->LayoutChanged();
}

void TTableWidget::FitRows() {
  FParts->Scene.FitRows(FParts->Picture.GetCanvas());
  FParts->UpdateBars();
  FParts->Invalidate();
}

String TTableWidget::GetLayout() const { return FParts->Scene.Columns().GetLayout(); }

void TTableWidget::SetLayout(const String& Value) {
  FParts->Scene.Columns().SetLayout(Value);
  FParts->LayoutChanged();
}

void TTableWidget::ShowColumnMenu(int Col, QPoint Global) {
  const TTableColumns& columns = FParts->Scene.Columns();
  const TTypeCsv* table = GetTable();
  if (table == nullptr) return;
  TPopupMenu menu;
  TMenuItem& hide = menu.AddItem(u"Spalte ausblenden");
  hide.SetEnabled(Col >= 0 && columns.CountShown() > 1);
  TMenuItem& fit = menu.AddItem(u"Breite anpassen");
  fit.SetEnabled(Col >= 0);
  TMenuItem& fitAll = menu.AddItem(u"Alle Breiten anpassen");
  TMenuItem& showAll = menu.AddItem(u"Alle Spalten einblenden");
  showAll.SetEnabled(columns.CountShown() < columns.GetCount());
  menu.AddItem(u"-");
  constexpr int most = 60, first = 5;
  for (int place = 0; place < std::min(columns.GetCount(), most); ++place) {
    const int col = columns.TableCol(place);
    const String name = table->FieldName(col);
    TMenuItem& item = menu.AddItem(name.empty() ? u"Spalte " + String::FromUtf8(std::to_string(col + 1)) : name);
    item.SetChecked(!columns.GetHidden(col));
    item.SetTag(col);
  }
  TMenuItem* taken = menu.Popup(Global.x(), Global.y());
  if (taken == nullptr) return;
  if (taken == &hide) SetColumnHidden(Col, true);
  if (taken == &fit) FitColumn(Col);
  if (taken == &fitAll) FitColumns();
  if (taken == &showAll) {
    FParts->Scene.Columns().ShowAll();
    FParts->LayoutChanged();
  }
  for (int i = first; i < menu.GetCount(); ++i) {
    const int col = static_cast<int>(menu.GetItems(i).GetTag());
    if (taken == &menu.GetItems(i)) SetColumnHidden(col, !columns.GetHidden(col));
  }
}

bool TTableWidget::GetShowHover() const noexcept { return FParts->ShowHover; }

void TTableWidget::SetShowHover(bool Value) { FParts->ShowHover = Value; }

const String& TTableWidget::GetEmptyText() const noexcept { return FParts->EmptyText; }

void TTableWidget::SetEmptyText(const String& Value) {
  FParts->EmptyText = Value;
  viewport()->update();
}

// --- events ---

void TTableWidget::paintEvent(QPaintEvent* Event) { FParts->Paint(*Event); }

void TTableWidget::resizeEvent(QResizeEvent*) { FParts->UpdateBars(); }

void TTableWidget::scrollContentsBy(int DX, int DY) { FParts->Scrolled(DX, DY); }

bool TTableWidget::viewportEvent(QEvent* Event) {
  if (Event->type() == QEvent::Leave) FParts->Mouse.Leave();
  if (Event->type() == QEvent::ToolTip) return FParts->Mouse.ToolTip(*static_cast<QHelpEvent*>(Event));
  return QAbstractScrollArea::viewportEvent(Event);
}

void TTableWidget::mousePressEvent(QMouseEvent* Event) {
  FParts->Sync();
  if (FParts->Head.Press(*Event)) return;
  FParts->Mouse.Press(*Event);
  const TPoint cell = CellAt(Event->position().toPoint());
  if (Event->button() == Qt::LeftButton && cell.X >= 0 && cell.Y >= 0) FParts->Editing.Press(*Event, cell);
}

void TTableWidget::mouseMoveEvent(QMouseEvent* Event) {
  FParts->Sync();
  if (FParts->Head.Move(*Event)) return;
  FParts->Editing.Drag(*Event);
  FParts->Mouse.Move(Event->position().toPoint());
}

void TTableWidget::mouseReleaseEvent(QMouseEvent* Event) {
  FParts->Sync();
  if (!FParts->Head.Release(*Event)) FParts->Mouse.Release(*Event);
}

void TTableWidget::mouseDoubleClickEvent(QMouseEvent* Event) {
  FParts->Sync();
  if (FParts->Head.DoubleClick(*Event)) return;
  mousePressEvent(Event);
  const TPoint cell = CellAt(Event->position().toPoint());
  if (Event->button() != Qt::LeftButton || cell.X < 0 || cell.Y < 0) return;
  emit CellDoubleClicked(cell.X, cell.Y);
  BeginEdit();
}

void TTableWidget::keyPressEvent(QKeyEvent* Event) {
  FParts->Sync();
  const bool leaves = Event->modifiers().testFlag(Qt::ControlModifier) &&
                      (Event->key() == Qt::Key_Tab || Event->key() == Qt::Key_Backtab);
  if (leaves) {
    QAbstractScrollArea::focusNextPrevChild(Event->key() == Qt::Key_Tab);
  } else if (!FParts->Editing.Key(*Event)) {
    Event->ignore();  // scrolling is the selection's affair
  }
}

// Within a table that can be changed Tab goes from cell to cell.
bool TTableWidget::focusNextPrevChild(bool IsNext) {
  return GetHistory() == nullptr && QAbstractScrollArea::focusNextPrevChild(IsNext);
}

void TTableWidget::contextMenuEvent(QContextMenuEvent* Event) {
  FParts->Sync();
  const TPoint cell = CellAt(Event->pos());
  if (Event->reason() == QContextMenuEvent::Keyboard && FParts->Current.X >= 0) {
    const QRect current = CellRect(FParts->Current.X, FParts->Current.Y);
    return ShowColumnMenu(FParts->Current.X, viewport()->mapToGlobal(current.bottomLeft()));
  }
  if (!FParts->Scene.IsHead(cell.Y)) {
    QAbstractScrollArea::contextMenuEvent(Event);
    return;
  }
  FParts->Head.Menu(Event->pos(), Event->modifiers().testFlag(Qt::ShiftModifier));
}

void TTableWidget::changeEvent(QEvent* Event) {
  if (Event->type() == QEvent::PaletteChange || Event->type() == QEvent::EnabledChange) FParts->Invalidate();
  QAbstractScrollArea::changeEvent(Event);
}

void TTableWidget::focusInEvent(QFocusEvent* Event) {
  FParts->InvalidateCell(FParts->Current);
  QAbstractScrollArea::focusInEvent(Event);
}

void TTableWidget::focusOutEvent(QFocusEvent* Event) {
  FParts->InvalidateCell(FParts->Current);
  QAbstractScrollArea::focusOutEvent(Event);
}

}  // namespace vx
