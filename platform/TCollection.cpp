#include "platform/TCollection.h"

#include <algorithm>

#include "platform/Exceptions.h"

namespace vx {

void TCollectionItem::SetIndex(int Value) {
  if (FCollection != nullptr) FCollection->MoveItem(FIndex, Value);
}

void TCollectionItem::Changed(bool AllItems) {
  if (FCollection != nullptr) FCollection->Changed(AllItems ? nullptr : this);
}

void TCollection::CheckIndex(int Index, int Last) const {
  if (Index < 0 || Index > Last) throw EListError(FormatListError(SListIndexError, Index));
}

TCollectionItem& TCollection::GetItem(int Index) const {
  CheckIndex(Index, GetCount() - 1);
  return *FItems[static_cast<size_t>(Index)];
}

TCollectionItem& TCollection::Insert(int Index) {
  CheckIndex(Index, GetCount());
  std::unique_ptr<TCollectionItem> item = NewItem();
  TCollectionItem& result = *item;
  FItems.insert(FItems.begin() + Index, std::move(item));
  result.FCollection = this;
  Renumber(Index);
  Changed(nullptr);
  return result;
}

void TCollection::Delete(int Index) {
  CheckIndex(Index, GetCount() - 1);
  const std::unique_ptr<TCollectionItem> item = std::move(FItems[static_cast<size_t>(Index)]);
  FItems.erase(FItems.begin() + Index);
  item->FCollection = nullptr;
  Renumber(Index);
  Changed(nullptr);
}

void TCollection::Clear() {
  if (FItems.empty()) return;
  const std::vector<std::unique_ptr<TCollectionItem>> items = std::move(FItems);
  FItems.clear();
  for (const auto& item : items) item->FCollection = nullptr;
  Changed(nullptr);
}

void TCollection::MoveItem(int From, int To) {
  const int to = std::clamp(To, 0, GetCount() - 1);
  if (to == From) return;
  const auto first = FItems.begin();
  if (From < to)
    std::rotate(first + From, first + From + 1, first + to + 1);
  else
    std::rotate(first + to, first + From, first + From + 1);
  Renumber(std::min(From, to));
  Changed(nullptr);
}

void TCollection::Renumber(int First) {
  for (int i = First; i < GetCount(); ++i) FItems[static_cast<size_t>(i)]->FIndex = i;
}

void TCollection::Changed(TCollectionItem* Item) {
  if (FUpdates == 0) Update(Item);
}

void TCollection::EndUpdate() {
  if (FUpdates > 0 && --FUpdates == 0) Update(nullptr);
}

}  // namespace vx
