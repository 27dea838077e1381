// A list of object pointers that may own its objects.
//
//   TListNotification   what happened to an entry
//   TObjectList         the list
//   TObjectListOf<T>    the list of objects of one class
//   TReleaseScope       takes its ownership away for a while
//
// Example:
//   vx::TObjectList list;                 // owns its objects
//   list.Add(new TPatient);               // the list frees it
//   auto taken = list.Extract(list.Get(0));   // now the caller's
//
// Every operation that takes an index raises EListError with SListIndexError for one outside the
// list, and then has changed nothing.
//
// Pitfalls: an object must not stand twice in a list that owns. Notify is called after the list has
// changed; a destructor that looks at the list finds it without the object.
#pragma once

#include <span>

#include "platform/TObject.h"
#include "platform/Types.h"

namespace vx {

// lnCleared comes from lists that tell of it; TObjectList tells of each entry.
enum TListNotification : uint8_t { lnAdded, lnExtracted, lnDeleted, lnCleared };

class TObjectList : public TObject {
 public:
  explicit TObjectList(bool OwnsObjects = true) noexcept : FOwnsObjects(OwnsObjects) {}
  ~TObjectList() override;
  TObjectList(const TObjectList&) = delete;
  TObjectList& operator=(const TObjectList&) = delete;
  String ClassName() const override { return u"TObjectList"; }

  // The list frees an object that is deleted, replaced, or still held when the list ends, exactly
  // while this flag is set.
  bool GetOwnsObjects() const noexcept { return FOwnsObjects; }
  void SetOwnsObjects(bool Value) noexcept { FOwnsObjects = Value; }

  int GetCount() const noexcept { return FCount; }
  // More entries than now are filled with nullptr, fewer are deleted from the end; what Notify changes on
  // the occasion stays.
  void SetCount(int Value);
  int GetCapacity() const noexcept { return FCapacity; }
  // Raises EListError (SListCapacityError) below the count.
  void SetCapacity(int Value);

  // The object at Index stays the list's.
  TObject* Get(int Index) const {
    if (static_cast<unsigned>(Index) >= static_cast<unsigned>(FReach)) return GetBehind(Index);
    return FItems[Index];
  }
  // Puts Object at Index; the previous one is freed if the list owns.
  void Put(int Index, TObject* Object);
  // All entries, for walking; ends with the next change of the list.
  std::span<TObject* const> Items() const noexcept {
    CloseGap();
    return {FItems, static_cast<size_t>(FCount)};
  }

  // Appends and returns the index. A list that owns takes the object over.
  virtual int Add(TObject* Object);
  // Index may be the count. A list that owns takes the object over.
  virtual void Insert(int Index, TObject* Object);
  // Removes the entry and, if the list owns, frees the object.
  virtual void Delete(int Index);
  virtual void Clear();
  virtual void Exchange(int A, int B);
  // Takes the entry out at From and puts it in so that it stands at To.
  virtual void Move(int From, int To);
  // Deletes the first entry of that object and returns where it stood, -1 if it is not in the list.
  virtual int Remove(TObject* Object);
  // Takes the first entry of that object out without freeing it and gives it to the caller; nullptr
  // if it is not in the list. The caller has the pointer already and may drop the result.
  virtual TObject* Extract(TObject* Object);
  // The first index of that object, -1 if it is not in the list.
  int IndexOf(const TObject* Object) const noexcept;
  // Reorders the entries by Compare(a, b) < 0, equal ones staying in their order. No notification. A Compare
  // that contradicts itself gives some order; one that raises leaves the list as it was.
  void Sort(FunctionRef<int(TObject*, TObject*)> Compare);
  // Reorders the entries: Order[i] is the index of the entry that comes to stand at i. Order has to name
  // each index of the list once; EArgumentException otherwise, and nothing has changed then. No
  // notification.
  void Arrange(std::span<const int> Order);

 protected:
  // Called before the entries change, also where it then turns out that nothing does.
  virtual void Changing() {}
  // Called after the list has changed. lnDeleted frees the object if the list owns: an override has
  // to hand on to this one.
  virtual void Notify(TObject* Object, TListNotification Action);
  [[noreturn]] static void RaiseIndex(int Index);
  // Puts Entries, which must not be the list's own memory, in the place of all entries: for what takes many out and in
  // at once. No notification, and nothing is freed: the caller tells Notify who went and came, if anybody did.
  void PutAll(std::span<TObject* const> Entries);

  // While it lives, a Delete moves only the entries between its own and the one that was deleted before: to delete
  // many from the last to the first takes a time that grows with the list. All operations work as ever; others
  // than Get and Delete take as long as the list is, once after each Delete. One thread at a time, for reading, too.
  class TDeleteScope {
   public:
    explicit TDeleteScope(TObjectList& List) noexcept : FList(List), FWas(List.FKeepsGap) { List.FKeepsGap = true; }
    ~TDeleteScope() {
      FList.FKeepsGap = FWas;
      if (!FWas) FList.CloseGap();
    }
    TDeleteScope(const TDeleteScope&) = delete;
    TDeleteScope& operator=(const TDeleteScope&) = delete;

   private:
    TObjectList& FList;
    bool FWas;
  };

 private:
  void Grow();
  // The entry at Index, which is not below FReach; EListError outside the list.
  TObject* GetBehind(int Index) const;
  // Both take an entry out of the array.
  void TakeOut(int Index) noexcept;
  TObject* TakeLast() noexcept;
  void SetEnd(int Count) noexcept { FCount = FReach = Count; }
  // All entries stand side by side then.
  void CloseGap() const noexcept {
    if (FReach != FCount) MoveUp();
  }
  void MoveUp() const noexcept;

  TObject** FItems = nullptr;
  int FCount = 0;
  // The entries from here on stand FGap places behind their own ones; all but in a TDeleteScope FReach is the count.
  mutable int FReach = 0;
  mutable int FGap = 0;
  int FCapacity = 0;
  bool FOwnsObjects;
  bool FKeepsGap = false;
};

// Gives and takes objects of class T. What comes in by a reference to TObjectList has to be of that class, too.
template <typename T>
class TObjectListOf : public TObjectList {
 public:
  using TObjectList::TObjectList;

  T* Get(int Index) const { return static_cast<T*>(TObjectList::Get(Index)); }
  void Put(int Index, T* Object) { TObjectList::Put(Index, Object); }
  int Add(T* Object) { return TObjectList::Add(Object); }
  void Insert(int Index, T* Object) { TObjectList::Insert(Index, Object); }

 private:
  int Add(TObject* Object) final { return TObjectList::Add(Object); }
  void Insert(int Index, TObject* Object) final { TObjectList::Insert(Index, Object); }
};

// Entries that leave the list while this lives are not freed; the list's ownership is what it was afterwards.
class TReleaseScope {
 public:
  explicit TReleaseScope(TObjectList& List) noexcept : FList(List), FOwned(List.GetOwnsObjects()) {
    FList.SetOwnsObjects(false);
  }
  ~TReleaseScope() { FList.SetOwnsObjects(FOwned); }
  TReleaseScope(const TReleaseScope&) = delete;
  TReleaseScope& operator=(const TReleaseScope&) = delete;

 private:
  TObjectList& FList;
  bool FOwned;
};

}  // namespace vx
