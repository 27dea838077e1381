#include "tables/Relations/TKeyIndex.h"

#include <algorithm>

#include "platform/Exceptions.h"
#include "platform/detail/TextHash.h"
#include "tables/Relations/detail/Cells.h"

namespace vx {

namespace {

constexpr const char16_t* kStale = u"The table has changed since its index was built";

String KeyText(std::span<const std::u16string_view> Key) {
  String text;
  for (std::u16string_view cell : Key) text = Concat({text, text.empty() ? u"'" : u", '", cell, u"'"});
  return text;
}

}  // namespace

TKeyIndex::TKeyIndex(const TRelationRows& Rows, std::span<const TCellColumn> Columns, TKeyOptions Options)
    : FRows(Rows), FOptions(Options), FTableCount(Rows.Table().GetCount()), FSeed(detail::HashSeed()) {
  if (Rows.IsJoin()) throw EArgumentException(u"An index of the rows of a join");
  if (Columns.empty()) throw EArgumentException(u"An index without columns");
  for (const TCellColumn& column : Columns) FColumns.push_back(detail::IndexIn(Rows.Table(), column));
  Build();
}

template <typename F>
uint64_t TKeyIndex::Hash(F Cell) const {
  detail::TTextHash hash(FSeed);
  for (size_t i = 0; i < FColumns.size(); ++i) {
    if (FOptions.Has(koNoCase)) {
      hash.AddFolded(Cell(i));
    } else {
      hash.Add(Cell(i));
    }
  }
  return hash.Get();
}

uint64_t TKeyIndex::HashOf(const TVxStringList& Row) const {
  return Hash([&](size_t i) { return detail::CellText(Row, FColumns[i]); });
}

template <typename F>
bool TKeyIndex::HasKey(const TVxStringList& Row, F Cell) const {
  for (size_t i = 0; i < FColumns.size(); ++i) {
    const TView a = detail::CellText(Row, FColumns[i]), b = Cell(i);
    if (FOptions.Has(koNoCase) ? !detail::IsSameFolded(a, b) : a != b) return false;
  }
  return true;
}

void TKeyIndex::Build() {
  constexpr int kBlock = 32;  // rows whose slots are fetched while those of the next ones are told
  const TFileCsv& table = FRows.Table();
  std::vector<int> keyOf;
  keyOf.reserve(static_cast<size_t>(FRows.GetCount()));
  uint64_t hashes[kBlock];
  for (int first = FRows.GetFirst(); first < FRows.GetEnd(); first += kBlock) {
    const int count = std::min(kBlock, FRows.GetEnd() - first);
    for (int i = 0; i < count; ++i) {
      hashes[i] = HashOf(*table.GetLines(first + i));
      FSlots.Prefetch(hashes[i]);
    }
    for (int i = 0; i < count; ++i) {
      const TVxStringList& line = *table.GetLines(first + i);
      keyOf.push_back(FSlots.FindOrAdd(hashes[i], first + i, [&](const detail::TKeySlots::TSlot& slot) {
        return HasKey(*table.GetLines(slot.First), [&](size_t col) { return detail::CellText(line, FColumns[col]); });
      }));
    }
  }
  detail::GroupItems(keyOf, FRows.GetFirst(), GetCount(), FStarts, FRowNumbers);
}

int TKeyIndex::IndexOf(std::span<const TView> Key) const {
  if (Key.size() != FColumns.size()) throw EArgumentException(u"A key of another number of texts than its index has");
  const TFileCsv& table = FRows.Table();
  if (table.GetCount() != FTableCount) throw EListError(kStale);
  // Other keys of the same 64 bits don't come by in a lifetime: the row has changed.
  return FSlots.Find(Hash([&](size_t i) { return Key[i]; }), [&](const detail::TKeySlots::TSlot& slot) {
    if (!HasKey(*table.GetLines(slot.First), [&](size_t i) { return Key[i]; })) throw EListError(kStale);
    return true;
  });
}

std::span<const int> TKeyIndex::RowsOf(std::span<const TView> Key) const {
  const int index = IndexOf(Key);
  return index < 0 ? std::span<const int>() : RowsAt(index);
}

int TKeyIndex::RowOf(std::span<const TView> Key) const {
  const std::span<const int> rows = RowsOf(Key);
  if (rows.size() > 1) throw EListError(Concat({u"Several rows have the key ", KeyText(Key)}));
  return rows.empty() ? -1 : rows[0];
}

bool TKeyIndex::IsStale() const {
  const TFileCsv& table = FRows.Table();
  if (table.GetCount() != FTableCount) return true;
  return std::ranges::any_of(FSlots.Slots(), [&](const detail::TKeySlots::TSlot& slot) {
    return slot.Key >= 0 &&
           std::ranges::any_of(RowsAt(slot.Key), [&](int row) { return HashOf(*table.GetLines(row)) != slot.Hash; });
  });
}

}  // namespace vx
