#include "tables/uFileCsv/TFileCsvList.h"

namespace vx {

namespace {

constexpr TVxStringIndexOptions kDefaultOptions = {vxioOwnsObjects, vxioNotCaseSensitive};

}  // namespace

TFileCsvList::TFileCsvList() : TVxStringIndex(kDefaultOptions) {}

void TFileCsvList::Init() {
  TVxStringIndex::Init();
  SetOptions(kDefaultOptions);
}

std::unique_ptr<TFileCsv> TFileCsvList::CreateNewItem() const { return std::make_unique<TFileCsv>(); }

TFileCsv* TFileCsvList::GetFileCsv(int Index) const {
  return Index >= 0 && Index < GetCount() ? dynamic_cast<TFileCsv*>(GetObjects(Index)) : nullptr;
}

void TFileCsvList::SetFileCsv(int Index, TFileCsv* Table) {
  if (Index >= 0 && Index < GetCount()) SetObjects(Index, Table);
}

bool TFileCsvList::ImportFromString(std::u16string_view Text) {
  std::unique_ptr<TFileCsv> work = CreateNewItem();
  const bool result = work->ImportFromString(Text, u"\x1B");
  TVxStringList tables;
  tables.SetOwnsObjects(true);
  tables.SetCapacity(work->GetCount());
  for (int row = 0; row < work->GetCount(); ++row) {
    std::unique_ptr<TFileCsv> table = work->ItemToCsv(row, 1);
    tables.AddObject(work->GetLines(row)->Get(0), table.get());
    (void)table.release();  // the list has it
  }
  Clear();
  // Tables that one with the same key replaces would be lost: only this routine knows of them.
  const TVxStringIndexOptions options = GetOptions();
  SetOptions(options + TVxStringIndexOptions{vxioOwnsObjects});
  tables.SetOwnsObjects(false);
  AddStrings(tables);
  SetOptions(options);
  return result;
}

std::unique_ptr<TFileCsv> THeadCsvList::CreateNewItem() const { return std::make_unique<THeadCsv>(); }

THeadCsv* THeadCsvList::GetHeadCsv(int Index) const { return dynamic_cast<THeadCsv*>(GetFileCsv(Index)); }

}  // namespace vx
