// Small lists of objects, plain and sorted.
#pragma once

#include "platform/TObjectList.h"

namespace vx {

// A TObjectList under a name of its own. Owns its objects unless told.
class TVxObjectListSimple : public TObjectList {
 public:
  TVxObjectListSimple() noexcept = default;
  explicit TVxObjectListSimple(bool OwnsObjects) noexcept : TObjectList(OwnsObjects) {}
  String ClassName() const override { return u"TVxObjectListSimple"; }
};

// Keeps its objects in the order of GetIdForObject. Objects of equal numbers may stand side by side, in
// no order among themselves.
//
// Pitfalls: Put, SetCount and a number that changes while its object is in the list break the order.
// Among several objects of one number only the one that the search meets is found; the others are taken
// for absent by IndexOf and Remove, and Add would take them a second time. IndexOf and Sort of a
// reference to TObjectList are those of the plain list.
class TVxObjectListSimpleSort : public TVxObjectListSimple {
 public:
  TVxObjectListSimpleSort() noexcept = default;
  explicit TVxObjectListSimpleSort(bool OwnsObjects) noexcept : TVxObjectListSimple(OwnsObjects) {}
  // Owns its objects. Parent is only kept for those who ask for it.
  explicit TVxObjectListSimpleSort(TObject* Parent) noexcept : iParent(Parent) {}
  String ClassName() const override { return u"TVxObjectListSimpleSort"; }

  TObject* GetParent() const noexcept { return iParent; }
  void SetParent(TObject* Value) noexcept { iParent = Value; }

  // The number by which Item is ordered; here the lower 32 bits of its address.
  virtual int GetIdForObject(TObject* Item) const;
  // The place where Item stands or would be put.
  virtual int IndexSort(TObject* Item) const;

  // Puts Item where it belongs and returns the place; if it is found there already, nothing changes.
  int Add(TObject* Item) override;
  // Add: the index counts for nothing.
  void Insert(int Index, TObject* Item) override;
  // The place that IndexSort gives if it is this very object that stands there, else -1.
  int IndexOf(TObject* Item) const;
  int Remove(TObject* Item) override;
  // Deletes the entry without freeing the object and gives it to the caller; nullptr if IndexOf is -1.
  TObject* Extract(TObject* Item) override;

  // Refused with a warning; nothing changes.
  void Exchange(int A, int B) override;
  void Move(int From, int To) override;
  void Sort(FunctionRef<int(TObject*, TObject*)> Compare);

 private:
  TObject* iParent = nullptr;
};

}  // namespace vx
