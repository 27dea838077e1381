// A list of objects in the order of their ids.
//
// Example:
//   vx::TVxDataIdList patients;                       // owns
//   patients.Add(new TPatient(4711));
//   vx::TVxDataId* patient = patients.GetItem(4711);   // null if there is none
#pragma once

#include <atomic>
#include <typeinfo>
#include <vector>

#include "objects/uVxObjects/TVxData.h"
#include "objects/uVxObjects/TVxObjectListSort.h"
#include "platform/Relaxed.h"

namespace vx {

// How many TVxDataIdList there are.
inline std::atomic<int> TVxDataIdListCount = 0;

// Each id once. The objects have to be TVxDataId: to compare or get another one raises EInvalidCast, and
// an object that raises when added stays the caller's. nullptr stands before all ids.
//
// Many look-ups in a list that stays as it is are made in a copy of its ids, which saves the way to the
// objects; what it finds is checked at the object, what it lacks is looked for among them.
//
// Pitfall: GetItem and IndexOf take ids, GetItems takes an index.
class TVxDataIdList : public TVxListClassed<TVxDataIdList, TVxObjectListSortU, u"TVxDataIdList"> {
 public:
  explicit TVxDataIdList(bool OwnsObjects = true);
  ~TVxDataIdList() override;

  // nullptr for an id that is not in the list.
  TVxDataId* GetItem(int Id) const;
  // nullptr, after the warning, for a bad index.
  TVxDataId* GetItems(int Index) const;
  // Does not look at the order.
  void SetItems(int Index, TVxDataId* Item) { SetItem(Index, Item); }
  // -1 for an id that is not in the list.
  int IndexOf(int Id) const;
  using TVxListClassed::IndexOf;
  // Index is that of IndexOf, found or not.
  bool Find(int Id, int& Index) const;
  bool IsIn(int Id) const { return IndexOf(Id) >= 0; }
  // Where the id stands or would have to stand. A derived class's IndexSort is asked, by an object with that id.
  int IndexSortId(int Id) const;
  // The id of the last object; 0 for an empty list.
  int MaxId() const;
  // A list that owns adds a Duplicate of each object; one whose class has none to give is left out.
  void ItemsAdd(const TVxObjectList& Source) override;

  // For programs that free all buffers at their end: look-ups keep none beyond their list.
  static void FreeProbe() noexcept {}

 protected:
  // The difference of the ids, held to the range of int.
  int doCompare(const TObject* Item1, const TObject* Item2) const override;
  bool IsPlainSorted() const noexcept override { return typeid(*this) == typeid(TVxDataIdList); }

 private:
  const TVxDataId& ToDataId(const TObject& Item) const;

  int KnownPlace(int Id) const;
  bool HasIds() const;
  bool IsWorthIds() const;
  void CopyIds() const;

  mutable TRelaxed<const std::type_info*> FKnownClass = nullptr;  // of an object that was a TVxDataId
  // The ids in their order, as the list was at a version of its slots; -1 for none. Only threads that find
  // another version here change them, one at a time.
  mutable std::vector<int> FIds;
  mutable std::atomic<int64_t> FIdsVersion = -1;
  mutable TRelaxed<uint64_t> FLookups = 0;  // the version and, in the lower half, how many there were since
};

}  // namespace vx
