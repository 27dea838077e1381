// The base of the library's object lists.
#pragma once

#include "objects/uVxObjects/TVxObject.h"
#include "objects/uVxObjects/detail/ObjectSlots.h"
#include "platform/TObjectList.h"

namespace vx {

// Below 0, 0 or above 0 as the first object stands before, beside or behind the second: any function,
// bound method or lambda.
using TListSortCompare = FunctionRef<int(TObject*, TObject*)>;

// Holds the place of a list's class in VxObjectCounter: the base has counted one of its own class.
template <TClassNameText kBase, TClassNameText kName>
class TVxCountedAs {
 public:
  TVxCountedAs() noexcept { Move(1); }
  ~TVxCountedAs() { Move(-1); }
  TVxCountedAs(const TVxCountedAs&) = delete;
  TVxCountedAs& operator=(const TVxCountedAs&) = delete;

 private:
  static void Move(int Change) noexcept {
    if (!DoCountObjects) return;
    CountObject(kBase.Units, -Change);
    CountObject(kName.Units, Change);
  }
};

// What all object lists share: slots, ownership, notification, and the way in which they refuse. Not for
// use of its own; see TVxObjectList.h.
//
// Slots count from 0 and may hold nullptr. An object that leaves its slot is freed exactly while the list
// owns its objects; an owned object must not stand in two slots. An object that was not taken in stays the
// caller's, unless the class tells otherwise.
//
// A bad index, count or capacity is told to Error, and the operation does nothing else.
//
// Notify is called after the list has changed and before an object is freed. It and the destructors of
// the objects may look at the list and change it.
class TVxObjects : public TObject {
 public:
  static constexpr TClassNameText kClassName = u"TVxObjects";

  explicit TVxObjects(bool OwnsObjects = true);
  // Deletes the objects from the last one on. What derived classes override is out of reach by then: each
  // of them calls Clear in its own destructor if it overrides anything that Clear, or an object that goes
  // with the list, makes use of.
  ~TVxObjects() override;
  TVxObjects(const TVxObjects&) = delete;
  TVxObjects& operator=(const TVxObjects&) = delete;
  String ClassName() const override { return kClassName.Units; }

  bool GetOwnsObjects() const noexcept { return iOwnsObjects; }
  void SetOwnsObjects(bool Value) noexcept { iOwnsObjects = Value; }
  int GetCapacity() const noexcept { return iList.Capacity(); }
  // Refused below the count and from kLimit on.
  void SetCapacity(int Value);
  int GetCount() const noexcept { return iList.Count(); }
  // More slots than now hold nullptr, without notification, and a capacity that is too small becomes
  // exactly Value; fewer are deleted from the last one on. Refused below 0 and from kLimit on.
  void SetCount(int Value);
  // Makes room for Value slots beyond the capacity, in the steps of Grow.
  void GrowBy(int Value);

  void Delete(int Index);
  // Closes gaps left by nullptr, but not as one would expect, which is wanted: the object directly behind
  // one that was moved is passed over and forgotten, neither told of nor freed, and so is what follows
  // the last one that could be moved. Only for lists whose every object stands alone between gaps.
  void Pack();
  // Deletes all objects from the last one on, gives the memory back, and notifies with the list itself
  // as Item and lnCleared.
  virtual void Clear();

  // Counts and capacities stay below this.
  static constexpr int kLimit = 0x8000000;

 protected:
  // Below 0, 0 or above 0; here by the addresses, an order without meaning that does not change.
  virtual int doCompare(const TObject* Item1, const TObject* Item2) const;
  // The first index at which doCompare gives 0 for Item; -1 if there is none.
  virtual int doIndexOf(const TObject* Item) const;
  // Shows Msg, the count, the name of the refused operation and the index as a warning with an OK button.
  // An override may raise or write a log instead.
  virtual void Error(std::u16string_view Msg, int Index, std::u16string_view Function) const;
  // Told of each object that has come (lnAdded), leaves (lnDeleted) or was taken out (lnExtracted, even
  // of a nullptr that was), and of Clear. Does nothing here.
  virtual void Notify(TObject* Item, TListNotification Action);
  // Error with the text for an index outside the list.
  void ErrorIndex(int Index, std::u16string_view Function) const;

  // Appends; gives the index, -1 if the list is full up to kLimit.
  int doAdd(TObject* Item);
  // Index may be the count.
  void doInsert(int Index, TObject* Item);
  // No notification.
  void doExchange(int Index1, int Index2);
  // Takes out the object that doIndexOf finds, without freeing it, and gives it to the caller. nullptr if
  // there is none.
  TObject* doExtract(const TObject* Item);
  // Takes the object at CurIndex out and puts it in so that it stands at NewIndex. No notification, and
  // nothing at all, whatever the indexes are, if both are the same.
  void doMove(int CurIndex, int NewIndex);
  // Deletes the object that doIndexOf finds; gives where it stood, -1 if there is none.
  int doRemove(const TObject* Item);
  // Orders by QuickSort (core/uVxFunctions.h), at its cost: equal objects may change places, but always in the
  // same way. Compare must not change the list. One that contradicts itself gives some order; one that raises
  // leaves the list as it was. No notification.
  void doSort(TListSortCompare Compare);
  // nullptr for a bad index.
  TObject* GetItem(int Index) const;
  // Deletes the object at Index and puts Item in its place. The object that stands there already is told of
  // as any other, but not freed.
  void SetItem(int Index, TObject* Item);
  // Raises the capacity to Min or above; by one step for 0. A step is a quarter above a capacity of 64,
  // 16 above 8, otherwise 4.
  void Grow(int Min);

  detail::TObjectSlots iList;

 private:
  bool IsIndex(int Index, std::u16string_view Function) const;

  bool iOwnsObjects;
};

}  // namespace vx
