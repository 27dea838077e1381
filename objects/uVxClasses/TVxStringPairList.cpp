#include "objects/uVxClasses/TVxStringPairList.h"

namespace vx {

namespace {

const TVxStringPairList* AsPairList(const TStrings& List) { return dynamic_cast<const TVxStringPairList*>(&List); }

}  // namespace

int TVxStringPairList::AddPair(const String& Key, const String& Pair, TObject* KeyObject, TObject* PairObject) {
  int index = AddObject(Key, KeyObject);
  iPairList.Put(index, Pair);
  iPairList.PutObject(index, PairObject);
  return index;
}

void TVxStringPairList::GetAll(int Index, TObject*& KeyObject, String& Key, TObject*& PairObject, String& Pair) const {
  KeyObject = GetObject(Index);
  Key = Get(Index);
  PairObject = GetPairObjects(Index);
  Pair = GetPairs(Index);
}

bool TVxStringPairList::PairFind(const String& Pair, int& Index) const {
  Index = PairIndexOf(Pair);
  return Index >= 0;
}

int TVxStringPairList::Remove(const String& Key) {
  int removed = 0;
  for (int index = IndexOf(Key); index >= 0; index = IndexOf(Key)) {
    Delete(index);
    ++removed;
  }
  return removed > 0 ? removed : -1;
}

void TVxStringPairList::AddStrings(const TStrings& Strings) {
  const TVxStringPairList* other = AsPairList(Strings);
  if (!other) {
    TVxStringList::AddStrings(Strings);
    return;
  }
  BeginUpdate();
  int count = other->GetCount();
  for (int i = 0; i < count; ++i) {
    AddPair(other->Get(i), other->GetPairs(i), other->GetObject(i), other->GetPairObjects(i));
  }
  EndUpdate();
}

void TVxStringPairList::Clear() {
  TVxStringList::Clear();
  iPairList.Clear();
}

void TVxStringPairList::Delete(int Index) {
  TVxStringList::Delete(Index);
  iPairList.Delete(Index);
}

void TVxStringPairList::Exchange(int A, int B) {
  TVxStringList::Exchange(A, B);
  iPairList.Exchange(A, B);
}

void TVxStringPairList::Move(int From, int To) {
  TVxStringList::Move(From, To);
  iPairList.Move(From, To);
}

void TVxStringPairList::InsertItem(int Index, const String& Text, TObject* Object) {
  // Room for the pair first: what follows can't fail and leave one list longer than the other.
  if (iPairList.GetCapacity() == iPairList.GetCount()) iPairList.SetCapacity(2 * iPairList.GetCount() + 4);
  TVxStringList::InsertItem(Index, Text, Object);
  iPairList.InsertObject(Index, String(), nullptr);
}

std::unique_ptr<TVxStringList> TVxStringPairList::Duplicate() const {
  auto result = std::make_unique<TVxStringPairList>(GetSorted(), GetDuplicates());
  result->Assign(*this);
  return result;
}

bool TVxStringPairList::EqualsAll(const TTextList& Other) const {
  const TVxStringPairList* other = AsPairList(Other);
  return TVxStringList::EqualsAll(Other) && other && iPairList.EqualsAll(other->iPairList);
}

bool TVxStringPairList::EqualsObjects(const TTextList& Other) const {
  if (!TVxStringList::EqualsObjects(Other)) return false;
  const TVxStringPairList* other = AsPairList(Other);
  return !other || iPairList.EqualsObjects(other->iPairList);
}

}  // namespace vx
