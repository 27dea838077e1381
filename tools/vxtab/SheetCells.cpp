#include "tools/vxtab/SheetCells.h"

#include <cmath>

#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "platform/TextBuffer.h"
#include "tables/uFileCsv.h"

namespace vx::vxtab {

TSheetFormat FormatOfCode(std::string_view Code) noexcept {
  bool hasDate = false, hasTime = false;
  char until = 0;  // ends a stretch that is no code
  for (size_t pos = 0; pos < Code.size(); ++pos) {
    const char letter = static_cast<char>(Code[pos] | 0x20);
    if (until != 0) {
      if (Code[pos] == until) until = 0;
    } else if (Code[pos] == '"') {
      until = '"';
    } else if (Code[pos] == '[') {
      if (pos + 1 < Code.size() && (Code[pos + 1] | 0x20) == 'h') return sfHours;
      until = ']';
    } else if (Code[pos] == '\\' || Code[pos] == '_' || Code[pos] == '*') {
      ++pos;
    } else if (letter == 'y' || letter == 'd') {
      hasDate = true;
    } else if (letter == 'h' || letter == 's') {
      hasTime = true;
    }
  }
  return hasDate ? hasTime ? sfMoment : sfDate : hasTime ? sfTime : sfNumber;
}

TSheetFormat FormatOfNumber(size_t Number) noexcept {
  if (Number == 22) return sfMoment;
  if (Number == 46) return sfHours;
  if (Number >= 18 && Number <= 21) return sfTime;
  return Number >= 14 && Number <= 17 ? sfDate : sfNumber;
}

namespace {

// "124:30", with seconds only where there are some.
String HoursText(double Days) {
  const auto seconds = static_cast<int64_t>(std::llround(std::fabs(Days) * 86400));
  TTextBuffer text;
  if (Days < 0 && seconds > 0) text.Add(u'-');
  text.AddNumber(static_cast<uint64_t>(seconds / 3600));
  text.Add(u':');
  text.AddNumber(static_cast<uint64_t>(seconds / 60 % 60), 2);
  if (seconds % 60 != 0) {
    text.Add(u':');
    text.AddNumber(static_cast<uint64_t>(seconds % 60), 2);
  }
  return text.ToString();
}

}  // namespace

String TextOfValue(double Value, TSheetFormat Format) {
  constexpr double kLastDay = 2958465;  // 31.12.9999
  if (Format == sfHours && std::fabs(Value) < kLastDay) return HoursText(Value);
  if (Format == sfNumber || !(Value >= 0 && Value < kLastDay + 1)) return FloatToStr(Value);
  // To the second, as a file may hold it a little below.
  constexpr double kSeconds = 86400;
  const TDateTime moment = std::round(Value * kSeconds) / kSeconds;
  if (Format == sfTime && moment < 1) return FormatDateTime(u"hh:nn:ss", moment);
  const bool isDate = Format == sfDate && moment == std::floor(moment);
  return FormatDateTime(isDate ? u"dd.mm.yyyy" : u"dd.mm.yyyy hh:nn:ss", moment);
}

std::optional<TSheetValue> ValueOfText(const String& Text) {
  const TVxFieldType type = TFileCsv::GuessFieldType(Text);
  if (type == vftInteger || type == vftFloat) {
    Extended number = 0;
    if (!TextToFloat(Text, number, GetFormatSettings())) return {};
    const TSheetValue value{static_cast<double>(number), sfNumber};
    if (TextOfValue(value.Value, sfNumber) == Text) return value;
  } else if (type == vftDate) {
    TDateTime date = 0;
    // Sheets know no day before March 1900 by the number that all others give it.
    constexpr TDateTime kFirst = 61;
    if (!TryStrToDate(Text, date) || date < kFirst) return {};
    if (TextOfValue(date, sfDate) == Text) return TSheetValue{date, sfDate};
  }
  return {};
}

}  // namespace vx::vxtab
