#include "services/uSharedIni/IniValues.h"

#include <cmath>

#include "core/MoneyText.h"
#include "platform/Calendar.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"

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

// Walks through the text of a day.
class TDayReader {
 public:
  explicit TDayReader(std::u16string_view Text) noexcept : FText(Text) {}

  // From Least to Most digits.
  bool TakeNumber(size_t Least, size_t Most, int& Value) noexcept {
    size_t count = 0;
    for (Value = 0; count < Most && FPos < FText.size() && IsDigit(FText[FPos]); ++count, ++FPos) {
      Value = Value * 10 + (FText[FPos] - u'0');
    }
    return count >= Least;
  }
  bool Take(char16_t Unit) noexcept {
    const bool isThere = FPos < FText.size() && FText[FPos] == Unit;
    if (isThere) ++FPos;
    return isThere;
  }
  bool IsAtEnd() const noexcept { return FPos == FText.size(); }
  size_t Position() const noexcept { return FPos + 1; }

 private:
  std::u16string_view FText;
  size_t FPos = 0;
};

bool TryStrToDay(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept {
  const std::u16string_view text = TrimView(Text);
  const auto blanks = static_cast<size_t>(text.data() - Text.data());
  if (text.empty()) {
    Fault = {tfEmpty, 0};
    return false;
  }
  TDayReader reader(text);
  int day = 0, month = 0, year = 0;
  const bool isYearFirst = text.size() > 4 && text[4] == u'-';
  const bool isRead = isYearFirst
                          ? reader.TakeNumber(4, 4, year) && reader.Take(u'-') && reader.TakeNumber(2, 2, month) &&
                                reader.Take(u'-') && reader.TakeNumber(2, 2, day)
                          : reader.TakeNumber(1, 2, day) && reader.Take(u'.') && reader.TakeNumber(1, 2, month) &&
                                reader.Take(u'.') && reader.TakeNumber(4, 4, year);
  if (isRead && reader.IsAtEnd()) {
    if (TryEncodeDate(year, month, day, Value)) return true;
    Fault = {tfUnexpected, static_cast<int>(blanks) + 1};  // no such day
  } else {
    Fault = {reader.IsAtEnd() ? tfIncomplete : tfUnexpected, static_cast<int>(blanks + reader.Position())};
  }
  return false;
}

}  // namespace

String CurrencyToIni(Currency Value) {
  const auto units = static_cast<uint64_t>(Value.Units);
  const uint64_t size = Value.Units < 0 ? uint64_t{0} - units : units;
  uint64_t decimals = size % Currency::Scale;
  int digits = 4;
  for (; digits > 2 && decimals % 10 == 0; --digits) decimals /= 10;
  TTextBuffer text;
  if (Value.Units < 0) text.Add(u'-');
  text.AddNumber(size / Currency::Scale);
  text.Add(u',');
  text.AddNumber(decimals, digits);
  return text.ToString();
}

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
  int year = 0, month = 0, day = 0;
  if (Value != std::floor(Value)) return false;
  DecodeDate(Value, year, month, day);
  if (year == 0) return false;
  TTextBuffer text;
  text.AddNumber(static_cast<uint64_t>(day), 2);
  text.Add(u'.');
  text.AddNumber(static_cast<uint64_t>(month), 2);
  text.Add(u'.');
  text.AddNumber(static_cast<uint64_t>(year), 4);
  Text = text.ToString();
  return true;
}

TIniValue<TDateTime> IniToDay(const String& Text) { return Read<TDateTime>(Text, TryStrToDay); }

}  // namespace vx
