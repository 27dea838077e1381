#include <cmath>

#include "controls/uVxMaskEdit/HourText.h"
#include "controls/uVxMaskEdit/TVxMaskEdit.h"
#include "controls/uVxMaskEdit/ValueText.h"
#include "controls/uVxMaskEdit/detail/Judging.h"
#include "controls/uVxMaskEdit/detail/TimeKinds.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Text.h"

namespace vx {

bool TVxCustomMaskEdit::ToInteger(int& aValue) const {
  return vx::ToInteger(GetText(), aValue, iRules.iFormatSettings);
}

bool TVxCustomMaskEdit::ToFloat(Extended& aValue) const {
  return vx::ToFloat(GetText(), aValue, iRules.iFormatSettings);
}

bool TVxCustomMaskEdit::ToDouble(double& aValue) const {
  return vx::ToDouble(GetText(), aValue, iRules.iFormatSettings);
}

bool TVxCustomMaskEdit::ToCurrency(Currency& aValue) const {
  return vx::ToCurrency(GetText(), aValue, iRules.iFormatSettings);
}

bool TVxCustomMaskEdit::ToDate(TDateTime& aValue) const {
  const TFormatSettings& settings = iRules.iFormatSettings;
  return vx::ToDate(iRules.iMaskMode == mmMonth ? detail::MonthAsDate(GetText(), settings) : GetText(), aValue,
                    settings);
}

bool TVxCustomMaskEdit::ToTime(TDateTime& aValue) const {
  return vx::ToTime(GetText(), aValue, iRules.iFormatSettings);
}

bool TVxCustomMaskEdit::toHour(Extended& aHours) const {
  // What was typed without ":" reads as it will stay.
  return vx::toHour(iRules.iMaskMode == mmHour ? CalStrToHourStr(GetText()) : GetText(), aHours);
}

bool TVxCustomMaskEdit::toMinute(int& aMinutes) const {
  const char16_t& separator = iRules.iFormatSettings.ThousandSeparator;
  const bool mayHaveThousands = iRules.iMaskMode == mmInteger && separator != 0;
  return vx::toMinute(mayHaveThousands ? ReplaceAll(GetText(), {&separator, 1}, {}) : GetText(), aMinutes);
}

int TVxCustomMaskEdit::GetInteger() const {
  int value;
  ToInteger(value);
  return value;
}

Extended TVxCustomMaskEdit::GetFloat() const {
  Extended value;
  ToFloat(value);
  return value;
}

double TVxCustomMaskEdit::GetDouble() const {
  double value;
  ToDouble(value);
  return value;
}

Currency TVxCustomMaskEdit::GetCurrency() const {
  Currency value;
  ToCurrency(value);
  return value;
}

TDateTime TVxCustomMaskEdit::GetDate() const {
  TDateTime value;
  ToDate(value);
  return value;
}

TDateTime TVxCustomMaskEdit::GetTime() const {
  TDateTime value;
  ToTime(value);
  return value;
}

Extended TVxCustomMaskEdit::gethour() const {
  Extended hours;
  toHour(hours);
  return hours;
}

int TVxCustomMaskEdit::getMinute() const {
  int minutes;
  toMinute(minutes);
  return minutes;
}

void TVxCustomMaskEdit::RequireMode(bool aFits, const char16_t* aModes) const {
  if (!aFits) throw EInvalidInsert(Concat({u"MaskMode ist nicht auf ", aModes, u" gesetzt!"}));
}

void TVxCustomMaskEdit::WriteNumber(const String& aText) { WriteValue(detail::PutIntegerDiggits(iRules, aText)); }

void TVxCustomMaskEdit::SetInteger(int aValue) {
  RequireMode(iRules.iMaskMode == mmInteger, u"mmInteger");
  WriteNumber(detail::TIntegerKind::Write(iRules, aValue));
}

void TVxCustomMaskEdit::setMinute(int aMinutes) { SetInteger(aMinutes); }

void TVxCustomMaskEdit::SetFloat(Extended aValue) {
  RequireMode(iRules.iMaskMode == mmFloat || iRules.iMaskMode == mmPerc, u"mmFloat oder mmPerc");
  WriteNumber(detail::TFloatKind::Write(iRules, aValue));
}

void TVxCustomMaskEdit::SetDouble(double aValue) { SetFloat(aValue); }

void TVxCustomMaskEdit::SetCurrency(Currency aValue) {
  RequireMode(iRules.iMaskMode == mmCurrency, u"mmCurrency");
  WriteNumber(detail::TCurrencyKind::Write(iRules, aValue));
}

void TVxCustomMaskEdit::SetDate(TDateTime aValue) {
  RequireMode(iRules.iMaskMode == mmDate || iRules.iMaskMode == mmMonth, u"mmDate oder mmMonth");
  const TDateTime day = std::trunc(aValue);
  if (day == 0 || detail::DayOf(day) != day) return WriteValue(detail::EmptyPicture(iRules));
  WriteValue(iRules.iMaskMode == mmDate ? detail::TDateKind::Write(iRules, detail::DayOf(day))
                                        : detail::TMonthKind::Write(iRules, detail::DayOf(day)));
}

void TVxCustomMaskEdit::SetTime(TDateTime aValue) {
  RequireMode(iRules.iMaskMode == mmTime || iRules.iMaskMode == mmSecond, u"mmTime oder mmSecond");
  const int seconds = detail::SecondsOf(aValue);
  WriteValue(iRules.iMaskMode == mmTime ? detail::TTimeKind::Write(iRules, seconds)
                                        : detail::TSecondKind::Write(iRules, seconds));
}

void TVxCustomMaskEdit::sethour(Extended aHours) {
  RequireMode(iRules.iMaskMode == mmHour, u"mmHour");
  WriteNumber(detail::THourKind::Write(iRules, detail::MinutesOf(aHours * 60)));
}

}  // namespace vx
