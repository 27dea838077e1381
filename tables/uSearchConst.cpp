#include "tables/uSearchConst.h"

#include <algorithm>
#include <span>

#include "platform/Collation.h"
#include "platform/TextForms.h"

namespace vx {

namespace {

constexpr std::array<int, STATUS_TEXT.size()> kStatusNumbers = {0, 8, 9};

using TWords = std::span<const std::u16string_view>;

String EntryAt(TWords Words, int Index) {
  return Words[static_cast<size_t>(Index) < Words.size() ? static_cast<size_t>(Index) : 0];
}

// -1 if it is not there.
int Find(TWords Words, std::u16string_view Text) noexcept {
  const auto found = std::ranges::find(Words, Text);
  return found == Words.end() ? -1 : static_cast<int>(found - Words.begin());
}

int FindTextOrSymbol(TWords Texts, TWords Symbols, std::u16string_view Text) noexcept {
  const int index = Find(Texts, Text);
  return index >= 0 ? index : std::max(Find(Symbols, Text), 0);
}

bool Validate(TWords Symbols, String& Symbol) {
  if (Find(Symbols, Symbol) >= 0) return true;
  Symbol = Symbols[0];
  return false;
}

void Append(TCells& Cells, TWords Words) { Cells.insert(Cells.end(), Words.begin(), Words.end()); }

String ToCommatext(TWords Words) {
  TCells cells;
  Append(cells, Words);
  return WriteCommatext(cells);
}

}  // namespace

String getClauseText(int Index) { return EntryAt(CLAUSE_TEXT, Index); }
String getClauseSymbol(int Index) { return EntryAt(CLAUSE_SYMBOL, Index); }

int getClauseIndex(std::u16string_view Text) noexcept {
  return std::max(Find(Text.size() <= 2 ? CLAUSE_SYMBOL : CLAUSE_TEXT, Text), 0);
}

String ClauseSymbolToText(std::u16string_view Symbol) { return getClauseText(getClauseIndex(Symbol)); }
String ClauseTextToSymbol(std::u16string_view Text) { return getClauseSymbol(getClauseIndex(Text)); }
bool ValidateClauseSymbol(String& Symbol) { return Validate(CLAUSE_SYMBOL, Symbol); }

String GetClauseCommaText(bool EqualOnly) {
  const TWords texts = CLAUSE_TEXT;
  return ToCommatext(EqualOnly ? texts.subspan(2, 2) : texts);
}

String getDateText(int Index) { return EntryAt(DATE_TEXT, Index); }
String getDateSymbol(int Index) { return EntryAt(DATE_SYMBOL, Index); }
String getTimeText(int Index) { return EntryAt(TIME_TEXT, Index); }
String getTimeSymbol(int Index) { return EntryAt(TIME_SYMBOL, Index); }
int getDateIndex(std::u16string_view Text) noexcept { return FindTextOrSymbol(DATE_TEXT, DATE_SYMBOL, Text); }
int getTimeIndex(std::u16string_view Text) noexcept { return FindTextOrSymbol(TIME_TEXT, TIME_SYMBOL, Text); }
String SymbolToDate(std::u16string_view Symbol) { return getDateText(getDateIndex(Symbol)); }
String SymbolToTime(std::u16string_view Symbol) { return getTimeText(getTimeIndex(Symbol)); }
String DateToSymbol(std::u16string_view Text) { return getDateSymbol(getDateIndex(Text)); }
String TimeToSymbol(std::u16string_view Text) { return getTimeSymbol(getTimeIndex(Text)); }
bool ValidateDateSymbol(String& Symbol) { return Validate(DATE_SYMBOL, Symbol); }
bool ValidateTimeSymbol(String& Symbol) { return Validate(TIME_SYMBOL, Symbol); }
bool ValidateDateTimeSymbol(String& Symbol) { return ValidateDateSymbol(Symbol) || ValidateTimeSymbol(Symbol); }

String GetDateTimeCommaText(bool Date, bool Time) {
  TCells cells;
  if (Date) Append(cells, DATE_TEXT);
  if (Time) Append(cells, TIME_TEXT);
  return WriteCommatext(cells);
}

String GetStatusText(int Number) {
  const auto found = std::ranges::find(kStatusNumbers, Number);
  return found == kStatusNumbers.end() ? String() : GetStatusText(static_cast<TStatus>(found - kStatusNumbers.begin()));
}

String GetStatusText(TStatus Status) { return Status < STATUS_TEXT.size() ? String(STATUS_TEXT[Status]) : String(); }

int GetStatusIndex(std::u16string_view Text) noexcept {
  for (size_t i = 0; i < STATUS_TEXT.size(); ++i) {
    if (AnsiSameText(STATUS_TEXT[i], Text)) return kStatusNumbers[i];
  }
  return -1;
}

int GetStatusIndex(TStatus Status) noexcept { return Status < kStatusNumbers.size() ? kStatusNumbers[Status] : -1; }

TStatus GetStatus(int Number) noexcept {
  const auto found = std::ranges::find(kStatusNumbers, Number);
  return found == kStatusNumbers.end() ? tsActive : static_cast<TStatus>(found - kStatusNumbers.begin());
}

TStatus GetStatus(std::u16string_view Text) noexcept { return GetStatus(GetStatusIndex(Text)); }
String GetStatusCommaText() { return ToCommatext(STATUS_TEXT); }

String GetBoolCommaText() { return ToCommatext(BOOL_TEXT); }
String GetCaseCommaText() { return ToCommatext(CASE_TEXT); }

}  // namespace vx
