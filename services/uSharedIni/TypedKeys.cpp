// Amounts, hours and days as keys of a shared configuration.
#include "services/uMsg.h"
#include "services/uSharedIni/TSharedIni.h"

namespace vx {

namespace {

template <typename T, typename F>
T ValueOr(const String& Text, T Default, F Read) {
  const TIniValue<T> value = Read(Text);
  return value ? value.Value : Default;
}

template <typename T>
TIniValue<T> Missing() {
  TIniValue<T> result;
  result.Kind = ifMissing;
  return result;
}

}  // namespace

Currency TSharedIni::ReadMoney(std::u16string_view Section, std::u16string_view Ident, Currency Default) {
  return ValueOr(ReadString(Section, Ident, CurrencyToIni(Default)), Default, IniToCurrency);
}

THourAmount TSharedIni::ReadHours(std::u16string_view Section, std::u16string_view Ident, THourAmount Default) {
  return ValueOr(ReadString(Section, Ident, HoursToIni(Default)), Default, IniToHours);
}

TDateTime TSharedIni::ReadDay(std::u16string_view Section, std::u16string_view Ident, TDateTime Default) {
  String text;
  (void)DayToIni(Default, text);  // a default that is no day stands for itself
  return ValueOr(ReadString(Section, Ident, text), Default, IniToDay);
}

template <typename T, typename F>
TIniValue<T> TSharedIni::CheckKey(std::u16string_view Section, std::u16string_view Ident, F Read) {
  if (GetDefaults()) return Missing<T>();
  InstantRead();
  const String* line = FindLine(Section, Ident);
  return line ? Read(line->Slice(static_cast<int>(Ident.size()) + 1)) : Missing<T>();
}

TIniValue<Currency> TSharedIni::CheckMoney(std::u16string_view Section, std::u16string_view Ident) {
  return CheckKey<Currency>(Section, Ident, IniToCurrency);
}

TIniValue<THourAmount> TSharedIni::CheckHours(std::u16string_view Section, std::u16string_view Ident) {
  return CheckKey<THourAmount>(Section, Ident, IniToHours);
}

TIniValue<TDateTime> TSharedIni::CheckDay(std::u16string_view Section, std::u16string_view Ident) {
  return CheckKey<TDateTime>(Section, Ident, IniToDay);
}

void TSharedIni::WriteMoney(const String& Section, const String& Ident, Currency Value) {
  WriteString(Section, Ident, CurrencyToIni(Value));
}

void TSharedIni::WriteHours(const String& Section, const String& Ident, THourAmount Value) {
  WriteString(Section, Ident, HoursToIni(Value));
}

void TSharedIni::WriteDay(const String& Section, const String& Ident, TDateTime Value) {
  String text;
  if (DayToIni(Value, text)) return WriteString(Section, Ident, text);
  TMsgReport()(
      Warning(Concat({u"Ein Wert, der kein Tag ist, kann nicht in die Konfigurationsdatei geschrieben werden! ",
                      GetFileName(), u": [", Section, u"] ", Ident}),
              u"TSharedIni.WriteDay"),
      false);
}

}  // namespace vx
