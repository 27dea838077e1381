#include "objects/uVxClasses/TVxStringIndex.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>

#include "core/uVxFunctions/Strings.h"
#include "core/uVxFunctionsSerialize/Explode.h"
#include "platform/Collation.h"
#include "platform/Files.h"

namespace vx {

using detail::TNewKeys;

namespace {

// The place of the first unit that differs in the first Size ones; Size if there is none.
inline size_t FirstOther(const char16_t* A, const char16_t* B, size_t Size) noexcept {
  constexpr bool kFirstIsLowest = std::endian::native == std::endian::little;
  size_t at = 0;
  for (; kFirstIsLowest && at + 4 <= Size; at += 4) {
    uint64_t a, b;
    std::memcpy(&a, A + at, sizeof a);
    std::memcpy(&b, B + at, sizeof b);
    if (a != b) return at + static_cast<size_t>(std::countr_zero(a ^ b)) / 16;
  }
  while (at < Size && A[at] == B[at]) ++at;
  return at;
}

inline int CompareUnits(std::u16string_view A, std::u16string_view B) noexcept {
  size_t size = std::min(A.size(), B.size());
  size_t at = FirstOther(A.data(), B.data(), size);
  if (at < size) return A[at] < B[at] ? -3 : 3;
  if (A.size() == B.size()) return 0;
  int sign = A.size() > B.size() ? 1 : -1;
  return size > 0 ? 2 * sign : sign;
}

bool IsFolded(char16_t Unit) noexcept {
  return Unit >= u'Ä' && std::u16string_view(u"ÄÖÜßäöü").find(Unit) != std::u16string_view::npos;
}

// What stands for a German letter; Next is the unit behind it, 0 for a small letter or at the end.
std::u16string_view FoldedForm(char16_t Unit, bool SmallFollows) noexcept {
  switch (Unit) {
    case u'ä':
      return u"ae";
    case u'ö':
      return u"oe";
    case u'ü':
      return u"ue";
    case u'ß':
      return u"ss";
    case u'Ä':
      return SmallFollows ? u"Ae" : u"AE";
    case u'Ö':
      return SmallFollows ? u"Oe" : u"OE";
    default:
      return SmallFollows ? u"Ue" : u"UE";
  }
}

// Folds the letters of Text. A marker may be such a letter too and is folded in its turn.
String Fold(const String& Text) {
  std::u16string rest(Text.view());  // what follows the position, with the markers behind it
  std::u16string result;
  result.reserve(rest.size() + 16);
  for (size_t i = 0; i < rest.size(); ++i) {
    if (!IsFolded(rest[i])) {
      result += rest[i];
      continue;
    }
    bool smallFollows = i + 1 == rest.size() || rest[i + 1] >= u'a' || rest[i + 1] == u' ';
    rest += static_cast<char16_t>(result.size() + 1 + 32);
    result += FoldedForm(rest[i], smallFollows);
  }
  return result;
}

}  // namespace

int VxCompareText(std::u16string_view S1, std::u16string_view S2, bool CaseSensitive) noexcept {
  return CaseSensitive ? CompareUnits(S1, S2) : AnsiCompareText(S1, S2);
}

TVxStringIndex::TVxStringIndex(TVxStringIndexOptions Options) {
  TVxStringIndex::Init();
  iOptions = Options;
}

TVxStringIndex::~TVxStringIndex() { Clear(); }

void TVxStringIndex::Init() {
  Clear();
  iOptions.Exclude(vxioOwnsObjects);
}

TVxStringList& TVxStringIndex::List() const {
  FNew.MergeInto(iCsl);
  return iCsl;
}

TVxStringIndex::TSlot TVxStringIndex::Slot(int Index) const noexcept {
  if (FNew.IsEmpty() || Index >= GetCount()) return {Index, false};
  bool isNew;
  int before = FNew.CountBefore(Index, isNew);
  return {isNew ? before : Index - before, isNew};
}

String TVxStringIndex::GetItems(int Index) const {
  TSlot slot = Slot(Index);
  return slot.IsNew ? FNew.Text(slot.Index) : iCsl.Get(slot.Index);
}

TObject* TVxStringIndex::GetObjects(int Index) const {
  TSlot slot = Slot(Index);
  return slot.IsNew ? FNew.Object(slot.Index) : iCsl.GetObject(slot.Index);
}

void TVxStringIndex::SetObjects(int Index, TObject* Value) {
  TSlot slot = Slot(Index);
  if (slot.IsNew) {
    FNew.SetObject(slot.Index, Value);
  } else {
    iCsl.PutObject(slot.Index, Value);
  }
}

String TVxStringIndex::ModifyString(const String& Text) const {
  if (iFixedLength <= 0) return Text;
  String result = GarantyLength(Text, iFixedLength);
  return std::any_of(result.begin(), result.end(), IsFolded) ? Fold(result) : result;
}

template <typename TOrder>
TVxStringIndex::TFound TVxStringIndex::Search(std::u16string_view Key, TOrder Order) const {
  std::span<const String> keys = iCsl.Items();
  TFound found{0, 0, false, false};
  int count = static_cast<int>(keys.size());
  if (count > 0) {
    int first = Order(Key, keys.front());
    int last = first <= 0 ? -1 : Order(Key, keys.back());
    if (first == 0 || last == 0) {
      found = {first == 0 ? 0 : count - 1, 0, true, false};
    } else if (last > 0) {
      found.Before = count;
    } else if (first > 0) {
      int low = 0, high = count - 1;
      while (low <= high && !found.InList) {
        int middle = low + (high - low) / 2;
        int compared = Order(Key, keys[static_cast<size_t>(middle)]);
        if (compared > 0) {
          low = middle + 1;
        } else if (compared < 0) {
          high = middle - 1;
        } else {
          low = middle;
          found.InList = true;
        }
      }
      found.Before = low;
    }
  }
  if (FNew.IsEmpty()) return found;
  int low = FNew.FirstFrom(found.Before);
  if (!found.InList && low < FNew.Count() && FNew.Before(low) == found.Before) {
    int high = FNew.FirstFrom(found.Before + 1) - 1;
    while (low <= high && !found.InNew) {
      int middle = low + (high - low) / 2;
      int compared = Order(Key, FNew.Text(middle));
      if (compared < 0) {
        high = middle - 1;
      } else {
        low = compared == 0 ? middle : middle + 1;
        found.InNew = compared == 0;
      }
    }
  }
  // New keys with as many before them as a key that is in the list stand before it.
  found.New = found.InList ? FNew.FirstFrom(found.Before + 1) : low;
  return found;
}

TVxStringIndex::TFound TVxStringIndex::Search(std::u16string_view Key) const {
  if (iOptions.Has(vxioNotCaseSensitive)) {
    return Search(Key, [](std::u16string_view a, std::u16string_view b) { return AnsiCompareText(a, b); });
  }
  return Search(Key, [](std::u16string_view a, std::u16string_view b) { return CompareUnits(a, b); });
}

TVxStringIndex::TFound TVxStringIndex::SearchText(std::u16string_view Text) const {
  return iFixedLength > 0 ? Search(ModifyString(Text)) : Search(Text);
}

int TVxStringIndex::IndexSort(std::u16string_view Key) const { return Search(Key).Place(); }

int TVxStringIndex::Add(const String& Text, TObject* Object) {
  constexpr int kFewMoved = 1024;
  String folded;
  if (iFixedLength > 0) folded = ModifyString(Text);
  const String& key = iFixedLength > 0 ? folded : Text;
  TFound found = Search(key);
  int place = found.Place();
  if (found.Found()) {
    TObject* old = found.InNew ? FNew.Object(found.New) : iCsl.GetObject(found.Before);
    if (old != Object && found.InNew) FNew.SetObject(found.New, Object);
    if (old != Object && found.InList) iCsl.PutObject(found.Before, Object);
    ++iDuplicateCount;
    if (old != Object) Free(old);
    return place;
  }
  int count = iCsl.GetCount();
  bool isBehindNew = FNew.IsEmpty() || FNew.Before(FNew.Count() - 1) < found.Before;
  if (FNew.IsEmpty() ? count - found.Before <= kFewMoved : isBehindNew && found.Before == count) {
    iCsl.InsertItem(found.Before, key, Object);
  } else {
    FNew.Insert(found.New, found.Before, key, Object);
    if (FNew.IsFull(count)) List();
  }
  return place;
}

void TVxStringIndex::AddStrings(const TStrings& Strings) {
  TCells texts;  // copies: Strings may be this index's own list
  std::vector<TObject*> objects;
  int count = Strings.GetCount();
  texts.reserve(static_cast<size_t>(count));
  objects.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    texts.push_back(Strings.Get(i));
    objects.push_back(Strings.GetObject(i));
  }
  AddAll(texts, objects);
}

