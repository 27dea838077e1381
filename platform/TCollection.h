// A list of items that know the list and their place in it, as parts of a control do.
//
//   TCollectionItem   an item
//   TCollection       the items, which it makes and frees
//
// Example:
//   struct TStop : vx::TCollectionItem {};
//   struct TTour : vx::TCollection {
//     std::unique_ptr<vx::TCollectionItem> NewItem() override { return std::make_unique<TStop>(); }
//   } tour;
//   vx::TCollectionItem& last = tour.Add();
//   tour.Insert(0);
//   last.GetIndex();                  // 1
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfall: items are freed by their collection alone: Delete, Clear, and its end.
#pragma once

#include <memory>
#include <vector>

#include "platform/TObject.h"

namespace vx {

class TCollection;

class TCollectionItem : public TObject {
 public:
  TCollectionItem() = default;
  TCollectionItem(const TCollectionItem&) = delete;
  TCollectionItem& operator=(const TCollectionItem&) = delete;
  String ClassName() const override { return u"TCollectionItem"; }
  // nullptr and -1 for an item that is in no collection.
  TCollection* GetCollection() const noexcept { return FCollection; }
  int GetIndex() const noexcept { return FIndex; }
  // Moves the item to another place, held to the collection.
  void SetIndex(int Value);

 protected:
  // Tells the collection that this item has changed, or all of them.
  void Changed(bool AllItems);

 private:
  friend class TCollection;
  TCollection* FCollection = nullptr;
  int FIndex = -1;
};

// An index outside the collection raises EListError.
class TCollection : public TObject {
 public:
  TCollection() = default;
  TCollection(const TCollection&) = delete;
  TCollection& operator=(const TCollection&) = delete;
  String ClassName() const override { return u"TCollection"; }

  int GetCount() const noexcept { return static_cast<int>(FItems.size()); }
  TCollectionItem& GetItem(int Index) const;
  // A new item, which is the collection's; Index may be the count.
  TCollectionItem& Add() { return Insert(GetCount()); }
  TCollectionItem& Insert(int Index);
  void Delete(int Index);
  void Clear();
  // Between the two, which may nest, Update comes once, at the end, for all items.
  void BeginUpdate() noexcept { ++FUpdates; }
  void EndUpdate();

 protected:
  virtual std::unique_ptr<TCollectionItem> NewItem() = 0;
  // Called behind a change: of that item, of several or of the list itself for nullptr.
  virtual void Update(TCollectionItem* /*Item*/) {}

 private:
  friend class TCollectionItem;
  void CheckIndex(int Index, int Last) const;
  void MoveItem(int From, int To);
  void Renumber(int First);
  void Changed(TCollectionItem* Item);

  std::vector<std::unique_ptr<TCollectionItem>> FItems;
  int FUpdates = 0;
};

}  // namespace vx
