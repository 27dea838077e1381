#include "objects/uVxClasses/TVxStringList.h"

#include <typeinfo>

#include "objects/uVxClasses/TVxString.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"

namespace vx {

TVxStringList::TVxStringList(bool OwnsObjects, bool Sorted, TDuplicates Duplicates, bool CaseSensitive)
    : FCaseSensitive(CaseSensitive), FOwnsObject(OwnsObjects) {
  FSorted = Sorted;
  FDuplicates = Duplicates;
}

TVxStringList::~TVxStringList() {
  if (FOwnsObject) TTextList::Clear();
}

std::unique_ptr<TVxStringList> TVxStringList::NewIn(TBulkMemory& Memory) {
  std::unique_ptr<TVxStringList> result(::new (Memory.Take(sizeof(TVxStringList))) TVxStringList());
  result->FIsBulk = true;
  return result;
}

void TVxStringList::operator delete(TVxStringList* List, std::destroying_delete_t) noexcept {
  if (List->FIsBulk) {  // then it is of no derived class
    List->TVxStringList::~TVxStringList();
    TBulkMemory::Return(List);
  } else {
    void* memory = dynamic_cast<void*>(List);
    List->~TVxStringList();
    ::operator delete(memory);
  }
}

void TVxStringList::SetCaseSensitive(bool Value) {
  if (Value == FCaseSensitive) return;
  FCaseSensitive = Value;
  if (FSorted) {
    SetSorted(false);
    SetSorted(true);
  }
}

int TVxStringList::CompareStrings(std::u16string_view A, std::u16string_view B) const {
  return FCaseSensitive ? AnsiCompareStr(A, B) : AnsiCompareText(A, B);
}

void TVxStringList::Sort() {
  CustomSort([](const TVxStringList& list, int a, int b) {
    const std::span<const String> items = list.Items();
    return list.CompareStrings(items[static_cast<size_t>(a)], items[static_cast<size_t>(b)]);
  });
}

bool TVxStringList::TakesPlainly() const { return !FSorted && Kind() == typeid(TVxStringList); }

void TVxStringList::InsertItem(int Index, const String& Text, TObject* Object) {
  if (Index != Entries().Count()) CheckIndex(Index);
  Entries().Insert(Index, Text, Object);
}

void TVxStringList::Assign(const TStrings& Source) {
  if (&Source == this) return;
  const TVxStringList* other = dynamic_cast<const TVxStringList*>(&Source);
  if (other && TakesPlainly()) {
    TUpdateScope scope(*this);
    detail::TEntries copy;
    copy.CopyFrom(other->Entries());
    if (FOwnsObject) Clear();
    Entries().swap(copy);
  } else {
    TStrings::Assign(Source);
  }
  if (!other) return;
  FCaseSensitive = other->FCaseSensitive;
  FDuplicates = other->FDuplicates;
  FSorted = other->FSorted;
}

std::unique_ptr<TVxStringList> TVxStringList::Duplicate() const {
  auto result = std::make_unique<TVxStringList>();
  result->Assign(*this);
  return result;
}

std::unordered_map<int, String> TVxStringList::ConvertToDictionary() const {
  std::unordered_map<int, String> result;
  for (int i = 0; i < Entries().Count(); ++i) result.emplace(i, Entries().Text(i));
  return result;
}

void TVxStringList::TakeCells(std::span<String> Cells) {
  if (Entries().Count() > 0) Clear();
  if (TakesPlainly()) {
    Entries().TakeAll(Cells);
  } else {
    for (const String& cell : Cells) Add(cell);
  }
}

void TVxStringList::TakeCells(detail::TEntries& Cells, TBulkMemory* Memory) {
  if (Entries().Count() > 0) Clear();
  if (TakesPlainly()) {
    Entries().TakeAll(Cells, Memory);
  } else {
    for (const String& cell : Cells.Texts()) Add(cell);
    Cells.Clear();
  }
}

int TVxStringList::AddTimeFull(TDateTime Value) { return Add(TVxString::TimeFullToString(Value)); }

bool TVxStringList::AsBool(int Index) const { return TVxString::ToBool(Get(Index), false); }
TBoolExt TVxStringList::AsBoolExt(int Index) const { return TVxString::ToBoolExt(Get(Index)); }
Currency TVxStringList::AsCurr(int Index) const { return TVxString::ToCurr(Get(Index), 0); }
TDateTime TVxStringList::AsDate(int Index) const { return TVxString::ToDate(Get(Index), 0); }
TDateTime TVxStringList::AsDateTime(int Index) const { return TVxString::ToDateTime(Get(Index), 0); }
Extended TVxStringList::AsExt(int Index) const { return TVxString::ToExt(Get(Index), 0); }
int TVxStringList::AsInt(int Index) const { return TVxString::ToInt(Get(Index), 0); }
TDateTime TVxStringList::AsTime(int Index) const { return TVxString::ToTime(Get(Index), 0); }

}  // namespace vx
