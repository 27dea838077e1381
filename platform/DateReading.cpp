#include <algorithm>

#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Exceptions.h"
#include "platform/Text.h"

namespace vx {

namespace {

// A text that is read from the front.
class TReader {
 public:
  explicit TReader(std::u16string_view Text) noexcept : FText(Text) {}

  bool IsAtEnd() const noexcept { return FText.empty(); }
  void SkipBlanks() noexcept { FText.remove_prefix(std::min(FText.find_first_not_of(u' '), FText.size())); }

  // Digits as long as they are below 1000 in all, blanks before them skipped.
  bool Number(int& Value, int& Digits) noexcept {
    SkipBlanks();
    int value = 0, digits = 0;
    while (!FText.empty() && IsDigit(FText.front()) && value < 1000) {
      value = value * 10 + (FText.front() - u'0');
      ++digits;
      FText.remove_prefix(1);
    }
    if (digits == 0) return false;
    Value = value;
    Digits = digits;
    return true;
  }
  bool Number(int& Value) noexcept {
    int digits;
    return Number(Value, digits);
  }

  // Separator, blanks before it skipped.
  bool Sign(char16_t Separator) noexcept {
    SkipBlanks();
    if (Separator == 0 || FText.empty() || FText.front() != Separator) return false;
    FText.remove_prefix(1);
    return true;
  }

  // Word in any case, blanks before it skipped; never an empty one.
  bool Word(std::u16string_view Word) noexcept {
    SkipBlanks();
    if (Word.empty() || !SameAscii(FText.substr(0, Word.size()), Word)) return false;
    FText.remove_prefix(Word.size());
    return true;
  }

