#include "core/StrictDates.h"

#include <cmath>

#include "core/detail/TextCursor.h"
#include "platform/Calendar.h"
#include "platform/TextBuffer.h"

namespace vx {

namespace {

using detail::IsBlank;
using detail::TTextCursor;

// Up to Most digits, of which there have to be Least.
template <int Least, int Most>
bool TakeField(TTextCursor& Cursor, int& Value) noexcept {
  Value = Cursor.TakeExactly<Most>();
  if (Value >= 0) [[likely]]
    return true;
  uint64_t value = 0;
  const int count = Cursor.TakeDigits(value, Most);
  Value = static_cast<int>(value);
  return count >= Least || Cursor.FailHere();
}

bool TakeSeparator(TTextCursor& Cursor, char16_t Separator) noexcept {
  return Cursor.Take(Separator) || Cursor.FailHere();
}

// A date from its first digit on.
class TDateReader {
 public:
  explicit TDateReader(TTextCursor& Cursor) noexcept : FCursor(Cursor) {}

  bool Read(TDateTime& Date) noexcept {
    FIsIso = FCursor.IsAtDigit(2) && FCursor.IsAtDigit(3) && FCursor.Peek(4) == u'-';
    return (FIsIso ? ReadIso() : ReadGerman()) && Encode(Date);
  }
  bool IsIso() const noexcept { return FIsIso; }

 private:
  bool ReadGerman() noexcept {
    return ReadDay<1>() && TakeSeparator(FCursor, u'.') && ReadMonth<1>() && TakeSeparator(FCursor, u'.') && ReadYear();
  }
  bool ReadIso() noexcept {
    return ReadYear() && TakeSeparator(FCursor, u'-') && ReadMonth<2>() && TakeSeparator(FCursor, u'-') && ReadDay<2>();
  }
  template <int Least>
  bool ReadDay() noexcept {
    FDayPlace = FCursor.Here();
    return TakeField<Least, 2>(FCursor, FDay);
  }
  template <int Least>
  bool ReadMonth() noexcept {
    const char16_t* const place = FCursor.Here();
    if (!TakeField<Least, 2>(FCursor, FMonth)) return false;
    return (FMonth >= 1 && FMonth <= 12) || FCursor.FailAt(place, tfMonth);
  }
  bool ReadYear() noexcept {
    const char16_t* const place = FCursor.Here();
    if (!TakeField<1, 4>(FCursor, FYear)) return false;
    const bool isWhole = FCursor.Here() - place == 4 && !FCursor.IsAtDigit() && FYear > 0;
    return isWhole || FCursor.FailAt(place, tfYear);
  }
  bool Encode(TDateTime& Date) noexcept {
    return TryEncodeDate(FYear, FMonth, FDay, Date) || FCursor.FailAt(FDayPlace, tfDay);
  }

