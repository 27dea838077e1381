#include "controls/TableEditing/CellEditing.h"

#include "controls/uVxMaskEdit.h"
#include "core/StrictDates.h"
#include "tables/uTypeCsv.h"

namespace vx {

TVxFieldType CellTypeOf(const TTypeCsv& Table, int Col, int Row) {
  return Table.GetDecorations().VirtualListForCell(Col, Row)->Compress()->GetFieldType();
}

TCellEditor CellEditorOf(const TTypeCsv& Table, int Col, int Row) {
  if (Col < 0 || Row < 0 || Row >= Table.GetCount()) return ceNone;
  switch (CellTypeOf(Table, Col, Row)) {
    case vftImage:
    case vftGrafic:
    case vftButton:
      return ceNone;
    case vftBoolean:
    case vftToggle:
      return ceToggle;
    default:
      return Table.GetCell(Col, Row).view().find_first_of(u"\r\n") == std::u16string_view::npos ? ceLine : ceLines;
  }
}

TVxMaskMode EditModeOf(TVxFieldType Type) noexcept {
  switch (Type) {
    case vftInteger:
      return mmInteger;
    case vftFloat:
    case vftFraction:
      return mmFloat;
    case vftDate:
      return mmDate;
    case vftTime:
      return mmTime;
    case vftHour:
      return mmHour;
    case vftCurrency:
      return mmCurrency;
    default:
      return mmNone;
  }
}

bool RepairCellText(TVxFieldType Type, String& Text) {
  if (Text.empty()) return true;
  if (Type == vftDateTime) {
    TDateTime value;
    TTextFault fault;
    return TryStrToDateTimeStrict(Text, value, fault);
  }
  const TVxMaskMode mode = EditModeOf(Type);
  if (mode == mmNone) return true;
  TPlainEdit line;
  TVxMaskEdit edit(line);
  edit.SetMaskMode(mode);
  edit.SetText(Text);
  edit.Finishing();
  if (!edit.GetIsValid() || edit.GetText().empty()) return false;
  Text = edit.GetText();
  return true;
}

}  // namespace vx
