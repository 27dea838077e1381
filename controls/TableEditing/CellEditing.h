// How the cells of each type are changed by the user. The unit's header tells the whole.
#pragma once

#include <cstdint>

#include "controls/uVxMaskEdit/MaskTypes.h"
#include "core/uConst.h"
#include "platform/String.h"

namespace vx {

class TTypeCsv;

enum TCellEditor : uint8_t {
  ceNone,    // not at all: images, buttons
  ceToggle,  // between u"0" and u"1"
  ceLine,    // a masked editor in the mode of EditMode
  ceLines    // a text of several lines
};

// By the type of the cell and, where a text has line breaks, by that. A cell outside the table has ceNone.
TCellEditor CellEditorOf(const TTypeCsv& Table, int Col, int Row);
// mmNone for texts.
TVxMaskMode EditModeOf(TVxFieldType Type) noexcept;
// Whether a text may stand in a cell of the type: empty, or a value as the masked editor takes it, which is repaired as
// it would be there. Any text where there are no values.
bool RepairCellText(TVxFieldType Type, String& Text);
// The type that the decorations give the cell.
TVxFieldType CellTypeOf(const TTypeCsv& Table, int Col, int Row);

}  // namespace vx
