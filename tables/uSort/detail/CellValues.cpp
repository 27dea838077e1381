#include "tables/uSort/detail/CellValues.h"

#include <algorithm>

#include "core/uVxFunctions/DateParsers.h"
#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"

namespace vx::detail {
namespace {

bool CompareDateUnits(std::u16string_view A, std::u16string_view B, int& Result) noexcept {
  if (!BeginsAsDate(A) || !BeginsAsDate(B)) return false;
  Result = 0;
  for (size_t at : {6, 7, 8, 9, 3, 4, 0, 1}) {
    Result = SignOfDifference(A[at], B[at]);
    if (Result != 0) break;
  }
  return true;
}

// A text that has ended counts as code unit 0.
bool CompareTimeUnits(std::u16string_view A, std::u16string_view B, int& Result) noexcept {
  auto unitAt = [](std::u16string_view Text, size_t At) { return At < Text.size() ? Text[At] : u'\0'; };
  size_t at = 0;
  for (;; ++at) {
    const bool isColonDue = at == 2 || at == 5 || at == 8;
    if (isColonDue && (unitAt(A, at) != u':' || unitAt(B, at) != u':')) return false;
    if (at == 8 || at >= A.size() || at >= B.size() || A[at] != B[at]) break;
  }
  Result = SignOfDifference(unitAt(A, at), unitAt(B, at));
  return true;
}

bool CompareDateTimeUnits(std::u16string_view A, std::u16string_view B, int& Result) noexcept {
  constexpr size_t kTimeAt = 11;
  auto hasTime = [](std::u16string_view Text) { return Text.size() == 16 || Text.size() == 19 || Text.size() == 23; };
  if (!CompareDateUnits(A, B, Result)) return false;
  if (Result != 0) return true;
  return hasTime(A) && hasTime(B) && CompareTimeUnits(A.substr(kTimeAt), B.substr(kTimeAt), Result);
}

uint64_t DigitsOfDate(TDateTime Value) noexcept {
  int year, month, day;
  DecodeDate(Value, year, month, day);
  const int digits = (year * 100 + month) * 100 + day;
  return static_cast<uint64_t>(digits);
}

uint64_t DigitsOfTime(TDateTime Value) noexcept {
  int hour, minute, second, msec;
  DecodeTime(Value, hour, minute, second, msec);
  const int digits = (hour * 100 + minute) * 100 + second;
  return static_cast<uint64_t>(digits);
}

uint64_t DigitsOfDateTime(TDateTime Value) noexcept { return DigitsOfDate(Value) * 1000000 + DigitsOfTime(Value); }

constexpr TMomentForm kDate = {u"yyyymmdd", CompareDateUnits, StrToDateDef, DigitsOfDate};
constexpr TMomentForm kTime = {u"hhnnss", CompareTimeUnits, StrToTimeDef, DigitsOfTime};
constexpr TMomentForm kDateTime = {u"yyyymmddhhnnss", CompareDateTimeUnits, StrToDateTimeDef, DigitsOfDateTime};

}  // namespace

String CommatextLines(std::u16string_view Commatext) {
  TVxStringList lines;
  lines.SetCommatext(Commatext);
  return lines.GetTextStr();
}

String TMomentForm::Text(std::u16string_view Cell, std::u16string_view AFormat) const {
  return FormatDateTime(AFormat, Read(Cell, 0));
}

const TMomentForm* FindMomentForm(TVxFieldType FieldType) noexcept {
  switch (FieldType) {
    case vftDate:
      return &kDate;
    case vftTime:
      return &kTime;
    case vftDateTime:
      return &kDateTime;
    default:
      return nullptr;
  }
}

}  // namespace vx::detail
