// The storage of the lists of texts: items and, only once a list needs them, their objects.
#pragma once

#include <atomic>
#include <span>

#include "platform/BulkMemory.h"
#include "platform/RefCount.h"
#include "platform/String.h"
#include "platform/TObject.h"

namespace vx::detail {

// Two flat arrays of the same length. Most lists never hold an object, so that the objects have an
// array only from the first one on. A copy shares the array of texts until one of both changes, so that
// copying a table copies no cell. Indexes are not checked. Frees no object.
class TEntries {
 public:
  TEntries() noexcept = default;
  ~TEntries() { Clear(); }
  TEntries(const TEntries&) = delete;
  TEntries& operator=(const TEntries&) = delete;

  int Count() const noexcept { return FCount; }
  int Capacity() const noexcept {
    int mark = FCapacityMark.load(std::memory_order_relaxed);
    return mark < 0 ? ~mark : mark;
  }
  // Value must not lie below the count. std::bad_alloc leaves all as it was.
  void SetCapacity(int Value);

  const String& Text(int Index) const noexcept { return FTexts[Index]; }
  // Takes an array of its own if it shares one: what changes no count can't fail then.
  void Detach() { Unshare(); }
  // Text may be an entry of this array.
  void SetText(int Index, const String& Text) {
    if (IsShared()) {
      String kept = Text;
      Unshare();
      FTexts[Index] = std::move(kept);
    } else {
      Unshare();  // only the mark, if there is one
      FTexts[Index] = Text;
    }
  }
  // The text for writing.
  String& MutableText(int Index) {
    Unshare();
    return FTexts[Index];
  }
  TObject* Object(int Index) const noexcept { return FObjects ? FObjects[Index] : nullptr; }
  void SetObject(int Index, TObject* Object);
  std::span<const String> Texts() const noexcept { return {FTexts, static_cast<size_t>(FCount)}; }
  // Empty if no entry ever had an object, otherwise one for each text.
  std::span<TObject* const> Objects() const noexcept { return {FObjects, FObjects ? static_cast<size_t>(FCount) : 0}; }

  // Grows by the lists' rule when full.
  void Insert(int Index, String Text, TObject* Object);
  void Erase(int Index);
  void Exchange(int A, int B);
  // Appends the texts, moving them out; their objects are absent.
  void TakeAll(std::span<String> Texts);
  // Appends all texts of Other, which is empty then but may keep its room. Many go over as they lie. Where there
  // is no array yet, it becomes a piece of Memory, if that is given and the array is not too large for it.
  void TakeAll(TEntries& Other, TBulkMemory* Memory = nullptr);
  // Becomes a copy of Other.
  void CopyFrom(const TEntries& Other);
  void Clear() noexcept;
  void swap(TEntries& Other) noexcept;

 private:
  friend class TEntryFiller;
  // Stands in front of the array of texts.
  struct THeader {
    TRefCount Refs;
    uint32_t IsBulk;  // a piece of TBulkMemory, not of the heap
  };
  THeader* Header() const noexcept { return reinterpret_cast<THeader*>(FTexts) - 1; }
  // The mark in the capacity spares the look at the header, which stands in another cache line.
  bool IsShared() const noexcept {
    return FCapacityMark.load(std::memory_order_relaxed) < 0 && FTexts && Header()->Refs.IsShared();
  }
  void Unshare() {
    if (FCapacityMark.load(std::memory_order_relaxed) >= 0) return;
    if (IsShared()) CopyTexts(Capacity());
    SetMark(Capacity());
  }
  void SetMark(int Mark) const noexcept { FCapacityMark.store(Mark, std::memory_order_relaxed); }
  // Changes to an array of its own with that capacity.
  void CopyTexts(int Capacity);
  void ResizeTexts(int Capacity);
  // Makes the first array.
  void MakeTexts(int Capacity, TBulkMemory* Memory);
  static size_t ArrayBytes(int Capacity) noexcept {
    return sizeof(THeader) + static_cast<size_t>(Capacity) * sizeof(String);
  }
  static void FreeArray(THeader* Array) noexcept;
  // Appends the texts byte by byte: the giver must forget them and not free them.
  void AppendBytes(std::span<const String> Texts);
  void DropTexts() noexcept;
  // By the lists' rule, or as far as Least more entries need.
  void Grow(int Least);
  void MakeObjects();

  String* FTexts = nullptr;
  TObject** FObjects = nullptr;
  int FCount = 0;
  // The capacity, or its complement while the array may be shared. Copying a list marks it too, and a
  // list may be copied by several threads at once.
  mutable std::atomic<int> FCapacityMark = 0;
};

// Fills entries with millions of texts, each made straight in its place. Nobody else may change them
// meanwhile.
class TEntryFiller {
 public:
  TEntryFiller() noexcept = default;
  ~TEntryFiller() {
    if (FNext) Count();
  }
  TEntryFiller(const TEntryFiller&) = delete;
  TEntryFiller& operator=(const TEntryFiller&) = delete;

  // Where the next text is to be made by placement; it is one of the entries once Advance is called.
  void* Place() {
    if (FNext == FEnd) MakeRoom();
    return FNext;
  }
  void Advance() noexcept { ++FNext; }
  // Drops the texts, but not the room for them.
  void DropAll() noexcept;
  // What was appended, for a taker; the filler begins anew with what room is left there.
  template <typename TTake>
  void GiveTo(TTake Take) {
    Count();
    FNext = FEnd = nullptr;  // nothing of its own to count, should the taker raise
    Take(FEntries);
    Begin();
  }

 private:
  // The entries learn of what was appended only now and then: a count in memory for each text would
  // cost as much as the text.
  void Count() noexcept { FEntries.FCount = static_cast<int>(FNext - FEntries.FTexts); }
  void Begin() noexcept;
  void MakeRoom();

  TEntries FEntries;
  String* FNext = nullptr;
  String* FEnd = nullptr;
};

}  // namespace vx::detail
