// The list of values of any type.
#pragma once

#include <algorithm>
#include <concepts>
#include <functional>
#include <new>
#include <span>
#include <vector>

#include "platform/Exceptions.h"
#include "platform/Sorting.h"
#include "platform/TObject.h"
#include "platform/Types.h"

namespace vx {

// What happened to an item of a GList.
enum TCollectionNotification : uint8_t { cnAdded, cnRemoved, cnExtracted };

// Below 0, 0 or above 0 as A stands before, beside or behind B.
template <typename T>
using TComparer = std::function<int(const T& A, const T& B)>;

template <typename T>
concept TOrdered = requires(const T& A, const T& B) {
  { A < B } -> std::convertible_to<bool>;
};

// -1, 0 or 1 by the values themselves; pointers by their addresses.
template <TOrdered T>
int CompareValues(const T& A, const T& B) {
  std::less<T> less;
  return less(A, B) ? -1 : less(B, A) ? 1 : 0;
}

// Indexes count from 0; one outside the list raises EListError with SListIndexError, and nothing has
// changed then. Items that are given to an operation may be the list's own.
template <typename T>
class GList : public TObject {
 public:
  GList() = default;
  explicit GList(std::span<const T> Collection) : FItems(Collection.begin(), Collection.end()) {}
  GList(const GList&) = delete;
  GList& operator=(const GList&) = delete;
  String ClassName() const override { return u"GList"; }

  int GetCount() const noexcept { return static_cast<int>(FItems.size()); }
  int GetCapacity() const noexcept { return static_cast<int>(FItems.capacity()); }
  // Raises EListError (SListCapacityError) below the count.
  void SetCapacity(int Value);
  // Nothing if the capacity is at least Value; otherwise it doubles, from 2 at least, until it is.
  // std::bad_alloc, and nothing has changed, if a doubling leaves the 32 bits of a count.
  void Grow(int64_t Value);

  const T& Get(int Index) const { return FItems[Checked(Index, GetCount())]; }
  void Put(int Index, T Item);
  // Raise EListError on an empty list.
  const T& First() const { return Get(0); }
  const T& Last() const { return Get(GetCount() - 1); }
  // All items, for walking; ends with the next change of the list.
  std::span<const T> Items() const noexcept { return FItems; }

  // Appends and returns the index.
  virtual int Add(T Item);
  virtual void AddRange(std::span<const T> Collection) { InsertRange(GetCount(), Collection); }
  void AddRange(const GList& List) { AddRange(List.Items()); }
  void AddRange(std::initializer_list<T> List) { AddRange(std::span<const T>(List)); }
  // Index may be the count.
  virtual void Insert(int Index, T Item);
  virtual void InsertRange(int Index, std::span<const T> Collection);
  void InsertRange(int Index, const GList& List) { InsertRange(Index, List.Items()); }
  void InsertRange(int Index, std::initializer_list<T> List) { InsertRange(Index, std::span<const T>(List)); }
  void Delete(int Index) { TakeOut(Index, cnRemoved); }
  // Count items from Index on, all of which must be in the list.
  void DeleteRange(int Index, int Count);
  // Deletes all items from the first on and gives the memory back.
  void Clear();
  virtual void Exchange(int A, int B);
  // Takes the item out at From and puts it in so that it stands at To.
  virtual void Move(int From, int To);
  virtual void Reverse() { std::reverse(FItems.begin(), FItems.end()); }
  // Orders the items by Compare(a, b) < 0, equal ones staying in their order. A Compare that contradicts
  // itself gives some order; one that raises leaves the list as it was. It must not change the list.
  void Sort(FunctionRef<int(const T&, const T&)> Compare);

  // The first and the last index of an equal item, -1 if there is none.
  int IndexOf(const T& Item) const;
  int LastIndexOf(const T& Item) const;
  bool Contains(const T& Item) const { return IndexOf(Item) >= 0; }
  // Deletes the first equal item and returns where it stood, -1 if there is none.
  int Remove(const T& Item) { return RemoveAt(IndexOf(Item)); }
  // Takes the first equal item out and gives it to the caller; T() if there is none.
  [[nodiscard]] T Extract(const T& Item) { return ExtractAt(IndexOf(Item)); }

 protected:
  // Called with each item after the list has changed. Not called for what the list holds at its end.
  virtual void Notify(const T& /*Item*/, TCollectionNotification /*Action*/) {}

  size_t Checked(int64_t Index, int64_t Limit) const {
    if (Index < 0 || Index >= Limit) throw EListError(FormatListError(SListIndexError, static_cast<int>(Index)));
    return static_cast<size_t>(Index);
  }
  auto At(int64_t Index) noexcept { return FItems.begin() + static_cast<std::ptrdiff_t>(Index); }
  // The item, which is out of the list then.
  T TakeOut(int Index, TCollectionNotification Action);
  // As Remove and Extract, for what was found at Index, -1 if nothing was.
  int RemoveAt(int Index) {
    if (Index >= 0) Delete(Index);
    return Index;
  }
  T ExtractAt(int Index) { return Index < 0 ? T() : TakeOut(Index, cnExtracted); }
  // Puts Item in at Index, which is not checked; returns it.
  int PutIn(int Index, T Item);

