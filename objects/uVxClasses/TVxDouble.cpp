#include "objects/uVxClasses/TVxDouble.h"

#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctions/Rounding.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"

namespace vx {

String TVxDouble::GetAsString() const { return FloatToStr(iValue); }

void TVxDouble::SetAsString(std::u16string_view Text) { iValue = static_cast<double>(StrToExtDef(Text, 0)); }

Extended TVxDouble::Rounded(int Places) const { return RoundExtended(iValue, Places, true); }

String TVxDouble::RoundedStr(int Places) const { return FormatFloat(u"#########0.00", Rounded(Places)); }

String TVxDouble::RoundedStrShort(int Places) const { return FloatToStr(Rounded(Places)); }

}  // namespace vx
