// Types of cells and three-state booleans as texts and numbers.
#pragma once

#include <string_view>

#include "core/uConst.h"
#include "core/uVxTypes.h"
#include "platform/String.h"

namespace vx {

// The entry of FIELDTYPESTRINGS: u"vftDate". An ordinal outside the table gives that of vftUnknown.
String FieldTypeToStr(TVxFieldType Type);
// The type of exactly that name, with regard to case; vftUnknown for any other text.
TVxFieldType StrToFieldType(std::u16string_view Text) noexcept;

// The ordinal that Text stands for. A whole number (as StrToInt reads it) from 1 to 18 stands for
// itself, every other one for 0. Any other text is looked up among the names without regard to case:
// u"VFTDATE" gives 6; -1 for a foreign text, the empty one among them.
int GetVxFieldType(std::u16string_view Text) noexcept;
// GetVxFieldType finds something. This is wanted for every whole number: u"99" counts as vftUnknown.
bool IsVxFieldType(std::u16string_view Text) noexcept;
// The type of the ordinal Value, 1 to 18; vftUnknown for any other number.
TVxFieldType IntToVxFieldType(int Value) noexcept;

// The type's word for users: in German u"Wahrheitswert", else u"Boolean". An ordinal outside the table
// gives that of vftUnknown. The word of vftGrafic is u"Grafik" in both; that is wanted.
String VxFieldTypeToText(TVxFieldType Type, bool German);

// u"0", u"1", and the empty text for bNone and for what is no TBoolExt.
String BoolExtToStr(TBoolExt Value);
// bNone for the empty text, bTrue for u"1", bFalse for every other one, a blank among them.
TBoolExt StrToBoolExt(std::u16string_view Text) noexcept;

}  // namespace vx
