// Rows that share a key, in groups.
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "tables/CellSums.h"
#include "tables/Relations/RelationRows.h"

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
  // The text of a group's key, as its first row has it.
  const String& Key(int Group, int Index = 0) const noexcept { return FKeys[At(Group) * FNames.size() + At(Index)]; }
  // The name of a key's column; empty in a table without a head.
  const String& KeyName(int Index) const noexcept { return FNames[At(Index)]; }
  // The rows of a group in their order; never empty.
  std::span<const int> Rows(int Group) const noexcept {
    return std::span(FItems).subspan(FStarts[At(Group)], FStarts[At(Group) + 1] - FStarts[At(Group)]);
  }
  int Size(int Group) const noexcept { return static_cast<int>(Rows(Group).size()); }
  // The group of a row, which has to be one of those grouped.
  int GroupOf(int Row) const noexcept { return FGroupOf[At(Row - FRows.GetFirst())]; }
  // The cells of which no key could be made, in the order of rows.
  std::span<const TUnreadableCell> GetUnreadable() const noexcept { return FUnreadable; }
  const TRelationRows& GetRows() const noexcept { return FRows; }
  TKeyOptions GetOptions() const noexcept { return FOptions; }

  // A new table with a head: a row for each group with its key, each once; and with a CountName a last column with
  // that name for the number of its rows.
  [[nodiscard]] std::unique_ptr<THeadCsv> ToTable(std::u16string_view CountName = {}) const;

 private:
  static constexpr size_t At(int Index) noexcept { return static_cast<size_t>(Index); }

  TRelationRows FRows;
  TKeyOptions FOptions;
  std::vector<String> FNames, FKeys;  // FKeys: group by group
  std::vector<int> FGroupOf, FItems;
  std::vector<uint32_t> FStarts;  // of each group in FItems; and the end
  std::vector<TUnreadableCell> FUnreadable;
};

}  // namespace vx
