// Many keys at once into an index.
#include "objects/uVxClasses/TVxStringIndex.h"
#include "objects/uVxClasses/detail/IndexKeys.h"
#include "platform/Sorting.h"

namespace vx {

void TVxStringIndex::AddAll(std::span<const String> Texts, std::span<TObject* const> Objects) {
  constexpr size_t kFew = 64;
  const bool many = Texts.size() >= kFew && Texts.size() >= static_cast<size_t>(GetCount()) / 8;
  if (many && AddSorted(Texts, Objects)) return;
  for (size_t i = 0; i < Texts.size(); ++i) Add(Texts[i], Objects.empty() ? nullptr : Objects[i]);
}

// Does in one go through both what Add does for one text after the other. False, with nothing done, if
// this index's own keys are not in order: only the single searches tell then what becomes of a key.
bool TVxStringIndex::AddSorted(std::span<const String> Texts, std::span<TObject* const> Objects) {
  if (!FKeys->IsInOrder()) return false;
  const std::span<const String> own = FKeys->Items();
  TCells keys;
  keys.reserve(Texts.size());
  for (const String& text : Texts) keys.push_back(ModifyString(text));
  const std::vector<size_t> order =
      StableOrder(keys.size(), [&](size_t a, size_t b) { return FKeys->Compare(keys[a], keys[b]) < 0; });

  std::vector<detail::TIndexKeys::TNewKey> fresh;
  std::vector<std::pair<int, TObject*>> changed;
  std::vector<TObject*> gone;
  int duplicates = 0;
  size_t place = 0;
  for (size_t i = 0; i < order.size();) {
    const String& key = keys[order[i]];
    const auto object = [&](size_t at) { return Objects.empty() ? nullptr : Objects[order[at]]; };
    while (place < own.size() && FKeys->Compare(own[place], key) < 0) ++place;
    const bool exists = place < own.size() && Same(own[place], key);
    TObject* old = exists ? FKeys->GetObject(static_cast<int>(place)) : object(i);
    TObject* stored = old;
    for (i += exists ? 0 : 1; i < order.size() && Same(keys[order[i]], key); ++i) {
      ++duplicates;
      if (object(i) == stored) continue;
      gone.push_back(stored);
      stored = object(i);
    }
    if (!exists) {
      fresh.push_back({static_cast<int>(place), key, stored});
    } else if (stored != old) {
      changed.emplace_back(static_cast<int>(place), stored);
    }
  }
  for (auto [at, object] : changed) FKeys->PutObject(at, object);
  FKeys->InsertKeys(fresh);
  iDuplicateCount += duplicates;
  for (TObject* object : gone) Free(object);
  return true;
}

}  // namespace vx
