// Typed tables and the controls that show them.
#include "platform/TPaintBox.h"
#include "platform/TPopupMenu.h"
#include "rendering/uDecoration/TDecoratorCanvas.h"
#include "rendering/uDecoration/TDecoratorListView.h"
#include "rendering/uDecoration/TDecoratorStringGrid.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

// --- cells and layout ---

void TTypeCsv::DecorationsCounts(TObject* Target) {
  const auto* grid = dynamic_cast<const TStringGrid*>(Target);
  iDecorations->SetColCount(grid ? grid->GetColCount() : FieldCount());
  iDecorations->SetRowCount(grid ? grid->GetRowCount() : GetCount());
}

void TTypeCsv::GetGrid(const TStringGrid& Grid, bool) {
  THeadCsv::GetGrid(Grid, false);
  DecoratorStringGrid().ReadLayout(Grid, *iDecorations);
}

void TTypeCsv::SetGrid(TStringGrid& Grid, bool) {
  const TControlUpdate update(Grid);
  DecorationsCounts();
  SetGridIntern(Grid, false);
  DecoratorStringGrid().WriteLayout(Grid, *iDecorations);
  if (iOnSetGrid) iOnSetGrid(this);
}

int TTypeCsv::GetListView(const TListView& View) {
  const int result = GetListView(View, {}, 0, -1, false);
  DecoratorListView().ReadLayout(View, *iDecorations);
  return result;
}

void TTypeCsv::SetListView(TListView& View) {
  const TControlUpdate update(View);
  DecorationsCounts();
  View.SetViewStyle(vsReport);
  View.SetHideSelection(false);
  View.SetReadOnly(true);
  View.SetShowColumnHeaders(true);
  SetListview(View, {}, 0, -1);
  DecoratorListView().WriteLayout(View, *iDecorations);
}

void TTypeCsv::Trim(TObject* Target) {
  DecorationsCounts(Target);
  if (auto* grid = dynamic_cast<TStringGrid*>(Target)) DecoratorStringGrid().Trim(*grid, *iDecorations);
  if (auto* view = dynamic_cast<TListView*>(Target)) DecoratorListView().Trim(*view, *iDecorations);
  if (auto* box = dynamic_cast<TPaintBox*>(Target)) {
    TDecoratorCanvas& decorator = DecoratorCanvas();
    decorator.SetComponent(box);
    decorator.SetDecorations(iDecorations.get());
    decorator.SetCells(this);
    decorator.Trim();
    decorator.SetComponent(nullptr);
    decorator.SetDecorations(nullptr);
    decorator.SetCells(nullptr);
  }
}

TTableSizes TTypeCsv::TrimDevice(TCanvas& Canvas, const TRect& Rect, int Width, int Height) {
  DecorationsCounts();
  const TPoint room{Width > 0 ? Width : Rect.Width(), Height > 0 ? Height : Rect.Height()};
  return DecoratorCanvas().TrimDevice(Canvas, room, *iDecorations, *this);
}

// --- painting ---

void TTypeCsv::DrawGrid(TObject* Sender, int Col, int Row, const TRect& Rect, TGridDrawStates State) {
  if (auto* grid = dynamic_cast<TStringGrid*>(Sender)) {
    DecoratorStringGrid().DrawGridCell(*grid, *iDecorations, Col, Row, Rect, State);
  }
}

void TTypeCsv::DrawListView(TObject* Sender, TListItem* Item, int Col, const TRect& Rect, TCustomDrawStates State) {
  if (auto* view = dynamic_cast<TListView*>(Sender)) {
    DecoratorListView().DrawItemCell(*view, *iDecorations, Item, Col, Rect, State);
  }
}

void TTypeCsv::DrawPaintBox(TObject* Sender, int Col, int Row, const TRect& Rect, TDecorationDrawStates State) {
  const auto* box = dynamic_cast<TPaintBox*>(Sender);
  if (box != nullptr && box->GetCanvas() != nullptr) DrawDevice(*box->GetCanvas(), Col, Row, Rect, State);
}

void TTypeCsv::DrawDevice(TCanvas& Canvas, int Col, int Row, const TRect& Rect, TDecorationDrawStates State) {
  const std::unique_ptr<TDecorationList> look = iDecorations->VirtualListForCell(Col, Row);
  DecoratorCanvas().DrawCell(Canvas, Rect, GetCell(Col, Row), GetObject(Col, Row), *look, State);
}

