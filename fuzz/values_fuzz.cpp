// Numbers, amounts, dates, hours, colours and layout words with their texts: settings and numbers, then a text, a mask
// and a pattern.
#include "core/uVxFunctions.h"
#include "core/uVxFunctionsTime.h"
#include "fuzz/support/PlatformValues.h"
#include "objects/uVxClasses.h"
#include "platform/Clock.h"

namespace vx::fuzz {
namespace {

void CheckNumberTexts(std::u16string_view Text, int Default) {
  String digits;
  for (char16_t unit : Text) {
    if (unit >= u'0' && unit <= u'9') digits += unit;
  }
  Check(StrToIntHeavy(Text, Default) == StrToIntDef(digits, Default), "the digits alone");
  Check(StrToInt64Heavy(Text, Default) == StrToInt64Def(digits, Default), "the digits alone, in 64 bits");
  bool isExt = false, isDouble = false;
  Extended ext = Default;
  const Extended value = StrToExtDef(Text, Default, isExt);
  Check(TextToFloat(Text, ext, GetFormatSettings()) == isExt && value == ext, "a number or the default");
  const double number = StrToDoubleDef(Text, Default, isDouble);
  Check(isDouble ? isExt && number == static_cast<double>(value) : number == Default, "a double is a number");
  Check(StrToExtDef(Text, Default) == value && StrToDoubleDef(Text, Default) == number, "both forms read the same");
  StrToBool(Text);

  Currency amount = 7;
  const bool isAmount = TryStrToCurr(Text, amount);
  Check(isAmount || amount == 0, "no amount is 0");
  Check(StrToCurrDef(Text, Default) == (isAmount ? amount : Currency(Default)), "an amount or the default");
  const Currency heavy = StrToCurrHeavy(Text, Default);
  Check(!isAmount || digits.empty() || heavy == amount || Text.back() < u'0' || Text.back() > u'9', "repairs nothing");
  Check(!Has(DeleteThousandDivider(Text), u'.'), "all of them are gone");
  ConvertDbCurr(Text, Default);
  ConvertDbExtDef(Text, Default);
}

void CheckRounding(Extended Number, Currency Amount, int Places, TCurrToStrOptions Options) {
  int64_t math = 0, trade = 0;
  const bool fails = Raises<EInvalidOp>([&] { math = RoundMath(Number); });
  if (!Raises<EInvalidOp>([&] { trade = RoundTrade(Number); }) && !fails) {
    Check(std::fabs(Number - math) <= 0.5L && std::fabs(Number - trade) <= 0.5L, "the nearest whole number");
    Check(math == trade || (math % 2 == 0 && std::abs(trade) > std::abs(math)), "midpoints");
  }
  Raises<EInvalidOp>([&] { RoundHalf(Number); });
  Raises<EInvalidOp>([&] { RoundExtended(Number, Places, Amount < 0); });
  Check(ConvertDbExtDef(ConvertExtDb(Number), 1) == StrToExtDef(FloatToStr(Number), 1), "database numbers");
  Check(ConvertDbCurr(ConvertCurrDb(Amount), 1) == Amount, "database amounts");

  Currency rounded;
  String text;
  const bool isBad = Raises<EMathError>([&] { rounded = RoundCurrency(Amount, Places); });
  const bool isBadText = Raises<EMathError>([&] { text = VxCurrToStr(Amount, Options, Places); });
  Check(!isBadText || isBad, "raises as the rounding");
  if (isBad) return;
  const bool isCut = Amount.Fraction() == 0 && Options.Has(ctsAutoDigits);
  Check(StrToCurrHeavy(text, 1) == (isCut ? Amount : rounded), "a written amount is read");
  Check(Places >= 4 || std::abs(rounded.Units - Amount.Units) <= Currency::Scale * 1000 / 2, "the nearest amount");
}

// Dates and times by the library's readers, and what they write.
void CheckDateParsers(std::u16string_view Text, TDateTime Moment, std::u16string_view Mask) {
  constexpr TDateTime kNone = -0.625;
  for (TDateTime date : {StrToDateDef(Text, kNone), StrToDateHeavy(Text, kNone), VxStrToDate(Text)}) {
    Check(date == kNone || date == 0 || (date == std::trunc(date) && DayOfWeek(date) != 0), "a date or the default");
  }
  const TDateTime exact = StrToTimeDef(Text, kNone), repaired = StrToTimeHeavy(Text, kNone);
  Check(exact == kNone || exact >= 0, "a time or the default");
  Check(exact == kNone || exact == repaired || !Has(Text, u':'), "repairs nothing");
  StrToDateTimeDef(Text, kNone);
  StrToHourDef(Text, kNone);
  VxStrToDateProtected(Text);
  VxStrToTime(Text);
  Raises<EConvertError>([&] { VxStrToDateTime(Text); });
  const TDateTime time24 = VxStrToTime24(Text, kNone);
  Check(time24 == kNone || (time24 >= 0 && time24 <= 1), "a time up to 24:00");
  TDateTime hour = NAN;
  VxStrToHour(Text, hour);
  Check(std::isfinite(hour), "an hour amount is set");
  const String database = ConvertDbDate(Text, false);
  Check(ConvertDbDate(Text, true) == database.Slice(0, 10), "the date alone");
  ConvertDbDateTime(Text, kNone);

  Check(ConvertDateDb(Moment, Mask, u"-") == (std::trunc(Moment) == 0 ? String(u"-") : FormatDateTime(Mask, Moment)) ||
            !std::isfinite(Moment),
        "no date");
  Check(ConvertDateTimeDb(Moment, Mask, u"-") == (Moment == 0 ? String(u"-") : FormatDateTime(Mask, Moment)), "0");
  ConvertTimeDb(Moment, Mask, u"-");
  GetCurrencySign(Moment);
}

void CheckDates(TDateTime Moment, int Number) {
  int year, month, day, hour, minute, second, msec;
  DecodeDate(Moment, year, month, day);
  DecodeTime(Moment, hour, minute, second, msec);
  TDateTime date = 0.5, time = 0.5, back = 0.5;
  const bool isDate = VxEncodeDate(year, month, day, date);
  Check(isDate == (year != 0) && (isDate || date == 0) && VxEncodeDate(year, month, day) == date, "encoded dates");
  Check(VxEncodeTime(hour, minute, second, msec, time) && VxEncodeTime(hour, minute, second, msec) == time, "times");
  Check(!isDate || (date == EncodeDate(year, month, day) && time == EncodeTime(hour, minute, second, msec)),
        "encoders");
  Check(VxIntToDate(VxDateToInt(Moment), back) == isDate && back == date, "dates as numbers");
  Check(VxMonthToInt(Moment) == VxDateToInt(Moment) / 100, "months as numbers");
  Check(VxIntToTime(VxTimeToInt(Moment)) == time, "times as numbers");
  Check(VxIntToDate(Number, back) == (back != 0 || Number == 18991230) && VxIntToDate(Number) == back, "the forms");
  Check(back == 0 || VxDateToInt(back) == Number, "numbers as dates");
  const TDateTime numberTime = VxIntToTime(Number);
  Check(numberTime == 0 || VxTimeToInt(numberTime) == Number, "numbers as times");
  Check(Number < 0 || VxTimeToMinute(VxMinuteToTime(Number)) == Number, "minutes come back");
  VxTimeToMinute(Moment);

  Check(GetYear(Moment) == year && GetMonth(Moment) == month && GetDay(Moment) == day, "parts");
  TDateTime first = 0, last = 0;
  GetYearBorders(Moment, first, last);
  Check(!isDate || (isYearBorders(first, last) && last - first + 1 == GetYearDayCount(Moment)), "a year");
  GetMonthBorders(Moment, first, last);
  Check(!isDate || (isMonthBorders(first, last) && last - first + 1 == GetMonthDayCount(Moment)), "a month");
  Check(!isDate || (first <= date && date <= last && GetMonthCount(first, last) == 1), "borders hold their day");
  Check(!isDate || SetDay(Moment, day) == date, "the same day");
  Check(!isDate || SetMonth(Moment, month) == date, "the same month");
  SetMonth(Moment, Number);
  SetDay(Moment, Number);
  GetMonthDayCount(Number, Number % 13);
  Raises<EConvertError>([&] { IncYear(Moment, Number); });
}

void CheckWeeks(TDateTime Moment, int Number) {
  const int weekday = GetWeekDay(Moment), week = GetCalWeek(Moment);
  Check((weekday == 0) == (DayOfWeek(Moment) == 0) && (week == 0) == (weekday == 0), "weekdays and weeks");
  const TDateTime whole = std::trunc(Moment);
  GetCalWeekCalc(Moment);
  GetCalWeekDate(Number);
  GetMonthCalWeekCount(Moment);
  GetWeekDayFirst(Moment);
  GetWeekDayLast(Moment);
  TVxStringList list;
  const int index = SetCalWeeks(Moment, list);
  Check(index < list.GetCount() && list.GetCount() <= 55, "the weeks of a year");
  const int calendarWeek = GetCalendarWeek(Moment);
  Check(calendarWeek >= 0 && calendarWeek <= 53, "a year's weeks");
  if (GetWeekDay(whole) == 0) return;
  const int code = GetCalWeek(whole);
  Check(GetCalendarWeek(whole) == code % 100, "both rules are one");
  Check(GetCalWeekDate(code) == whole - GetWeekDay(whole) + 1 || code < 100, "the Monday of the week");
  Check(GetCalWeekCalc(whole) == (code / 100 == GetYear(whole) ? code % 100 : 0), "the week of the year");
}

void CheckTimeTexts(TDateTime Moment, int Minutes, TDateTimeFormats Formats) {
  const TDateTime hours = Minutes / 1440.0;
  TDateTime value = 0.5;
  if (DayOfWeek(Moment) != 0) {
    const String date = VxDateToStr(Moment, Formats);
    Check(VxDateToStr(VxStrToDate(date), Formats) == date, "dates come back");
    const String full = VxDateToStr(Moment);
    Check(full == FormatDateTime(u"dd.mm.yyyy", Moment), "the fields of a date");
    Check(StrToDateDef(full, 0.5) == VxStrToDate(full) && StrToDateHeavy(full, 0.5) == VxStrToDate(full), "one date");
    Check(StrToDateDef(String(full.view().substr(6)) + full.Slice(3, 2) + full.Slice(0, 2), 0.5) == VxStrToDate(full),
          "the compact form");
  }
  const String time = VxTimeToStr24(Moment, Formats);
  Check(Moment == std::trunc(Moment) || !std::isfinite(Moment) ||
            VxTimeToStr24(Moment, {dfSecMSec}) == FormatDateTime(u"hh:nn:ss:zzz", Moment),
        "the fields of a time");
  Check(VxTimeToStr24(VxStrToTime24(time, 0.5), Formats) == time, "times come back");
  Check(VxTimeToStr(VxStrToTime(VxTimeToStr(Moment))) == VxTimeToStr(Moment), "times to the second come back");
  VxHourToStr(Moment, Formats);
  const String text = VxHourToStr(hours, Formats);
  Check(Formats.Has(dfTrimRight) || (VxStrToHour(text, value) && std::fabs(value - hours) < 1e-7), "hours come back");
  Check(VxHourToStr(value, Formats) == text || Formats.Has(dfTrimRight), "the text of hours stands");
  const bool isPlain = !Formats.Has(dfTrimLeft) && !Formats.Has(dfTrimRight) && !Formats.Has(dfSec);
  if (isPlain && !Formats.Has(dfSecMSec)) {
    const TDateTime told = StrToHourDef(text, 0.5);
    Check(hours < 0 ? told == -std::trunc(-hours * 24 + 1e-6) : std::fabs(told - hours) < 1e-7, "as callers know it");
  }
  const String rounded = VxHourMinToStr(Moment);
  if (std::fabs(Moment) < 89000000) {
    Check(VxStrToHour(rounded, value) && std::fabs(value - Moment) < 1.01 / 1440, "rounded hours are near");
    Check(value == 0 || VxHourMinToStr(value) == rounded, "rounded hours stand");
    Check(value == 0 || value < 0 || StrToHourDef(rounded, 0.5) == value, "both readers");
  }
  Raises<EInvalidOp>([&] { VxHourToComma(Moment); });
  VxHourToDecimal(Moment);
  VxTruncTime(Moment);
  VxHourToIndustry(Moment);
  Raises<EConvertError>([&] { VxIndustryToHour(Moment); });
  VxIndustryHourToMinute(Moment);
  VxIndustryMinuteToHour(Minutes);
  const int minute = std::abs(Minutes % 1000000);
  Check(VxIndustryToMinute(VxMinuteToIndustry(minute)) == minute, "industry minutes come back");
  Check(std::fabs(VxIndustryToHour(VxHourToIndustry(minute / 1440.0)) - minute / 1440.0) < 1e-9, "industry hours");
  VxMinuteToIndustry(Minutes);
  VxIndustryToMinute(Minutes);
}

void CheckPeriods(TDateTime A, TDateTime B, TDateTime C, TDateTime D, unsigned Flags, std::u16string_view Mask) {
  const bool isOpen = (Flags & 1) != 0;
  for (int type = dttDate; type <= dttTime24Full; ++type) {
    const int order = CompareDateTime(A, B, static_cast<TDateTimeType>(type));
    Check(order == -CompareDateTime(B, A, static_cast<TDateTimeType>(type)), "before is not behind");
    Check(CompareDateTime(A, A, static_cast<TDateTimeType>(type)) == 0, "equal to itself");
  }
  const TDateTime snapped = DateTimeDefuzzFunc(A, isOpen);
  Check(IsSame(DateTimeDefuzzFunc(snapped, isOpen), snapped), "snapped once");
  Check(IsSame(snapped, A) || (snapped == std::trunc(snapped) && std::fabs(snapped - A) < 1e-7), "snapped to a day");
  DateTimeDefuzzFull(A, isOpen, (Flags & 2) != 0);
  const String period = VxDatePeriodToStr(A, B), name = VxDatePeriodToFilename(A, B);
  Check(name.size() == period.size() && name.view().find_first_of(u"\"*./:<>?\\|") == Mask.npos, "a name of a file");
  DatesToDuration(A, B);
  VxPeriodStr(A, B, Mask, u"-", u"");
  VxTimePeriodToStr(A, B);
  VxTimePeriodToStr24(A, B);
  VxTimesPeriod24(A, B);
  TDateTime from = A, to = B;
  const bool isSwapped = ValidatePeriod(from, to, isOpen);
  Check(IsSame(from, isSwapped ? B : A) && IsSame(to, isSwapped ? A : B), "swapped or not");
  bool swapped = false;
  const bool overlaps = OverlappingDate(A, B, C, D, swapped, isOpen);
  Check(overlaps == OverlappingDate(
                        A, B, C, D,
                        isOpen ? TOverlappingDateOptionsSet{odoOpenEnd, odoSwap} : TOverlappingDateOptionsSet{odoSwap}),
        "both forms");
  OverlappingDate(A, B, C, D, {});
  const bool overlap = OverlappingTime(A, B, C, D);
  Check(!overlap || DockingTime(A, B, C, D), "what overlaps touches");
  Check(overlap || GetOverlappingTime(A, B, C, D) == 0, "no overlap");
  UtcTOLocalDateTime(A);
}

bool PlainMatch(std::u16string_view Text, std::u16string_view Pattern) {
  std::vector<char> reached(Text.size() + 1, 0);
  reached[0] = 1;
  for (char16_t unit : Pattern) {
    std::vector<char> next(Text.size() + 1, 0);
    for (size_t i = 0; i <= Text.size(); ++i) {
      if (unit == u'*') {
        next[i] = static_cast<char>(reached[i] != 0 || (i > 0 && next[i - 1] != 0));
      } else {
        next[i] = static_cast<char>(i > 0 && reached[i - 1] != 0 && Text[i - 1] == unit);
      }
    }
    reached = std::move(next);
  }
  return reached[Text.size()] != 0;
}

char16_t Folded(char16_t Unit) {
  const bool isBig = (Unit >= u'A' && Unit <= u'Z') || (Unit >= u'À' && Unit <= u'Þ' && Unit != u'×' && Unit != u'Þ');
  return static_cast<char16_t>((isBig ? Unit + 32 : Unit) & 0xFF);
}

void CheckMatching(const String& Text, const String& Pattern, int Place, const TCharSet& Chars) {
  TVxStringList list;
  const bool isMatch = StrMatch(Text, Pattern, true, &list);
  Check(isMatch == PlainMatch(Text, Pattern), "a pattern matches or not");
  Check(StrMatch(Text, Pattern, false) == PlainMatch(UpperCase(Text), UpperCase(Pattern)), "in upper case");
  for (bool isForward : {true, false}) {
    int pos = Place, whole = Place;
    const std::u16string_view text = Text, part = Pattern;
    const bool isFound = StrFind(text, part, pos, isForward, false, false, Chars);
    Check(!isFound || (pos >= 0 && pos + part.size() <= text.size()), "inside of the buffer");
    for (size_t i = 0; isFound && i < part.size(); ++i) {
      Check(Folded(part[i]) == Folded(text[static_cast<size_t>(pos) + i]), "the text is there");
    }
    Check(!StrFind(text, part, whole, isForward, true, true, Chars) || isFound, "a whole word is a text");
  }
}

void CheckStrings(const String& Text, const String& Other, const TCharSet& Chars, int Length) {
  Check(GarantyLength(Text, Length % 1000).size() == std::max(Length % 1000, 0), "a fixed length");
  Check(GarantyLength(Length, Length % 100).size() == std::max(Length % 100, 0), "a fixed length of digits");
  Check(GarantyLengthA(Text.ToUtf8(), Length % 1000).size() == static_cast<size_t>(std::max(Length % 1000, 0)),
        "bytes");
  Check(VxQuotedToStr(VxStrToQuoted(Text)) == Text || (!Text.empty() && Text[0] == u'"'), "quoting comes back");
  Check(quote(Text).size() >= Text.size() + 2, "a literal");
  Check(ValidateFilename(Text).size() == Text.size() && UpperFirstChar(Text).size() == Text.size(), "one to one");
  String replaced = Text;
  Check(StrSetReplace(replaced, Chars, 0x100) == StrSet(Text, Chars) && !StrSet(replaced, Chars), "all are replaced");
  const String trimmed = VxTrim(Text, Chars, true);
  Check(Text.view().ends_with(trimmed) && (trimmed.empty() || !Chars.Has(trimmed[0])), "trimmed in front");
  Check(StrSpecificChars(Text, Chars) == (!Text.empty() && trimmed.empty()), "all of them");
  const int errors = StrCharsetErrorCount;
  Check(StrCharset(Text, {}, Chars, Chars) == (errors == StrCharsetErrorCount), "refusals are counted");
  const std::u16string_view entries[] = {Other, Text};
  Check(CaseStringOf(Text, entries) == (Other == Text ? 0 : 1), "the first entry");
}

void CheckLayout(std::u16string_view Text, TColor Color, unsigned Flags) {
  Check(StringToColorDef(ColorToString(Color), ~Color) == Color, "colours come back");
  StringToColorDef(Text, Color);
  ColorAndHash(Color, Color);
  Check(ColorIsDark(Color) == (ColorAverage(Color) < 130), "dark");
  Check((ColorIncrement(Color, static_cast<int>(Color), false) ^ Color) >> 24 == 0, "the high byte stays");
  Check(ColorIncrement(Color, 0, true) == ColorToRGB(Color), "nothing is added");
  Check(ColorToGray(Color) >> 24 == Color >> 24, "gray keeps the high byte");
  const TAlignSet aligns = StringToAlignSet(Text);
  Check(StringToAlignSet(AlignSetToString(aligns)) == aligns, "sides come back");
  const TFontStyles styles = StringToFontStyles(Text);
  Check(StringToFontStyles(FontStylesToString(styles)) == styles, "styles come back");
  const auto align = static_cast<TAlign>(Flags % 7);
  Check(StrToAlign(AlignToStr(align), alNone) == align, "a side comes back");
  Check(StringToAlign(AlignToString(align)) == (align == alCustom ? alNone : align), "a named side comes back");
  Check(AlignToString(static_cast<TAlign>(Flags)).size() > 0, "any side has a name");
  const TAlign named = StrToAlign(Text, alNone);
  Check(named == alNone || AlignToStr(named) == Text, "exactly the word");
}

}  // namespace

FUZZ(Input) {
  TManualClock clock(46000.5);
  TClockScope clockScope(clock);
  TFixedTimeZone zone(60);
  TTimeZoneScope zoneScope(zone);
  TValues values(Input);
  const TFormatSettings settings = values.Settings();
  const Extended number = values.Number();
  const TDateTime a = values.Double(), b = values.Double(), c = values.Double(), d = values.Double();
  const auto whole = static_cast<int64_t>(values.Bits()) >> values.Byte() % 64;
  const Currency amount = Currency::FromUnits(whole);
  const int precision = values.Small(), digits = values.Small(), other = values.Int();
  const unsigned flags = values.Byte();
  const String text = Input.Text(), mask = Input.Text(), pattern = Input.Text();
  CheckWholeNumbers(text, whole);
  CheckFloats(text, number, precision, digits, settings);
  CheckAmounts(text, amount, digits, settings);
  CheckMasks(mask, number, amount, settings);
  CheckCalendar(a, other);
  CheckMoments(text, mask, a, settings);
  CheckColors(text, static_cast<TColor>(whole));
  CheckPattern(pattern, {text, whole, number, digits, amount, mask}, settings);

  TCurrToStrOptions options;
  TDateTimeFormats formats;
  for (int bit = 0; bit < 5; ++bit) {
    if ((flags >> bit & 1) == 0) continue;
    formats.Include(static_cast<TDateTimeFormat>(bit));
    if (bit < 4) options.Include(static_cast<TCurrToStrOption>(bit));
  }
  CheckNumberTexts(text, other);
  CheckRounding(number, amount, digits, options);
  CheckDateParsers(text, a, mask);
  CheckDates(a, other);
  CheckWeeks(a, other);
  CheckTimeTexts(a, other, formats);
  CheckPeriods(a, b, c, d, flags, mask);
  CheckMatching(text, mask, digits, TCharSet(pattern.view()));
  CheckStrings(text, mask, TCharSet(pattern.view()), other);
  CheckLayout(text, static_cast<TColor>(whole), flags);
}

}  // namespace vx::fuzz
