#include "objects/uVxClasses/detail/Entries.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/Exceptions.h"

namespace vx::detail {

namespace {

void* Reallocate(void* Memory, size_t Bytes) {
  void* memory = std::realloc(Memory, Bytes);
  if (!memory) throw std::bad_alloc();
  return memory;
}

// Texts may be moved as bytes; so may pointers.
template <typename T>
void MoveItems(T* To, const T* From, int Count) noexcept {
  if (Count > 0) {
    std::memmove(static_cast<void*>(To), static_cast<const void*>(From), static_cast<size_t>(Count) * sizeof(T));
  }
}

}  // namespace

void TEntries::MakeTexts(int Capacity, TBulkMemory* Memory) {
  const size_t bytes = ArrayBytes(Capacity);
  if (bytes > TBulkMemory::MaxPiece) Memory = nullptr;
  void* memory = Memory ? Memory->Take(bytes) : Reallocate(nullptr, bytes);
  FTexts = reinterpret_cast<String*>(::new (memory) THeader{TRefCount(), Memory != nullptr} + 1);
}

void TEntries::FreeArray(THeader* Array) noexcept {
  if (Array->IsBulk) {
    TBulkMemory::Return(Array);
  } else {
    std::free(static_cast<void*>(Array));
  }
}

void TEntries::ResizeTexts(int Capacity) {
  if (!FTexts) {
    MakeTexts(Capacity, nullptr);
  } else if (THeader* old = Header(); old->IsBulk) {
    const String* texts = FTexts;
    MakeTexts(Capacity, nullptr);
    MoveItems(FTexts, texts, FCount);
    FreeArray(old);
  } else {
    void* memory = Reallocate(static_cast<void*>(old), ArrayBytes(Capacity));
    FTexts = reinterpret_cast<String*>(static_cast<THeader*>(memory) + 1);
  }
}

void TEntries::CopyTexts(int Capacity) {
  TEntries copy;
  copy.ResizeTexts(Capacity);
  for (int i = 0; i < FCount; ++i) ::new (copy.FTexts + i) String(FTexts[i]);
  copy.FCount = FCount;
  std::swap(FTexts, copy.FTexts);
  SetMark(Capacity);
}

void TEntries::DropTexts() noexcept {
  if (!FTexts) return;
  THeader* header = Header();
  if (header->Refs.Release()) {
    for (int i = 0; i < FCount; ++i) FTexts[i].~String();
    FreeArray(header);
  }
  FTexts = nullptr;
}

void TEntries::SetCapacity(int Value) {
  if (Value == Capacity()) return;
  if (Value == 0) {
    Clear();
    return;
  }
  if (FObjects && Value > Capacity()) {
    FObjects =
        static_cast<TObject**>(Reallocate(static_cast<void*>(FObjects), static_cast<size_t>(Value) * sizeof(TObject*)));
  }
  if (IsShared()) {
    CopyTexts(Value);
  } else {
    ResizeTexts(Value);
  }
  SetMark(Value);
}

void TEntries::Grow(int Least) {
  if (Least > INT32_MAX - FCount) throw EStringListError(FormatListError(SListCapacityError, INT32_MAX));
  int capacity = Capacity();
  int64_t step = capacity > 64 ? capacity / 4 : capacity > 8 ? 16 : 4;
  int64_t wanted = std::max(capacity + step, int64_t{FCount} + Least);
  SetCapacity(static_cast<int>(std::min<int64_t>(wanted, INT32_MAX)));
}

void TEntries::MakeObjects() {
  FObjects = static_cast<TObject**>(Reallocate(nullptr, static_cast<size_t>(Capacity()) * sizeof(TObject*)));
  std::fill_n(FObjects, Capacity(), nullptr);
}

void TEntries::SetObject(int Index, TObject* Object) {
  if (!FObjects) {
    if (!Object) return;
    MakeObjects();
  }
  FObjects[Index] = Object;
}

void TEntries::Insert(int Index, String Text, TObject* Object) {
  if (FCount == Capacity()) Grow(1);
  Unshare();
  if (Object && !FObjects) MakeObjects();
  MoveItems(FTexts + Index + 1, FTexts + Index, FCount - Index);
  ::new (FTexts + Index) String(std::move(Text));
  if (FObjects) {
    MoveItems(FObjects + Index + 1, FObjects + Index, FCount - Index);
    FObjects[Index] = Object;
  }
  ++FCount;
}

void TEntries::Erase(int Index) {
  Unshare();
  FTexts[Index].~String();
  --FCount;
  MoveItems(FTexts + Index, FTexts + Index + 1, FCount - Index);
  if (FObjects) MoveItems(FObjects + Index, FObjects + Index + 1, FCount - Index);
}

void TEntries::Exchange(int A, int B) {
  Unshare();
  FTexts[A].swap(FTexts[B]);
  if (FObjects) std::swap(FObjects[A], FObjects[B]);
}

void TEntries::TakeAll(std::span<String> Texts) {
  AppendBytes(Texts);
  for (String& text : Texts) ::new (&text) String();  // its characters have another holder now
}

void TEntries::TakeAll(TEntries& Other, TBulkMemory* Memory) {
  constexpr int kMany = 4096;
  if (FCount > 0 || Other.FCount < kMany) {
    if (Memory && Capacity() == 0 && Other.FCount > 0) {
      MakeTexts(Other.FCount, Memory);
      SetMark(Other.FCount);
    }
    AppendBytes({Other.FTexts, static_cast<size_t>(Other.FCount)});
    Other.FCount = 0;
    return;
  }
  swap(Other);
  Other.Clear();
  SetCapacity(FCount);
}

void TEntries::AppendBytes(std::span<const String> Texts) {
  if (Texts.empty()) return;
  if (Texts.size() > static_cast<size_t>(INT32_MAX - FCount)) {
    throw EStringListError(FormatListError(SListCapacityError, INT32_MAX));
  }
  int count = static_cast<int>(Texts.size());
  if (Capacity() == 0) {
    SetCapacity(count);  // a list read from a text has no room to spare
  } else if (count > Capacity() - FCount) {
    Grow(count);
  }
  Unshare();
  MoveItems(FTexts + FCount, Texts.data(), count);
  if (FObjects) std::fill_n(FObjects + FCount, count, nullptr);
  FCount += count;
}

void TEntries::CopyFrom(const TEntries& Other) {
  if (&Other == this) return;
  TEntries copy;
  copy.SetMark(Other.Capacity());
  if (Other.FObjects) {
    copy.MakeObjects();
    MoveItems(copy.FObjects, Other.FObjects, Other.FCount);
  }
  if (Other.FTexts) {
    Other.Header()->Refs.Add();
    Other.SetMark(~Other.Capacity());
    copy.SetMark(~Other.Capacity());
  }
  copy.FTexts = Other.FTexts;
  copy.FCount = Other.FCount;
  swap(copy);
}

void TEntries::Clear() noexcept {
  DropTexts();
  std::free(static_cast<void*>(FObjects));
  FObjects = nullptr;
  FCount = 0;
  SetMark(0);
}

void TEntries::swap(TEntries& Other) noexcept {
  std::swap(FTexts, Other.FTexts);
  std::swap(FObjects, Other.FObjects);
  std::swap(FCount, Other.FCount);
  int mark = FCapacityMark.load(std::memory_order_relaxed);
  SetMark(Other.FCapacityMark.load(std::memory_order_relaxed));
  Other.SetMark(mark);
}

void TEntryFiller::Begin() noexcept {
  FNext = FEntries.FTexts + FEntries.FCount;
  FEnd = FEntries.FTexts + FEntries.Capacity();
}

void TEntryFiller::MakeRoom() {
  Count();
  FEntries.Grow(1);
  Begin();
}

void TEntryFiller::DropAll() noexcept {
  while (FNext != FEntries.FTexts) (--FNext)->~String();
}

}  // namespace vx::detail
