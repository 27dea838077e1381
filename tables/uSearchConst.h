// The words of the search and filter dialogs.
//
//   clauses      what a search asks of a cell: CLAUSE_TEXT, CLAUSE_SYMBOL and their routines
//   parts        of a date and a time: DATE_TEXT, DATE_SYMBOL, TIME_TEXT, TIME_SYMBOL, DATE_MONTH
//   TStatus      active, inactive, deleted, with text and stored number
//   choices      BOOL_TEXT, CASE_TEXT
//
// Example:
//   vx::ClauseSymbolToText(u"<=");        // u"kleiner gleich <="
//   vx::GetStatusIndex(u"gelöscht");      // 9
//
// A word has a German text for the screen and a short symbol for storage, at the same index from 0 on.
// Texts and symbols are matched exactly unless told; what is not found counts as the first entry.
//
// Threads: constants, which any number may read.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/String.h"
#include "platform/Types.h"

namespace vx {

using TClauseArray = std::array<std::u16string_view, 8>;
using TDateArray = std::array<std::u16string_view, 4>;
using TTimeArray = std::array<std::u16string_view, 4>;

inline constexpr TClauseArray CLAUSE_TEXT = {u"enthält",   u"enthält nicht",     u"gleich =", u"ungleich <>",
                                             u"kleiner <", u"kleiner gleich <=", u"größer >", u"größer gleich >="};
inline constexpr TClauseArray CLAUSE_SYMBOL = {u"v", u"#", u"=", u"<>", u"<", u"<=", u">", u">="};
inline constexpr TDateArray DATE_TEXT = {u"Datum", u"Tag", u"Monat", u"Jahr"};
inline constexpr TDateArray DATE_SYMBOL = {u"dd.mm.yyyy", u"dd", u"mm", u"yyyy"};
inline constexpr TTimeArray TIME_TEXT = {u"Zeit", u"Stunde", u"Minute", u"Sekunde"};
inline constexpr TTimeArray TIME_SYMBOL = {u"hh:nn:ss", u"hh", u"nn", u"ss"};
inline constexpr std::array<std::u16string_view, 12> DATE_MONTH = {u"Januar",    u"Februar", u"März",     u"April",
                                                                   u"Mai",       u"Juni",    u"Juli",     u"August",
                                                                   u"September", u"Oktober", u"November", u"Dezember"};
inline constexpr std::array<std::u16string_view, 2> BOOL_TEXT = {u"Nein", u"Ja"};
inline constexpr std::array<std::u16string_view, 2> CASE_TEXT = {u"", u"aA"};  // the search ignores case, or not

enum TStatus : uint8_t { tsActive, tsInactive, tsDeleted };
using TStatusSet = Set<TStatus>;
inline constexpr std::array<std::u16string_view, 3> STATUS_TEXT = {u"aktiv", u"inaktiv", u"gelöscht"};

// --- clauses ---
// An Index outside 0 to 7 gives the first entry.
String getClauseText(int Index);
String getClauseSymbol(int Index);
// A Text of up to two characters is a symbol, a longer one a text.
int getClauseIndex(std::u16string_view Text) noexcept;
// Each takes a symbol or a text.
String ClauseSymbolToText(std::u16string_view Symbol);
String ClauseTextToSymbol(std::u16string_view Text);
// Whether Symbol is a symbol; if not, it becomes the first one.
bool ValidateClauseSymbol(String& Symbol);
// The commatext of all eight texts, or of "gleich =" and "ungleich <>" alone.
String GetClauseCommaText(bool EqualOnly);

// --- dates and times ---
// An Index outside 0 to 3 gives the first entry.
String getDateText(int Index);
String getDateSymbol(int Index);
String getTimeText(int Index);
String getTimeSymbol(int Index);
// Text may be a text or a symbol.
int getDateIndex(std::u16string_view Text) noexcept;
int getTimeIndex(std::u16string_view Text) noexcept;
String SymbolToDate(std::u16string_view Symbol);
String SymbolToTime(std::u16string_view Symbol);
String DateToSymbol(std::u16string_view Text);
String TimeToSymbol(std::u16string_view Text);
// Whether Symbol is a symbol; if not, it becomes the first one of its kind.
bool ValidateDateSymbol(String& Symbol);
bool ValidateTimeSymbol(String& Symbol);
// ValidateDateSymbol and, if that is false, ValidateTimeSymbol. The first has replaced Symbol then, so that
// every symbol of a time becomes u"hh:nn:ss" with the result false; this is wanted.
bool ValidateDateTimeSymbol(String& Symbol);
// The commatext of the texts of dates, if told, followed by those of times.
String GetDateTimeCommaText(bool Date, bool Time);

// --- status: 0 active, 8 inactive, 9 deleted ---
// Empty for another number.
String GetStatusText(int Number);
String GetStatusText(TStatus Status);
// The number of a text, without regard to case; -1 if there is none.
int GetStatusIndex(std::u16string_view Text) noexcept;
int GetStatusIndex(TStatus Status) noexcept;
// tsActive for another number or text.
TStatus GetStatus(int Number) noexcept;
TStatus GetStatus(std::u16string_view Text) noexcept;
String GetStatusCommaText();

// --- choices ---
String GetBoolCommaText();
String GetCaseCommaText();

}  // namespace vx
