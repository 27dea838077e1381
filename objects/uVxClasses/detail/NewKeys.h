// Keys on their way into a long sorted list. Internal to the index of keys.
#pragma once

#include <vector>

#include "objects/uVxClasses/TVxStringList.h"

namespace vx::detail {

// Putting a key into the middle of a long list moves half of it. New keys are therefore gathered here, in
// order, and go over many at a time; what a key costs then grows with the root of the list's length. Each key
// knows how many keys of the list stand before it, so that places count through both.
class TNewKeys {
 public:
  int Count() const noexcept { return static_cast<int>(FPlaces.size()); }
  bool IsEmpty() const noexcept { return FPlaces.empty(); }
  // Whether enough has come together for a list of that length.
  bool IsFull(int ListCount) const noexcept;
  int Before(int Index) const noexcept { return FPlaces[static_cast<size_t>(Index)].Before; }
  const String& Text(int Index) const noexcept { return FItems[Item(Index)].Text; }
  TObject* Object(int Index) const noexcept { return FItems[Item(Index)].Object; }
  void SetObject(int Index, TObject* Object) noexcept { FItems[Item(Index)].Object = Object; }

  // The first new key with at least that many keys of the list before it.
  int FirstFrom(int Before) const noexcept;
  // How many new keys stand before place Place of both together; IsNew if there is one at that place.
  int CountBefore(int Place, bool& IsNew) const noexcept;

  // Index is where it belongs by the two calls above. std::bad_alloc changes nothing.
  void Insert(int Index, int Before, const String& Text, TObject* Object);
  // Takes the last key in order away without freeing its object.
  TObject* ExtractLast() noexcept;
  // Moves all keys into List. std::bad_alloc changes nothing.
  void MergeInto(TVxStringList& List);

 private:
  struct TItem {
    String Text;
    TObject* Object;
  };
  struct TPlace {
    int Before;
    int Item;  // in FItems, which are in the order of their coming
  };
  size_t Item(int Index) const noexcept { return static_cast<size_t>(FPlaces[static_cast<size_t>(Index)].Item); }

  std::vector<TItem> FItems;
  std::vector<TPlace> FPlaces;
};

}  // namespace vx::detail
