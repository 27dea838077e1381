#include "tables/Relations/TGroups.h"

#include "platform/Numbers.h"
#include "platform/detail/TextHash.h"
#include "tables/Relations/detail/Cells.h"

namespace vx {

namespace {

// The texts of one key, row by row.
class TKeyTexts {
 public:
  TKeyTexts(const TRelationRows& Rows, const TGroupKey& Key) : FCells(Rows, Key), FMake(Key.Make) {}

  // The key of a row, which stands until the next call.
  const String& Text(int Number, std::vector<TUnreadableCell>& Unreadable) {
    static const String none;
    const String* cell = FCells.Find(Number);
    if (!FMake) return cell ? *cell : none;
    TTextFault fault;
    FMade = FMake(cell ? cell->view() : std::u16string_view(), fault);
    if (fault.Kind != tfNone && fault.Kind != tfEmpty) {
      Unreadable.push_back({FCells.GetCol(), FCells.RowOf(Number), fault});
    }
    return FMade;
  }

 private:
  detail::TColumnCells FCells;
  const TGroupKey::TMake& FMake;
  String FMade;
};

}  // namespace

TGroups::TGroups(const TRelationRows& Rows, std::initializer_list<TGroupKey> Keys, TKeyOptions Options)
    : FRows(Rows), FOptions(Options) {
  std::vector<TKeyTexts> texts;
  texts.reserve(Keys.size());
  for (const TGroupKey& key : Keys) {
    texts.emplace_back(FRows, key);
    FNames.push_back(detail::NameIn(Rows, key));
  }
  const bool noCase = Options.Has(koNoCase);
  const uint64_t seed = detail::HashSeed();
  detail::TKeySlots slots;
  std::vector<const String*> key(Keys.size());
  const auto isSame = [&](const detail::TKeySlots::TSlot& slot) {
    const String* other = FKeys.data() + static_cast<size_t>(slot.Key) * key.size();
    for (size_t i = 0; i < key.size(); ++i) {
      if (noCase ? !detail::IsSameFolded(other[i], *key[i]) : other[i] != *key[i]) return false;
    }
    return true;
  };
  FGroupOf.reserve(static_cast<size_t>(Rows.GetCount()));
  for (int number = Rows.GetFirst(); number < Rows.GetEnd(); ++number) {
    detail::TTextHash hash(seed);
    for (size_t i = 0; i < key.size(); ++i) {
      key[i] = &texts[i].Text(number, FUnreadable);
      noCase ? hash.AddFolded(*key[i]) : hash.Add(*key[i]);
    }
    const int count = slots.GetCount();
    const int group = slots.FindOrAdd(hash.Get(), number, isSame);
    if (group == count) {
      for (const String* text : key) FKeys.push_back(*text);
    }
    FGroupOf.push_back(group);
  }
  detail::GroupItems(FGroupOf, Rows.GetFirst(), slots.GetCount(), FStarts, FItems);
}

std::unique_ptr<THeadCsv> TGroups::ToTable(std::u16string_view CountName) const {
  auto table = std::make_unique<THeadCsv>();
  std::vector<String> cells = FNames;
  if (!CountName.empty()) cells.emplace_back(CountName);
  table->AddRow(cells);
  for (int group = 0; group < GetCount(); ++group) {
    for (size_t i = 0; i < FNames.size(); ++i) cells[i] = Key(group, static_cast<int>(i));
    if (!CountName.empty()) cells.back() = IntToStr(Size(group));
    table->AddRow(cells);
  }
  return table;
}

}  // namespace vx
