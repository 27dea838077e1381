#include "objects/uVxContnrs/TVxChainList.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace vx {

PVxListItem TVxChainList::SetCache(PVxListItem Item, int Index) noexcept {
  ipCache = Item;
  iiCache = Index;
  return Item;
}

PVxListItem TVxChainList::Link(void* Data, PVxListItem Previous, PVxListItem Next) {
  if (iCount == INT32_MAX) throw std::bad_alloc();
  auto* item = new TVxChainListItem{Data, Next, Previous};
  (Previous ? Previous->Next : ipFirst) = item;
  (Next ? Next->Previous : ipLast) = item;
  ++iCount;
  return item;
}

void* TVxChainList::Get(int Index) noexcept {
  PVxListItem item = ItemForIndex(Index);
  return item ? item->Data : nullptr;
}

void TVxChainList::Put(int Index, void* Data) noexcept {
  if (PVxListItem item = ItemForIndex(Index)) item->Data = Data;
}

int TVxChainList::Add(void* Data) {
  Link(Data, ipLast, nullptr);
  return iCount - 1;
}

void TVxChainList::Insert(int Index, void* Data) {
  if (Index >= iCount) {
    Add(Data);
  } else if (Index > 0) {
    PVxListItem next = ItemForIndex(Index);
    SetCache(Link(Data, next->Previous, next), Index);
  } else {
    Link(Data, nullptr, ipFirst);
    if (iiCache >= 0) ++iiCache;
  }
}

PVxListItem TVxChainList::ItemForIndex(int Index) noexcept {
  if (Index < 0 || Index >= iCount) return nullptr;
  if (Index == iiCache) return ipCache;
  int toCache = std::abs(Index - iiCache);  // without a cache more than Index
  int toLast = iCount - 1 - Index;
  PVxListItem item = ipLast;
  int at = iCount - 1;
  if (toCache <= Index && toCache <= toLast) {
    item = ipCache;
    at = iiCache;
  } else if (Index <= toLast && Index <= toCache) {
    item = ipFirst;
    at = 0;
  }
  for (; at < Index; ++at) item = item->Next;
  for (; at > Index; --at) item = item->Previous;
  return SetCache(item, Index);
}

PVxListItem TVxChainList::ItemForData(void* Data, int& Index) noexcept {
  if (ipCache) {
    Index = iiCache;
    if (ipCache->Data == Data) return ipCache;
    Index = iiCache + 1;
    if (ipCache->Next && ipCache->Next->Data == Data) return ipCache->Next;
    Index = iiCache - 1;
    if (ipCache->Previous && ipCache->Previous->Data == Data) return ipCache->Previous;
  }
  Index = iCount - 1;
  for (PVxListItem item = ipLast; item; item = item->Previous, --Index) {
    if (item->Data == Data) return SetCache(item, Index);
  }
  return nullptr;  // Index has come to -1
}

void TVxChainList::RemoveItem(PVxListItem Item, int Index) noexcept {
  if (!Item) return;
  if (Item != ipCache) {
    if (Index < iiCache) --iiCache;
  } else if (Item->Next) {
    ipCache = Item->Next;
  } else {
    SetCache(Item->Previous, Item->Previous ? iiCache - 1 : -1);
  }
  (Item->Previous ? Item->Previous->Next : ipFirst) = Item->Next;
  (Item->Next ? Item->Next->Previous : ipLast) = Item->Previous;
  --iCount;
  delete Item;
}

int TVxChainList::IndexOf(void* Data) noexcept {
  int index;
  ItemForData(Data, index);
  return index;
}

int TVxChainList::Remove(void* Data) noexcept {
  int index;
  PVxListItem item = ItemForData(Data, index);
  RemoveItem(item, index);
  return index;
}

void* TVxChainList::PopFirst() noexcept {
  void* data = First();
  RemoveItem(ipFirst, 0);
  return data;
}

void* TVxChainList::PopLast() noexcept {
  void* data = Last();
  RemoveItem(ipLast, iCount - 1);
  return data;
}

void TVxChainList::Clear() noexcept {
  SetCache(nullptr, -1);
  while (ipFirst) RemoveItem(ipFirst, 0);
}

}  // namespace vx
