#include "objects/uVxClasses/TTextList.h"

#include <algorithm>
#include <typeinfo>

#include "platform/Collation.h"
#include "platform/Exceptions.h"

namespace vx {

using detail::TEntries;

void TTextList::CheckIndex(int Index) const {
  if (static_cast<unsigned>(Index) >= static_cast<unsigned>(FEntries.Count())) RaiseListError(SListIndexError, Index);
}

void TTextList::CheckNotSorted() const {
  if (FSorted) RaiseListError(SSortedListError, 0);
}

String TTextList::Get(int Index) const {
  CheckIndex(Index);
  return FEntries.Text(Index);
}

void TTextList::Put(int Index, const String& Text) {
  CheckNotSorted();
  CheckIndex(Index);
  FEntries.SetText(Index, Text);
}

TObject* TTextList::GetObject(int Index) const {
  CheckIndex(Index);
  return FEntries.Object(Index);
}

void TTextList::PutObject(int Index, TObject* Object) {
  CheckIndex(Index);
  FEntries.SetObject(Index, Object);
}

void TTextList::SetCapacity(int Value) {
  if (Value < FEntries.Count()) RaiseListError(SListCapacityError, Value);
  FEntries.SetCapacity(Value);
}

int TTextList::AddObject(const String& Text, TObject* Object) {
  int index = FEntries.Count();
  if (FSorted && Find(Text, index)) {
    if (FDuplicates == dupIgnore) {
      if (Object != FEntries.Object(index)) FreeObject(Object);
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
  String text = FEntries.Text(From);
  TObject* object = FEntries.Object(From);
  FEntries.Erase(From);
  FEntries.Insert(To, std::move(text), object);
}

void TTextList::Delete(int Index) {
  CheckIndex(Index);
  TObject* object = FEntries.Object(Index);
  FEntries.Erase(Index);
  FreeObject(object);
}

void TTextList::Clear() {
  TEntries gone;
  FEntries.swap(gone);
  for (TObject* object : gone.Objects()) FreeObject(object);
}

void TTextList::Exchange(int A, int B) {
  CheckIndex(A);
  CheckIndex(B);
  FEntries.Exchange(A, B);
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
  int high = FEntries.Count() - 1;
  while (low <= high) {
    int middle = low + (high - low) / 2;
    int compared = CompareStrings(FEntries.Text(middle), Text);
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

void TTextList::Sort() {
  SortBy([this](int a, int b) { return CompareStrings(FEntries.Text(a), FEntries.Text(b)); });
}

void TTextList::SortBy(TCompareIndexes Compare) {
  if (FSorted || FEntries.Count() < 2) return;
  QuickSort(0, FEntries.Count() - 1, Compare);
}

void TTextList::QuickSort(int Low, int High, TCompareIndexes Compare) {
  while (Low < High) {
    int i = Low;
    int j = High;
    int pivot = Low + (High - Low) / 2;
    do {
      while (i < High && Compare(i, pivot) < 0) ++i;  // the bounds matter to contradictory orders alone
      while (j > Low && Compare(j, pivot) > 0) --j;
      if (i <= j) {
        SortExchange(i, j);
        if (pivot == i) {
          pivot = j;
        } else if (pivot == j) {
          pivot = i;
        }
        ++i;
        --j;
      }
    } while (i <= j);
    // The two parts don't touch each other; the smaller one first keeps the recursion shallow.
    if (j - Low < High - i) {
      QuickSort(Low, j, Compare);
      Low = i;
    } else {
      QuickSort(i, High, Compare);
      High = j;
    }
  }
}

void TTextList::SetSorted(bool Value) {
  if (Value && !FSorted) Sort();
  FSorted = Value;
}

bool TTextList::EqualsAll(const TTextList& Other) const {
  return typeid(*this) == typeid(Other) && std::ranges::equal(Items(), Other.Items());
}

bool TTextList::EqualsObjects(const TTextList& Other) const {
  for (int i = 0; i < FEntries.Count(); ++i) {
    if (FEntries.Object(i) != Other.GetObject(i)) return false;
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
    FEntries.TakeAll(Cells);
  } else {
    for (const String& cell : Cells) Add(cell);
  }
}

}  // namespace vx
