// Rows found by the cells of their key columns.
#pragma once

#include <array>
#include <concepts>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "tables/Relations/RelationRows.h"
#include "tables/Relations/detail/KeySlots.h"

namespace vx {

// Built once, in a time that grows with the rows; a look-up takes the same time however many they are. It holds row
// numbers and hashes but no texts: the table has to outlive it.
//
// When the table has changed since, IsStale tells. A look-up by itself notices another number of rows, and that the
// first row of a key no longer has it; it raises EListError then. It does not notice that another row has come to the
// key, or that a later row of the key has left it.
//
// Many threads may look up at once, as long as none changes the table.
class TKeyIndex {
 public:
  // EArgumentException for no columns, for the rows of a join, and for columns that the table does not have.
  TKeyIndex(const TRelationRows& Rows, std::initializer_list<TCellColumn> Columns, TKeyOptions Options = {})
      : TKeyIndex(Rows, std::span<const TCellColumn>(Columns.begin(), Columns.size()), Options) {}
  TKeyIndex(const TRelationRows& Rows, std::span<const TCellColumn> Columns, TKeyOptions Options = {});

  // The one row with that key, told by as many texts as there are columns; -1 if there is none. EListError that names
  // the key if several rows have it. EArgumentException for another number of texts.
  template <std::convertible_to<std::u16string_view>... T>
  int Row(const T&... Key) const {
    return RowOf(std::array<std::u16string_view, sizeof...(T)>{std::u16string_view(Key)...});
  }
  // All rows with that key, in the table's order; empty if there is none. The result stands as long as the index.
  template <std::convertible_to<std::u16string_view>... T>
  std::span<const int> Rows(const T&... Key) const {
    return RowsOf(std::array<std::u16string_view, sizeof...(T)>{std::u16string_view(Key)...});
  }
  int RowOf(std::span<const std::u16string_view> Key) const;
  std::span<const int> RowsOf(std::span<const std::u16string_view> Key) const;
  // The number of a key, which RowsAt takes; -1 if there is none.
  int IndexOf(std::span<const std::u16string_view> Key) const;

  // How many different keys there are, in the order of their first rows, and all rows of one of them; EListError for an
  // index that there is not.
  int GetCount() const noexcept { return FSlots.GetCount(); }
  std::span<const int> RowsAt(int Index) const {
    detail::CheckIndex(Index, GetCount());
    const auto index = static_cast<size_t>(Index);
    return std::span(FRowNumbers).subspan(FStarts[index], FStarts[index + 1] - FStarts[index]);
  }
  // No key stands twice.
  bool IsUnique() const noexcept { return FRowNumbers.size() == static_cast<size_t>(GetCount()); }
  // Looks at all rows again: whether any has another key than when the index was built, or the table another number
  // of them.
  bool IsStale() const;

  const TRelationRows& GetRows() const noexcept { return FRows; }
  std::span<const int> GetColumns() const noexcept { return FColumns; }
  TKeyOptions GetOptions() const noexcept { return FOptions; }

 private:
  using TView = std::u16string_view;
  // What has so many cells, the last of which Cell(i) gives.
  template <typename F>
  uint64_t Hash(F Cell) const;
  uint64_t HashOf(const TVxStringList& Row) const;
  template <typename F>
  bool HasKey(const TVxStringList& Row, F Cell) const;
  void Build();

  TRelationRows FRows;
  std::vector<int> FColumns;
  TKeyOptions FOptions;
  int FTableCount;
  uint64_t FSeed;
  detail::TKeySlots FSlots;
  std::vector<uint32_t> FStarts;  // of each key in FRowNumbers; and the end
  std::vector<int> FRowNumbers;   // key by key
};

}  // namespace vx
