// Lists of objects that keep an order of their own.
//
//   TVxObjectListSortU    equal objects once
//   TVxObjectListSortD    equal objects side by side
//
// Example:
//   class TByName : public vx::TVxListClassed<TByName, vx::TVxObjectListSortU, u"TByName"> {
//    public:
//     using TVxListClassed::TVxListClassed;
//     ~TByName() override { Clear(); }
//    protected:
//     int doCompare(const vx::TObject* a, const vx::TObject* b) const override { return CompareNames(a, b); }
//   };
//   TByName names;
//   names.Add(new TPatient(u"Meier"));
//   int place = names.Add(new TPatient(u"Meier"));     // 0: the second one is freed at once
//
// The order is that of doCompare, which a class overrides; it may get any two objects that the list has
// or that are handed to it, and nullptr where nullptr was added. A place is found in about as many
// comparisons as the count has binary digits, and by one for an object that goes to the end.
//
// Pitfalls: the order is not restored when an object changes what it is ordered by, nor after SetItem.
#pragma once

#include <typeinfo>
#include <vector>

#include "objects/uVxObjects/TVxObjectList.h"

namespace vx {

// Adds to TVxObjectList the order, look-ups that make use of it, and that an equal object is refused.
class TVxObjectListSortU : public TVxListClassed<TVxObjectListSortU, TVxObjectList, u"TVxObjectListSortU"> {
 public:
  using TVxListClassed::TVxListClassed;
  ~TVxObjectListSortU() override { TVxObjects::Clear(); }
  // Puts Item where it belongs and gives the index. Where an equal object stands that one stays, its
  // index is the result, and Item is freed if the list owns: after Add an owning list's caller must
  // not use Item.
  int Add(TObject* Item) override;
  // Each as Add does, ordered once: n objects in any order cost about n log n. A derived class gets them
  // one by one, as it may compare, add or be notified in its own way.
  void ItemsAdd(const TVxObjectList& Source) override;
  // Where Item stands or would have to stand: the index of the first object that is not before it.
  virtual int IndexSort(const TObject* Item) const;

 protected:
  // For derived classes: the list does not keep its order then.
  using TVxObjectList::Exchange;
  using TVxObjectList::Insert;
  using TVxObjectList::Move;
  using TVxObjectList::Sort;

  // By IndexSort: the place of an object that doCompare gives 0 for.
  int doIndexOf(const TObject* Item) const override;
  // Adds all in their order, each as Add does.
  void AddAll(const std::vector<TObject*>& Items);
  // Whether equal objects stay.
  virtual bool KeepsEqual() const noexcept { return false; }
  // The class is known to add, compare and be notified as told here.
  virtual bool IsPlainSorted() const noexcept { return typeid(*this) == typeid(TVxObjectListSortU); }

 private:
  bool MergeAll(const std::vector<TObject*>& Items);
};

// The same for equal objects, which all stay, in the order in which they came.
class TVxObjectListSortD : public TVxListClassed<TVxObjectListSortD, TVxObjectListSortU, u"TVxObjectListSortD"> {
 public:
  using TVxListClassed::TVxListClassed;
  ~TVxObjectListSortD() override { TVxObjects::Clear(); }
  // Puts Item behind those that are equal and gives the index.
  int Add(TObject* Item) override;
  // Deletes all objects that are equal to Item, which may be one of them, from the first one on; gives
  // where they stood. An Item that is not in the list gives -1 and, which is wanted, the warning for a
  // bad index.
  int Remove(const TObject* Item) override;
  // The first of equal objects.
  int IndexSort(const TObject* Item) const override;

 protected:
  bool KeepsEqual() const noexcept override { return true; }
  bool IsPlainSorted() const noexcept override { return typeid(*this) == typeid(TVxObjectListSortD); }
};

}  // namespace vx
