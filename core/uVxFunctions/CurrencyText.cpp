#include "core/uVxFunctions/CurrencyText.h"

#include <algorithm>

#include "core/uVxFunctions/Rounding.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"

namespace vx {

String GetCurrencySign(int) { return GetFormatSettings().CurrencyString; }

String GetCurrencySign(TDateTime) { return GetFormatSettings().CurrencyString; }

String VxCurrToStr(Currency Value, TCurrToStrOptions Options, int Digits) {
  bool bare = (Options.Has(ctsAutoDigits) && Value.Units % Currency::Scale == 0) ||
              (Options.Has(ctsNullAsNull) && Value.Units == 0);
  if (!bare) Value = RoundCurrency(Value, Digits);
  int digits = bare ? 0 : std::max(Digits, 0);
  bool sign = Options.Has(ctsSign);
  if (Options.Has(ctsThousendDivider)) return CurrToStrF(Value, sign ? ffCurrency : ffNumber, digits);
  if (!sign) return CurrToStrF(Value, ffFixed, digits);
  return Concat({CurrToStrF(Value, ffFixed, digits), u" ", GetFormatSettings().CurrencyString});
}

String DatesToDuration(TDateTime From, TDateTime Till) {
  constexpr std::u16string_view kDate = u"d.mm.yyyy";
  bool from = From > 0, till = Till > 0;
  if (!from && !till) return {};
  if (!till) return u"von " + FormatDateTime(kDate, From);
  String last = FormatDateTime(kDate, Till);
  if (!from) return u"bis " + last;
  int fromYear, fromMonth, fromDay, tillYear, tillMonth, tillDay;
  DecodeDate(From, fromYear, fromMonth, fromDay);
  DecodeDate(Till, tillYear, tillMonth, tillDay);
  std::u16string_view mask = fromDay != tillDay       ? kDate
                             : fromMonth != tillMonth ? u"d.mm."
                             : fromYear != tillYear   ? u"d."
                                                      : u"";
  return mask.empty() ? last : Concat({FormatDateTime(mask, From), u" - ", last});
}

}  // namespace vx
