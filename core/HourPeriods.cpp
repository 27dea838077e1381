#include "core/HourPeriods.h"

#include <algorithm>
#include <cmath>

#include "platform/Calendar.h"
#include "platform/Exceptions.h"

namespace vx {

namespace {

constexpr int kDay = 1440;  // minutes

// Minutes count from 30.12.1899 0:00, by the clock or in universal time.
constexpr int64_t DayOf(int64_t Minute) noexcept { return (Minute - (Minute % kDay + kDay) % kDay) / kDay; }
constexpr int64_t StartOf(int64_t Day) noexcept { return Day * kDay; }
constexpr int MinuteOfDay(int64_t Minute) noexcept { return static_cast<int>(Minute - StartOf(DayOf(Minute))); }

int64_t MinuteOf(TDateTime Moment) {
  const TTimeStamp stamp = DateTimeToTimeStamp(Moment);
  if (stamp.Date == 0) throw EInvalidArgument(u"Period outside the years 1 to 9999");
  return StartOf(stamp.Date - DateDelta) + (stamp.Time + 30000) / 60000;
}

// The time of day is added to the size of a date-time below 0, too.
TDateTime DateTimeOf(int64_t Minute) {
  const auto day = static_cast<TDateTime>(DayOf(Minute));
  const TDateTime time = EncodeTime(MinuteOfDay(Minute) / 60, MinuteOfDay(Minute) % 60, 0, 0);
  return day < 0 ? day - time : day + time;
}

// The universal time of minutes of the clock; never goes back while the clock goes on.
class TUtc {
 public:
  explicit TUtc(TTimeZone& Zone) : FZone(Zone) {}

  int64_t Of(int64_t Local, bool IsSecond = false) const {
    const int first = FZone.OffsetAtLocal(PlainDate(Local));
    const int64_t utc = Local - first;
    if (OffsetAt(utc) != first) return ChangeBefore(utc, first);
    if (!IsSecond) return utc;
    // The same time comes again if the clock goes back within the day.
    const int64_t again = Local - OffsetAt(utc + kDay);
    return again > utc && OffsetAt(again) == OffsetAt(utc + kDay) ? again : utc;
  }

 private:
  // Zones take date-times as plain numbers of days.
  static TDateTime PlainDate(int64_t Minute) noexcept { return static_cast<TDateTime>(Minute) / kDay; }
  int OffsetAt(int64_t Utc) const { return FZone.OffsetAtUtc(PlainDate(Utc)); }

  // The clock skips a time that was taken with the offset Before: the first moment with the next offset.
  int64_t ChangeBefore(int64_t Utc, int Before) const {
    int64_t low = Utc - kDay, high = Utc;
    while (high - low > 1) {
      const int64_t middle = low + (high - low) / 2;
      (OffsetAt(middle) == Before ? low : high) = middle;
    }
    return high;
  }

  TTimeZone& FZone;
};

// A moment by both clocks; in the doubled hour the local one goes back between two of them.
struct TMoment {
  int64_t Utc, Local;
  friend constexpr auto operator<=>(TMoment A, TMoment B) noexcept = default;  // NOLINT(modernize-use-nullptr)
};

struct TEnds {
  TEnds(const THourPeriod& Period, const TUtc& Utc) : From{}, To{} {
    From.Local = MinuteOf(Period.From);
    To.Local = MinuteOf(Period.To);
    From.Utc = Utc.Of(From.Local, Period.IsFromSecond);
    To.Utc = Utc.Of(To.Local, Period.IsToSecond);
    if (To < From) throw EInvalidArgument(u"Period ends before it begins");
  }
  TMoment From, To;
};

bool IsIn(const TClockWindow& Window, int Minute) noexcept {
  return Window.From < Window.To ? Window.From <= Minute && Minute < Window.To
                                 : Window.From <= Minute || Minute < Window.To;
}

// 1 for Monday.
int WeekDayOf(int64_t Day) noexcept { return (DayOfWeek(static_cast<TDateTime>(Day)) + 5) % 7 + 1; }

bool IsCutAtStart(int64_t Day, TPeriodCuts Cuts) noexcept {
  if (Cuts.Has(pcMidnight) || (Cuts.Has(pcWeek) && WeekDayOf(Day) == 1)) return true;
  if (!Cuts.Has(pcMonth)) return false;
  int year = 0, month = 0, dayOfMonth = 0;
  DecodeDate(static_cast<TDateTime>(Day), year, month, dayOfMonth);
  return dayOfMonth == 1;
}

TPeriodPart PartOf(const TMoment& From, const TMoment& To) {
  TPeriodPart part;
  part.From = DateTimeOf(From.Local);
  part.To = DateTimeOf(To.Local);
  part.WeekDay = WeekDayOf(DayOf(From.Local));
  part.Clock.Minutes = To.Local - From.Local;
  part.Elapsed.Minutes = To.Utc - From.Utc;
  return part;
}

}  // namespace

std::vector<TPeriodPart> SplitPeriod(const THourPeriod& Period, TPeriodCuts Cuts, TClockWindow Night, TTimeZone& Zone) {
  if (Night.From == Night.To || std::min(Night.From, Night.To) < 0 || std::max(Night.From, Night.To) > kDay)
    throw EInvalidArgument(u"Window of the clock without a beginning or an end");
  const TUtc utc(Zone);
  const TEnds ends(Period, utc);
  std::vector<TPeriodPart> parts;
  TMoment from = ends.From;
  auto addUpTo = [&](const TMoment& to) {
    TPeriodPart& part = parts.emplace_back(PartOf(from, to));
    part.IsNight = Cuts.Has(pcNight) && IsIn(Night, MinuteOfDay(from.Local));
    from = to;
  };
  auto cutAt = [&](int64_t local) {
    TMoment cut{utc.Of(local), local};
    if (!(from < cut) && Period.IsFromSecond) cut.Utc = utc.Of(local, true);
    if (from < cut && cut < ends.To) addUpTo(cut);
  };
  const int64_t last = DayOf(std::max(ends.From.Local, ends.To.Local));
  for (int64_t day = DayOf(std::min(ends.From.Local, ends.To.Local)); day <= last; ++day) {
    if (IsCutAtStart(day, Cuts)) cutAt(StartOf(day));
    if (!Cuts.Has(pcNight)) continue;
    cutAt(StartOf(day) + std::min(Night.From, Night.To));
    cutAt(StartOf(day) + std::max(Night.From, Night.To));
  }
  if (from < ends.To) addUpTo(ends.To);
  return parts;
}

THourAmount ClockHours(const THourPeriod& Period, TTimeZone& Zone) {
  const TEnds ends(Period, TUtc(Zone));
  return THourAmount::FromMinutes(ends.To.Local - ends.From.Local);
}

THourAmount ElapsedHours(const THourPeriod& Period, TTimeZone& Zone) {
  const TEnds ends(Period, TUtc(Zone));
  return THourAmount::FromMinutes(ends.To.Utc - ends.From.Utc);
}

}  // namespace vx
