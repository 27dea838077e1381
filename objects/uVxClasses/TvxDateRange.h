// A range of days that can be asked for by call paths.
//
// Example, with German settings:
//   vx::TvxDateRange range(vx::StrToDateDef(u"01.02.2015", 0), vx::StrToDateDef(u"28.02.2015", 0));
//   range.ValueOf(0, u"", u"", true);           // u"01.02.2015 - 28.02.2015"
//   range.ValueOf(0, u"Zeitraum", u"", true);   // u"Februar 2015"
#pragma once

#include "objects/uVxObjects/TVxObject.h"

namespace vx {

// An end of 0 is open.
class TvxDateRange : public TVxClassed<TvxDateRange, TVxObject, u"TvxDateRange"> {
 public:
  TvxDateRange() = default;
  TvxDateRange(TDateTime From, TDateTime Till) noexcept : iFrom(From), iTill(Till) {}

  TDateTime GetFrom() const noexcept { return iFrom; }
  void SetFrom(TDateTime Value) noexcept { iFrom = Value; }
  TDateTime GetTill() const noexcept { return iTill; }
  void SetTill(TDateTime Value) noexcept { iTill = Value; }

  // The marker u"-1201", then Begin and Ende as dates and Zeitraum as text.
  static TDataHeads DataHeads(const TVxClass& Self, bool Hierarchy);
  // Without Name both ends with u" - " between them, where an open one is written as u"30.12.1899".
  // Reading Begin and Ende gives the date, empty for an open end, and Zeitraum the period by
  // VxDatePeriodToStr; writing Begin and Ende takes a date by StrToDateDef, 0 for what is none, and gives
  // an empty text, as writing Zeitraum does, which changes nothing. DT counts for no name.
  String ValueOf(TDateTime DT, const String& Name, const String& Value, bool Reading) override;

 private:
  TDateTime iFrom = 0;
  TDateTime iTill = 0;
};

}  // namespace vx
