// Walking through the rows of a table and the cells of a column, without copies.
//
//   TEntryIterator   a random-access iterator; over rows, which are TVxStringList&, or over cells, const String&
//   TEntryRange      a part of a table for walking
//
// Example:
//   vx::TFileCsv table;
//   table.SetText(u"Name,Ort\r\nAnja,Köln\r\nTim");
//   vx::String texts;
//   for (const vx::TVxStringList& row : table)
//     for (const vx::String& cell : row) texts += cell + u";";
//   texts;                                                           // u"Name;Ort;Anja;Köln;Tim;"
//   for (vx::TVxStringList& row : table.Rows(1)) row.Add(u"neu");    // the rows from 1 on
//   vx::String towns;
//   for (const vx::String& town : table.Column(1, 1)) towns += town + u";";
//   towns;                                                           // u"Köln;neu;"
//
// Cells are taken as they stand in the rows; a derived class's GetCell is not asked. A row that is too short has an
// empty text in a column.
//
// Pitfalls: while a loop walks, rows must not come, go or change their places, by whatever operation. The cells of a
// row may change while the rows or a column are walked, but not while the row itself is. An entry that is no row
// raises EInvalidCast when the loop comes to it.
#pragma once

#include <compare>
#include <cstddef>
#include <iterator>
#include <span>
#include <type_traits>
#include <typeinfo>

#include "objects/uVxClasses.h"

namespace vx {

namespace detail {

TVxStringList* CastRow(TObject* Entry);
// The entry as a row; EInvalidCast if it is none.
inline TVxStringList* AsRow(TObject* Entry) {
  if (Entry && typeid(*Entry) == typeid(TVxStringList)) return static_cast<TVxStringList*>(Entry);
  return CastRow(Entry);
}

template <typename TRow>
struct TRowOf {
  TRow& operator()(TObject* Entry) const { return *AsRow(Entry); }
};

struct TCellOf {
  const String& operator()(TObject* Entry) const {
    const std::span<const String> cells = AsRow(Entry)->Items();
    return static_cast<size_t>(Col) < cells.size() ? cells[static_cast<size_t>(Col)] : NoCell();
  }
  static const String& NoCell() noexcept {
    static const String none;
    return none;
  }
  int Col = 0;
};

}  // namespace detail

// Read makes of an entry of the table what the iterator gives.
template <typename TRead>
class TEntryIterator {
 public:
  using iterator_category = std::random_access_iterator_tag;
  using difference_type = std::ptrdiff_t;
  using reference = std::invoke_result_t<const TRead&, TObject*>;
  using value_type = std::remove_cvref_t<reference>;
  using pointer = std::add_pointer_t<reference>;

  TEntryIterator() noexcept = default;
  TEntryIterator(TObject* const* At, TRead Read) noexcept : FAt(At), FRead(Read) {}

  reference operator*() const { return FRead(*FAt); }
  pointer operator->() const { return &FRead(*FAt); }
  reference operator[](difference_type Count) const { return FRead(FAt[Count]); }
  TEntryIterator& operator++() noexcept { return *this += 1; }
  TEntryIterator& operator--() noexcept { return *this -= 1; }
  TEntryIterator operator++(int) noexcept { return {FAt++, FRead}; }
  TEntryIterator operator--(int) noexcept { return {FAt--, FRead}; }
  TEntryIterator& operator+=(difference_type Count) noexcept {
    FAt += Count;
    return *this;
  }
  TEntryIterator& operator-=(difference_type Count) noexcept { return *this += -Count; }
  friend TEntryIterator operator+(TEntryIterator A, difference_type Count) noexcept { return A += Count; }
  friend TEntryIterator operator+(difference_type Count, TEntryIterator A) noexcept { return A += Count; }
  friend TEntryIterator operator-(TEntryIterator A, difference_type Count) noexcept { return A -= Count; }
  friend difference_type operator-(const TEntryIterator& A, const TEntryIterator& B) noexcept { return A.FAt - B.FAt; }
  friend bool operator==(const TEntryIterator& A, const TEntryIterator& B) noexcept { return A.FAt == B.FAt; }
  friend std::strong_ordering operator<=>(const TEntryIterator& A, const TEntryIterator& B) noexcept {
    return A.FAt <=> B.FAt;
  }

 private:
  TObject* const* FAt = nullptr;
  TRead FRead{};
};

template <typename TRead>
class TEntryRange {
 public:
  using iterator = TEntryIterator<TRead>;

  TEntryRange(std::span<TObject* const> Entries, TRead Read) noexcept : FEntries(Entries), FRead(Read) {}

  iterator begin() const noexcept { return {FEntries.data(), FRead}; }
  iterator end() const noexcept { return {FEntries.data() + FEntries.size(), FRead}; }
  int size() const noexcept { return static_cast<int>(FEntries.size()); }
  bool empty() const noexcept { return FEntries.empty(); }
  // Index has to lie inside the range.
  typename iterator::reference operator[](int Index) const { return begin()[Index]; }

 private:
  std::span<TObject* const> FEntries;
  TRead FRead;
};
using TRowRange = TEntryRange<detail::TRowOf<TVxStringList>>;
using TConstRowRange = TEntryRange<detail::TRowOf<const TVxStringList>>;
using TColumnRange = TEntryRange<detail::TCellOf>;

}  // namespace vx
