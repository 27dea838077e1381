#include "tables/uTypeCsv/TTypeCsvList.h"

namespace vx {

std::unique_ptr<TFileCsv> TTypeCsvList::CreateNewItem() const { return std::make_unique<TTypeCsv>(); }

TTypeCsv* TTypeCsvList::GetTypeCsv(int Index) const { return dynamic_cast<TTypeCsv*>(GetFileCsv(Index)); }

void TTypeCsvList::AddAndFree(std::unique_ptr<THeadCsvList> Source) {
  if (!Source) return;
  for (int i = 0; i < Source->GetCount(); ++i) {
    auto table = std::make_unique<TTypeCsv>();
    std::unique_ptr<TFileCsv> rows(Source->GetFileCsv(i));
    Source->SetObjects(i, nullptr);
    table->AddAndFree(std::move(rows));
    Add(Source->GetItems(i), table.get());
    (void)table.release();  // the list has it
  }
}

}  // namespace vx
