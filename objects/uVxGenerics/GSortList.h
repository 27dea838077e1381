// The list of values that keeps its items in order.
#pragma once

#include "objects/uVxGenerics/GList.h"
#include "platform/Dialogs.h"

namespace vx {

// Items stand in the order of the comparer, equal ones in their order of arrival. An item costs one
// search by halving, and many at once cost no more than sorting them.
//
// Exchange, Insert, InsertRange, Move and Reverse are refused with a warning; nothing changes then.
//
// Pitfalls: Put and an item that is changed in the list break the order; Sort brings it back. A reference
// to GList finds items by equality and not by the comparer.
template <typename T>
class GSortList : public GList<T> {
 public:
  // By CompareValues: for types that have an order.
  GSortList() requires TOrdered<T> : iComparer(CompareValues<T>) {}
  // Comparer must not be empty.
  explicit GSortList(TComparer<T> Comparer) : iComparer(std::move(Comparer)) {}
  explicit GSortList(std::span<const T> Collection) requires TOrdered<T> : GSortList() { AddRange(Collection); }
  String ClassName() const override { return u"GSortList"; }

  const TComparer<T>& GetComparer() const noexcept { return iComparer; }
  // The items stay as they stand; Sort orders them anew.
  void SetComparer(TComparer<T> Value) { iComparer = std::move(Value); }
  void Sort() { GList<T>::Sort(iComparer); }

  // Puts Item behind all that are equal to it and returns the index.
  int Add(T Item) final;
  using GList<T>::AddRange;
  // Add for each; all are in the list when the first one is notified.
  void AddRange(std::span<const T> Collection) final;
  // -1, and nothing changes, if an equal item is there.
  int AddUnique(T Item) { return Contains(Item) ? -1 : Add(std::move(Item)); }

  // Whether an equal item is there; Index is that of the first one, or where Item would have to stand.
  bool Find(const T& Item, int& Index) const;
  bool Contains(const T& Item) const { return IndexOf(Item) >= 0; }
  // The first and the last equal item; -1 if there is none.
  int IndexOf(const T& Item) const;
  int FirstIndexOf(const T& Item) const { return IndexOf(Item); }
  int LastIndexOf(const T& Item) const;
  // Deletes the first equal item and returns where it stood, -1 if there is none.
  int Remove(const T& Item) { return this->RemoveAt(IndexOf(Item)); }
  // Takes the first equal item out and gives it to the caller; T() if there is none.
  [[nodiscard]] T Extract(const T& Item) { return this->ExtractAt(IndexOf(Item)); }

  // -1, 0 or 1 by the values themselves, whatever the comparer says; by the comparer for a type that has
  // no order. For derived lists and for comparers that build on it.
  virtual int Compare(const T& A, const T& B) const;

  void Exchange(int, int) override { Refuse(u"Austauschen", u".Exchange"); }
  void Insert(int, T) override { Refuse(u"Einfügen", u".Insert"); }
  using GList<T>::InsertRange;
  void InsertRange(int, std::span<const T>) override { Refuse(u"Einfügen", u".InsertRange"); }
  void Move(int, int) override { Refuse(u"Bewegen", u".Move"); }
  void Reverse() override { Refuse(u"Umdrehen", u".Reverse"); }

 private:
  void Refuse(std::u16string_view What, std::u16string_view Function) const {
    ShowWarning(
        Concat({u"Diese sortierte Liste akzeptiert kein ", What, u"!\r\n", this->ClassName().view(), Function}));
  }
  // The first index whose item stands not before, or else behind, Item.
  int LowerBound(const T& Item) const;
  int UpperBound(const T& Item) const;

  TComparer<T> iComparer;
};

template <typename T>
int GSortList<T>::LowerBound(const T& Item) const {
  auto place = std::partition_point(this->FItems.begin(), this->FItems.end(),
                                    [&](const T& other) { return iComparer(other, Item) < 0; });
  return static_cast<int>(place - this->FItems.begin());
}

template <typename T>
int GSortList<T>::UpperBound(const T& Item) const {
  auto place = std::partition_point(this->FItems.begin(), this->FItems.end(),
                                    [&](const T& other) { return iComparer(other, Item) <= 0; });
  return static_cast<int>(place - this->FItems.begin());
}

template <typename T>
int GSortList<T>::Add(T Item) {
  int place = UpperBound(Item);
  return this->PutIn(place, std::move(Item));
}

template <typename T>
void GSortList<T>::AddRange(std::span<const T> Collection) {
  // Whatever may fail comes first: room, the new items in order, and the place of each among the old ones.
  const std::vector<T> arrived(Collection.begin(), Collection.end());
  this->Grow(int64_t{this->GetCount()} + static_cast<int64_t>(arrived.size()));
  const std::vector<size_t> order =
      StableOrder(arrived.size(), [&](size_t a, size_t b) { return iComparer(arrived[a], arrived[b]) < 0; });
  std::vector<T> added;
  std::vector<int> places;
  for (size_t index : order) {
    added.push_back(arrived[index]);
    places.push_back(UpperBound(arrived[index]));
  }
  int read = this->GetCount();
  this->FItems.insert(this->FItems.end(), added.begin(), added.end());
  // From the end: an old item moves up once, and those before the first new one not at all.
  int write = this->GetCount();
  for (size_t i = places.size(); i-- > 0;) {
    while (read > places[i]) *this->At(--write) = std::move(*this->At(--read));
    *this->At(--write) = std::move(added[i]);
  }
  for (const T& item : arrived) this->Notify(item, cnAdded);
}

template <typename T>
bool GSortList<T>::Find(const T& Item, int& Index) const {
  Index = LowerBound(Item);
  return Index < this->GetCount() && iComparer(this->Get(Index), Item) == 0;
}

template <typename T>
int GSortList<T>::IndexOf(const T& Item) const {
  int place;
  return Find(Item, place) ? place : -1;
}

template <typename T>
int GSortList<T>::LastIndexOf(const T& Item) const {
  return Contains(Item) ? UpperBound(Item) - 1 : -1;
}

template <typename T>
int GSortList<T>::Compare(const T& A, const T& B) const {
  if constexpr (TOrdered<T>) {
    return CompareValues(A, B);
  } else {
    return iComparer(A, B);
  }
}

}  // namespace vx
