// Lists of objects in the order in which they were put.
//
//   TVxObjectList     any objects
//   TVxObjectListU    no object twice
//
// With TVxObjectListSortU, TVxObjectListSortD and TVxDataIdList they are one family: what holds for all of
// them is told at TVxObjects.
//
// Example:
//   vx::TVxObjectList patients;                        // owns
//   patients.Add(new TPatient(u"Meier"));
//   patients.Add(new TPatient(u"Abel"));
//   patients.Sort([](vx::TObject* a, vx::TObject* b) { return CompareNames(a, b); });
//   vx::TVxObjectListU selected(false);                // does not own
//   selected.Add(patients.First());
//
// Pitfalls: a copy of a list holds the same objects, so only one of the two may own them. First and Last
// of an empty list show the warning for a bad index.
#pragma once

#include "objects/uVxObjects/TVxObjects.h"

namespace vx {

class TVxObjectList : public TVxObjects {
 public:
  static constexpr TClassNameText kClassName = u"TVxObjectList";

  explicit TVxObjectList(bool OwnsObjects = true) : TVxObjects(OwnsObjects) {}
  ~TVxObjectList() override { TVxObjects::Clear(); }
  String ClassName() const override { return kClassName.Units; }

  // An empty list of the same class.
  [[nodiscard]] virtual std::unique_ptr<TVxObjectList> GetNewInstance(bool OwnsObjects) const;
  // A list of the same class with the same objects: not both may own them, unless the class makes copies.
  [[nodiscard]] std::unique_ptr<TVxObjectList> Duplicate(bool OwnsObjects) const;

  // By index: nullptr for a bad one, and SetItem deletes what stood there.
  using TVxObjects::GetItem;
  using TVxObjects::SetItem;
  TObject* First() const { return GetItem(0); }
  TObject* Last() const { return GetItem(GetCount() - 1); }

  // Appends and gives the index.
  virtual int Add(TObject* Item) { return doAdd(Item); }
  // Index may be the count; for a bad one Item stays the caller's.
  virtual void Insert(int Index, TObject* Item) { doInsert(Index, Item); }
  virtual void Exchange(int Index1, int Index2) { doExchange(Index1, Index2); }
  // Item comes to stand at NewIndex. The same index twice changes nothing, even a bad one.
  virtual void Move(int CurIndex, int NewIndex) { doMove(CurIndex, NewIndex); }
  // Deletes the object that IndexOf finds; gives where it stood, -1 if there is none.
  virtual int Remove(const TObject* Item) { return doRemove(Item); }
  // Takes the object that IndexOf finds out of the list and gives it to the caller; nullptr for none.
  [[nodiscard]] TObject* Extract(const TObject* Item) { return doExtract(Item); }
  // The first index of an object that the list holds the same; -1 if there is none.
  int IndexOf(const TObject* Item) const { return doIndexOf(Item); }
  // The first index from StartAt on of an object of exactly that class or, without Exact, of one that
  // inherits from it; -1 if there is none. Objects that are no TVxObject are passed over.
  int FindInstanceOf(const TVxClass& Class, bool Exact = true, int StartAt = 0) const;

  // Orders the objects once; equal ones may change places. Compare must not change the list. n objects cost
  // n log n mostly, but n x n if they stand just so, since the steps are fixed.
  virtual void Sort(TListSortCompare Compare) { doSort(Compare); }
  // By the order of the class, here the meaningless one of the addresses.
  void Sort();

  // ItemsAssign.
  virtual void Assign(const TVxObjectList& Source) { ItemsAssign(Source); }
  // Clear, then ItemsAdd; the list itself as Source changes nothing.
  virtual void ItemsAssign(const TVxObjectList& Source);
  // GrowBy, then Add for each object that Source has now: the rules of this list's Add hold.
  virtual void ItemsAdd(const TVxObjectList& Source);

  // Adds to Target, in the order of this list, the objects that List holds too; gives Target. Without
  // Target to a new list of this class that does not own.
  TVxObjectList& ItemsAND(const TVxObjectList& List, TVxObjectList& Target) const;
  [[nodiscard]] std::unique_ptr<TVxObjectList> ItemsAND(const TVxObjectList& List) const;
  // The same for those that only one of the lists holds: first those of List, then those of this one.
  TVxObjectList& ItemsXOR(const TVxObjectList& List, TVxObjectList& Target) const;
  [[nodiscard]] std::unique_ptr<TVxObjectList> ItemsXOR(const TVxObjectList& List) const;
  // Deletes here, for each object of List, the one that IndexOf finds.
  void ItemsSubtract(const TVxObjectList& List);

 protected:
  // The list is of a class that is known to tell objects by their addresses and to have no Notify of
  // its own; what takes many look-ups may then be done by a table of addresses.
  bool IsPlain() const noexcept;

 private:
  void SubtractPlain(const TVxObjectList& List);

  [[no_unique_address]] TVxCountedAs<TVxObjects::kClassName, kClassName> FCounted;
};

// Makes TSelf, by the one line that names its base, a class of lists with a name of its own in ClassName
// and VxObjectCounter, whose lists make new ones of their kind:
//
//   class TVisits : public vx::TVxListClassed<TVisits, vx::TVxObjectListSortU, u"TVisits"> {
//    public:
//     using TVxListClassed::TVxListClassed;    // TVisits(bool OwnsObjects)
//     ~TVisits() override { Clear(); }
//   };
template <typename TSelf, typename TBase, TClassNameText kName>
class TVxListClassed : public TBase {
 public:
  static constexpr TClassNameText kClassName = kName;

  using TBase::TBase;
  TVxListClassed() = default;
  String ClassName() const override { return kName.Units; }
  [[nodiscard]] std::unique_ptr<TVxObjectList> GetNewInstance(bool OwnsObjects) const override {
    return std::make_unique<TSelf>(OwnsObjects);
  }

 private:
  [[no_unique_address]] TVxCountedAs<TBase::kClassName, kName> FCounted;
};

// Holds no object twice. To find out costs a walk through the list for each.
class TVxObjectListU : public TVxListClassed<TVxObjectListU, TVxObjectList, u"TVxObjectListU"> {
 public:
  using TVxListClassed::TVxListClassed;
  ~TVxObjectListU() override { TVxObjects::Clear(); }
  // The index of Item where the list holds it already. An object refused because another counts as the
  // same is not freed, not even by a list that owns.
  int Add(TObject* Item) override;
  // Nothing where the list holds Item already, even for a bad index.
  void Insert(int Index, TObject* Item) override;
  void ItemsAdd(const TVxObjectList& Source) override;
};

}  // namespace vx
