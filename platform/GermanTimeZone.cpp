#include "platform/GermanTimeZone.h"

#include "platform/Calendar.h"
#include "platform/detail/Immortal.h"

namespace vx {

namespace {

constexpr int kWinter = 60, kSummer = 120;           // minutes
constexpr int kChange = 60 * 60000;                  // 1:00 in milliseconds
constexpr int kFirstYear = 1980, kFirstLong = 1996;  // with summer time, and with one until October

TDateTime LastSunday(int Year, int Month) noexcept {
  TDateTime last = 0;
  TryEncodeDate(Year, Month, DaysInMonth(Year, Month), last);
  return last - (DayOfWeek(last) - 1);
}

TDateTime FirstDay(int Year) noexcept {
  TDateTime first = LastSunday(Year, 3);
  if (Year == kFirstYear) TryEncodeDate(Year, 4, 6, first);
  return first;
}

class TGermanTimeZone final : public TTimeZone {
 public:
  int OffsetAtUtc(TDateTime Utc) override {
    const TTimeStamp moment = DateTimeToTimeStamp(Utc);
    int year = 0, month = 0, day = 0;
    DecodeDate(static_cast<TDateTime>(moment.Date - DateDelta), year, month, day);
    if (moment.Date == 0 || year < kFirstYear || month < 3 || month > 10) return kWinter;
    const bool isBegun = !IsBefore(moment, FirstDay(year));
    const bool isOver = !IsBefore(moment, LastSunday(year, year < kFirstLong ? 9 : 10));
    return isBegun && !isOver ? kSummer : kWinter;
  }

 private:
  static bool IsBefore(TTimeStamp Moment, TDateTime Day) noexcept {
    const int day = static_cast<int>(Day) + DateDelta;
    return Moment.Date < day || (Moment.Date == day && Moment.Time < kChange);
  }
};

}  // namespace

TTimeZone& GermanTimeZone() noexcept { return detail::Immortal<TGermanTimeZone>(); }

}  // namespace vx
