#include "bench/values/HandWritten.h"

#include <chrono>
#include <cmath>
#include <cstdint>

namespace vx::bench {

namespace {

constexpr int64_t kMSecsPerDay = 86400000;
// The day 30.12.1899, counted from 1.1.1970.
constexpr int kFirstDay = -25569;

bool IsDigit(char16_t Unit) { return Unit >= u'0' && Unit <= u'9'; }

// The number of the Count digits at Start; -1 if there is another character among them.
int ReadDigits(std::u16string_view Text, size_t Start, size_t Count) {
  int number = 0;
  for (size_t i = Start; i < Start + Count; ++i) {
    if (!IsDigit(Text[i])) return -1;
    number = number * 10 + (Text[i] - u'0');
  }
  return number;
}

void WriteTwo(char16_t* Out, int Number) {
  Out[0] = static_cast<char16_t>(u'0' + Number / 10);
  Out[1] = static_cast<char16_t>(u'0' + Number % 10);
}

// Writes Number in front of End; gives where it begins.
char16_t* WriteBefore(char16_t* End, uint64_t Number) {
  do {
    *--End = static_cast<char16_t>(u'0' + Number % 10);
    Number /= 10;
  } while (Number > 0);
  return End;
}

String Made(const char16_t* Begin, const char16_t* End) {
  return std::u16string_view(Begin, static_cast<size_t>(End - Begin));
}

char16_t ToUpper(char16_t Unit) {
  bool isLower = (Unit >= u'a' && Unit <= u'z') || (Unit >= u'\u00E0' && Unit <= u'\u00FE' && Unit != u'\u00F7');
  return isLower ? static_cast<char16_t>(Unit - 32) : Unit;
}

}  // namespace

TDateTime HandStrToDate(std::u16string_view Text, TDateTime Default) {
  if (Text.size() != 10 || Text[2] != u'.' || Text[5] != u'.') return Default;
  int day = ReadDigits(Text, 0, 2), month = ReadDigits(Text, 3, 2), year = ReadDigits(Text, 6, 4);
  if (day < 1 || month < 1 || year < 1) return Default;
  std::chrono::year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                   std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok()) return Default;
  return static_cast<TDateTime>(std::chrono::sys_days(date).time_since_epoch().count() - kFirstDay);
}

TDateTime HandStrToTime(std::u16string_view Text, TDateTime Default) {
  if (Text.size() != 5 || Text[2] != u':') return Default;
  int hour = ReadDigits(Text, 0, 2), minute = ReadDigits(Text, 3, 2);
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return Default;
  return (hour * 60 + minute) / 1440.0;
}

String HandDateToStr(TDateTime Date) {
  if (!(Date > -693594 && Date < 2958466)) return {};
  std::chrono::year_month_day date(std::chrono::sys_days(std::chrono::days(static_cast<int>(Date) + kFirstDay)));
  char16_t text[10];
  int year = static_cast<int>(date.year());
  WriteTwo(text, static_cast<int>(static_cast<unsigned>(date.day())));
  text[2] = u'.';
  WriteTwo(text + 3, static_cast<int>(static_cast<unsigned>(date.month())));
  text[5] = u'.';
  WriteTwo(text + 6, year / 100);
  WriteTwo(text + 8, year % 100);
  return Made(text, text + 10);
}

String HandTimeToStr(TDateTime Time) {
  if (!(Time > -693594 && Time < 2958466)) return {};
  if (Time == 1.0) return u"24:00";
  double fraction = std::fabs(Time - static_cast<double>(static_cast<int>(Time)));
  int minutes = static_cast<int>(static_cast<int64_t>(fraction * kMSecsPerDay + 0.5) % kMSecsPerDay / 60000);
  char16_t text[5];
  WriteTwo(text, minutes / 60);
  text[2] = u':';
  WriteTwo(text + 3, minutes % 60);
  return Made(text, text + 5);
}

bool HandStrToCurr(std::u16string_view Text, Currency& Value) {
  bool isNegative = !Text.empty() && Text[0] == u'-';
  int64_t number = 0;
  int digits = 0, decimals = -1;
  for (char16_t unit : Text.substr(isNegative ? 1 : 0)) {
    if (IsDigit(unit)) {
      if (++digits > 18 || decimals == 4) return false;
      number = number * 10 + (unit - u'0');
      if (decimals >= 0) ++decimals;
    } else if (unit == u',' && decimals < 0) {
      decimals = 0;
    } else if (unit != u'.' || decimals >= 0) {
      return false;
    }
  }
  if (digits == 0) return false;
  for (int i = decimals < 0 ? 0 : decimals; i < 4; ++i) {
    if (__builtin_mul_overflow(number, 10, &number)) return false;
  }
  Value = Currency::FromUnits(isNegative ? -number : number);
  return true;
}

