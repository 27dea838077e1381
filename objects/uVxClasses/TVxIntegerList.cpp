#include "objects/uVxClasses/TVxIntegerList.h"

#include <algorithm>
#include <numeric>
#include <typeinfo>

#include "platform/Exceptions.h"
#include "platform/Numbers.h"

namespace vx {

void TVxIntegerList::CheckIndex(int Index, int Count) {
  if (static_cast<unsigned>(Index) >= static_cast<unsigned>(Count)) {
    throw EListError(FormatListError(SListIndexError, Index));
  }
}

int TVxIntegerList::FromPointer(void* Item) noexcept {
  return static_cast<int>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(Item)));
}

int TVxIntegerList::GetCapacity() const noexcept {
  return static_cast<int>(std::min<size_t>(FItems.capacity(), INT32_MAX));
}

void TVxIntegerList::SetCount(int Value) {
  if (Value < 0) throw EListError(FormatListError(SListCountError, Value));
  FItems.resize(static_cast<size_t>(Value));
}

void TVxIntegerList::SetCapacity(int Value) {
  if (Value < GetCount()) throw EListError(FormatListError(SListCapacityError, Value));
  std::vector<int> items;
  items.reserve(static_cast<size_t>(Value));
  items.insert(items.end(), FItems.begin(), FItems.end());
  FItems.swap(items);
}

void TVxIntegerList::Put(int Index, int Item) {
  CheckIndex(Index, GetCount());
  FItems[static_cast<size_t>(Index)] = Item;
}

int TVxIntegerList::Add(int Item) {
  TVxIntegerList::Insert(GetCount(), Item);
  return GetCount() - 1;
}

// Overrides take the values over.
void TVxIntegerList::AddAll(std::vector<int> Values) {  // NOLINT(performance-unnecessary-value-param)
  for (int value : Values) Add(value);
}

void TVxIntegerList::Insert(int Index, int Item) {
  if (Index != GetCount()) CheckIndex(Index, GetCount());
  if (GetCount() == INT32_MAX) throw EListError(FormatListError(SListCapacityError, INT32_MAX));
  FItems.insert(FItems.begin() + Index, Item);
}

void TVxIntegerList::Delete(int Index) {
  CheckIndex(Index, GetCount());
  FItems.erase(FItems.begin() + Index);
}

int TVxIntegerList::Extract(int Item) {
  int index = IndexOf(Item);
  if (index >= 0) Delete(index);
  return index;
}

int TVxIntegerList::Remove(int Item) { return TVxIntegerList::Extract(Item); }

void TVxIntegerList::Minus(const TVxIntegerList& List) {
  std::vector<int> going(List.begin(), List.end());
  std::sort(going.begin(), going.end());
  std::vector<size_t> gone(going.size());  // how many of a run, counted at its first place
  std::erase_if(FItems, [&](int item) {
    const size_t place = static_cast<size_t>(std::lower_bound(going.begin(), going.end(), item) - going.begin());
    if (place == going.size()) return false;
    const size_t next = place + gone[place];
    if (next == going.size() || going[next] != item) return false;
    ++gone[place];
    return true;
  });
}

void TVxIntegerList::Exchange(int A, int B) {
  CheckIndex(A, GetCount());
  CheckIndex(B, GetCount());
  std::swap(FItems[static_cast<size_t>(A)], FItems[static_cast<size_t>(B)]);
}

void TVxIntegerList::Move(int From, int To) {
  CheckIndex(From, GetCount());
  CheckIndex(To, GetCount());
  auto from = FItems.begin() + From, to = FItems.begin() + To;
  if (From < To) {
    std::rotate(from, from + 1, to + 1);
  } else {
    std::rotate(to, from, from + 1);
  }
}

void TVxIntegerList::Sort() { std::sort(FItems.begin(), FItems.end()); }

int TVxIntegerList::IndexOf(int Item) const {
  const int* place = std::find(begin(), end(), Item);
  return place == end() ? -1 : static_cast<int>(place - begin());
}

bool TVxIntegerList::Find(int Item, int& Index) const {
  Index = IndexOf(Item);
  return Index >= 0 && Index < GetCount();
}

bool TVxIntegerList::EqualsAll(const TVxIntegerList& Other) const {
  return typeid(*this) == typeid(Other) && FItems == Other.FItems;
}

void TVxIntegerList::Assign(const TVxIntegerList& Source) {
  if (&Source == this) return;
  Clear();
  SetCapacity(Source.GetCount());
  AddList(Source);
}

std::unique_ptr<TVxIntegerList> TVxIntegerList::Duplicate() const {
  auto result = GetNewInstance();
  result->Assign(*this);
  return result;
}

TCells TVxIntegerList::ToCells() const {
  TCells cells;
  cells.reserve(FItems.size());
  for (int item : FItems) cells.push_back(IntToStr(item));
  return cells;
}

void TVxIntegerList::SetCells(const TCells& Cells) {
  std::vector<int> values;
  values.reserve(Cells.size());
  for (const String& cell : Cells) values.push_back(StrToIntDef(cell, 0));
  Clear();
  AddAll(std::move(values));
}

String TVxIntegerList::GetUserText(std::u16string_view Divider, std::u16string_view Pre,
                                   std::u16string_view Post) const {
  String result;
  for (size_t i = 0; i < FItems.size(); ++i) {
    if (i > 0) result += Divider;
    result += Pre;
    result += IntToStr(FItems[i]);
    result += Post;
  }
  return result;
}

int TVxIntegerListUnique::Add(int Item) {
  int index = IndexOf(Item);
  return index >= 0 ? index : TVxIntegerList::Add(Item);
}

// Own items and new ones are ordered together by value and place: of the new ones those stay that come
// first among their equals.
void TVxIntegerListUnique::AddAll(std::vector<int> Values) {
  const size_t own = FItems.size();
  if (typeid(*this) != typeid(TVxIntegerListUnique) || Values.size() > INT32_MAX - own) {
    return TVxIntegerList::AddAll(std::move(Values));
  }
  auto value = [&](size_t place) { return place < own ? FItems[place] : Values[place - own]; };
  std::vector<size_t> places(own + Values.size());
  std::iota(places.begin(), places.end(), size_t{0});
  std::sort(places.begin(), places.end(), [&](size_t a, size_t b) {
    const int valueA = value(a), valueB = value(b);
    return valueA != valueB ? valueA < valueB : a < b;
  });
  std::vector<bool> stays(places.size());
  for (size_t i = 0; i < places.size(); ++i) {
    stays[places[i]] = i == 0 || value(places[i]) != value(places[i - 1]);
  }
  for (size_t i = 0; i < Values.size(); ++i) {
    if (stays[own + i]) FItems.push_back(Values[i]);
  }
}

}  // namespace vx
