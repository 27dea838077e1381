// What the topics of this unit share: dates and times as fields, whole days, numbers written backwards and
// read up to a separator. For this unit only.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cmath>
#include <cstdint>

#include "platform/Calendar.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace vx::timeparts {

// All 0 outside the years 1 to 9999. The numbers have the order of time.
struct TDate {
  int Year = 0, Month = 0, Day = 0;
  int Number() const noexcept { return Year * 10000 + Month * 100 + Day; }
  friend bool operator==(const TDate&, const TDate&) = default;
};
struct TTime {
  int Hour = 0, Minute = 0, Second = 0, MSec = 0;
  int Number() const noexcept { return Hour * 10000000 + Minute * 100000 + Second * 1000 + MSec; }
  friend bool operator==(const TTime&, const TTime&) = default;
};

inline TDate DateOf(TDateTime Value) noexcept {
  TDate result;
  DecodeDate(Value, result.Year, result.Month, result.Day);
  return result;
}
inline TTime TimeOf(TDateTime Value) noexcept {
  TTime result;
  DecodeTime(Value, result.Hour, result.Minute, result.Second, result.MSec);
  return result;
}

// The fraction without its sign; 0 for an infinite value.
inline double FractionOf(TDateTime Value) noexcept {
  double whole;
  return std::fabs(std::modf(Value, &whole));
}
// The whole days, cut towards 0 and held to +-kMaxDays; 0 for what is no number. Hours and minutes of so
// many days still fit 64 bits.
inline constexpr int64_t kMaxDays = 1'000'000'000'000'000;
inline int64_t WholeDays(double Value) noexcept {
  if (std::fabs(Value) < static_cast<double>(kMaxDays)) return static_cast<int64_t>(Value);
  return std::isnan(Value) ? 0 : Value < 0 ? -kMaxDays : kMaxDays;
}

// Writes Value before End, with at least Digits digits, and returns where it begins.
inline char16_t* PutNumber(char16_t* End, uint64_t Value, int Digits) noexcept {
  for (; Digits > 0 || Value != 0; --Digits, Value /= 10) *--End = static_cast<char16_t>(u'0' + Value % 10);
  return End;
}
inline char16_t* PutTwoDigits(char16_t* End, int Value) noexcept {
  *--End = static_cast<char16_t>(u'0' + Value % 10);
  *--End = static_cast<char16_t>(u'0' + Value / 10);
  return End;
}

// Reads the numbers between separators one after another.
class TFieldReader {
 public:
  TFieldReader(std::u16string_view Text, char16_t Separator) noexcept
      : FPlace(Text.data()), FEnd(Text.data() + Text.size()), FSeparator(Separator) {}

  // The next number as StrToIntDef with 0 reads it; 0 behind the last one.
  int Next() noexcept {
    const char16_t* first = FPlace;
    unsigned value = 0;
    bool isPlain = true;
    for (; FPlace != FEnd && *FPlace != FSeparator; ++FPlace) {
      isPlain &= IsDigit(*FPlace);
      value = value * 10 + (*FPlace - unsigned{u'0'});
    }
    const size_t length = static_cast<size_t>(FPlace - first);
    FIsPlain &= isPlain;
    if (FPlace != FEnd) ++FPlace;
    constexpr size_t kSafeDigits = 9;
    if (isPlain && length <= kSafeDigits) return static_cast<int>(value);
    return StrToIntDef(std::u16string_view(first, length), 0);
  }
  // Reads what is left and says whether all was digits and separators.
  bool Finish() noexcept {
    for (; FPlace != FEnd; ++FPlace) FIsPlain &= IsDigit(*FPlace) || *FPlace == FSeparator;
    return FIsPlain;
  }

 private:
  const char16_t* FPlace;
  const char16_t* FEnd;
  char16_t FSeparator;
  bool FIsPlain = true;
};

}  // namespace vx::timeparts
