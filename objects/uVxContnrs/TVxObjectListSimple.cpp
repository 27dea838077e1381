#include "objects/uVxContnrs/TVxObjectListSimple.h"

#include "objects/detail/Refusal.h"

namespace vx {
namespace {

constexpr detail::TRefusal Refuse{u"Die Funktion \"",
                                  u"\" \r\nwird vom Objekt \"TVxObjectListSimpleSort\" \r\nnicht unterstützt."};

}  // namespace

int TVxObjectListSimpleSort::GetIdForObject(TObject* Item) const {
  return static_cast<int>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(Item)));
}

int TVxObjectListSimpleSort::IndexSort(TObject* Item) const {
  int id = GetIdForObject(Item);
  auto key = [this](int index) { return GetIdForObject(Get(index)); };
  int high = GetCount() - 1;
  if (high < 0) return 0;
  int last = key(high);
  if (last <= id) return last == id ? high : high + 1;
  if (key(0) >= id) return 0;
  int low = 0;
  while (low < high) {
    int middle = low + (high - low) / 2;
    int found = key(middle);
    if (id > found) {
      low = middle + 1;
      if (low < high && key(low) > id) high = low;
    } else if (id < found) {
      high = middle;
    } else {
      low = high = middle;
    }
  }
  return low;
}

int TVxObjectListSimpleSort::Add(TObject* Item) {
  int place = IndexSort(Item);
  if (place == GetCount() || Get(place) != Item) TObjectList::Insert(place, Item);
  return place;
}

void TVxObjectListSimpleSort::Insert(int, TObject* Item) { Add(Item); }

int TVxObjectListSimpleSort::IndexOf(TObject* Item) const {
  int place = IndexSort(Item);
  return place < GetCount() && Get(place) == Item ? place : -1;
}

int TVxObjectListSimpleSort::Remove(TObject* Item) {
  int place = IndexOf(Item);
  if (place >= 0) Delete(place);
  return place;
}

TObject* TVxObjectListSimpleSort::Extract(TObject* Item) {
  int place = IndexOf(Item);
  if (place < 0) return nullptr;
  const TReleaseScope scope(*this);
  Delete(place);
  return Item;
}

void TVxObjectListSimpleSort::Exchange(int, int) { Refuse(u"Exchange"); }
void TVxObjectListSimpleSort::Move(int, int) { Refuse(u"Move"); }
void TVxObjectListSimpleSort::Sort(FunctionRef<int(TObject*, TObject*)>) { Refuse(u"Sort"); }

}  // namespace vx
