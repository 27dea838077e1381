#include "objects/uVxClasses/TVxStringPairList.h"

namespace vx {

namespace {

const TVxStringPairList* AsPairList(const TStrings& List) { return dynamic_cast<const TVxStringPairList*>(&List); }

}  // namespace

// Pair is a copy, since it may stand in this list and move.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
int TVxStringPairList::AddPair(const String& Key, String Pair, TObject* KeyObject, TObject* PairObject) {
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

bool TVxStringPairList::PairFind(std::u16string_view Pair, int& Index) const {
  Index = PairIndexOf(Pair);
  return Index >= 0;
}

int TVxStringPairList::Remove(std::u16string_view Key) {
  String kept = Key;  // it may be a key of this list
  int removed = 0;
  for (int index = IndexOf(kept); index >= 0; index = IndexOf(kept)) {
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
  TUpdateScope scope(*this);
  int count = other->GetCount();
  for (int i = 0; i < count; ++i) {
    AddPair(other->Get(i), other->GetPairs(i), other->GetObject(i), other->GetPairObjects(i));
  }
}

void TVxStringPairList::Clear() {
  iPairList.Clear();  // first: the objects of keys are freed when both lists are empty
  TVxStringList::Clear();
}

void TVxStringPairList::Delete(int Index) {
  CheckIndex(Index);
  DetachBoth();
  iPairList.Delete(Index);
  TVxStringList::Delete(Index);
}

// What follows changes both lists, or none.
void TVxStringPairList::DetachBoth() {
  Detach(*this);
  Detach(iPairList);
}

void TVxStringPairList::Exchange(int A, int B) {
  DetachBoth();
  TVxStringList::Exchange(A, B);
  iPairList.Exchange(A, B);
}

void TVxStringPairList::Move(int From, int To) {
  DetachBoth();
  TVxStringList::Move(From, To);
  iPairList.Move(From, To);
}

void TVxStringPairList::InsertItem(int Index, const String& Text, TObject* Object) {
  // Room for the pair first: what follows can't fail and leave one list longer than the other.
  if (iPairList.GetCapacity() == iPairList.GetCount()) iPairList.SetCapacity(2 * iPairList.GetCount() + 4);
  Detach(iPairList);
  TVxStringList::InsertItem(Index, Text, Object);
  iPairList.InsertObject(Index, String(), nullptr);
}

std::unique_ptr<TVxStringList> TVxStringPairList::Duplicate() const {
  auto result = std::make_unique<TVxStringPairList>(GetSorted(), GetDuplicates());
  result->SetCaseSensitive(GetCaseSensitive());  // before the keys come, or some of them would be equal
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
