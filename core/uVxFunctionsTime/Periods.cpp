#include "core/uVxFunctionsTime/Periods.h"

#include <algorithm>
#include <utility>

#include "core/uVxFunctionsTime/Borders.h"
#include "core/uVxFunctionsTime/Compare.h"
#include "core/uVxFunctionsTime/Parts.h"
#include "core/uVxFunctionsTime/TimeText.h"
#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Rounding.h"

namespace vx {

using namespace timeparts;

namespace {

constexpr char16_t kDayMask[] = u"d.mm.yyyy";

// Writes one end of a shift before End and returns where it begins.
char16_t* PutShiftEnd(char16_t* End, TDateTime DateTime) noexcept {
  const TTime time = SameValue(DateTime, 1.0) ? TTime{.Hour = 24} : TimeOf(DateTime);
  if (time.Minute != 0) {
    End = PutTwoDigits(End, time.Minute);
    *--End = u':';
  }
  return PutNumber(End, static_cast<unsigned>(time.Hour), 1);
}

// Both periods in whole days.
bool AreDaysShared(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2, bool OpenEnd) noexcept {
  const int64_t a2 = WholeDays(A2), b2 = WholeDays(B2);
  if (OpenEnd && a2 <= 0) return true;
  return ((OpenEnd && b2 <= 0) || WholeDays(A1) <= b2) && a2 >= WholeDays(B1);
}

bool ReadDifferently(TDateTime A, TDateTime B) noexcept {
  return TimeOf(DateTimeDefuzzFunc(A, true)) != TimeOf(DateTimeDefuzzFunc(B, true));
}

}  // namespace

String VxDatePeriodToStr(TDateTime From, TDateTime To) {
  if (From == 0) return To == 0 ? String() : u"bis " + FormatDateTime(kDayMask, To);
  if (To == 0) return u"von " + FormatDateTime(kDayMask, From);
  auto joined = [&](std::u16string_view FromMask, std::u16string_view Separator, std::u16string_view ToMask) {
    return Concat({FormatDateTime(FromMask, From), Separator, FormatDateTime(ToMask, To)});
  };
  const TDate first = DateOf(From), last = DateOf(To);
  const bool isWholeMonths = first.Day == 1 && last.Day == GetMonthDayCount(last.Year, last.Month);
  if (first.Year != last.Year) {
    return isWholeMonths ? joined(u"mmm yyyy", u" -", u"mmm yyyy") : joined(kDayMask, u"-", kDayMask);
  }
  if (first.Month != last.Month) {
    if (!isWholeMonths) return joined(u"d.mm.", u"-", kDayMask);
    if (first.Month == 1 && last.Month == 12) return u"Jahr " + FormatDateTime(u"yyyy", From);
    return joined(u"mmm", u"-", u"mmm yyyy");
  }
  if (first.Day == last.Day) return FormatDateTime(kDayMask, From);
  return isWholeMonths ? FormatDateTime(u"mmmm yyyy", From) : joined(u"d.", u"-", kDayMask);
}

String VxDatePeriodToFilename(TDateTime From, TDateTime To) {
  static constexpr TCharSet kForbidden(u"\"*./:<>?\\|");
  String result = VxDatePeriodToStr(From, To);
  char16_t* units = result.MutableData();
  std::replace_if(
      units, units + result.size(), [](char16_t Unit) { return kForbidden.Has(Unit); }, u'_');
  return result;
}

String VxPeriodStr(TDateTime From, TDateTime To, std::u16string_view Format, std::u16string_view Separator,
                   std::u16string_view Empty) {
  auto text = [&](TDateTime DateTime) { return DateTime == 0 ? String(Empty) : FormatDateTime(Format, DateTime); };
  return Concat({text(From), Separator, text(To)});
}

String VxTimePeriodToStr(TDateTime From, TDateTime To) {
  constexpr std::u16string_view kOpen = u"00:00";
  const String from = VxTimeToStr24(From), to = VxTimeToStr24(To);
  if (from == kOpen) return to == kOpen ? String() : u"bis " + to;
  if (to == kOpen) return u"von " + from;
  return Concat({from, u"-", to});
}

String VxTimePeriodToStr24(TDateTime From, TDateTime To) {
  char16_t text[11];
  char16_t* const end = text + 11;
  char16_t* place = PutShiftEnd(end, To);
  *--place = u'-';
  place = PutShiftEnd(place, From);
  return std::u16string_view(place, static_cast<size_t>(end - place));
}

TDateTime VxTimesPeriod24(TDateTime From, TDateTime To) noexcept {
  if (From == 0 && To == 0) return 0;
  return To > From ? To - From : 1 - From + To;
}

bool ValidatePeriod(TDateTime& From, TDateTime& To, bool OpenEnd) noexcept {
  if (!(From > To) || (OpenEnd && WholeDays(To) <= 0)) return false;
  std::swap(From, To);
  return true;
}

bool OverlappingDate(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2,
                     TOverlappingDateOptionsSet Options) noexcept {
  const bool isOpenEnd = Options.Has(odoOpenEnd);
  if (Options.Has(odoSwap)) {
    ValidatePeriod(A1, A2, isOpenEnd);
    ValidatePeriod(B1, B2, isOpenEnd);
  }
  return AreDaysShared(A1, A2, B1, B2, isOpenEnd);
}

bool OverlappingDate(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2, bool& Swapped, bool OpenEnd) noexcept {
  Swapped = ValidatePeriod(A1, A2, OpenEnd);
  Swapped |= ValidatePeriod(B1, B2, OpenEnd);
  return AreDaysShared(A1, A2, B1, B2, OpenEnd);
}

bool OverlappingTime(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2) noexcept {
  constexpr Extended kMSec = 1.0L / MSecsPerDay;
  if (!(A2 > B1 && B2 > A1)) return false;
  if (static_cast<Extended>(A2) - B1 < kMSec) return ReadDifferently(A2, B1);
  if (static_cast<Extended>(B2) - A1 < kMSec) return ReadDifferently(B2, A1);
  return true;
}

TDateTime GetOverlappingTime(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2) noexcept {
  if (!OverlappingTime(A1, A2, B1, B2)) return 0;
  return DateTimeDefuzzFunc(std::min(A2, B2) - std::max(A1, B1), false);
}

bool DockingTime(TDateTime A1, TDateTime A2, TDateTime B1, TDateTime B2) noexcept { return A2 >= B1 && B2 >= A1; }

TDateTime UtcTOLocalDateTime(TDateTime DateTime) { return UtcToLocal(DateTime); }

}  // namespace vx