  std::vector<T> FItems;
};

template <typename T>
void GList<T>::SetCapacity(int Value) {
  if (Value < GetCount()) throw EListError(FormatListError(SListCapacityError, Value));
  if (Value == GetCapacity()) return;
  std::vector<T> items;
  items.reserve(static_cast<size_t>(Value));
  items.insert(items.end(), std::make_move_iterator(FItems.begin()), std::make_move_iterator(FItems.end()));
  FItems.swap(items);
}

template <typename T>
void GList<T>::Grow(int64_t Value) {
  if (GetCapacity() >= Value) return;
  int64_t capacity = std::max(GetCapacity(), 2);
  while (capacity < Value) capacity *= 2;
  if (capacity > INT32_MAX) throw std::bad_alloc();
  FItems.reserve(static_cast<size_t>(capacity));
}

template <typename T>
void GList<T>::Put(int Index, T Item) {
  T& place = FItems[Checked(Index, GetCount())];
  if constexpr (std::is_pointer_v<T>) {
    if (place == Item) return;  // a list that frees must not free what it keeps
  }
  T old = std::exchange(place, Item);
  Notify(old, cnRemoved);
  Notify(Item, cnAdded);
}

template <typename T>
int GList<T>::Add(T Item) {
  return PutIn(GetCount(), std::move(Item));
}

template <typename T>
void GList<T>::Insert(int Index, T Item) {
  PutIn(static_cast<int>(Checked(Index, int64_t{GetCount()} + 1)), std::move(Item));
}

template <typename T>
int GList<T>::PutIn(int Index, T Item) {
  Grow(int64_t{GetCount()} + 1);
  FItems.insert(At(Index), Item);
  Notify(Item, cnAdded);
  return Index;
}

template <typename T>
void GList<T>::InsertRange(int Index, std::span<const T> Collection) {
  Checked(Index, int64_t{GetCount()} + 1);
  const std::vector<T> added(Collection.begin(), Collection.end());
  Grow(int64_t{GetCount()} + static_cast<int64_t>(added.size()));
  FItems.insert(At(Index), added.begin(), added.end());
  for (const T& item : added) Notify(item, cnAdded);
}

template <typename T>
T GList<T>::TakeOut(int Index, TCollectionNotification Action) {
  T item = std::move(FItems[Checked(Index, GetCount())]);
  FItems.erase(At(Index));
  Notify(item, Action);
  return item;
}

template <typename T>
void GList<T>::DeleteRange(int Index, int Count) {
  Checked(Index, int64_t{GetCount()} + 1);
  Checked(Count, int64_t{GetCount()} - Index + 1);
  std::vector<T> gone(std::make_move_iterator(At(Index)), std::make_move_iterator(At(int64_t{Index} + Count)));
  FItems.erase(At(Index), At(int64_t{Index} + Count));
  for (const T& item : gone) Notify(item, cnRemoved);
}

template <typename T>
void GList<T>::Clear() {
  std::vector<T> gone;
  gone.swap(FItems);
  for (const T& item : gone) Notify(item, cnRemoved);
}

template <typename T>
void GList<T>::Exchange(int A, int B) {
  size_t a = Checked(A, GetCount()), b = Checked(B, GetCount());
  if (a != b) std::swap(FItems[a], FItems[b]);
}

template <typename T>
void GList<T>::Move(int From, int To) {
  Checked(From, GetCount());
  Checked(To, GetCount());
  if (From < To) {
    std::rotate(At(From), At(From) + 1, At(To) + 1);
  } else {
    std::rotate(At(To), At(From), At(From) + 1);
  }
}

template <typename T>
void GList<T>::Sort(FunctionRef<int(const T&, const T&)> Compare) {
  const std::vector<size_t> order =
      StableOrder(FItems.size(), [&](size_t a, size_t b) { return Compare(FItems[a], FItems[b]) < 0; });
  std::vector<T> sorted;
  sorted.reserve(FItems.capacity());
  for (size_t index : order) sorted.push_back(std::move(FItems[index]));
  FItems.swap(sorted);
}

template <typename T>
int GList<T>::IndexOf(const T& Item) const {
  auto found = std::find(FItems.begin(), FItems.end(), Item);
  return found == FItems.end() ? -1 : static_cast<int>(found - FItems.begin());
}

template <typename T>
int GList<T>::LastIndexOf(const T& Item) const {
  return static_cast<int>(FItems.rend() - std::find(FItems.rbegin(), FItems.rend(), Item)) - 1;
}

}  // namespace vx
