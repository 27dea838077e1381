// What the operations on rows work on: the rows of a table, or of two tables side by side, and their columns.
#pragma once

#include <concepts>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "core/TextFault.h"
#include "platform/Types.h"
#include "tables/CheckedCells.h"
#include "tables/uFileCsv.h"

namespace vx {

enum TKeyOption : uint8_t {
  koNoCase  // texts that AnsiSameText has as equal are the same key
};
using TKeyOptions = Set<TKeyOption>;

// A row of each of two tables; -1 for none.
struct TRowPair {
  int Left = -1, Right = -1;
  friend constexpr bool operator==(TRowPair A, TRowPair B) noexcept = default;
};

// Rows by numbers: those of a table are its rows, those of a join the indexes of its pairs. Made from either where it
// is asked for.
class TRelationRows {
 public:
  // The rows First to Last, both included and held to the table. A First of -1 is 1 in a table with a head and 0 in
  // others, a Last of -1 is the last row, but the fixed rows of a typed table are left out then. EArgumentException for
  // others below 0.
  TRelationRows(const TFileCsv& Table, int First = -1, int Last = -1);
  TRelationRows(const TFileCsv&& Table, int = -1, int = -1) = delete;  // it has to outlive the rows
  TRelationRows(const TFileCsv& Left, const TFileCsv& Right, std::span<const TRowPair> Pairs) noexcept
      : FLeft(&Left), FRight(&Right), FPairs(Pairs), FEnd(static_cast<int>(Pairs.size())) {}

  int GetFirst() const noexcept { return FFirst; }
  int GetEnd() const noexcept { return FEnd; }  // behind the last one
  int GetCount() const noexcept { return FEnd - FFirst; }
  bool IsJoin() const noexcept { return FRight != nullptr; }
  // The table of one side; EArgumentException for the right one of what is no join.
  const TFileCsv& Table(bool IsRight = false) const;
  // The row of one side's table that stands there; -1 for none.
  int RowOf(int Number, bool IsRight) const noexcept {
    if (!FRight) return Number;
    const TRowPair pair = FPairs[static_cast<size_t>(Number)];
    return IsRight ? pair.Right : pair.Left;
  }

 private:
  const TFileCsv* FLeft;
  const TFileCsv* FRight = nullptr;
  std::span<const TRowPair> FPairs;
  int FFirst = 0, FEnd;
};

// A column of a table, of the left one of a join unless told OfRight. Names have to outlive the call that gets them.
struct TRelationColumn {
  TCellColumn Column;
  bool IsRight = false;
  std::u16string_view Name;  // its name in a table that is made; empty: that in its own head

  constexpr TRelationColumn(TCellColumn AColumn, bool Right = false) noexcept : Column(AColumn), IsRight(Right) {}
  constexpr TRelationColumn(int Index) noexcept : Column(Index) {}
  template <std::convertible_to<std::u16string_view> T>
  constexpr TRelationColumn(const T& AName) noexcept : Column(AName) {}

  // The same with a name of its own.
  constexpr TRelationColumn As(std::u16string_view AName) const noexcept {
    TRelationColumn result = *this;
    result.Name = AName;
    return result;
  }
};
constexpr TRelationColumn OfRight(TCellColumn Column) noexcept { return {Column, true}; }

// What a row is grouped by: a cell, or what Make makes of it. A Fault other than tfNone and tfEmpty says that the cell
// could not be read: it is told, and its row goes where the result says, such as to the empty key.
struct TGroupKey : TRelationColumn {
  using TMake = std::function<String(std::u16string_view Cell, TTextFault& Fault)>;
  TMake Make;  // empty: the cell

  TGroupKey(const TRelationColumn& Of, TMake AMake = {}) : TRelationColumn(Of), Make(std::move(AMake)) {}
  TGroupKey(int Index) noexcept : TRelationColumn(Index) {}
  template <std::convertible_to<std::u16string_view> T>
  TGroupKey(const T& AName) noexcept : TRelationColumn(AName) {}
};
inline TGroupKey By(const TRelationColumn& Column, TGroupKey::TMake Make) { return {Column, std::move(Make)}; }
// Of dates and of dates with times, as ckDate and ckDateTime are read: u"2026-05-04", u"2026-05" and u"2026", which
// stand in the order of time. Empty where there is no date.
TGroupKey ByDay(const TRelationColumn& Column);
TGroupKey ByMonth(const TRelationColumn& Column);
TGroupKey ByYear(const TRelationColumn& Column);

}  // namespace vx
