// The rows of two tables that share a key, side by side.
#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "tables/Relations/TKeyIndex.h"

namespace vx {

enum TJoinKind : uint8_t {
  jkInner,  // the pairs of rows that share a key
  jkLeft    // and a pair with no right row for each left row without a partner
};

// Pairs of row numbers, without copies: of each row of the left table in its order all its rows of the right one in
// their order, so that rows whose key stands several times on both sides are multiplied. A row whose key cells are all
// empty has no partner.
class TJoin {
 public:
  // EArgumentException for columns that Left does not have, or another number of them than Index has; EListError for
  // an index that is stale, and for more pairs than an int counts.
  TJoin(const TRelationRows& Left, std::span<const TCellColumn> Columns, const TKeyIndex& Index, TJoinKind Kind);

  std::vector<TRowPair> Pairs;
  std::vector<int> LeftOnly, RightOnly;  // the rows that had no partner, of a left join too, in the tables' order

  // For grouping; the join has to outlive the result.
  operator TRelationRows() const& noexcept { return {*FLeft, *FRight, Pairs}; }
  operator TRelationRows() const&& = delete;
  // A new table with a head: of each pair the cells of those columns, which share their characters. A cell that a row
  // does not have is empty.
  [[nodiscard]] std::unique_ptr<THeadCsv> ToTable(std::initializer_list<TRelationColumn> Columns) const;

 private:
  const TFileCsv* FLeft;
  const TFileCsv* FRight;
};

// The columns of Left stand for those of the index, one by one. Case counts as it does for the index.
[[nodiscard]] TJoin InnerJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns,
                              const TKeyIndex& Index);
[[nodiscard]] TJoin LeftJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns,
                             const TKeyIndex& Index);
// The same with an index for this once.
[[nodiscard]] TJoin InnerJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns,
                              const TRelationRows& Right, std::initializer_list<TCellColumn> RightColumns,
                              TKeyOptions Options = {});
[[nodiscard]] TJoin LeftJoin(const TRelationRows& Left, std::initializer_list<TCellColumn> Columns,
                             const TRelationRows& Right, std::initializer_list<TCellColumn> RightColumns,
                             TKeyOptions Options = {});

}  // namespace vx
