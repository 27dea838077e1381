#include "platform/THashedStringList.h"

#include <algorithm>
#include <bit>
#include <iterator>

#include "platform/Exceptions.h"
#include "platform/detail/Holes.h"
#include "platform/detail/TextHash.h"

namespace vx {

namespace {

constexpr size_t kLeastSlots = 16;

}  // namespace

// A table of the keys, open with linear probing, at most half full. It knows items by their places.
struct THashedStringList::THashes {
  struct TSlot {
    uint32_t Hash;
    int Last;  // the last item of the key; -1: free
    int Size;  // of the key
  };
  const bool ByName;
  const uint64_t Seed = detail::HashSeed();
  size_t Used = 0;
  std::vector<TSlot> Slots;
  std::vector<int>
      Next;  // of each item, the next one of its key, of the last one the first; empty: no key stands twice

  THashes(bool Names, const std::vector<TItem>& Items, const detail::THoles* Holes) : ByName(Names) {
    Slots.assign(std::max(std::bit_ceil(2 * Items.size()), kLeastSlots), TSlot{0, -1, 0});
    for (size_t i = 0; i < Items.size(); ++i) {
      if (!Holes || Holes->IsTaken(i)) Add(Items, i);
    }
  }

  // False if the item has no key.
  static bool KeyOf(bool ByName, std::u16string_view Text, std::u16string_view& Key) noexcept {
    const size_t end = ByName ? Text.find(u'=') : Text.size();
    Key = Text.substr(0, end);
    return end != Text.npos;
  }

  uint32_t HashOf(std::u16string_view Key) const noexcept {
    detail::TTextHash hash(Seed);
    hash.AddFolded(Key);
    return static_cast<uint32_t>(hash.Get());
  }

  // The slot of Key, or the free one where it belongs.
  TSlot& SlotOf(const std::vector<TItem>& Items, std::u16string_view Key, uint32_t Hash) noexcept {
    const size_t mask = Slots.size() - 1;
    for (size_t place = Hash & mask;; place = (place + 1) & mask) {
      TSlot& slot = Slots[place];
      if (slot.Last < 0) return slot;
      if (slot.Hash != Hash || static_cast<size_t>(slot.Size) != Key.size()) continue;
      const String& text = Items[static_cast<size_t>(slot.Last)].Text;
      if (detail::IsSameFolded(text.view().substr(0, Key.size()), Key)) return slot;
    }
  }

  // The first item of a slot's key.
  int FirstOf(const TSlot& Slot) const noexcept {
    return Slot.Last < 0 || Next.empty() ? Slot.Last : Next[static_cast<size_t>(Slot.Last)];
  }

  void Add(const std::vector<TItem>& Items, size_t Place) {
    if (!Next.empty()) {
      AppendNext(Place + 1);
      Next[Place] = static_cast<int>(Place);
    }
    std::u16string_view key;
    if (!KeyOf(ByName, Items[Place].Text, key)) return;
    if (2 * (Used + 1) > Slots.size()) Grow();
    const uint32_t hash = HashOf(key);
    TSlot& slot = SlotOf(Items, key, hash);
    if (slot.Last < 0) {
      slot = {hash, static_cast<int>(Place), static_cast<int>(key.size())};
      ++Used;
      return;
    }
    AppendNext(Items.size());
    Next[Place] = std::exchange(Next[static_cast<size_t>(slot.Last)], static_cast<int>(Place));
    slot.Last = static_cast<int>(Place);
  }

  // So many items in all; those that come by this stand alone.
  void AppendNext(size_t Count) {
    while (Next.size() < Count) Next.push_back(static_cast<int>(Next.size()));
  }

  // False if the item is not the first of its key, and nothing is done then.
  bool Remove(const std::vector<TItem>& Items, size_t Place) noexcept {
    std::u16string_view key;
    if (!KeyOf(ByName, Items[Place].Text, key)) return true;
    TSlot& slot = SlotOf(Items, key, HashOf(key));
    if (FirstOf(slot) != static_cast<int>(Place)) return false;
    if (slot.Last == static_cast<int>(Place)) {
      FreeSlot(static_cast<size_t>(&slot - Slots.data()));
    } else {
      Next[static_cast<size_t>(slot.Last)] = Next[Place];
    }
    return true;
  }

  // Slots behind that would not be found any more move up.
  void FreeSlot(size_t Place) noexcept {
    const size_t mask = Slots.size() - 1;
    for (size_t from = (Place + 1) & mask; Slots[from].Last >= 0; from = (from + 1) & mask) {
      const size_t home = Slots[from].Hash & mask;
      if (((from - home) & mask) < ((from - Place) & mask)) continue;
      Slots[Place] = Slots[from];
      Place = from;
    }
    Slots[Place].Last = -1;
    --Used;
  }

