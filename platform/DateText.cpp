#include "platform/DateText.h"

#include <algorithm>

#include "platform/Calendar.h"
#include "platform/Text.h"
#include "platform/TextBuffer.h"
#include "platform/detail/Masks.h"

namespace vx {

using detail::AddLiteral;
using detail::BehindLiteral;
using detail::IsQuote;

namespace {

// Forms of the settings may name each other only so deep.
constexpr int kMaxDepth = 2;

bool IsLetter(char16_t Lowered) noexcept { return Lowered >= u'a' && Lowered <= u'z'; }

// Text begins with Word in any case.
bool StartsWith(std::u16string_view Text, std::u16string_view Word) noexcept {
  return SameAscii(Text.substr(0, Word.size()), Word);
}

// The length of the sign for the half of the day that Text begins with, 0 if there is none.
size_t HalfDayLength(std::u16string_view Text) noexcept {
  if (StartsWith(Text, u"am/pm")) return 5;
  if (StartsWith(Text, u"ampm")) return 4;
  if (StartsWith(Text, u"a/p")) return 3;
  return 0;
}

// Whether the sign for the half of the day follows before the next hour.
bool IsHalfDayAhead(std::u16string_view Mask, size_t At) noexcept {
  while (At < Mask.size()) {
    const char16_t unit = LowerAscii(Mask[At]);
    if (IsQuote(unit)) {
      At = BehindLiteral(Mask, At);
      continue;
    }
    if (unit == u'h') return false;
    if (unit == u'a' && HalfDayLength(Mask.substr(At)) != 0) return true;
    ++At;
  }
  return false;
}

// Writes one date-time by masks.
class TDateWriter {
 public:
  TDateWriter(TDateTime DateTime, const TFormatSettings& Settings) noexcept
      : FSettings(Settings), FWeekday(DayOfWeek(DateTime)) {
    DecodeDate(DateTime, FYear, FMonth, FDay);
    DecodeTime(DateTime, FHour, FMinute, FSecond, FMSec);
  }

  void Write(std::u16string_view Mask) {
    if (FDepth == kMaxDepth) return;
    ++FDepth;
    char16_t lastLetter = 0;
    for (size_t at = 0; at < Mask.size();) {
      const char16_t letter = LowerAscii(Mask[at]);
      if (IsQuote(letter)) {
        at = AddLiteral(FBuffer, Mask, at);
      } else if (IsLetter(letter)) {
        at = WriteField(Mask, at, letter == u'm' && lastLetter == u'h' ? u'n' : letter);
        lastLetter = letter == u'm' && lastLetter == u'h' ? u'n' : letter;
      } else {
        WriteSign(Mask[at++]);
      }
    }
    --FDepth;
  }

  String ToString() const { return FBuffer.ToString(); }

 private:
  void WriteSign(char16_t Sign) {
    const char16_t written = Sign == u'/' ? FSettings.DateSeparator : Sign == u':' ? FSettings.TimeSeparator : Sign;
    if (written != 0 || Sign == 0) FBuffer.Add(written);
  }

  // Returns the place behind the field.
  size_t WriteField(std::u16string_view Mask, size_t At, char16_t Kind) {
    if (Kind == u'a') return WriteHalfDay(Mask, At);
    size_t end = At;
    while (end < Mask.size() && LowerAscii(Mask[end]) == LowerAscii(Mask[At])) ++end;
    const int count = static_cast<int>(std::min<size_t>(end - At, 9));
    switch (Kind) {
      case u'y':
        count <= 2 ? WriteNumber(FYear % 100, 2) : WriteNumber(FYear, 4);
        break;
      case u'm':
        WriteMonth(count);
        break;
      case u'd':
        WriteDay(count);
        break;
      case u'h':
        WriteHour(count, IsHalfDayAhead(Mask, end));
        break;
      case u'n':
        WriteNumber(FMinute, std::min(count, 2));
        break;
      case u's':
        WriteNumber(FSecond, std::min(count, 2));
        break;
      case u'z':
        WriteNumber(FMSec, std::min(count, 3));
        break;
      case u't':
        Write(count == 1 ? FSettings.ShortTimeFormat : FSettings.LongTimeFormat);
        break;
      case u'c':
        WriteDateAndTime();
        break;
      default:
        FBuffer.Add(Mask.substr(At, end - At));
        break;
    }
    return end;
  }