String HandCurrToStr(Currency Value) {
  uint64_t units = Value.Units < 0 ? 0 - static_cast<uint64_t>(Value.Units) : static_cast<uint64_t>(Value.Units);
  uint64_t cents = (units + 50) / 100;
  char16_t text[32];
  char16_t* end = text + 32;
  char16_t* begin = end - 2;
  WriteTwo(begin, static_cast<int>(cents % 100));
  *--begin = u',';
  uint64_t whole = cents / 100;
  int digits = 0;
  do {
    if (digits > 0 && digits % 3 == 0) *--begin = u'.';
    *--begin = static_cast<char16_t>(u'0' + whole % 10);
    whole /= 10;
    ++digits;
  } while (whole > 0);
  if (Value.Units < 0 && cents > 0) *--begin = u'-';
  return Made(begin, end);
}

int HandStrToInt(std::u16string_view Text, int Default) {
  size_t i = !Text.empty() && (Text[0] == u'-' || Text[0] == u'+') ? 1 : 0;
  bool isNegative = i == 1 && Text[0] == u'-';
  if (i == Text.size()) return Default;
  int64_t number = 0;
  for (; i < Text.size(); ++i) {
    if (!IsDigit(Text[i])) return Default;
    number = number * 10 + (Text[i] - u'0');
    if (number > int64_t{1} << 31) return Default;
  }
  if (isNegative) return static_cast<int>(-number);
  return number < int64_t{1} << 31 ? static_cast<int>(number) : Default;
}

Extended HandStrToExt(std::u16string_view Text, Extended Default) {
  // All of them are exact, so the quotient is rounded once.
  static constexpr Extended kPowers[] = {1e0L,  1e1L,  1e2L,  1e3L,  1e4L,  1e5L,  1e6L,  1e7L,  1e8L,  1e9L,
                                         1e10L, 1e11L, 1e12L, 1e13L, 1e14L, 1e15L, 1e16L, 1e17L, 1e18L, 1e19L};
  size_t i = !Text.empty() && (Text[0] == u'-' || Text[0] == u'+') ? 1 : 0;
  bool isNegative = i == 1 && Text[0] == u'-';
  uint64_t number = 0;
  int digits = 0, decimals = -1;
  for (; i < Text.size(); ++i) {
    if (IsDigit(Text[i])) {
      if (++digits > 19) return Default;
      number = number * 10 + static_cast<uint64_t>(Text[i] - u'0');
      if (decimals >= 0) ++decimals;
    } else if (Text[i] == u',' && decimals < 0) {
      decimals = 0;
    } else {
      return Default;
    }
  }
  if (digits == 0) return Default;
  Extended value = static_cast<Extended>(number);
  if (decimals > 0) value /= kPowers[decimals];
  return isNegative ? -value : value;
}

bool HandStrToHour(std::u16string_view Text, TDateTime& Hour) {
  Hour = 0;
  size_t i = !Text.empty() && (Text[0] == u'-' || Text[0] == u'+') ? 1 : 0;
  bool isNegative = i == 1 && Text[0] == u'-';
  if (Text.size() < i + 4 || Text.size() > i + 9 || Text[Text.size() - 3] != u':') return false;
  int hours = ReadDigits(Text, i, Text.size() - 3 - i), minutes = ReadDigits(Text, Text.size() - 2, 2);
  if (hours < 0 || minutes < 0 || minutes > 59) return false;
  Hour = hours / 24 + (hours % 24 * 60 + minutes) / 1440.0;
  if (isNegative) Hour = -Hour;
  return true;
}

String HandHourToStr(TDateTime Hour) {
  if (!(std::fabs(Hour) < 1e6)) return {};
  int64_t minutes = static_cast<int64_t>(std::fabs(Hour) * kMSecsPerDay + 0.5) / 60000;
  char16_t text[16];
  char16_t* end = text + 16;
  char16_t* begin = end - 2;
  WriteTwo(begin, static_cast<int>(minutes % 60));
  *--begin = u':';
  begin = WriteBefore(begin, static_cast<uint64_t>(minutes / 60));
  if (Hour < 0) *--begin = u'-';
  return Made(begin, end);
}

bool HandMatch(std::u16string_view Text, std::u16string_view Pattern) {
  size_t i = 0, j = 0, star = Pattern.npos, resume = 0;
  while (i < Text.size()) {
    if (j < Pattern.size() && Pattern[j] == u'*') {
      star = j++;
      resume = i;
    } else if (j < Pattern.size() && ToUpper(Pattern[j]) == ToUpper(Text[i])) {
      ++i, ++j;
    } else if (star != Pattern.npos) {
      i = ++resume;
      j = star + 1;
    } else {
      return false;
    }
  }
  while (j < Pattern.size() && Pattern[j] == u'*') ++j;
  return j == Pattern.size();
}

}  // namespace vx::bench
