// Rows that share a key, in groups.
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "tables/CellSums.h"
#include "tables/Relations/RelationRows.h"
#include "tables/Relations/detail/KeySlots.h"

namespace vx {

// The groups stand in the order of their first rows, and count from 0; each row is in one. Rows are numbered as
// TRelationRows has them: those of a table by its rows, those of a join by its pairs.
//
// The groups keep their keys and the numbers of their rows. Tables and joins have to outlive them.
class TGroups {
 public:
  // EArgumentException for columns that the tables do not have. Without keys all rows are one group.
  TGroups(const TRelationRows& Rows, std::initializer_list<TGroupKey> Keys, TKeyOptions Options = {});

  int GetCount() const noexcept { return static_cast<int>(FStarts.size()) - 1; }
  int GetKeyCount() const noexcept { return static_cast<int>(FNames.size()); }
  // The text of a group's key, as its first row has it. Indexes that there are not raise EListError, here and below.
  const String& Key(int Group, int Index = 0) const {
    return FKeys[At(Group, GetCount()) * FNames.size() + At(Index, GetKeyCount())];
  }
  // The name of a key's column; empty in a table without a head.
  const String& KeyName(int Index) const { return FNames[At(Index, GetKeyCount())]; }
  // The rows of a group in their order; never empty.
  std::span<const int> Rows(int Group) const {
    const size_t group = At(Group, GetCount());
    return std::span(FItems).subspan(FStarts[group], FStarts[group + 1] - FStarts[group]);
  }
  int Size(int Group) const { return static_cast<int>(Rows(Group).size()); }
  // The group of a row.
  int GroupOf(int Row) const { return FGroupOf[At(Row - FRows.GetFirst(), FRows.GetCount())]; }
  // The cells of which no key could be made, in the order of rows.
  std::span<const TUnreadableCell> GetUnreadable() const noexcept { return FUnreadable; }
  const TRelationRows& GetRows() const noexcept { return FRows; }
  TKeyOptions GetOptions() const noexcept { return FOptions; }

  // A new table with a head: a row for each group with its key, each once; and with a CountName a last column with
  // that name for the number of its rows.
  [[nodiscard]] std::unique_ptr<THeadCsv> ToTable(std::u16string_view CountName = {}) const;

 private:
  static size_t At(int Index, int Count) {
    detail::CheckIndex(Index, Count);
    return static_cast<size_t>(Index);
  }

  TRelationRows FRows;
  TKeyOptions FOptions;
  std::vector<String> FNames, FKeys;  // FKeys: group by group
  std::vector<int> FGroupOf, FItems;
  std::vector<uint32_t> FStarts;  // of each group in FItems; and the end
  std::vector<TUnreadableCell> FUnreadable;
};

}  // namespace vx
