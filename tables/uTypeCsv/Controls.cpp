// Typed tables and the controls that show them.
#include "platform/TControl.h"
#include "platform/TPopupMenu.h"
#include "platform/TStringGrid.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

void TTypeCsv::DecorationsCounts(TObject* Target) {
  const auto* grid = dynamic_cast<const TStringGrid*>(Target);
  iDecorations->SetColCount(grid ? grid->GetColCount() : FieldCount());
  iDecorations->SetRowCount(grid ? grid->GetRowCount() : GetCount());
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
