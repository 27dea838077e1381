#include "objects/uVxClasses/TVxDoubleList.h"

#include <algorithm>
#include <cmath>

#include "core/uVxFunctions/Numbers.h"
#include "platform/Numbers.h"
#include "platform/Sorting.h"

namespace vx {

void TVxDoubleList::SetCapacity(int Value) {
  if (Value < iCount || Value >= MaxCount) return Error(8);
  if (Value == GetCapacity()) return;
  std::vector<double> list;  // no larger than told
  list.reserve(static_cast<size_t>(Value));
  list.assign(iList.begin(), iList.begin() + iCount);
  list.resize(static_cast<size_t>(Value));
  iList.swap(list);
}

void TVxDoubleList::SetCount(int Value) {
  if (Value < 0 || Value >= MaxCount) return Error(9);
  // Not as long as there are more: values that are added on the occasion would make it endless.
  if (Value < iCount) {
    for (int i = iCount; i-- > Value;) {
      if (i < iCount) Delete(i);
    }
    return;
  }
  if (Value > GetCapacity()) SetCapacity(Value);
  std::fill(iList.begin() + iCount, iList.begin() + Value, 0.0);
  iCount = Value;
}

void TVxDoubleList::Grow() {
  const int capacity = GetCapacity();
  SetCapacity(capacity + (capacity > 64 ? capacity / 4 : capacity > 8 ? 16 : 4));
}

void TVxDoubleList::Expand() {
  if (iCount == GetCapacity()) Grow();
}

double TVxDoubleList::Get(int Index) {
  if (!IsInside(Index)) Error(4);
  return std::as_const(*this).Get(Index);
}

void TVxDoubleList::Put(int Index, double Value) {
  if (!IsInside(Index)) return Error(7);
  const double old = std::exchange(iList[static_cast<size_t>(Index)], Value);
  Notify(old, lnDeleted);
  Notify(Value, lnAdded);
}

int TVxDoubleList::InsertValue(int Index, double Value) {
  Expand();
  if (iCount == GetCapacity() || Index < 0 || Index > iCount) return -1;
  std::copy_backward(iList.begin() + Index, iList.begin() + iCount, iList.begin() + iCount + 1);
  iList[static_cast<size_t>(Index)] = Value;
  ++iCount;
  Notify(Value, lnAdded);
  return Index;
}

int TVxDoubleList::Add(double Value) { return InsertValue(iCount, Value); }

void TVxDoubleList::Insert(int Index, double Value) {
  if (Index < 0 || Index > iCount) return Error(5);
  InsertValue(Index, Value);
}

void TVxDoubleList::Delete(int Index) {
  if (!IsInside(Index)) return Error(1);
  const double old = iList[static_cast<size_t>(Index)];
  std::copy(iList.begin() + Index + 1, iList.begin() + iCount, iList.begin() + Index);
  --iCount;
  Notify(old, lnDeleted);
}

void TVxDoubleList::Clear() {
  SetCount(0);
  SetCapacity(0);
}

void TVxDoubleList::Exchange(int A, int B) {
  if (!IsInside(A)) return Error(2);
  if (!IsInside(B)) return Error(3);
  std::swap(iList[static_cast<size_t>(A)], iList[static_cast<size_t>(B)]);
}

void TVxDoubleList::Move(int CurIndex, int NewIndex) {
  if (!IsInside(CurIndex) || !IsInside(NewIndex)) return Error(6);
  auto from = iList.begin() + CurIndex, to = iList.begin() + NewIndex;
  if (CurIndex < NewIndex) {
    std::rotate(from, from + 1, to + 1);
  } else {
    std::rotate(to, from, from + 1);
  }
}

void TVxDoubleList::Assign(const TVxDoubleList& Source) {
  if (&Source == this) return;
  Clear();
  SetCapacity(Source.GetCount());
  for (int i = 0; i < Source.GetCount(); ++i) Add(Source.Get(i));
}

int TVxDoubleList::IndexOf(double Value) const {
  auto items = Items();
  auto place = std::find(items.begin(), items.end(), Value);
  return place == items.end() ? -1 : static_cast<int>(place - items.begin());
}

int TVxDoubleList::Remove(double Value) {
  const int index = IndexOf(Value);
  if (index >= 0) Delete(index);
  return index;
}

double TVxDoubleList::Extract(double Value) {
  const int index = IndexOf(Value);
  if (index < 0) return 0;
  iList[static_cast<size_t>(index)] = 0;
  Delete(index);
  Notify(Value, lnExtracted);
  return Value;
}

void TVxDoubleList::Sort() {
  auto first = iList.begin(), last = first + iCount;
  last = std::stable_partition(first, last, [](double value) { return !std::isnan(value); });
  std::sort(first, last);
}

void TVxDoubleList::Sort(FunctionRef<int(double, double)> Compare) {
  const std::vector<double> sorted = StableSort(std::vector<double>(Items().begin(), Items().end()),
                                                [&](double a, double b) { return Compare(a, b) < 0; });
  std::copy_n(sorted.begin(), std::min(sorted.size(), Items().size()), iList.begin());
}

void TVxDoubleList::Pack() {
  Sort();
  std::vector<double> gone;
  size_t kept = 0;
  for (double value : Items()) {
    if (kept > 0 && iList[kept - 1] == value) {
      gone.push_back(value);
    } else {
      iList[kept++] = value;
    }
  }
  iCount = static_cast<int>(kept);
  for (size_t i = gone.size(); i-- > 0;) Notify(gone[i], lnDeleted);
}

String TVxDoubleList::GetCommatext() const {
  TCells cells;
  cells.reserve(Items().size());
  for (double value : Items()) cells.push_back(FloatToStr(value));
  return WriteCommatext(cells);
}

std::vector<TVxDoubleList::TEntryValue> TVxDoubleList::FillSlots(std::u16string_view Text) {
  const TCells cells = ReadCommatext(Text);
  if (cells.size() >= size_t{MaxCount}) {
    Error(9);
    return {};
  }
  std::vector<TEntryValue> entries;
  entries.reserve(cells.size());
  SetCount(static_cast<int>(cells.size()));
  for (size_t i = 0; i < cells.size(); ++i) {
    bool ok = false;
    const double value = StrToDoubleDef(cells[i], 0, ok);
    entries.push_back({value, ok});
    if (IsInside(static_cast<int>(i))) iList[i] = value;
    if (!ok) Error(11);
  }
  return entries;
}

void TVxDoubleList::SetCommatext(std::u16string_view Text) { FillSlots(Text); }

}  // namespace vx
