// A text as typed values, and typed values as texts: the one place where the library converts them.
//
//   TVxString        conversions that need no object, and a text that is read and written as any type
//
// Example, with German settings:
//   vx::Currency amount = vx::TVxString::ToCurr(u"1.234,5", 0);
//   vx::TVxString::ToString(amount);                       // u"1234,50"
//   vx::TVxString value;
//   value.SetAsDate(vx::TVxString::ToDate(u"20150211", 0));
//   value.GetAsString();                                   // u"11.02.2015"
//
// Pitfalls:
//   - Readers take the text as it is: blanks at its ends make most values unreadable. The typed cells
//     of a table trim first.
//   - A text that is no such value gives the default, and nobody hears of it: the readers of core/StrictDates.h and
//     StrictNumbers.h tell what is wrong.
//   - ToString of a date gives its number. Dates and times have writers with names of their own.
#pragma once

#include <utility>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctions/Numbers.h"
#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "core/uVxFunctionsTime/TimeText.h"
#include "objects/uVxObjects/TVxObject.h"
#include "platform/Numbers.h"

namespace vx {

// Each reader gives Default for a text that is no such value; none raises. GetAs... are the readers with
// a default of 0 or false, SetAs... the writers.
class TVxString : public TVxClassed<TVxString, TVxObject, u"TVxString"> {
 public:
  TVxString() = default;
  explicit TVxString(String Value) noexcept : iValue(std::move(Value)) {}

  // Default for the empty text only; else true for u"1" and, in any case, TRUE, WAHR, JA, YES, J and Y.
  static bool ToBool(std::u16string_view Text, bool Default) noexcept {
    return Text.empty() ? Default : StrToBool(Text);
  }
  // bNone for the empty text, bTrue for u"1", bFalse for every other one.
  static TBoolExt ToBoolExt(std::u16string_view Text) noexcept { return StrToBoolExt(Text); }
  // Thousands separators may stand at any place: u"1.234,56".
  static Currency ToCurr(std::u16string_view Text, Currency Default) { return StrToCurrDef(Text, Default); }
  // Takes no thousands separators.
  static Extended ToExt(std::u16string_view Text, Extended Default) noexcept { return StrToExtDef(Text, Default); }
  static int ToInt(std::u16string_view Text, int Default) noexcept { return StrToIntDef(Text, Default); }
  // The date of u"dd.mm.yyyy", u"dd.mm.yy" or u"yyyymmdd".
  static TDateTime ToDate(std::u16string_view Text, TDateTime Default) noexcept { return StrToDateDef(Text, Default); }
  // A date, a blank and a time; Default without the blank.
  static TDateTime ToDateTime(std::u16string_view Text, TDateTime Default) noexcept {
    return StrToDateTimeDef(Text, Default);
  }
  // Both read hours, minutes, seconds and milliseconds between colons; u"24:00" is 1.0. See VxStrToTime24.
  static TDateTime ToTime(std::u16string_view Text, TDateTime Default) noexcept { return VxStrToTime24(Text, Default); }
  static TDateTime ToTimeFull(std::u16string_view Text, TDateTime Default) noexcept {
    return VxStrToTime24(Text, Default);
  }

  using TVxObject::ToString;
  // u"1" or u"0".
  static String ToString(bool Value) { return BoolToStr(Value); }
  // u"0", u"1", and the empty text for bNone.
  static String ToString(TBoolExt Value) { return BoolExtToStr(Value); }
  static String ToString(int Value) { return IntToStr(Value); }
  // As short as may be, with 15 digits and the decimal separator of the settings: u"1234,5", u"1E20".
  static String ToString(Extended Value) { return FloatToStr(Value); }
  static String ToString(double Value) { return FloatToStr(Value); }
  // Two decimals, rounded as RoundCurrency rounds and raising as it raises: u"1234,50".
  static String ToString(Currency Value);
  // Other types would be cut down or be taken for another one unnoticed: a pointer for a boolean, a
  // count of 64 bits for an int.
  template <typename T>
  static String ToString(T Value) = delete;
  // u"11.02.2015", whatever the settings say; u"30.12.1899" for 0.
  static String DateToString(TDateTime Value);
  // u"11.02.2015 06:30:00", at midnight too; the colons are the time separator of the settings.
  static String DateTimeToString(TDateTime Value);
  // u"06:30"; exactly 1.0 is u"24:00".
  static String TimeToString(TDateTime Value) { return VxTimeToStr24(Value); }
  // u"06:30:15:250", with the time separator of the settings; days are dropped, so 1.0 is
  // u"00:00:00:000".
  static String TimeFullToString(TDateTime Value);

  const String& GetAsString() const noexcept { return iValue; }
  void SetAsString(String Value) noexcept { iValue = std::move(Value); }
  bool GetAsBool() const noexcept { return ToBool(iValue, false); }
  void SetAsBool(bool Value) { iValue = ToString(Value); }
  TBoolExt GetAsBoolExt() const noexcept { return ToBoolExt(iValue); }
  void SetAsBoolExt(TBoolExt Value) { iValue = ToString(Value); }
  Currency GetAsCurr() const { return ToCurr(iValue, 0); }
  void SetAsCurr(Currency Value) { iValue = ToString(Value); }
  TDateTime GetAsDate() const noexcept { return ToDate(iValue, 0); }
  void SetAsDate(TDateTime Value) { iValue = DateToString(Value); }
  TDateTime GetAsDateTime() const noexcept { return ToDateTime(iValue, 0); }
  void SetAsDateTime(TDateTime Value) { iValue = DateTimeToString(Value); }
  Extended GetAsExt() const noexcept { return ToExt(iValue, 0); }
  void SetAsExt(Extended Value) { iValue = ToString(Value); }
  int GetAsInt() const noexcept { return ToInt(iValue, 0); }
  void SetAsInt(int Value) { iValue = ToString(Value); }
  TDateTime GetAsTime() const noexcept { return ToTime(iValue, 0); }
  void SetAsTime(TDateTime Value) { iValue = TimeToString(Value); }
  // The name is wanted: callers know it so.
  TDateTime gatAsTimeFull() const noexcept { return ToTimeFull(iValue, 0); }
  void SetAsTimeFull(TDateTime Value) { iValue = TimeFullToString(Value); }

 protected:
  String iValue;
};

}  // namespace vx
