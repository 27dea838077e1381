// A chain of pointers with a cache of the place that was used last.
#pragma once

#include "platform/TObject.h"

namespace vx {

// One link of a chain.
struct TVxChainListItem {
  void* Data;
  TVxChainListItem* Next;      // toward the end
  TVxChainListItem* Previous;  // toward the start
};
using PVxListItem = TVxChainListItem*;

// One small record an item and no array. The link that was used last is remembered, and the next walk
// begins at it, at the first or at the last link, whichever is nearest: walking by index in steps costs
// as much as walking the chain, and so does repeated work around one place.
//
// Indexes count from 0. An index outside the chain raises nothing: there is nothing to be had or changed.
class TVxChainList : public TObject {
 public:
  TVxChainList() noexcept = default;
  ~TVxChainList() override { Clear(); }
  TVxChainList(const TVxChainList&) = delete;
  TVxChainList& operator=(const TVxChainList&) = delete;
  String ClassName() const override { return u"TVxChainList"; }

  int GetCount() const noexcept { return iCount; }
  // nullptr outside the chain.
  void* Get(int Index) noexcept;
  void Put(int Index, void* Data) noexcept;
  // nullptr if the chain is empty.
  void* First() const noexcept { return ipFirst ? ipFirst->Data : nullptr; }
  void* Last() const noexcept { return ipLast ? ipLast->Data : nullptr; }

  // Appends and returns the index. The cache stays.
  int Add(void* Data);
  // Puts Data in before the item at Index, and the cache to it; at the count and above it appends, below
  // 0 it counts as 0. In front of the first item the cache stays with its link.
  void Insert(int Index, void* Data);
  void Delete(int Index) noexcept { RemoveItem(ItemForIndex(Index), Index); }
  // Deletes the item that IndexOf finds and returns where it stood, -1 if there is none.
  int Remove(void* Data) noexcept;
  // The place of an item with that pointer, -1 if there is none. If there are several: the cached one,
  // else the one behind it, else the one before it, else the last of the chain.
  int IndexOf(void* Data) noexcept;
  // Takes the item out and gives its pointer; nullptr if the chain is empty.
  void* PopFirst() noexcept;
  void* PopLast() noexcept;
  // Frees the links, not what they point at.
  void Clear() noexcept;

  // The link at Index, which becomes the cache; nullptr outside the chain. Links stay the chain's; one
  // is good until its item is deleted.
  PVxListItem ItemForIndex(int Index) noexcept;
  // The link that IndexOf speaks of, and its Index; nullptr and -1 if there is none. One that is neither
  // cached nor a neighbour becomes the cache.
  PVxListItem ItemForData(void* Data, int& Index) noexcept;
  // Deletes Item, which has to be the link at Index; nullptr deletes nothing. If it is the cache, the
  // cache goes to the next link, or else to the previous one.
  void RemoveItem(PVxListItem Item, int Index) noexcept;

  // Where the cache stands, -1 if nowhere: tells the cost of the next access, for measurements.
  int GetCachedIndex() const noexcept { return iiCache; }

 private:
  PVxListItem SetCache(PVxListItem Item, int Index) noexcept;
  // Makes a link between two neighbours, either of which may be absent.
  PVxListItem Link(void* Data, PVxListItem Previous, PVxListItem Next);

  int iCount = 0;
  int iiCache = -1;
  PVxListItem ipCache = nullptr;
  PVxListItem ipFirst = nullptr;
  PVxListItem ipLast = nullptr;
};

}  // namespace vx
