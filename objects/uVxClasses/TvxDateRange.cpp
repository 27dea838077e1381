#include "objects/uVxClasses/TvxDateRange.h"

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctionsTime/Periods.h"
#include "objects/uVxObjects/Heads.h"
#include "platform/DateText.h"

namespace vx {

namespace {

constexpr char16_t kMask[] = u"dd/mm/yyyy";

}  // namespace

TDataHeads TvxDateRange::DataHeads(const TVxClass&, bool Hierarchy) {
  TDataHeadRecordList heads(u"-1201", u"TvxDateRange", &Class());
  if (Hierarchy) heads.AddRange(TVxObject::DataHeads(Class(), true));
  heads.Add(u"Begin", u"vftDate");
  heads.Add(u"Ende", u"vftDate");
  heads.Add(u"Zeitraum", u"vftString");
  return heads.getDHRecords();
}

String TvxDateRange::ValueOf(TDateTime DT, const String& Name, const String& Value, bool Reading) {
  if (Name.empty()) return Concat({FormatDateTime(kMask, iFrom), u" - ", FormatDateTime(kMask, iTill)});
  String tail;
  int field = TValueOfRecord(DT, Name, Value, &Class()).GetValueOfPos(tail);
  if (field < 1 || field > 3) return TVxObject::ValueOf(DT, Name, Value, Reading);
  if (field == 3) return Reading ? VxDatePeriodToStr(iFrom, iTill) : String();
  TDateTime& end = field == 1 ? iFrom : iTill;
  if (Reading) return end == 0 ? String() : FormatDateTime(kMask, end);
  end = StrToDateDef(Value, 0);
  return {};
}

}  // namespace vx
