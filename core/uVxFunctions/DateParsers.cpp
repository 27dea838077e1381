#include "core/uVxFunctions/DateParsers.h"

#include <algorithm>
#include <cstdint>

#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx {
namespace {

constexpr size_t kDateLength = 10;  // dd.mm.yyyy
constexpr size_t kShortLength = 8;  // dd.mm.yy, yyyymmdd

constexpr bool HasPoints(std::u16string_view Text) noexcept { return Text[2] == u'.' && Text[5] == u'.'; }

TDateTime DateOr(std::u16string_view Text, TDateTime Default) noexcept {
  TryStrToDate(Text, Default);
  return Default;
}

TDateTime CompactDateOr(std::u16string_view Text, TDateTime Default) noexcept {
  char16_t date[] = u"dd.mm.yyyy";
  std::copy_n(Text.data() + 6, 2, date);
  std::copy_n(Text.data() + 4, 2, date + 3);
  std::copy_n(Text.data(), 4, date + 6);
  return DateOr({date, kDateLength}, Default);
}

// Two units as a number in the order of texts.
constexpr uint32_t Key(const char16_t* Units) noexcept { return uint32_t{Units[0]} << 16 | Units[1]; }

// A field of two units at or below 00 becomes 01, one above Highest becomes Highest.
void RepairField(char16_t* Field, const char16_t* Highest) noexcept {
  if (Key(Field) <= Key(u"00")) {
    std::copy_n(u"01", 2, Field);
  } else if (Key(Field) > Key(Highest)) {
    std::copy_n(Highest, 2, Field);
  }
}

struct TTimeFields {
  int Hour = 0, Minute = 0, Second = 0, MSec = 0;
};

bool ReadField(std::u16string_view Digits, int& Value) noexcept {
  int number = 0;
  for (char16_t unit : Digits) {
    if (!IsDigit(unit)) return false;
    number = number * 10 + (unit - u'0');
  }
  Value = number;
  return true;
}

// Reads the hour and what stands behind colons at their places; false for a field that is no number.
bool ReadColonFields(std::u16string_view Text, TTimeFields& Fields) noexcept {
  auto has = [Text](size_t length) { return Text.size() >= length; };
  if (!ReadField(Text.substr(0, 2), Fields.Hour)) return false;
  if (has(5) && Text[2] == u':' && !ReadField(Text.substr(3, 2), Fields.Minute)) return false;
  if (has(8) && Text[5] == u':' && !ReadField(Text.substr(6, 2), Fields.Second)) return false;
  return !(has(12) && Text[8] == u':') || ReadField(Text.substr(9, 3), Fields.MSec);
}

// The same of digits alone, which stand without a gap.
bool ReadFixedFields(std::u16string_view Text, TTimeFields& Fields) noexcept {
  ReadField(Text.substr(0, 2), Fields.Hour);
  if (Text.size() >= 4) ReadField(Text.substr(2, 2), Fields.Minute);
  if (Text.size() >= 6) ReadField(Text.substr(4, 2), Fields.Second);
  return Text.size() <= 6 || TryStrToInt(Text.substr(6), Fields.MSec);
}

bool IsTimeText(std::u16string_view Text) noexcept {
  return Text.size() >= 2 && std::all_of(Text.begin(), Text.end(), [](char16_t c) { return IsDigit(c) || c == u':'; });
}

TDateTime TimeOr(const TTimeFields& Fields, TDateTime Default) noexcept {
  TDateTime time;
  if (!TryEncodeTime(Fields.Hour % 24, Fields.Minute, Fields.Second, Fields.MSec, time)) return Default;
  const int days = Fields.Hour / 24;
  return days + time;
}

}  // namespace

TDateTime StrToDateDef(std::u16string_view Text, TDateTime Default) noexcept {
  if (Text.size() == kShortLength && !HasPoints(Text)) return CompactDateOr(Text, Default);
  bool known = Text.size() == kShortLength || (Text.size() == kDateLength && HasPoints(Text));
  return known ? DateOr(Text, Default) : Default;
}

TDateTime StrToDateHeavy(std::u16string_view Text, TDateTime Default) noexcept {
  if (Text.size() != kDateLength || !HasPoints(Text)) return StrToDateDef(Text, Default);
  char16_t date[kDateLength];
  std::copy_n(Text.data(), kDateLength, date);
  RepairField(date, u"31");
  RepairField(date + 3, u"12");
  if (Text.substr(6) == u"0000") std::copy_n(u"1900", 4, date + 6);
  return DateOr({date, kDateLength}, Default);
}

TDateTime StrToTimeDef(std::u16string_view Text, TDateTime Default) noexcept {
  TTimeFields fields;
  if (Text.size() == 5 && Text[2] == u':') {  // the usual form, hh:nn
    bool good = ReadField(Text.substr(0, 2), fields.Hour) && ReadField(Text.substr(3), fields.Minute);
    return good ? TimeOr(fields, Default) : Default;
  }
  if (!IsTimeText(Text)) return Default;
  bool colons = Text.find(u':') != std::u16string_view::npos;
  return (colons ? ReadColonFields(Text, fields) : ReadFixedFields(Text, fields)) ? TimeOr(fields, Default) : Default;
}

TDateTime StrToTimeHeavy(std::u16string_view Text, TDateTime Default) noexcept {
  TTimeFields fields;
  if (!IsTimeText(Text) || !ReadColonFields(Text, fields)) return Default;
  if (fields.Second > 59) {
    fields.Second -= 60;
    ++fields.Minute;
  }
  if (fields.Minute > 59) {
    fields.Minute -= 60;
    ++fields.Hour;
  }
  return TimeOr(fields, Default);
}

TDateTime StrToDateTimeDef(std::u16string_view Text, TDateTime Default) noexcept {
  size_t blank = Text.find(u' ');
  if (blank == std::u16string_view::npos) return Default;
  return StrToDateDef(Text.substr(0, blank), 0) + StrToTimeDef(TrimView(Text.substr(blank)), 0);
}

TDateTime StrToHourDef(std::u16string_view Text, TDateTime Default) noexcept {
  if (Text.size() < 4 || Text[Text.size() - 3] != u':') return Default;
  std::u16string_view minutes = Text.substr(Text.size() - 2);
  std::u16string_view hours = Text.substr(0, Text.size() - 3);
  bool negative = hours.front() == u'-';
  if (negative || hours.front() == u'+') hours.remove_prefix(1);
  int hour = StrToIntDef(hours, 0);
  if (negative) return static_cast<TDateTime>(-static_cast<int64_t>(hour));
  TTimeFields fields{.Hour = hour % 24};
  TDateTime time = fields.Hour >= 0 && ReadField(minutes, fields.Minute) ? TimeOr(fields, 0) : 0;
  const int days = hour / 24;
  return days + time;
}

}  // namespace vx