  void Grow() {
    std::vector<TSlot> slots(Slots.size() * 2, TSlot{0, -1, 0});
    const size_t mask = slots.size() - 1;
    for (const TSlot& slot : Slots) {
      if (slot.Last < 0) continue;
      size_t place = slot.Hash & mask;
      while (slots[place].Last >= 0) place = (place + 1) & mask;
      slots[place] = slot;
    }
    Slots.swap(slots);
  }
};

THashedStringList::THashedStringList() = default;
THashedStringList::~THashedStringList() = default;

void THashedStringList::Changed() {}

void THashedStringList::Forget() noexcept {
  FTexts.reset();
  FNames.reset();
}

void THashedStringList::Extend(size_t Place) noexcept {
  try {
    if (FTexts) FTexts->Add(FItems, Place);
    if (FNames) FNames->Add(FItems, Place);
  } catch (const std::exception&) {
    Forget();  // no memory: made anew when it is needed
  }
}

void THashedStringList::Shrink(size_t Place) noexcept {
  if (FTexts && !FTexts->Remove(FItems, Place)) FTexts.reset();
  if (FNames && !FNames->Remove(FItems, Place)) FNames.reset();
}

size_t THashedStringList::PlaceAmongHoles(int Index) const noexcept { return FHoles->PlaceOf(Index); }

void THashedStringList::CloseHoles() noexcept {
  if (FFree == 0) return;
  size_t count = 0;
  for (size_t place = 0; place < FItems.size(); ++place) {
    if (FHoles->IsTaken(place) && count++ != place) FItems[count - 1] = std::move(FItems[place]);
  }
  FItems.resize(count);
  FHoles.reset();
  FFree = 0;
  Forget();
}

void THashedStringList::Put(int Index, const String& Text) {
  String& item = At(Index).Text;
  std::u16string_view oldName, newName;
  const bool hadName = THashes::KeyOf(true, item, oldName), hasName = THashes::KeyOf(true, Text, newName);
  if (hadName != hasName || (hasName && !detail::IsSameFolded(oldName, newName))) FNames.reset();
  FTexts.reset();
  item = Text;
  Changed();
}

void THashedStringList::PutObject(int Index, TObject* Object) {
  At(Index).Object = Object;
  Changed();
}

void THashedStringList::SetCapacity(int Value) {
  if (Value < GetCount()) RaiseListError(SListCapacityError, Value);
  CloseHoles();
  std::vector<TItem> items;
  items.reserve(static_cast<size_t>(Value));
  items.insert(items.end(), std::make_move_iterator(FItems.begin()), std::make_move_iterator(FItems.end()));
  FItems.swap(items);
}

int THashedStringList::AddObject(const String& Text, TObject* Object) {
  const int index = GetCount();
  FItems.push_back({Text, Object});
  if (FFree > 0) {
    try {
      FHoles->Append();
    } catch (...) {
      FItems.pop_back();
      throw;
    }
  }
  Extend(FItems.size() - 1);
  Changed();
  return index;
}

void THashedStringList::InsertObject(int Index, const String& Text, TObject* Object) {
  if (Index < 0 || Index > GetCount()) RaiseListError(SListIndexError, Index);
  if (Index == GetCount()) {
    THashedStringList::AddObject(Text, Object);
    return;
  }
  TItem item{Text, Object};  // Text may be one of the items
  CloseHoles();
  FItems.insert(FItems.begin() + Index, std::move(item));
  Forget();
  Changed();
}

void THashedStringList::Delete(int Index) {
  const size_t place = PlaceOf(Index);
  if (FFree == 0 && place + 1 == FItems.size()) {
    Shrink(place);
    FItems.pop_back();
  } else {
    if (!FHoles) FHoles = std::make_unique<detail::THoles>(FItems.size());
    Shrink(place);
    FItems[place] = TItem();
    FHoles->Free(place);
    if (++FFree > FItems.size() / 2) CloseHoles();
  }
  Changed();
}

void THashedStringList::Clear() {
  if (FItems.empty()) return;
  FItems.clear();
  FHoles.reset();
  FFree = 0;
  Forget();
  Changed();
}

void THashedStringList::Exchange(int A, int B) {
  std::swap(At(A), At(B));
  Forget();
  Changed();
}

int THashedStringList::Find(std::unique_ptr<THashes>& Hashes, bool ByName, std::u16string_view Key) const {
  if (!Hashes) Hashes = std::make_unique<THashes>(ByName, FItems, FHoles.get());
  const int place = Hashes->FirstOf(Hashes->SlotOf(FItems, Key, Hashes->HashOf(Key)));
  return place < 0 || FFree == 0 ? place : FHoles->ItemAt(static_cast<size_t>(place));
}

int THashedStringList::IndexOf(std::u16string_view Text) const { return Find(FTexts, false, Text); }

int THashedStringList::IndexOfName(std::u16string_view Name) const { return Find(FNames, true, Name); }

String THashedStringList::GetNames(int Index) const {
  std::u16string_view name;
  return THashes::KeyOf(true, At(Index).Text, name) ? At(Index).Text.Slice(0, static_cast<int>(name.size())) : String();
}

String THashedStringList::GetValueFromIndex(int Index) const {
  std::u16string_view name;
  const bool hasName = THashes::KeyOf(true, At(Index).Text, name);
  return hasName ? At(Index).Text.Slice(static_cast<int>(name.size()) + 1) : String();
}

}  // namespace vx
