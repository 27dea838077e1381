#include "objects/uVxClasses/detail/IndexKeys.h"

#include <mutex>

#include "objects/uVxClasses/detail/KeyOrder.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"

namespace vx::detail {

namespace {

// The steps by which keys in one piece are searched, whatever their order is.
template <typename TOrder>
TFoundKey SearchWhole(std::span<const String> Keys, std::u16string_view Key, TOrder Order) {
  const int count = static_cast<int>(Keys.size());
  if (count == 0) return {0, false};
  const int first = Order(Key, Keys.front());
  if (first <= 0) return {0, first == 0};
  const int last = Order(Key, Keys.back());
  if (last >= 0) return {last == 0 ? count - 1 : count, last == 0};
  int low = 0, high = count - 1;
  while (low <= high) {
    const int middle = low + (high - low) / 2;
    const int order = Order(Key, Keys[static_cast<size_t>(middle)]);
    if (order == 0) return {middle, true};
    if (order > 0) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  return {low, false};
}

constexpr auto kFolding = [](std::u16string_view a, std::u16string_view b) { return AnsiCompareText(a, b); };
constexpr auto kExact = [](std::u16string_view a, std::u16string_view b) { return CompareUnits(a, b); };

}  // namespace

void TIndexKeys::CheckIndex(int Index) const {
  if (static_cast<unsigned>(Index) >= static_cast<unsigned>(GetCount())) RaiseListError(SListIndexError, Index);
}

void TIndexKeys::SetExact(bool Value) {
  if (Value != FIsExact && FPlace != lpHere) TakeBack();  // in pieces keys have to be in order
  FIsExact = Value;
}

int TIndexKeys::Compare(std::u16string_view A, std::u16string_view B) const noexcept {
  return FIsExact ? kExact(A, B) : kFolding(A, B);
}

String TIndexKeys::Get(int Index) const {
  CheckIndex(Index);
  return At(Index);
}

TObject* TIndexKeys::GetObject(int Index) const {
  CheckIndex(Index);
  return IsAway() ? FPieces.Object(Index) : FEntries.Object(Index);
}

void TIndexKeys::PutObject(int Index, TObject* Object) {
  if (!IsAway()) return TVxStringList::PutObject(Index, Object);
  CheckIndex(Index);
  FPieces.SetObject(Index, Object);
}

void TIndexKeys::Delete(int Index) {
  CheckIndex(Index);
  FreeObject(ExtractKey(Index));
}

void TIndexKeys::Clear() {
  if (!GetOwnsObjects()) {
    FPieces.Clear();
    FPlace = lpHere;
  }
  TVxStringList::Clear();
}

TFoundKey TIndexKeys::Search(std::u16string_view Key) const {
  if (IsAway()) return FIsExact ? FPieces.Search(Key, kExact) : FPieces.Search(Key, kFolding);
  return FIsExact ? SearchWhole(FEntries.Texts(), Key, kExact) : SearchWhole(FEntries.Texts(), Key, kFolding);
}

bool TIndexKeys::IsInOrder() const {
  if (IsAway()) return true;
  const std::span<const String> keys = FEntries.Texts();
  return std::ranges::adjacent_find(keys, [this](const String& a, const String& b) { return Compare(a, b) >= 0; }) ==
         keys.end();
}

void TIndexKeys::PrepareChange(int Index) {
  constexpr int kLeast = 1024;   // fewer keys stay in one piece
  constexpr int kPatience = 16;  // how often all keys may be moved before their order is looked at
  if (IsAway()) return;
  if (FPlace != lpHere) TakeBack();
  const int count = FEntries.Count();
  FMoved += count - Index;
  if (count < kLeast || FMoved < int64_t{kPatience} * count) return;
  FMoved = 0;
  if (!IsInOrder()) return;
  FPieces.Fill(FEntries);
  FEntries.Clear();
  FPlace = lpAway;
}

void TIndexKeys::InsertKey(int Index, String Text, TObject* Object) {
  PrepareChange(Index);
  if (IsAway()) {
    FPieces.Insert(Index, std::move(Text), Object);
  } else {
    FEntries.Insert(Index, std::move(Text), Object);
  }
}

TObject* TIndexKeys::ExtractKey(int Index) {
  TObject* object = GetObject(Index);
  PrepareChange(Index);
  if (IsAway()) {
    FPieces.Erase(Index);
  } else {
    FEntries.Erase(Index);
  }
  return object;
}

void TIndexKeys::InsertKeys(std::span<const TNewKey> Keys) {
  if (Keys.empty()) return;
  const TEntries& keys = Entries();
  const int added = static_cast<int>(std::min<size_t>(Keys.size(), INT32_MAX));
  if (added > INT32_MAX - keys.Count()) RaiseListError(SListCapacityError, INT32_MAX);
  TEntries merged;
  merged.SetCapacity(keys.Count() + added);
  int next = 0;
  for (const TNewKey& key : Keys) {
    for (; next < key.Before; ++next) merged.Insert(merged.Count(), keys.Text(next), keys.Object(next));
    merged.Insert(merged.Count(), key.Text, key.Object);
  }
  for (; next < keys.Count(); ++next) merged.Insert(merged.Count(), keys.Text(next), keys.Object(next));
  FEntries.swap(merged);
}

void TIndexKeys::Fetch() const {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  if (!IsAway()) return;  // another thread has made the copy
  FPieces.CopyTo(FEntries);
  FPlace.store(lpBoth, std::memory_order_release);
}

void TIndexKeys::TakeBack() {
  if (IsAway()) Fetch();
  FPieces.Clear();
  FPlace = lpHere;
  FMoved = 0;
}

}  // namespace vx::detail
