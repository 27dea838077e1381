// Small types that the units and the applications share, and plain values that write themselves.
//
//   TBoolExt                        a boolean with a third state for no answer
//   TActionState                    what became of an action
//   TMDIDayListImportOption(s)      how days are taken over into a list
//   TVxStringHelper                 a text as a date or a whole number
//   TVxDateHelper, TVxDateTimeHelper, TVxTimeHelper, TVxIntegerHelper    a value as text
//
// Example:
//   vx::TDateTime birthday = vx::TVxStringHelper(u"11.02.2015").ToDate(0);
//   vx::TVxDateHelper(birthday).ToString();            // u"11.02.2015"
//   vx::TVxTimeHelper(6.5 / 24).ToString();            // u"06:30"
//
// TBoolExt is stored as "0", "1" and the empty text, see BoolExtToStr in core/uVxFunctionsSerialize.h.
// Pitfall: its ordinals are no truth values; bNone is 2, which a condition takes for true.
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>
#include <utility>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

enum TBoolExt : uint8_t { bFalse, bTrue, bNone };

// For the applications; the library does nothing with these.
enum TActionState : uint8_t { asNone, asAction, asCancel };
enum TMDIDayListImportOption : uint8_t {
  mdioForce,
  mdioOnPre,
  mdioOnPost,
  mdioOffPre,
  mdioOffPost,
  mdioAbsence,
  mdioIndividual
};
using TMDIDayListImportOptions = Set<TMDIDayListImportOption>;

class TVxStringHelper {
 public:
  explicit TVxStringHelper(String Text) noexcept : FText(std::move(Text)) {}
  // The date by the rules of StrToDateDef (core/uVxFunctions.h): dd.mm.yyyy, dd.mm.yy or yyyymmdd.
  // Default for any other text and for a date that does not exist; never raises.
  TDateTime ToDate(TDateTime Default) const noexcept;
  // The whole number by the rules of StrToIntDef (platform/Numbers.h); else Default.
  int ToInt(int Default) const noexcept;

 private:
  String FText;
};

// The forms are fixed, but for the time separator, which is that of the program's settings.
class TVxDateHelper {
 public:
  explicit constexpr TVxDateHelper(TDateTime Value) noexcept : FValue(Value) {}
  // u"11.02.2015", also for 0, which is u"30.12.1899".
  String ToString() const;

 private:
  TDateTime FValue;
};

class TVxDateTimeHelper {
 public:
  explicit constexpr TVxDateTimeHelper(TDateTime Value) noexcept : FValue(Value) {}
  // u"11.02.2015 06:30:00": the time is there at midnight, too.
  String ToString() const;

 private:
  TDateTime FValue;
};

class TVxTimeHelper {
 public:
  explicit constexpr TVxTimeHelper(TDateTime Value) noexcept : FValue(Value) {}
  // The time of day: u"06:30:15", and u"06:30" where the seconds are 0. Days are dropped, so 1.0 is
  // u"00:00"; for a time up to 24:00 see VxTimeToStr24.
  String ToString() const;

 private:
  TDateTime FValue;
};

class TVxIntegerHelper {
 public:
  explicit constexpr TVxIntegerHelper(int Value) noexcept : FValue(Value) {}
  // u"-12"
  String ToString() const;

 private:
  int FValue;
};

}  // namespace vx
