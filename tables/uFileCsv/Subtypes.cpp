#include "core/uConst/Subtypes.h"

#include <algorithm>
#include <span>

#include "platform/Collation.h"
#include "tables/uFileCsv.h"

namespace vx {

namespace {

class TSubtypeTables final : public TSubtypes {
 public:
  explicit TSubtypeTables(std::u16string_view Text) {
    FTables.ImportFromString(Text);
    FKeys = FTables.GetCsl().Items();
  }

  // Not by the index's own search, which notes where it ended: any number of threads may look up at once.
  int Find(std::u16string_view Key) const override {
    const auto found = std::lower_bound(
        FKeys.begin(), FKeys.end(), Key,
        [](const String& key, std::u16string_view sought) { return AnsiCompareText(key, sought) < 0; });
    return found != FKeys.end() && AnsiSameText(*found, Key) ? static_cast<int>(found - FKeys.begin()) : -1;
  }
  std::span<const String> Symbols(int List) const override { return Row(List, 0); }
  std::span<const String> Texts(int List) const override { return Row(List, 1); }
  String IdContent(int List) const override {
    return CsvToStrings(*FTables.GetFileCsv(List)->TurnAxis())->GetCommatext();
  }
  std::span<const String> Keys() const override { return FKeys; }

 private:
  std::span<const String> Row(int List, int Index) const { return FTables.GetFileCsv(List)->GetLines(Index)->Items(); }

  TFileCsvList FTables;
  std::span<const String> FKeys;
};

}  // namespace

std::unique_ptr<TSubtypes> TSubtypes::Parse(std::u16string_view Text) { return std::make_unique<TSubtypeTables>(Text); }

}  // namespace vx
