// Walking down one column of many rows. Internal to uFileCsv.
#pragma once

#include <cstring>
#include <span>
#include <typeinfo>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Collation.h"

namespace vx::detail {

// What FindInColumn is to look for: the same code units as Key, which has to live as long as the function.
inline auto SameUnitsAs(const String& Key) noexcept {
  return [&Key, isShort = Key.size() <= String::InlineCapacity](const String& cell) {
    if (isShort) return cell == Key;  // compares the values as they lie
    if (cell.size() != Key.size()) return false;
    // Keys mostly differ at their end, whose few units are compared at once.
    constexpr size_t kEnd = 4 * sizeof(char16_t);
    const size_t front = static_cast<size_t>(Key.size()) * sizeof(char16_t) - kEnd;
    const char* a = reinterpret_cast<const char*>(cell.data());
    const char* b = reinterpret_cast<const char*>(Key.data());
    return std::memcmp(a + front, b + front, kEnd) == 0 && std::memcmp(a, b, front) == 0;
  };
}
// The same text without regard to case.
inline auto SameTextAs(std::u16string_view Key) noexcept {
  return [Key](const String& cell) { return AnsiSameText(cell, Key); };
}

// The index of the first of Rows, from First on, whose cell at Col Matches(const String&); -1 if there is
// none. Rows too short to have the cell are passed over. AsRow makes a TVxStringList of an entry and raises
// if it is none. Rows and Col must not change meanwhile.
template <typename TAsRow, typename TMatches>
int FindInColumn(std::span<TObject* const> Rows, int First, int Col, TAsRow AsRow, TMatches Matches) {
  // Most of the time would go by with waiting for memory: rows, their cells and the characters of these are
  // fetched while others are compared.
  constexpr size_t kAhead = 4;
  const auto col = static_cast<size_t>(Col);
  const auto cellsAhead = [&](size_t row) {
    const TObject* entry = Rows[row];
    return entry && typeid(*entry) == typeid(TVxStringList) ? static_cast<const TVxStringList*>(entry)->Items()
                                                            : std::span<const String>();
  };
  for (auto row = static_cast<size_t>(First); row < Rows.size(); ++row) {
    if (row + 4 * kAhead < Rows.size()) {
      __builtin_prefetch(Rows[row + 4 * kAhead]);
      if (auto cells = cellsAhead(row + 2 * kAhead); col < cells.size()) __builtin_prefetch(&cells[col]);
      if (auto cells = cellsAhead(row + kAhead); col < cells.size()) __builtin_prefetch(cells[col].data());
    }
    std::span<const String> cells = AsRow(Rows[row])->Items();
    if (col < cells.size() && Matches(cells[col])) return static_cast<int>(row);
  }
  return -1;
}

// The commatext of the cells of one, sorted without regard to case, and neighbours that are exactly equal once.
String SortedUnique(std::u16string_view Commatext);

}  // namespace vx::detail