void TTypeCsv::DrawBitmap(TBitmap& Bitmap, int Col, int Row, const TRect& Rect, TDecorationDrawStates State) {
  DrawDevice(Bitmap.GetCanvas(), Col, Row, Rect, State);
}

// --- the mouse ---

void TTypeCsv::MouseColumnClick(TObject* Sender, TListColumn& Column) {
  auto* view = dynamic_cast<TListView*>(Sender);
  if (view == nullptr) return;
  const int col = Column.GetIndex();
  PopupDateFormat(view, col);
  Sort(col, 0);
  SetListView(*view);
}

void TTypeCsv::MouseDown(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (auto* grid = dynamic_cast<TStringGrid*>(Sender)) {
    DecoratorStringGrid().MouseDown(*grid, *iDecorations, Button, Shift, X, Y);
  }
}

void TTypeCsv::MouseMove(TObject* Sender, TShiftState Shift, int X, int Y) {
  if (auto* grid = dynamic_cast<TStringGrid*>(Sender)) {
    DecoratorStringGrid().MouseMove(*grid, *iDecorations, Shift, X, Y);
  }
}

void TTypeCsv::MouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y) {
  auto* grid = dynamic_cast<TStringGrid*>(Sender);
  if (grid == nullptr) return;
  DecoratorStringGrid().MouseUp(*grid, *iDecorations, Button, Shift, X, Y);
  const TPoint cell = grid->MouseToCell(X, Y);
  if (cell.Y < grid->GetFixedRows()) ClickHead(grid, cell.X, cell.Y, Button, [&] { SetGrid(*grid, false); });
}

bool TTypeCsv::ClickHead(TObject* Control, int Col, int Row, TMouseButton Button, FunctionRef<void()> Show) {
  if (!iDecorations->GetOptions().Has(dloColumnClick) || Row < 0) return false;
  if (Button != mbLeft && (Button != mbRight || !PopupDateFormat(Control, Col))) return false;
  struct TDone {
    std::unique_ptr<TVxIntegerList>& Indices;
    ~TDone() { Indices.reset(); }
  } done{iSortIndices};
  if (ContentMoves()) iSortIndices = std::make_unique<TVxIntegerList>();
  Sort(Col, Row, TS_NONE, {}, iSortIndices.get());
  Show();
  return true;
}

bool TTypeCsv::ContentMoves() const {
  for (int i = 0; i < iDecorations->GetCount(); ++i) {
    const TDecoration& decoration = *iDecorations->GetItems(i);
    const TRangeType type = decoration.GetRangeType();
    if (type != rtCell && type != rtRow && type != rtRect) continue;
    TRect rows;
    decoration.RangeRect(rows);
    const bool isOpen = type == rtRect && rows.Bottom < 0;
    if (rows.Top < GetContentCount() && (isOpen || rows.Bottom >= GetContentTop())) return false;
  }
  return true;
}

void TTypeCsv::SetHoverIndex(TControl* Control, int Index) {
  iDecorations->SetHoverIndex(Index);
  if (Control) Control->Invalidate();
}

bool TTypeCsv::PopupDateFormat(TObject* Control, int Col) {
  const auto* control = dynamic_cast<const TControl*>(Control);
  const TVxFieldType type = iDecorations->GetColumnFieldType(Col);
  if (control == nullptr || (type != vftDate && type != vftDateTime)) return false;
  TPopupMenu menu;
  menu.AddItem(u"nach Tag", TNotifyEvent::Of<&TTypeCsv::OnChangeToDay>(*this));
  menu.AddItem(u"nach Monat", TNotifyEvent::Of<&TTypeCsv::OnChangeToMonth>(*this));
  menu.AddItem(u"nach Jahr", TNotifyEvent::Of<&TTypeCsv::OnChangeToYear>(*this));
  const String before = iSortDateFormat;
  const TPoint mouse = control->ClientToScreen(control->GetMousePos());
  menu.Popup(mouse.X, mouse.Y);
  if (!(iSortDateFormat == before)) SortDirection = TS_NONE;
  return !iSortDateFormat.empty();
}

}  // namespace vx
