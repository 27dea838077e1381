// Amounts of hours, exact to the minute: overtime, hours worked, hours due.
//
//   THourAmount            whole minutes in 64 bits, also below 0
//   TryStrToHourAmount     a text as an amount, or what is wrong with it and where
//   HourAmountToStr        and back
//
// Example:
//   vx::THourAmount account = vx::THourAmount::Of(7, 30);
//   account += vx::StrToHourAmount(u"-6:45");
//   vx::HourAmountToStr(account);                                // u"0:45"
//   account.ToIndustry();                                        // 75: hundredths of an hour
//   vx::HourAmountToIndustryStr(account);                        // u"0,75"
//   vx::HourAmountToStr(vx::THourAmount::FromIndustry(-675));    // u"-6:45"
//
// What leaves the range of 64 bits raises EOverflow and changes nothing.
//
// Threads: each has its own values, and any number may read the same one.
//
// Pitfalls: an hour has 100 hundredths and 60 minutes, so a hundredth is no whole minute. Each amount survives the way
// to hundredths and back; a sum of hundredths does not equal the hundredths of the sum: add up amounts, and turn the
// sum into hundredths once. The told routines on hours as date-times (VxHourMinToStr and its kin) read and write other
// texts than these: they keep a zero in front of short hours, and StrToHourDef has a rule of its own for minus signs.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

#include "core/TextFault.h"
#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

struct THourAmount {
  int64_t Minutes = 0;

  constexpr THourAmount() noexcept = default;
  static constexpr THourAmount FromMinutes(int64_t Minutes) noexcept {
    THourAmount result;
    result.Minutes = Minutes;
    return result;
  }
  // Hours times 60 and Minutes, each with its own sign: Of(-6, -45) is -6:45. EOverflow.
  static THourAmount Of(int64_t Hours, int64_t Minutes = 0);
  // The hundredths of an hour to the nearest minute; there is never a midpoint: 33 are 20 minutes.
  static constexpr THourAmount FromIndustry(int64_t Hundredths) noexcept {
    return FromMinutes(Hundredths / 5 * 3 + (Hundredths % 5 * 3 + (Hundredths < 0 ? -2 : 2)) / 5);
  }
  // A date-time used as a duration to the nearest minute, midpoints away from 0: 1.5 is 36:00, -0.25 is -6:00.
  // EInvalidOp for what is no number, EOverflow outside the range.
  static THourAmount FromDays(TDateTime Days);

  // The whole hours, cut towards 0, and the minutes that are left, with the sign of the amount: -6:45 has -6 and -45.
  constexpr int64_t Hours() const noexcept { return Minutes / 60; }
  constexpr int MinutesOfHour() const noexcept { return static_cast<int>(Minutes % 60); }
  // The nearest number of hundredths of an hour; there is never a midpoint: 0:20 has 33. EOverflow.
  int64_t ToIndustry() const;
  // In days, as the routines on date-times take durations; rounded as any floating point number.
  constexpr TDateTime ToDays() const noexcept { return static_cast<TDateTime>(Minutes) / 1440; }

  THourAmount operator-() const;
  THourAmount& operator+=(THourAmount Other);
  THourAmount& operator-=(THourAmount Other);
  THourAmount& operator*=(int64_t Count);
  friend THourAmount operator+(THourAmount A, THourAmount B) { return A += B; }
  friend THourAmount operator-(THourAmount A, THourAmount B) { return A -= B; }
  friend THourAmount operator*(THourAmount A, int64_t Count) { return A *= Count; }
  friend THourAmount operator*(int64_t Count, THourAmount A) { return A *= Count; }
  friend constexpr auto operator<=>(THourAmount A, THourAmount B) noexcept = default;  // NOLINT(modernize-use-nullptr)
};

enum THourReadOption : uint8_t {
  hroIndustry  // also hundredths of an hour, to the nearest minute: u"7,5", u"-0,33", u"8"
};
using THourReadOptions = Set<THourReadOption>;

// A sign or none, hours or none, a colon, two digits of minutes up to 59: u"-6:45", u"+7:30", u"124:30", u":45". Blanks
// around the text don't count; a minus may be the one of mathematics or a dash. Everything else is refused, with Value
// unchanged: u"7:5", u"7:60", u"7:30:00", and without hroIndustry u"7,5".
[[nodiscard]] bool TryStrToHourAmount(std::u16string_view Text, THourAmount& Value, TTextFault& Fault,
                                      THourReadOptions Options = {}) noexcept;
[[nodiscard]] bool TryStrToHourAmount(std::u16string_view Text, THourAmount& Value,
                                      THourReadOptions Options = {}) noexcept;
// The same; EConvertError "'7:5' ist keine Stundenzahl: unvollständig an Position 4".
THourAmount StrToHourAmount(std::u16string_view Text, THourReadOptions Options = {});

enum THourFormat : uint8_t {
  hofTwoDigits,  // at least two digits of hours: u"07:30"
  hofPlusSign    // "+" before what is above 0
};
using THourFormats = Set<THourFormat>;

// u"7:30", u"-0:45", u"0:00". What it writes is read back as the same amount.
String HourAmountToStr(THourAmount Value, THourFormats Formats = {});
// Hours with two decimals behind a comma: u"7,50", u"-0,33". EOverflow as ToIndustry.
String HourAmountToIndustryStr(THourAmount Value, THourFormats Formats = {});

}  // namespace vx