void TVxStringIndex::AddAll(std::span<const String> Texts, std::span<TObject* const> Objects) {
  constexpr size_t kFew = 64;
  bool many = Texts.size() >= kFew && Texts.size() >= static_cast<size_t>(GetCount()) / 8;
  if (many && AddSorted(Texts, Objects)) return;
  for (size_t i = 0; i < Texts.size(); ++i) Add(Texts[i], Objects.empty() ? nullptr : Objects[i]);
}

// Does in one go through both what Add does for one text after the other. False, with nothing done, if
// this index's own keys are not in order: only the single searches tell then what becomes of a key.
bool TVxStringIndex::AddSorted(std::span<const String> Texts, std::span<TObject* const> Objects) {
  std::span<const String> own = List().Items();
  auto isNotBefore = [&](const String& a, const String& b) { return Compare(a, b) >= 0; };
  if (std::adjacent_find(own.begin(), own.end(), isNotBefore) != own.end()) return false;
  TCells keys;
  keys.reserve(Texts.size());
  for (const String& text : Texts) keys.push_back(ModifyString(text));
  std::vector<size_t> order(keys.size());
  std::iota(order.begin(), order.end(), size_t{0});
  auto isBefore = [&](size_t a, size_t b) { return Compare(keys[a], keys[b]) < 0; };
  if (!std::is_sorted(order.begin(), order.end(), isBefore)) std::stable_sort(order.begin(), order.end(), isBefore);

  TNewKeys fresh;
  std::vector<std::pair<int, TObject*>> changed;
  std::vector<TObject*> gone;
  int duplicates = 0;
  size_t place = 0;
  for (size_t i = 0; i < order.size();) {
    const String& key = keys[order[i]];
    auto object = [&](size_t at) { return Objects.empty() ? nullptr : Objects[order[at]]; };
    while (place < own.size() && Compare(own[place], key) < 0) ++place;
    bool exists = place < own.size() && Same(own[place], key);
    TObject* old = exists ? iCsl.GetObject(static_cast<int>(place)) : object(i);
    TObject* stored = old;
    for (i += exists ? 0 : 1; i < order.size() && Same(keys[order[i]], key); ++i) {
      ++duplicates;
      if (object(i) == stored) continue;
      gone.push_back(stored);
      stored = object(i);
    }
    if (!exists) {
      fresh.Insert(fresh.Count(), static_cast<int>(place), key, stored);
    } else if (stored != old) {
      changed.emplace_back(static_cast<int>(place), stored);
    }
  }
  for (auto [at, object] : changed) iCsl.PutObject(at, object);
  FNew = std::move(fresh);
  iDuplicateCount += duplicates;
  List();
  for (TObject* object : gone) Free(object);
  return true;
}

