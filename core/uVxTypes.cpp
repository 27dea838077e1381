#include "core/uVxTypes.h"

#include "core/uVxFunctions/DateParsers.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"

namespace vx {

TDateTime TVxStringHelper::ToDate(TDateTime Default) const noexcept { return StrToDateDef(FText, Default); }

int TVxStringHelper::ToInt(int Default) const noexcept { return StrToIntDef(FText, Default); }

String TVxDateHelper::ToString() const { return FormatDateTime(u"dd.mm.yyyy", FValue); }

String TVxDateTimeHelper::ToString() const { return FormatDateTime(u"dd.mm.yyyy hh:nn:ss", FValue); }

String TVxTimeHelper::ToString() const {
  int hour, minute, second, msec;
  DecodeTime(FValue, hour, minute, second, msec);
  return FormatDateTime(second != 0 ? u"hh:nn:ss" : u"hh:nn", FValue);
}

String TVxIntegerHelper::ToString() const { return IntToStr(FValue); }

}  // namespace vx
