#include "objects/uVxClasses/TTextList.h"

#include <algorithm>

#include "objects/uVxClasses/TVxString.h"
#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "platform/Sorting.h"

namespace vx {

void TTextList::CheckIndex(int Index) const {
  if (static_cast<unsigned>(Index) >= static_cast<unsigned>(Entries().Count())) RaiseListError(SListIndexError, Index);
}

void TTextList::CheckNotSorted() const {
  if (FSorted) RaiseListError(SSortedListError, 0);
}

String TTextList::Get(int Index) const {
  CheckIndex(Index);
  return Entries().Text(Index);
}

void TTextList::Put(int Index, const String& Text) {
  CheckNotSorted();
  CheckIndex(Index);
  Entries().SetText(Index, Text);
}

TObject* TTextList::GetObject(int Index) const {
  CheckIndex(Index);
  return Entries().Object(Index);
}

void TTextList::PutObject(int Index, TObject* Object) {
  CheckIndex(Index);
  Entries().SetObject(Index, Object);
}

void TTextList::SetCapacity(int Value) {
  if (Value < Entries().Count()) RaiseListError(SListCapacityError, Value);
  Entries().SetCapacity(Value);
}

int TTextList::AddObject(const String& Text, TObject* Object) {
  int index = Entries().Count();
  if (FSorted && Find(Text, index)) {
    if (FDuplicates == dupIgnore) {
      if (Object != Entries().Object(index)) FreeObject(Object);
      return index;
    }
    if (FDuplicates == dupError) RaiseListError(SDuplicateString, 0);
  }
  InsertEntry(index, Text, Object);
  return index;
}

void TTextList::InsertObject(int Index, const String& Text, TObject* Object) {
  CheckNotSorted();
  InsertEntry(Index, Text, Object);
}

void TTextList::Move(int From, int To) {
  if (From == To) return;
  CheckNotSorted();
  CheckIndex(From);
  CheckIndex(To);
  String text = Entries().Text(From);
  TObject* object = Entries().Object(From);
  Entries().Erase(From);
  Entries().Insert(To, std::move(text), object);
}

void TTextList::Delete(int Index) {
  CheckIndex(Index);
  TObject* object = Entries().Object(Index);
  Entries().Erase(Index);
  FreeObject(object);
}

void TTextList::Clear() {
  detail::TEntries gone;
  Entries().swap(gone);
  for (TObject* object : gone.Objects()) FreeObject(object);
}

void TTextList::Exchange(int A, int B) {
  CheckIndex(A);
  CheckIndex(B);
  Entries().Exchange(A, B);
}

int TTextList::IndexOf(std::u16string_view Text) const {
  if (!FSorted) return TStrings::IndexOf(Text);
  int index;
  return Find(Text, index) ? index : -1;
}

String TTextList::GetTextStr() const {
  std::span<const String> items = Items();
  if (items.empty()) return {};
  size_t total = 2 * (items.size() - 1);
  for (const String& item : items) total += static_cast<size_t>(item.size());
  return String::Build(total, [&](char16_t* target) {
    for (const String& item : items) {
      if (&item != items.data()) {
        *target++ = u'\r';
        *target++ = u'\n';
      }
      target = std::copy(item.begin(), item.end(), target);
    }
  });
}

void TTextList::AddStrings(std::span<const String> Texts) { AddStrings(Texts, {}); }

void TTextList::AddStrings(std::initializer_list<TNewText> Texts) {
  AddStrings(TCells(Texts.begin(), Texts.end()), std::span<TObject* const>());
}

void TTextList::AddStrings(std::span<const String> Texts, std::span<TObject* const> Objects) {
  TCells kept(Texts.begin(), Texts.end());  // the texts may be items of this list
  TUpdateScope scope(*this);
  if (Objects.empty()) {
    AddCells(std::move(kept));
  } else {
    for (size_t i = 0; i < kept.size(); ++i) AddObject(kept[i], i < Objects.size() ? Objects[i] : nullptr);
  }
}

void TTextList::AddStrings(std::u16string_view Commatext) {
  TUpdateScope scope(*this);
  AddCells(ReadCommatext(Commatext));
}

int TTextList::AddBool(bool Value) { return Add(TVxString::ToString(Value)); }
int TTextList::AddBoolExt(TBoolExt Value) { return Add(TVxString::ToString(Value)); }
int TTextList::AddCurr(Currency Value) { return Add(TVxString::ToString(Value)); }
int TTextList::AddDate(TDateTime Value) { return Add(TVxString::DateToString(Value)); }
int TTextList::AddDateTime(TDateTime Value) { return Add(TVxString::DateTimeToString(Value)); }
int TTextList::AddExt(Extended Value) { return Add(TVxString::ToString(Value)); }
int TTextList::AddInt(int Value) { return Add(TVxString::ToString(Value)); }
int TTextList::AddTime(TDateTime Value) { return Add(TVxString::TimeToString(Value)); }

void TTextList::Minus(const TStrings& Strings) {
  TCells gone;  // a copy: Strings may be this list or change with it
  for (int i = 0; i < Strings.GetCount(); ++i) gone.push_back(Strings.Get(i));
  for (const String& text : gone) {
    int index = IndexOf(text);
    if (index >= 0) Delete(index);
  }
}

int TTextList::CompareStrings(std::u16string_view A, std::u16string_view B) const { return AnsiCompareText(A, B); }

bool TTextList::Find(std::u16string_view Text, int& Index) const {
  bool found = false;
  int low = 0;
  int high = Entries().Count() - 1;
  while (low <= high) {
    int middle = low + (high - low) / 2;
    int compared = CompareStrings(Entries().Text(middle), Text);
    if (compared < 0) {
      low = middle + 1;
    } else {
      high = middle - 1;
      if (compared == 0) {
        found = true;
        if (FDuplicates != dupAccept) low = middle;
      }
    }
  }
  Index = low;
  return found;
}

void TTextList::SortBy(TCompareIndexes Compare) {
  if (FSorted || GetCount() < 2) return;
  PartitionSort(0, GetCount() - 1, Compare, [this](int a, int b) { SortExchange(a, b); });
}

void TTextList::SetSorted(bool Value) {
  if (Value && !FSorted) Sort();
  FSorted = Value;
}

bool TTextList::EqualsAll(const TTextList& Other) const {
  return Kind() == Other.Kind() && std::ranges::equal(Items(), Other.Items());
}

bool TTextList::EqualsObjects(const TTextList& Other) const {
  for (int i = 0; i < Entries().Count(); ++i) {
    if (Entries().Object(i) != Other.GetObject(i)) return false;
  }
  return true;
}

void TTextList::SetCellText(std::u16string_view Text) {
  TCells cells = ReadCellText(Text);
  Clear();
  AddCells(std::move(cells));
}

void TTextList::SetCells(TCells Cells) {
  TUpdateScope scope(*this);
  Clear();
  AddCells(std::move(Cells));
}

void TTextList::AddCells(TCells Cells) {
  if (TakesPlainly()) {
    Entries().TakeAll(Cells);
  } else {
    for (const String& cell : Cells) Add(cell);
  }
}

}  // namespace vx
