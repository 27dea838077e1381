#include "services/uSharedIni/IniValues.h"

#include "core/MoneyText.h"
#include "core/StrictDates.h"

namespace vx {

namespace {

template <typename T, typename F>
TIniValue<T> Read(const String& Text, F Try) {
  TIniValue<T> result;
  if (!Try(Text, result.Value, result.Fault)) {
    result.Value = T{};
    result.Kind = ifWrong;
    result.Text = Text;
  }
  return result;
}

}  // namespace

String CurrencyToIni(Currency Value) { return MoneyToStr(Value); }

TIniValue<Currency> IniToCurrency(const String& Text) {
  return Read<Currency>(
      Text, [](const String& text, Currency& value, TTextFault& fault) { return TryStrToMoney(text, value, fault); });
}

String HoursToIni(THourAmount Value) { return HourAmountToStr(Value); }

TIniValue<THourAmount> IniToHours(const String& Text) {
  return Read<THourAmount>(Text, [](const String& text, THourAmount& value, TTextFault& fault) {
    return TryStrToHourAmount(text, value, fault);
  });
}

bool DayToIni(TDateTime Value, String& Text) {
  if (Value == 0) {
    Text = String();
    return true;
  }
  return TryDateToStrStrict(Value, Text);
}

TIniValue<TDateTime> IniToDay(const String& Text) { return Read<TDateTime>(Text, TryStrToDateStrict); }

}  // namespace vx