 private:
  std::u16string_view FText;
};

enum TDateOrder { doDMY, doMDY, doYMD };

TDateOrder OrderOf(std::u16string_view ShortDateFormat) noexcept {
  for (char16_t unit : ShortDateFormat) {
    switch (unit) {
      case u'd':
      case u'D':
        return doDMY;
      case u'y':
      case u'Y':
        return doYMD;
      case u'm':
      case u'M':
        return doMDY;
      default:
        break;
    }
  }
  return doDMY;
}

int PresentYear() {
  int year, month, day;
  DecodeDate(Now(), year, month, day);
  return year;
}

int WidenedYear(int Year, int Window) {
  const int present = PresentYear();
  if (Window == 0) return present / 100 * 100 + Year;
  const int first = present - Window;
  const int result = first / 100 * 100 + Year;
  return result < first ? result + 100 : result;
}

bool ReadDate(TReader& Reader, TDateTime& Value, const TFormatSettings& Settings) {
  int fields[3], digits[3];
  int count = 0;
  do {
    if (!Reader.Number(fields[count], digits[count])) return false;
    ++count;
  } while (count < 3 && Reader.Sign(Settings.DateSeparator));
  if (count < 2) return false;
  if (count == 3) Reader.Sign(Settings.DateSeparator);  // one more is allowed

  const TDateOrder order = OrderOf(Settings.ShortDateFormat);
  if (count == 2) {
    const bool isDayFirst = order == doDMY;
    return TryEncodeDate(PresentYear(), fields[isDayFirst ? 1 : 0], fields[isDayFirst ? 0 : 1], Value);
  }
  const int yearAt = order == doYMD ? 0 : 2;
  const int monthAt = order == doMDY ? 0 : 1;
  const int dayAt = 3 - yearAt - monthAt;
  int year = fields[yearAt];
  if (digits[yearAt] <= 2) year = WidenedYear(year, Settings.TwoDigitYearCenturyWindow);
  return TryEncodeDate(year, fields[monthAt], fields[dayAt], Value);
}

// The usual form, dd.mm.yyyy with nothing around it.
bool IsPlainDate(std::u16string_view Text, const TFormatSettings& Settings) noexcept {
  if (Text.size() != 10 || Text[2] != Settings.DateSeparator || Text[5] != Settings.DateSeparator) return false;
  // Without a branch for each digit.
  auto isDigit = [Text](size_t At) { return IsDigit(Text[At]) ? 1u : 0u; };
  const bool hasDigits =
      (isDigit(0) & isDigit(1) & isDigit(3) & isDigit(4) & isDigit(6) & isDigit(7) & isDigit(8) & isDigit(9)) != 0;
  return hasDigits && OrderOf(Settings.ShortDateFormat) == doDMY;
}

bool ReadPlainDate(std::u16string_view Text, TDateTime& Value) noexcept {
  auto digits = [Text](size_t At) { return (Text[At] - u'0') * 10 + (Text[At + 1] - u'0'); };
  return TryEncodeDate(digits(6) * 100 + digits(8), digits(3), digits(0), Value);
}

enum THalfDay { hdNone, hdMorning, hdAfternoon };

THalfDay ReadHalfDay(TReader& Reader, const TFormatSettings& Settings) noexcept {
  if (Reader.Word(Settings.TimeAMString) || Reader.Word(u"am")) return hdMorning;
  if (Reader.Word(Settings.TimePMString) || Reader.Word(u"pm")) return hdAfternoon;
  return hdNone;
}

bool ReadTime(TReader& Reader, TDateTime& Value, const TFormatSettings& Settings) noexcept {
  THalfDay half = ReadHalfDay(Reader, Settings);
  int hour, minute = 0, second = 0, msec = 0;
  if (!Reader.Number(hour)) return false;
  if (Reader.Sign(Settings.TimeSeparator)) {
    if (!Reader.Number(minute)) return false;
    if (Reader.Sign(Settings.TimeSeparator)) {
      if (!Reader.Number(second)) return false;
      if (Reader.Sign(Settings.DecimalSeparator) && !Reader.Number(msec)) return false;
    }
  }
  if (half == hdNone) half = ReadHalfDay(Reader, Settings);
  if (half != hdNone) {
    if (hour == 0 || hour > 12) return false;
    hour = hour % 12 + (half == hdAfternoon ? 12 : 0);
  }
  Reader.SkipBlanks();
  return TryEncodeTime(hour, minute, second, msec, Value);
}

}  // namespace

bool TryStrToDate(std::u16string_view Text, TDateTime& Value, const TFormatSettings& Settings) noexcept {
  if (IsPlainDate(Text, Settings)) return ReadPlainDate(Text, Value);
  TReader reader(Text);
  TDateTime value;
  if (!ReadDate(reader, value, Settings)) return false;
  reader.SkipBlanks();
  if (!reader.IsAtEnd()) return false;
  Value = value;
  return true;
}

bool TryStrToTime(std::u16string_view Text, TDateTime& Value, const TFormatSettings& Settings) noexcept {
  TReader reader(Text);
  TDateTime value;
  if (!ReadTime(reader, value, Settings) || !reader.IsAtEnd()) return false;
  Value = value;
  return true;
}

bool TryStrToDateTime(std::u16string_view Text, TDateTime& Value, const TFormatSettings& Settings) noexcept {
  TReader reader(Text);
  TDateTime date, time = 0;
  if (!ReadDate(reader, date, Settings)) return TryStrToTime(Text, Value, Settings);
  reader.SkipBlanks();
  if (!reader.IsAtEnd() && (!ReadTime(reader, time, Settings) || !reader.IsAtEnd())) return false;
  Value = date < 0 ? date - time : date + time;
  return true;
}

bool TryStrToDate(std::u16string_view Text, TDateTime& Value) noexcept {
  return TryStrToDate(Text, Value, GetFormatSettings());
}

bool TryStrToTime(std::u16string_view Text, TDateTime& Value) noexcept {
  return TryStrToTime(Text, Value, GetFormatSettings());
}

bool TryStrToDateTime(std::u16string_view Text, TDateTime& Value) noexcept {
  return TryStrToDateTime(Text, Value, GetFormatSettings());
}

TDateTime StrToDate(std::u16string_view Text, const TFormatSettings& Settings) {
  TDateTime value = 0;
  if (!TryStrToDate(Text, value, Settings)) RaiseConvertError(Text, u"date");
  return value;
}

TDateTime StrToTime(std::u16string_view Text, const TFormatSettings& Settings) {
  TDateTime value = 0;
  if (!TryStrToTime(Text, value, Settings)) RaiseConvertError(Text, u"time");
  return value;
}

TDateTime StrToDateTime(std::u16string_view Text, const TFormatSettings& Settings) {
  TDateTime value = 0;
  if (!TryStrToDateTime(Text, value, Settings)) RaiseConvertError(Text, u"date and time");
  return value;
}

TDateTime StrToDate(std::u16string_view Text) { return StrToDate(Text, GetFormatSettings()); }
TDateTime StrToTime(std::u16string_view Text) { return StrToTime(Text, GetFormatSettings()); }
TDateTime StrToDateTime(std::u16string_view Text) { return StrToDateTime(Text, GetFormatSettings()); }

}  // namespace vx
