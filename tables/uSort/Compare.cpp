#include "tables/uSort/Compare.h"

#include <algorithm>

#include "core/uVxFunctions/DateParsers.h"
#include "core/uVxFunctions/Numbers.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Numbers.h"
#include "tables/uSort/detail/CellValues.h"

namespace vx {

using detail::CommatextLines;
using detail::FindMomentForm;
using detail::SignOfDifference;
using detail::TMomentForm;
namespace {

int HeldToInt(int64_t Value) noexcept { return static_cast<int>(std::clamp<int64_t>(Value, INT32_MIN, INT32_MAX)); }

int CompareMoment(std::u16string_view A, std::u16string_view B, TVxFieldType FieldType, std::u16string_view Format) {
  const TMomentForm& form = *FindMomentForm(FieldType);
  if (Format != form.Format) return AnsiCompareText(form.Text(A, Format), form.Text(B, Format));
  int result;
  return form.CompareUnits(A, B, result) ? result : SignOfDifference(form.Digits(A), form.Digits(B));
}

int CompareBy(const TSortColumn& Column, std::u16string_view A, std::u16string_view B) {
  const int64_t result = Compare(A, B, Column.SortType, Column.DateTimeFormat);
  return HeldToInt(result * Column.SortDirection);
}

// Empty outside the texts.
String TextAt(const TStrings& Texts, int Index) {
  return Index >= 0 && Index < Texts.GetCount() ? Texts.Get(Index) : String();
}

}  // namespace

int Compare(std::u16string_view A, std::u16string_view B, TVxFieldType FieldType, std::u16string_view Format) {
  switch (FieldType) {
    case vftBoolean:
      return CompareBoolean(A, B);
    case vftInteger:
    case vftStatus:
      return CompareInteger(A, B);
    case vftFloat:
    case vftFraction:
      return CompareFloat(A, B);
    case vftDate:
    case vftTime:
    case vftDateTime:
      return CompareMoment(A, B, FieldType, Format.empty() ? FindMomentForm(FieldType)->Format : Format);
    case vftCommatext:
      return AnsiCompareText(CommatextLines(A), CommatextLines(B));
    case vftHour:
      return CompareHour(A, B);
    case vftCurrency:
      return CompareCurrency(A, B);
    default:
      return AnsiCompareText(A, B);
  }
}

int CompareBoolean(std::u16string_view A, std::u16string_view B) noexcept {
  return BoolToInt(StrToBool(A)) - BoolToInt(StrToBool(B));
}

int CompareInteger(std::u16string_view A, std::u16string_view B) noexcept {
  return HeldToInt(int64_t{StrToIntDef(A, 0)} - StrToIntDef(B, 0));
}

int CompareFloat(std::u16string_view A, std::u16string_view B) {
  return SignOfDifference(StrToExtDef(A, 0), StrToExtDef(B, 0));
}

int CompareHour(std::u16string_view A, std::u16string_view B) {
  return SignOfDifference(StrToHourDef(A, 0), StrToHourDef(B, 0));
}

int CompareCurrency(std::u16string_view A, std::u16string_view B) {
  return SignOfDifference(StrToCurrDef(A, 0), StrToCurrDef(B, 0));
}

int CompareDate(std::u16string_view A, std::u16string_view B, std::u16string_view Format) {
  return CompareMoment(A, B, vftDate, Format);
}

int CompareTime(std::u16string_view A, std::u16string_view B, std::u16string_view Format) {
  return CompareMoment(A, B, vftTime, Format);
}

int CompareDateTime(std::u16string_view A, std::u16string_view B, std::u16string_view Format) {
  return CompareMoment(A, B, vftDateTime, Format);
}

int CustomSortProc(const TListItem& Item1, const TListItem& Item2, const TSortColumn* Data) {
  if (Data == nullptr) {
    const auto address = static_cast<int64_t>(reinterpret_cast<intptr_t>(Data));
    throw EInvalidPointer(u"Kein TSortColumn Objekt an Adresse " + IntToStr(address));
  }
  auto textOf = [Data](const TListItem& Item) {
    return Data->Index == 0 ? Item.GetCaption() : TextAt(Item.GetSubItems(), Data->Index - 1);
  };
  return CompareBy(*Data, textOf(Item1), textOf(Item2));
}

int CustomSortProcStr(const TStrings& Row1, const TStrings& Row2, const TSortColumn* Column) {
  if (Column == nullptr) return 0;
  return CompareBy(*Column, TextAt(Row1, Column->Index), TextAt(Row2, Column->Index));
}

}  // namespace vx
