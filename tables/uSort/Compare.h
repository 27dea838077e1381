// The comparison of two cell texts by type.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/uConst.h"
#include "platform/ListItem.h"
#include "platform/String.h"
#include "platform/TStrings.h"

namespace vx {

enum TSortOrder : uint8_t { TS_NONE, TS_ASCENDING, TS_DESCENDING };

// One sort.
struct TSortColumn {
  int Index = 0;                       // the column; in a list view 0 is the caption and n the sub-item n - 1
  TVxFieldType SortType = vftUnknown;  // how the texts are compared
  int SortDirection = 0;               // factor on the result: 1 ascending, -1 descending
  String DateTimeFormat{};             // for dates and times; empty: the default of the type
};

// All give less than 0, 0 or more than 0 as A stands before, with or behind B.

// The comparison for a type; texts by AnsiCompareText where a type has none of its own. Format is that of
// dates and times, empty for u"yyyymmdd", u"hhnnss" or u"yyyymmddhhnnss". vftCommatext compares the lines
// of the commatexts.
int Compare(std::u16string_view A, std::u16string_view B, TVxFieldType FieldType, std::u16string_view Format);

int CompareBoolean(std::u16string_view A, std::u16string_view B) noexcept;
// The difference, held to the range of int: of u"Rest" and u"5" it is -5, as what is no number counts 0.
int CompareInteger(std::u16string_view A, std::u16string_view B) noexcept;
int CompareFloat(std::u16string_view A, std::u16string_view B);
int CompareHour(std::u16string_view A, std::u16string_view B);
int CompareCurrency(std::u16string_view A, std::u16string_view B);

// By the characters of the year, the month and the day, if Format is u"yyyymmdd" and both texts begin as
// dd.mm.yyyy; else by what Format makes of the dates that are read, by AnsiCompareText.
int CompareDate(std::u16string_view A, std::u16string_view B, std::u16string_view Format);
// By the first characters that differ, if Format is u"hhnnss" and, where both texts begin alike, colons stand
// at the positions 3, 6 and 9 of what they share and of what follows it; else like CompareDate.
int CompareTime(std::u16string_view A, std::u16string_view B, std::u16string_view Format);
// As CompareDate and, for equal dates in texts of 16, 19 or 23 characters, as CompareTime from position 12
// on, if Format is u"yyyymmddhhnnss"; else like CompareDate.
int CompareDateTime(std::u16string_view A, std::u16string_view B, std::u16string_view Format);

// Two items of a list view; one without that sub-item has an empty text there. EInvalidPointer if Data is nullptr.
int CustomSortProc(const TListItem& Item1, const TListItem& Item2, const TSortColumn* Data);
// Two rows; a row without that column has an empty text there. With nullptr for Column all are equal.
int CustomSortProcStr(const TStrings& Row1, const TStrings& Row2, const TSortColumn* Column);

}  // namespace vx
