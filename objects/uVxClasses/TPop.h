// Takes typed values out of a list of texts, one after the other.
//
// Example:
//   vx::TPop pop(&list, 0, -1, true);
//   int id = pop.PopInt(0);
//   vx::TDateTime birthday = pop.PopDate(0, true);   // may be missing at the end of the list
//   if (!pop.iSuccess) return false;                 // some other value was missing
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include "objects/uVxClasses/TVxString.h"
#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

// The next text is that at iInd, as long as iSuccess holds. Where there is none, the result is empty or the
// default, and iSuccess ends unless the call has BeQuiet: one missing value marks the whole reading as
// failed, and nothing is read from then on.
struct TPop {
  // Reads from index Ind to EndOfGroup; with a negative one to the end of the list. Data may be nullptr.
  TPop(const TVxStringList* Data, int Ind, int EndOfGroup, bool Success);
  // Reads the section of that name (see GetMyCommatext). iSuccess also tells whether there is one.
  TPop(const TVxStringList* Data, std::u16string_view SelfName, bool Success);

  String Pop(bool BeQuiet = false);
  // Moves the index and returns it.
  int Increment(int ToInc) noexcept { return iInd = static_cast<int>(int64_t{iInd} + ToInc); }

  // Pop and the reader of that name of TVxString; the default comes for a missing text and for one that
  // is no such value.
  bool PopBool(bool BeQuiet = false) { return TVxString::ToBool(Pop(BeQuiet), false); }
  bool PopBoolDef(bool DefaultVal, bool BeQuiet = false) { return TVxString::ToBool(Pop(BeQuiet), DefaultVal); }
  TBoolExt PopBoolExt(bool BeQuiet = false) { return TVxString::ToBoolExt(Pop(BeQuiet)); }
  Currency PopCurr(Currency DefaultVal, bool BeQuiet = false) { return TVxString::ToCurr(Pop(BeQuiet), DefaultVal); }
  TDateTime PopDate(TDateTime DefaultVal, bool BeQuiet = false) { return TVxString::ToDate(Pop(BeQuiet), DefaultVal); }
  TDateTime PopDateTime(TDateTime DefaultVal, bool BeQuiet = false) {
    return TVxString::ToDateTime(Pop(BeQuiet), DefaultVal);
  }
  Extended PopExt(Extended DefaultVal, bool BeQuiet = false) { return TVxString::ToExt(Pop(BeQuiet), DefaultVal); }
  int PopInt(int DefaultVal, bool BeQuiet = false) { return TVxString::ToInt(Pop(BeQuiet), DefaultVal); }
  TDateTime PopTime(TDateTime DefaultVal, bool BeQuiet = false) { return TVxString::ToTime(Pop(BeQuiet), DefaultVal); }
  TDateTime PopTimeFull(TDateTime DefaultVal, bool BeQuiet = false) {
    return TVxString::ToTimeFull(Pop(BeQuiet), DefaultVal);
  }

  const TVxStringList* iData;  // not owned; must live as long as the reading goes on
  int iInd = 0;                // of the next text
  int iEndOfGroup = -1;        // of the last text that may be read
  bool iSuccess;               // nothing was missing so far
};

}  // namespace vx
