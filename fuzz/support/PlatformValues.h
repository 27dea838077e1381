// Checks of the numbers, amounts, moments and colours that the platform reads and writes.
//
//   CheckWholeNumbers, CheckFloats, CheckAmounts, CheckMasks    numbers
//   CheckCalendar, CheckMoments                                 dates and times
//   CheckColors                                                 colours
//   CheckPattern                                                values in a pattern
#pragma once

#include <algorithm>
#include <cstdlib>

#include "fuzz/support/Values.h"
#include "platform/DateText.h"
#include "platform/Exceptions.h"
#include "platform/Format.h"
#include "platform/Graphics.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"
#include "platform/Rounding.h"
#include "platform/Text.h"

namespace vx::fuzz {

inline bool Has(std::u16string_view Text, char16_t Unit) { return Text.find(Unit) != Text.npos; }

// A reader that reports by its result and one that raises. Value is what was read, else Untouched.
template <typename T, typename FTry, typename FRaise>
bool ReadsAlike(T Untouched, T& Value, FTry&& Try, FRaise&& Raise) {
  Value = Untouched;
  const bool isRead = Try(Value);
  Check(isRead || IsSame(Value, Untouched), "a value that is not read stays");
  T raised = Untouched;
  Check(Raises<EConvertError>([&] { raised = Raise(); }) == !isRead, "raises exactly where the result is false");
  Check(IsSame(raised, Value), "both forms read the same");
  return isRead;
}

inline void CheckWholeNumbers(std::u16string_view Text, int64_t Number) {
  const int small = static_cast<int32_t>(Number);
  Check(StrToInt64(IntToStr(Number)) == Number && StrToInt(IntToStr(small)) == small, "whole numbers come back");
  int value;
  int64_t wide;
  bool isInt = ReadsAlike(
      small, value, [&](int& v) { return TryStrToInt(Text, v); }, [&] { return StrToInt(Text); });
  bool isWide = ReadsAlike(
      Number, wide, [&](int64_t& v) { return TryStrToInt64(Text, v); }, [&] { return StrToInt64(Text); });
  Check(StrToIntDef(Text, small) == value && StrToInt64Def(Text, Number) == wide, "the default stands for no number");
  Check(!isInt || (isWide && static_cast<int32_t>(wide) == value), "64 bits hold what 32 bits hold");
  Check(!isInt || StrToInt(u" " + String(Text)) == value, "leading blanks are skipped");
}

// Far enough from the limits of the type that all digits are kept.
inline bool IsPlain(Extended Value) {
  return Value == 0 || (std::fabs(Value) > 1e-4900L && std::fabs(Value) < 1e4900L);
}

// What the C library makes of a text that was read; it takes a point, and other blanks than ours.
inline Extended PlainNumber(std::u16string_view Text, char16_t Separator) {
  std::string text;
  for (char16_t unit : Text) text += unit == Separator ? '.' : static_cast<char>(unit);
  return std::strtold(text.c_str(), nullptr);
}

inline void CheckFloats(std::u16string_view Text, Extended Number, int Precision, int Digits,
                        const TFormatSettings& Settings) {
  Extended value = 0;
  const String text = FloatToStr(Number);
  if (IsPlain(Number)) {
    Check(TextToFloat(text, value, GetFormatSettings()), "a written number is read");
    Check(std::fabs(value - Number) <= std::fabs(Number) * 5.1e-15L, "15 digits are right");
    Check(FloatToStr(value) == text, "the text of a number stands");
    for (int precision : {2, 7, 15, 17, 18}) {
      const String exact = FloatToStrF(Number, ffExponent, precision, Digits, Settings);
      value = StrToFloat(exact, Settings);
      Check(FloatToStrF(value, ffExponent, precision, Digits, Settings) == exact, "all digits stand");
    }
  }
  for (TFloatFormat form : {ffGeneral, ffExponent, ffFixed, ffNumber, ffCurrency}) {
    const String written = FloatToStrF(Number, form, Precision, Digits, Settings);
    Check(form > ffFixed || !IsPlain(Number) || TextToFloat(written, value, Settings), "plain forms are read");
  }
  const String fixed = FloatToStrF(Number, ffFixed, Precision, Digits);
  const String grouped = FloatToStrF(Number, ffNumber, Precision, Digits);
  if (!Has(fixed, u'E') && std::isfinite(Number)) {
    Check(ReplaceAll(grouped, u".", u"") == fixed, "groups add separators alone");
    Check(FloatToStrF(Number, ffCurrency, Precision, Digits) == grouped + u" €", "money adds its sign alone");
  }
  bool isRead = ReadsAlike(
      Number, value, [&](Extended& v) { return TextToFloat(Text, v, Settings); },
      [&] { return StrToFloat(Text, Settings); });
  Check(!isRead || (std::isfinite(value) && value == PlainNumber(Text, Settings.DecimalSeparator)), "exactly read");
  if (std::fabs(Number) < 1e15L) {
    Check(FormatFloat(u"0.00", Number) == FloatToStrF(Number, ffFixed, 15, 2), "a mask of two decimals");
    Check(FormatFloat(u"#,##0.00", Number) == FloatToStrF(Number, ffNumber, 15, 2), "a mask with groups");
  }
  Check(std::isfinite(Number) || IsSame(SimpleRoundTo(Number, Digits), Number), "what is no number stays");
  const double a = static_cast<double>(Number), b = static_cast<double>(value);
  Check(SameValue(a, b) == SameValue(b, a) && (!std::isfinite(a) || SameValue(a, a)), "the same both ways");
}

inline void CheckAmounts(std::u16string_view Text, Currency Amount, int Digits, const TFormatSettings& Settings) {
  Currency value;
  Check(StrToCurr(CurrToStr(Amount)) == Amount, "amounts come back");
  Check(StrToCurr(CurrToStr(Amount, Settings), Settings) == Amount, "amounts come back by all settings");
  Check(StrToCurr(CurrToStrF(Amount, ffFixed, std::clamp(Digits, 4, 18))) == Amount, "four decimals are all");
  for (TFloatFormat form : {ffGeneral, ffExponent, ffFixed, ffNumber, ffCurrency}) {
    CurrToStrF(Amount, form, Digits, Settings);
  }
  const String grouped = CurrToStrF(Amount, ffNumber, Digits);
  Check(ReplaceAll(grouped, u".", u"") == CurrToStrF(Amount, ffFixed, Digits), "groups add separators alone");
  Check(CurrToStrF(Amount, ffCurrency, Digits) == grouped + u" €", "money adds its sign alone");
  Check(FormatCurr(u"0.0000", Amount) == CurrToStrF(Amount, ffFixed, 4), "a mask of four decimals");
  bool isRead = ReadsAlike(
      Amount, value, [&](Currency& v) { return TextToCurr(Text, v, Settings); },
      [&] { return StrToCurr(Text, Settings); });
  Extended number = 0;
  const bool isNumber = TextToFloat(Text, number, Settings);
  Check(isRead == (isNumber && std::fabs(number) < 922337203685477.58L) || std::fabs(number) > 922337203685477L,
        "an amount is a number");
  Check(!isRead || std::fabs(value.ToExtended() - number) <= 0.0000501L + std::fabs(number) * 2e-19L,
        "the nearest amount");
  Check(Currency(Amount.Whole()) + Amount.Fraction() == Amount, "the parts make the whole");
  Currency sum;
  if (!Raises<EOverflow>([&] { sum = Amount + value; })) Check(sum - value == Amount, "what is added goes away");
  Raises<EOverflow>([&] { sum = Amount * value; });
  Raises<EMathError>([&] { sum = Amount / value; });
}

inline void CheckMasks(std::u16string_view Mask, Extended Number, Currency Amount, const TFormatSettings& Settings) {
  const String written = FormatFloat(Mask, Number, Settings);
  if (std::isnan(Number)) Check(written == u"NAN", "no number");
  if (Mask.empty()) Check(written == FloatToStr(Number, Settings), "an empty mask is none");
  const String money = FormatCurr(Mask, Amount, Settings);
  if (std::abs(Amount.Units / 10) < 99999999999999) {
    Check(money == FormatFloat(Mask, Amount.ToExtended(), Settings), "an amount is written as its number");
  }
}

inline void CheckCalendar(TDateTime Moment, int Months) {
  int year, month, day, hour, minute, second, msec;
  DecodeDate(Moment, year, month, day);
  DecodeTime(Moment, hour, minute, second, msec);
  const TTimeStamp stamp = DateTimeToTimeStamp(Moment);
  const bool isDate = year != 0;
  TDateTime date = 0.5, time = 0.5;
  Check(TryEncodeDate(year, month, day, date) == isDate && (isDate || date == 0.5), "fields make their date");
  Check(TryEncodeTime(hour, minute, second, msec, time) && time >= 0 && time < 1, "fields make their time");
  Check((stamp.Date != 0) == isDate && (!isDate || stamp.Date == static_cast<int>(date) + DateDelta), "the day counts");
  Check(!isDate || stamp.Time == ((hour * 60 + minute) * 60 + second) * 1000 + msec, "the milliseconds count");
  Check((DayOfWeek(Moment) != 0) == isDate, "every day has its weekday");
  Raises<EConvertError>([&] { IncMonth(Moment, Months); });
  if (!isDate) return Check(month == 0 && day == 0, "no date has no fields");
  Check(DayOfWeek(date) == (stamp.Date % 7) + 1, "weekdays follow each other");
  Check(day <= DaysInMonth(year, month) && std::fabs(date - Moment) < 2, "a date is near");
  const int64_t count = int64_t{year} * 12 + month - 1 + Months;
  TDateTime later = 0;
  bool isOutside = Raises<EConvertError>([&] { later = IncMonth(date, Months); });
  Check(isOutside == (count < 12 || count >= 120000), "months stay within the years");
  if (isOutside) return;
  int laterYear, laterMonth, laterDay;
  DecodeDate(later, laterYear, laterMonth, laterDay);
  Check(laterYear * 12 + laterMonth - 1 == count, "months are counted");
  Check(laterDay == std::min(day, DaysInMonth(laterYear, laterMonth)), "the day is kept");
}

inline void CheckMoments(std::u16string_view Text, std::u16string_view Mask, TDateTime Moment,
                         const TFormatSettings& Settings) {
  FormatDateTime(Mask, Moment, Settings);
  Check(FormatDateTime(u"", Moment) == FormatDateTime(u"c", Moment), "an empty mask is c");
  TDateTime value;
  const TDateTime none = 0.25;
  ReadsAlike(
      none, value, [&](TDateTime& v) { return TryStrToDate(Text, v, Settings); },
      [&] { return StrToDate(Text, Settings); });
  Check(value == none || (DayOfWeek(value) != 0 && value == std::trunc(value)), "a date is whole");
  ReadsAlike(
      none, value, [&](TDateTime& v) { return TryStrToTime(Text, v, Settings); },
      [&] { return StrToTime(Text, Settings); });
  Check(value >= 0 && value < 1, "a time is below a day");
  ReadsAlike(
      none, value, [&](TDateTime& v) { return TryStrToDateTime(Text, v, Settings); },
      [&] { return StrToDateTime(Text, Settings); });
  Check(value == none || DayOfWeek(value) != 0, "a moment has a day");
  const String date = DateToStr(Moment), time = TimeToStr(Moment), both = DateTimeToStr(Moment);
  Check(TimeToStr(StrToTime(time)) == time, "times come back");
  if (DayOfWeek(Moment) == 0) return;
  Check(DateToStr(StrToDate(date)) == date, "dates come back");
  // The time of a moment below the first second is written, but not read as one.
  Check(DateTimeToStr(StrToDateTime(both)) == (time == u"00:00:00" ? date : both), "moments come back");
  Check(both == date || both == date + u" " + time, "date and time");
}

inline void CheckColors(std::u16string_view Text, TColor Color) {
  const String name = ColorToString(Color);
  Check(StringToColor(name) == Color, "colours come back");
  String ident;
  TColor value = ~Color;
  Check(ColorToIdent(Color, ident) == (name.view()[0] != u'$') && (ident.empty() || ident == name), "names");
  Check(IdentToColor(name, value) == !ident.empty() && value == (ident.empty() ? ~Color : Color), "names are known");
  bool isRead = ReadsAlike(
      Color, value, [&](TColor& v) { return TryStringToColor(Text, v); }, [&] { return StringToColor(Text); });
  Check(ColorToRGB(value) <= 0xFFFFFF, "three channels");
  Check(!IdentToColor(Text, value) || isRead, "names are read");
}

// Numbers of five and more digits are cut, so that no width makes a text too long for memory here.
inline void CheckPattern(std::u16string_view Text, std::initializer_list<TFormatArg> Values,
                         const TFormatSettings& Settings) {
  String pattern;
  int digits = 0;
  for (char16_t unit : Text) {
    digits = unit >= u'0' && unit <= u'9' ? digits + 1 : 0;
    if (digits < 5) pattern += unit;
  }
  Raises<EConvertError>([&] { Format(pattern, Values, Settings); });
}

}  // namespace vx::fuzz
