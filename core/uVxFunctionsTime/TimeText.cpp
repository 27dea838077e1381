#include "core/uVxFunctionsTime/TimeText.h"

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctionsTime/Encoding.h"
#include "core/uVxFunctionsTime/Parts.h"
#include "platform/DateText.h"

namespace vx {

using namespace timeparts;

namespace {

String TextBetween(const char16_t* First, const char16_t* Last) {
  return std::u16string_view(First, static_cast<size_t>(Last - First));
}

char16_t* PutPart(char16_t* End, int Value) noexcept {
  End = PutTwoDigits(End, Value);
  *--End = u':';
  return End;
}

// Writes everything behind the hours before End and returns where it begins.
char16_t* PutAllBehindHours(char16_t* End, const TTime& Time, TDateTimeFormats Formats) noexcept {
  const bool isTrimmed = Formats.Has(dfTrimRight);
  char16_t* place = End;
  auto isWanted = [&](int Value) { return !isTrimmed || Value != 0 || place != End; };
  if (Formats.Has(dfSecMSec) && isWanted(Time.MSec)) {
    place = PutNumber(place, static_cast<unsigned>(Time.MSec), 3);
    *--place = u':';
  }
  if ((Formats.Has(dfSec) || Formats.Has(dfSecMSec)) && isWanted(Time.Second)) place = PutPart(place, Time.Second);
  if (isWanted(Time.Minute)) place = PutPart(place, Time.Minute);
  return place;
}

// The same, with a short way for the common form.
inline char16_t* PutBehindHours(char16_t* End, const TTime& Time, TDateTimeFormats Formats) noexcept {
  const bool isShort = (Formats * TDateTimeFormats{dfSec, dfSecMSec, dfTrimRight}).IsEmpty();
  return isShort ? PutPart(End, Time.Minute) : PutAllBehindHours(End, Time, Formats);
}

}  // namespace

String VxDateToStr(TDateTime DateTime, TDateTimeFormats Formats) {
  const TDate date = DateOf(DateTime);
  char16_t text[10];
  char16_t* const end = text + 10;
  PutTwoDigits(end, date.Year % 100);
  PutTwoDigits(end - 2, date.Year / 100);
  text[5] = u'.';
  PutTwoDigits(text + 5, date.Month);
  text[2] = u'.';
  PutTwoDigits(text + 2, date.Day);
  return TextBetween(Formats.Has(dfTrimLeft) && date.Day < 10 ? text + 1 : text, end);
}

String VxTimeToStr(TDateTime DateTime) { return FormatDateTime(u"hh:nn:ss", DateTime); }

String VxTimeToStr24(TDateTime DateTime, TDateTimeFormats Formats) {
  TTime time = TimeOf(DateTime);
  if (DateTime == 1.0) time.Hour = 24;
  char16_t text[12];
  char16_t* place = PutBehindHours(text + 12, time, Formats);
  if (Formats.Has(dfTrimLeft) && time.Hour < 10) {
    *--place = static_cast<char16_t>(u'0' + time.Hour);
  } else {
    place = PutTwoDigits(place, time.Hour);
  }
  return TextBetween(place, text + 12);
}

String VxHourToStr(TDateTime Hour, TDateTimeFormats Formats) {
  const TTime time = TimeOf(Hour);
  const int64_t hours = std::abs(WholeDays(Hour)) * 24 + time.Hour;
  char16_t text[32];
  char16_t* place = PutBehindHours(text + 32, time, Formats);
  if (hours != 0 || Hour == 0 || !Formats.Has(dfTrimLeft)) place = PutNumber(place, static_cast<uint64_t>(hours), 1);
  if (Hour < 0) {
    *--place = u'-';
  } else if (Formats.Has(dfPlusSign)) {
    *--place = u'+';
  }
  return TextBetween(place, text + 32);
}

TDateTime VxStrToDate(std::u16string_view Text) noexcept {
  TFieldReader fields(Text, u'.');
  const int day = fields.Next();
  const int month = fields.Next();
  return VxEncodeDate(fields.Next(), month, day);
}

TDateTime VxStrToDateProtected(std::u16string_view Text) {
  if (Text.size() < 5 || Text.substr(0, 3) != u"00.") return VxStrToDate(Text);
  String repaired(Text);
  repaired.SetUnit(1, u'1');
  if (Text.substr(3, 2) == u"00") repaired.SetUnit(4, u'1');
  return VxStrToDate(repaired);
}

TDateTime VxStrToTime(std::u16string_view Text) noexcept { return StrToTimeDef(Text, 0); }

TDateTime VxStrToDateTime(std::u16string_view Text) {
  int fields[7] = {};
  size_t first = 0;
  for (int& field : fields) {
    if (first >= Text.size()) break;
    size_t last = first + 1;
    while (last < Text.size() && IsDigit(Text[last])) ++last;
    field = StrToInt(Text.substr(first, last - first));
    first = last + 1;
  }
  const auto& [day, month, year, hour, minute, second, msec] = fields;
  TDateTime result = 0;
  if (day != 0 || month != 0 || year != 0) result = EncodeDate(year, month, day);
  if (hour != 0 || minute > 0 || second > 0 || msec > 0) result += EncodeTime(hour, minute, second, msec);
  return result;
}

TDateTime VxStrToTime24(std::u16string_view Text, TDateTime Default) noexcept {
  if (Text.empty()) return Default;
  TFieldReader fields(Text, u':');
  const int hour = fields.Next();
  if (hour == 24) return 1.0;
  const int minute = fields.Next();
  const int second = fields.Next();
  TDateTime time;
  return VxEncodeTime(hour, minute, second, fields.Next(), time) ? time : Default;
}

bool VxStrToHour(std::u16string_view Text, TDateTime& Hour) noexcept {
  Hour = 0;
  if (Text.empty()) return true;
  const bool isNegative = Text.front() == u'-';
  if (isNegative || Text.front() == u'+') Text.remove_prefix(1);
  TFieldReader fields(Text, u':');
  const int hours = fields.Next();
  const int minute = fields.Next();
  const int second = fields.Next();
  if (!VxEncodeTime(hours % 24, minute, second, fields.Next(), Hour)) return false;
  if (const int days = hours / 24; days > 0) Hour += days;
  if (isNegative) Hour = 0 - Hour;
  return fields.Finish();
}

}  // namespace vx
