#include "objects/uVxClasses/TVxString.h"

#include "core/uVxFunctions/CurrencyText.h"
#include "platform/DateText.h"

namespace vx {

String TVxString::ToString(Currency Value) { return VxCurrToStr(Value, {}, 2); }

String TVxString::DateToString(TDateTime Value) { return FormatDateTime(u"dd.mm.yyyy", Value); }

String TVxString::DateTimeToString(TDateTime Value) { return FormatDateTime(u"dd.mm.yyyy hh:nn:ss", Value); }

String TVxString::TimeFullToString(TDateTime Value) { return FormatDateTime(u"hh:nn:ss:zzz", Value); }

}  // namespace vx
