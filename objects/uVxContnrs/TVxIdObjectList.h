// An object for each id.
#pragma once

#include "objects/uVxClasses/TVxIdList.h"
#include "platform/TObjectList.h"

namespace vx {

// Ids in ascending order, each once, with an object or nullptr each. The list frees an object that is
// deleted, replaced or still held at its end, exactly while it owns its objects. Positions count from 0
// in the order of the ids; one outside the list raises EListError, and nothing has changed then.
//
// Pitfall: one object under two ids of a list that owns would be freed twice.
class TVxIdObjectList : public TObject {
 public:
  explicit TVxIdObjectList(bool OwnsObjects = true) noexcept : iObjects(OwnsObjects) {}
  ~TVxIdObjectList() override { Clear(); }
  String ClassName() const override { return u"TVxIdObjectList"; }

  bool GetOwnsObjects() const noexcept { return iObjects.GetOwnsObjects(); }
  void SetOwnsObjects(bool Value) noexcept { iObjects.SetOwnsObjects(Value); }
  int GetCount() const noexcept { return iIds.GetCount(); }

  // Sets the object of Id, which is new or not; returns the place. A list that owns takes Object over.
  int Add(int Id, TObject* Object);
  // Add for each pair of List, at the cost of one walk over both. The objects are in both lists then: at
  // most one of them may own.
  void AddList(const TVxIdObjectList& List);
  // Deletes from the end, so that a destructor that looks at the list finds a whole one.
  void Clear();
  // All objects become nullptr; the ids stay.
  void ClearObjects();

  // The place where the id stood, -1 if it is unknown.
  int Delete(int Id);
  // Takes the id out and gives its object to the caller; nullptr for an unknown id.
  [[nodiscard]] TObject* Extract(int Id);
  // Deletes the first entry of that object; returns the place where it stood, -1 if there is none.
  int Remove(const TObject* Object);

  // Whether the id is there; Object is nullptr if not.
  bool Find(int Id, TObject*& Object) const;
  // -1 if it is unknown.
  int IndexOf(int Id) const { return iIds.IndexOf(Id); }
  bool IsIn(int Id) const { return IndexOf(Id) >= 0; }
  // By position. The object stays the list's.
  int GetId(int Index) const { return iIds.Get(Index); }
  TObject* GetItem(int Index) const { return iObjects.Get(Index); }
  void SetItem(int Index, TObject* Object) { iObjects.Put(Index, Object); }

 private:
  void DeleteIndex(int Index);

  TVxIdList iIds;
  TObjectList iObjects;
};

}  // namespace vx