  TTextCursor& FCursor;
  bool FIsIso = false;
  int FYear = 0, FMonth = 0, FDay = 0;
  const char16_t* FDayPlace = nullptr;
};

// Behind the minutes: seconds and thousandths, or neither.
bool ReadSeconds(TTextCursor& Cursor, int& Second, int& MSec) noexcept {
  if (!Cursor.Take(u':')) return true;
  const char16_t* const place = Cursor.Here();
  if (!TakeField<2, 2>(Cursor, Second)) return false;
  if (Second > 59) return Cursor.FailAt(place, tfSecond);
  return !(Cursor.Take(u'.') || Cursor.Take(u':')) || TakeField<3, 3>(Cursor, MSec);
}

// A time from its first digit to the end of the text; with MayEndDay also 24:00, which is 1.0.
bool ReadTime(TTextCursor& Cursor, bool MayEndDay, TDateTime& Time) noexcept {
  int hour = 0, minute = 0, second = 0, msec = 0;
  const char16_t* const place = Cursor.Here();
  if (!TakeField<1, 2>(Cursor, hour) || !TakeSeparator(Cursor, u':')) return false;
  const char16_t* const minutePlace = Cursor.Here();
  if (!TakeField<2, 2>(Cursor, minute)) return false;
  if (minute > 59) return Cursor.FailAt(minutePlace, tfMinutes);
  if (!ReadSeconds(Cursor, second, msec) || !Cursor.Ends()) return false;
  if (MayEndDay && hour == 24 && minute == 0 && second == 0 && msec == 0) {
    Time = 1;
    return true;
  }
  return TryEncodeTime(hour, minute, second, msec, Time) || Cursor.FailAt(place, tfHour);
}

// Between date and time: blanks, or a T behind the form of programs.
bool TakeGap(TTextCursor& Cursor, bool IsIso) noexcept {
  if (IsIso && Cursor.Take(u'T')) return true;
  if (Cursor.IsAtEnd() || !IsBlank(Cursor.Peek())) return Cursor.FailHere();
  Cursor.SkipBlanks();
  return true;
}

TDateTime WithTime(TDateTime Date, TDateTime Time) noexcept { return Date < 0 ? Date - Time : Date + Time; }

// The usual forms have each field at its place and are read at once; false for all else, which the readers above look
// at in turn. dd.mm.yyyy:
bool ReadUsualDate(const char16_t* At, TDateTime& Date) noexcept {
  const unsigned places[] = {0, 1, 3, 4, 6, 7, 8, 9};
  unsigned digits = 0;
  bool areDigits = At[2] == u'.' && At[5] == u'.';
  for (const unsigned place : places) {
    areDigits = areDigits && IsDigit(At[place]);
    digits = digits * 10 + At[place] - u'0';
  }
  return areDigits && TryEncodeDate(static_cast<int>(digits % 10000), static_cast<int>(digits / 10000 % 100),
                                    static_cast<int>(digits / 1000000), Date);
}
// hh:nn or hh:nn:ss
bool ReadUsualTime(std::u16string_view Text, TDateTime& Time) noexcept {
  auto field = [&](size_t place) {
    const unsigned high = Text[place] - unsigned{u'0'}, low = Text[place + 1] - unsigned{u'0'};
    return high <= 9 && low <= 9 ? static_cast<int>(high * 10 + low) : 99;
  };
  if ((Text.size() != 5 && Text.size() != 8) || Text[2] != u':') return false;
  const bool hasSeconds = Text.size() == 8;
  if (hasSeconds && Text[5] != u':') return false;
  return TryEncodeTime(field(0), field(3), hasSeconds ? field(6) : 0, 0, Time);
}

void AddDate(TTextBuffer& Text, TDateTime Value) {
  int year, month, day;
  DecodeDate(Value, year, month, day);
  Text.AddNumber(static_cast<unsigned>(day), 2);
  Text.Add(u'.');
  Text.AddNumber(static_cast<unsigned>(month), 2);
  Text.Add(u'.');
  Text.AddNumber(static_cast<unsigned>(year), 4);
}

void AddTime(TTextBuffer& Text, int MSecs, bool WithSeconds) {
  const auto time = static_cast<unsigned>(MSecs);
  Text.AddNumber(time / 3600000, 2);
  Text.Add(u':');
  Text.AddNumber(time / 60000 % 60, 2);
  if (!WithSeconds && time % 60000 == 0) return;
  Text.Add(u':');
  Text.AddNumber(time / 1000 % 60, 2);
  if (time % 1000 == 0) return;
  Text.Add(u':');
  Text.AddNumber(time % 1000, 3);
}

}  // namespace

bool TryStrToDateStrict(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept {
  if (Text.size() == 10 && ReadUsualDate(Text.data(), Value)) [[likely]] {
    Fault = {};
    return true;
  }
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  TDateTime date;
  if (!TDateReader(cursor).Read(date) || !cursor.Ends()) return false;
  Value = date;
  return true;
}

bool TryStrToTimeStrict(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept {
  if (ReadUsualTime(Text, Value)) [[likely]] {
    Fault = {};
    return true;
  }
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  return ReadTime(cursor, true, Value);
}

bool TryStrToDateTimeStrict(std::u16string_view Text, TDateTime& Value, TTextFault& Fault) noexcept {
  TDateTime date = 0, time = 0;
  if (Text.size() > 11 && Text[10] == u' ' && ReadUsualDate(Text.data(), date) && ReadUsualTime(Text.substr(11), time))
      [[likely]] {
    Fault = {};
    Value = WithTime(date, time);
    return true;
  }
  TTextCursor cursor(Text, Fault);
  if (cursor.IsAtEnd()) return cursor.Fail(tfEmpty);
  TDateReader reader(cursor);
  if (!reader.Read(date) || !TakeGap(cursor, reader.IsIso()) || !ReadTime(cursor, false, time)) return false;
  Value = WithTime(date, time);
  return true;
}

bool TryDateToStrStrict(TDateTime Value, String& Text) {
  if (DateTimeToTimeStamp(Value).Date == 0 || Value != std::trunc(Value)) return false;
  TTextBuffer text;
  AddDate(text, Value);
  Text = text.ToString();
  return true;
}

bool TryTimeToStrStrict(TDateTime Value, String& Text) {
  if (!(Value >= 0 && Value <= 1)) return false;
  const TTimeStamp stamp = DateTimeToTimeStamp(Value);
  TTextBuffer text;
  AddTime(text, stamp.Date > DateDelta ? MSecsPerDay : stamp.Time, false);
  Text = text.ToString();
  return true;
}

bool TryDateTimeToStrStrict(TDateTime Value, String& Text) {
  const TTimeStamp stamp = DateTimeToTimeStamp(Value);
  if (stamp.Date == 0) return false;
  TTextBuffer text;
  AddDate(text, Value);
  text.Add(u' ');
  AddTime(text, stamp.Time, true);
  Text = text.ToString();
  return true;
}

}  // namespace vx