// Texts that are equal without regard to case have the same length too.
bool TVxStringIndex::Same(std::u16string_view A, std::u16string_view B) const noexcept {
  return A.size() == B.size() && Compare(A, B) == 0;
}

bool TVxStringIndex::Find(std::u16string_view Text, int& Index) const {
  String folded;
  if (iFixedLength > 0) Text = folded = ModifyString(Text);
  if (iLastIndex >= 0 && iLastIndex < GetCount()) {
    TSlot slot = Slot(iLastIndex);
    if (Same(slot.IsNew ? FNew.Text(slot.Index) : iCsl.Items()[static_cast<size_t>(slot.Index)], Text)) {
      Index = iLastIndex;
      return true;
    }
  }
  TFound found = Search(Text);
  Index = iLastIndex = found.Place();
  return found.Found();
}

int TVxStringIndex::IndexOf(std::u16string_view Text) const {
  int index;
  return Find(Text, index) ? index : -1;
}

int TVxStringIndex::IndexOf(const TObject* Object) const {
  int count = GetCount();
  if (iLastIndex >= 0 && iLastIndex < count && GetObjects(iLastIndex) == Object) return iLastIndex;
  const TVxStringList& list = List();
  int index = 0;
  while (index < count && list.GetObject(index) != Object) ++index;
  return iLastIndex = index < count ? index : -1;
}

