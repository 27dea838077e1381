#include "objects/uVxClasses/TVxStringIndex.h"

#include "core/uVxFunctions/Strings.h"
#include "core/uVxFunctionsSerialize/Explode.h"
#include "objects/uVxClasses/detail/IndexKeys.h"
#include "objects/uVxClasses/detail/KeyFolding.h"
#include "objects/uVxClasses/detail/KeyOrder.h"
#include "platform/Collation.h"
#include "platform/Files.h"

namespace vx {

int VxCompareText(std::u16string_view S1, std::u16string_view S2, bool CaseSensitive) noexcept {
  return CaseSensitive ? detail::CompareUnits(S1, S2) : AnsiCompareText(S1, S2);
}

TVxStringIndex::TVxStringIndex(TVxStringIndexOptions Options) : FKeys(std::make_unique<detail::TIndexKeys>()) {
  TVxStringIndex::Init();
  TVxStringIndex::SetOptions(Options);
}

TVxStringIndex::~TVxStringIndex() { Clear(); }

void TVxStringIndex::Init() {
  Clear();
  iOptions.Exclude(vxioOwnsObjects);
}

void TVxStringIndex::SetOptions(TVxStringIndexOptions Value) {
  iOptions = Value;
  FKeys->SetExact(!Value.Has(vxioNotCaseSensitive));
}

int TVxStringIndex::GetCount() const { return FKeys->GetCount(); }
String TVxStringIndex::GetItems(int Index) const { return FKeys->Get(Index); }
TObject* TVxStringIndex::GetObjects(int Index) const { return FKeys->GetObject(Index); }
void TVxStringIndex::SetObjects(int Index, TObject* Value) { FKeys->PutObject(Index, Value); }
TVxStringList& TVxStringIndex::GetCsl() noexcept { return *FKeys; }
const TVxStringList& TVxStringIndex::GetCsl() const noexcept { return *FKeys; }

String TVxStringIndex::ModifyString(const String& Text) const {
  return iFixedLength <= 0 ? Text : detail::FoldKey(GarantyLength(Text, iFixedLength));
}

detail::TFoundKey TVxStringIndex::SearchText(std::u16string_view Text) const {
  return iFixedLength > 0 ? FKeys->Search(ModifyString(Text)) : FKeys->Search(Text);
}

int TVxStringIndex::IndexSort(std::u16string_view Key) const { return FKeys->Search(Key).Place; }

// Texts that are equal without regard to case have the same length too.
bool TVxStringIndex::Same(std::u16string_view A, std::u16string_view B) const noexcept {
  return A.size() == B.size() && FKeys->Compare(A, B) == 0;
}

bool TVxStringIndex::Find(std::u16string_view Text, int& Index) const {
  String folded;
  if (iFixedLength > 0) Text = folded = ModifyString(Text);
  const int last = GetLastIndex();
  if (last >= 0 && last < FKeys->GetCount() && Same(FKeys->At(last), Text)) {
    Index = last;
    return true;
  }
  const detail::TFoundKey found = FKeys->Search(Text);
  Index = iLastIndex = found.Place;
  return found.IsThere;
}

int TVxStringIndex::IndexOf(std::u16string_view Text) const {
  int index;
  return Find(Text, index) ? index : -1;
}

int TVxStringIndex::IndexOf(const TObject* Object) const {
  const int count = GetCount();
  const int last = GetLastIndex();
  if (last >= 0 && last < count && GetObjects(last) == Object) return last;
  int index = 0;
  while (index < count && FKeys->GetObject(index) != Object) ++index;
  return iLastIndex = index < count ? index : -1;
}

int TVxStringIndex::Add(const String& Text, TObject* Object) {
  const String key = ModifyString(Text);
  const auto [place, isThere] = FKeys->Search(key);
  if (!isThere) {
    FKeys->InsertKey(place, key, Object);
    return place;
  }
  TObject* old = FKeys->GetObject(place);
  if (old != Object) FKeys->PutObject(place, Object);
  ++iDuplicateCount;
  if (old != Object) Free(old);
  return place;
}

void TVxStringIndex::AddStrings(const TStrings& Strings) {
  TCells texts;  // copies: Strings may be this index's own list
  std::vector<TObject*> objects;
  const int count = Strings.GetCount();
  texts.reserve(static_cast<size_t>(count));
  objects.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    texts.push_back(Strings.Get(i));
    objects.push_back(Strings.GetObject(i));
  }
  AddAll(texts, objects);
}

void TVxStringIndex::Delete(int Index) { Free(Extract(Index)); }

int TVxStringIndex::Delete(std::u16string_view Text) {
  const auto [place, isThere] = SearchText(Text);
  if (!isThere) return -1;
  Delete(place);
  return place;
}

int TVxStringIndex::Delete(const TObject* Object) {
  const int index = IndexOf(Object);
  if (index >= 0) Delete(index);
  return index;
}

TObject* TVxStringIndex::Extract(int Index) { return FKeys->ExtractKey(Index); }

TObject* TVxStringIndex::Extract(int Index, String& Text) {
  String text = GetItems(Index);
  TObject* object = Extract(Index);
  Text = std::move(text);
  return object;
}

TObject* TVxStringIndex::Extract(std::u16string_view Text) {
  const auto [place, isThere] = SearchText(Text);
  return isThere ? Extract(place) : nullptr;
}

void TVxStringIndex::DeleteObjects() {
  if (!iOptions.Has(vxioOwnsObjects)) return;
  // The destructors may change the index.
  for (int i = 0; i < GetCount(); ++i) {
    TObject* object = GetObjects(i);
    SetObjects(i, nullptr);
    Free(object);
  }
}

void TVxStringIndex::Clear() {
  // The same here.
  while (iOptions.Has(vxioOwnsObjects) && GetCount() > 0) Delete(GetCount() - 1);
  FKeys->Clear();
  iLastIndex = -1;
  iDuplicateCount = 0;
}

void TVxStringIndex::Assign(const TStrings& Source) {
  iOptions.Exclude(vxioOwnsObjects);
  FKeys->SetSorted(false);
  FKeys->Assign(Source);
  FKeys->SetSorted(false);
}

String TVxStringIndex::Implode(std::u16string_view Seperator) const { return implode(FKeys->Items(), Seperator); }

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
  FKeys->LoadFromFile(path);
  return true;
}

bool TVxStringIndex::SaveToFile(std::u16string_view Name) const {
  FKeys->SaveToFile(Name);
  TFileInfo info;
  return GetFileInfo(Name, info) && !info.IsDirectory;
}

}  // namespace vx