  void WriteNumber(int Number, int Digits) { FBuffer.AddNumber(static_cast<uint64_t>(Number), Digits); }

  void WriteMonth(int Count) {
    if (Count <= 2) {
      WriteNumber(FMonth, Count);
    } else if (FMonth != 0) {
      const size_t month = static_cast<size_t>(FMonth) - 1;
      FBuffer.Add(Count == 3 ? FSettings.ShortMonthNames[month] : FSettings.LongMonthNames[month]);
    }
  }

  void WriteDay(int Count) {
    if (Count <= 2) {
      WriteNumber(FDay, Count);
    } else if (Count >= 5) {
      Write(Count == 5 ? FSettings.ShortDateFormat : FSettings.LongDateFormat);
    } else if (FWeekday != 0) {
      const size_t day = static_cast<size_t>(FWeekday) - 1;
      FBuffer.Add(Count == 3 ? FSettings.ShortDayNames[day] : FSettings.LongDayNames[day]);
    }
  }

  void WriteHour(int Count, bool CountsTo12) {
    int hour = FHour;
    if (CountsTo12) hour = hour % 12 == 0 ? 12 : hour % 12;
    WriteNumber(hour, std::min(Count, 2));
  }

  size_t WriteHalfDay(std::u16string_view Mask, size_t At) {
    const size_t length = HalfDayLength(Mask.substr(At));
    const bool isMorning = FHour < 12;
    if (length == 5 || length == 3) {  // as written, up to the slash or behind it
      const size_t half = length / 2;
      FBuffer.Add(Mask.substr(At + (isMorning ? 0 : half + 1), half));
    } else if (length == 4) {
      FBuffer.Add(isMorning ? FSettings.TimeAMString : FSettings.TimePMString);
    } else {
      FBuffer.Add(Mask[At]);
      return At + 1;
    }
    return At + length;
  }

  void WriteDateAndTime() {
    Write(FSettings.ShortDateFormat);
    if (FHour == 0 && FMinute == 0 && FSecond == 0 && FMSec == 0) return;
    FBuffer.Add(u' ');
    Write(FSettings.LongTimeFormat);
  }

  TTextBuffer FBuffer;
  const TFormatSettings& FSettings;
  int FWeekday;
  int FYear, FMonth, FDay, FHour, FMinute, FSecond, FMSec;
  int FDepth = 0;
};

}  // namespace

String FormatDateTime(std::u16string_view Mask, TDateTime DateTime, const TFormatSettings& Settings) {
  TDateWriter writer(DateTime, Settings);
  writer.Write(Mask.empty() ? u"c" : Mask);
  return writer.ToString();
}

String FormatDateTime(std::u16string_view Mask, TDateTime DateTime) {
  return FormatDateTime(Mask, DateTime, GetFormatSettings());
}

String DateToStr(TDateTime DateTime, const TFormatSettings& Settings) {
  return FormatDateTime(u"ddddd", DateTime, Settings);
}
String TimeToStr(TDateTime DateTime, const TFormatSettings& Settings) {
  return FormatDateTime(u"tt", DateTime, Settings);
}
String DateTimeToStr(TDateTime DateTime, const TFormatSettings& Settings) {
  return FormatDateTime(u"c", DateTime, Settings);
}
String DateToStr(TDateTime DateTime) { return DateToStr(DateTime, GetFormatSettings()); }
String TimeToStr(TDateTime DateTime) { return TimeToStr(DateTime, GetFormatSettings()); }
String DateTimeToStr(TDateTime DateTime) { return DateTimeToStr(DateTime, GetFormatSettings()); }

}  // namespace vx
