// Sums, least and most of groups, and groups as rows and columns of a table.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/HourAmount.h"
#include "core/MoneyText.h"
#include "platform/Currency.h"
#include "tables/Relations/TGroups.h"

namespace vx {

// Of the cells of one column.
template <typename T>
struct TGroupSum {
  T Sum{}, Least{}, Most{};  // of the cells that were read; 0 if there are none
  int Read = 0;              // cells that were read
  int Empty = 0;             // cells without a text or with blanks alone
  int Missing = 0;           // cells that the rows don't have; those of pairs without that row, too
  int Unreadable = 0;        // the others
};

template <typename T>
struct TGroupSums {
  std::vector<TGroupSum<T>> Groups;
  TGroupSum<T> Total;
  std::vector<TUnreadableCell> Unreadable;  // with the rows of their table, in the order of the rows that are grouped
  bool IsWhole() const noexcept { return Unreadable.empty(); }
};

// Cells are asked through the virtual GetCell and read by the strict readers that SumHoursY, SumMoneyY and ckInt have.
// EOverflow where a sum or the total leaves the range of its type; the order of the cells plays no part.
// EArgumentException for a column that the table does not have.
TGroupSums<THourAmount> SumHours(const TGroups& Groups, const TRelationColumn& Column, THourReadOptions Options = {});
TGroupSums<Currency> SumMoney(const TGroups& Groups, const TRelationColumn& Column, TMoneyReadOptions Options = {});
TGroupSums<int64_t> SumIntegers(const TGroups& Groups, const TRelationColumn& Column);
// The first and the last date, read as ckDate; Sum stays 0.
TGroupSums<TDateTime> FindDates(const TGroups& Groups, const TRelationColumn& Column);

// Appends a column to what TGroups::ToTable gave: its name in the head, and the sum of each group, empty for a group
// without a cell that was read. EArgumentException for a table of another number of rows.
void AddSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<THourAmount>& Sums);
void AddSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<Currency>& Sums);
void AddSums(THeadCsv& Table, std::u16string_view Name, const TGroupSums<int64_t>& Sums);

// A new table with a head: the last key of the groups tells the column, the others tell the row, and the cells are the
// numbers of rows, or the sums. Rows and columns stand in the order of their keys as texts. Where there is no group, or
// none of its cells was read, the cell is empty. EArgumentException for groups by less than two keys.
[[nodiscard]] std::unique_ptr<THeadCsv> PivotCounts(const TGroups& Groups);
[[nodiscard]] std::unique_ptr<THeadCsv> PivotSums(const TGroups& Groups, const TGroupSums<THourAmount>& Sums);
[[nodiscard]] std::unique_ptr<THeadCsv> PivotSums(const TGroups& Groups, const TGroupSums<Currency>& Sums);
[[nodiscard]] std::unique_ptr<THeadCsv> PivotSums(const TGroups& Groups, const TGroupSums<int64_t>& Sums);

}  // namespace vx