void TVxStringIndex::Delete(int Index) { Free(Extract(Index)); }

int TVxStringIndex::Delete(std::u16string_view Text) {
  TFound found = SearchText(Text);
  if (!found.Found()) return -1;
  int place = found.Place();
  Delete(place);
  return place;
}

int TVxStringIndex::Delete(const TObject* Object) {
  int index = IndexOf(Object);
  if (index >= 0) Delete(index);
  return index;
}

TObject* TVxStringIndex::Extract(int Index) {
  TVxStringList& list = List();
  TObject* object = list.GetObject(Index);
  list.PutObject(Index, nullptr);
  list.Delete(Index);
  return object;
}

TObject* TVxStringIndex::Extract(int Index, String& Text) {
  String text = GetItems(Index);
  TObject* object = Extract(Index);
  Text = std::move(text);
  return object;
}

TObject* TVxStringIndex::Extract(std::u16string_view Text) {
  TFound found = SearchText(Text);
  return found.Found() ? Extract(found.Place()) : nullptr;
}

void TVxStringIndex::DeleteObjects() {
  if (!iOptions.Has(vxioOwnsObjects)) return;
  // The destructors may change the index.
  for (int i = 0; i < List().GetCount(); ++i) {
    TObject* object = iCsl.GetObject(i);
    iCsl.PutObject(i, nullptr);
    Free(object);
  }
}

void TVxStringIndex::Clear() {
  // The same here.
  while (iOptions.Has(vxioOwnsObjects) && GetCount() > 0) {
    if (!FNew.IsEmpty()) {
      Free(FNew.ExtractLast());
    } else {
      Free(Extract(GetCount() - 1));
    }
  }
  FNew = TNewKeys();
  iCsl.Clear();
  iLastIndex = -1;
  iDuplicateCount = 0;
}

void TVxStringIndex::Assign(const TStrings& Source) {
  iOptions.Exclude(vxioOwnsObjects);
  List().SetSorted(false);
  iCsl.Assign(Source);
  iCsl.SetSorted(false);
}

String TVxStringIndex::Implode(std::u16string_view Seperator) const { return implode(List().Items(), Seperator); }

void TVxStringIndex::SetCommatext(std::u16string_view Text) { AddAll(ReadCommatext(Text), {}); }

void TVxStringIndex::SetIntellitext(std::u16string_view Text) {
  TCells keys = ReadIntellitext(Text);
  Clear();
  AddAll(keys, {});
}

bool TVxStringIndex::LoadFromFile(std::u16string_view Name) {
  TFileInfo info;
  if (!GetFileInfo(Name, info) || info.IsDirectory) return false;
  String path = Name;  // it may be one of the keys
  DeleteObjects();
  List().LoadFromFile(path);
  return true;
}

bool TVxStringIndex::SaveToFile(std::u16string_view Name) const {
  List().SaveToFile(Name);
  TFileInfo info;
  return GetFileInfo(Name, info) && !info.IsDirectory;
}

}  // namespace vx
