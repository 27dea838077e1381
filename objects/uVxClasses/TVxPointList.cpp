#include "objects/uVxClasses/TVxPointList.h"

#include <algorithm>

#include "platform/Dialogs.h"
#include "platform/Exceptions.h"

namespace vx {

namespace {

bool IsBelow(const TPoint& A, const TPoint& B) noexcept { return TVxPointList::ComparePoint(A, B) < 0; }

}  // namespace

void TVxPointList::CheckIndex(int Index) const {
  if (static_cast<unsigned>(Index) >= FItems.size()) throw EListError(FormatListError(SListIndexError, Index));
}

TPoint TVxPointList::Get(int Index) const {
  CheckIndex(Index);
  return FItems[static_cast<size_t>(Index)];
}

int TVxPointList::IndexSort(const TPoint& Point) const noexcept {
  if (FItems.empty() || IsBelow(FItems.back(), Point)) return GetCount();  // points often come in order
  return static_cast<int>(std::lower_bound(FItems.begin(), FItems.end(), Point, IsBelow) - FItems.begin());
}

int TVxPointList::Add(const TPoint& Point) {
  const int place = IndexSort(Point);
  if (place < GetCount() && FItems[static_cast<size_t>(place)] == Point) return place;
  if (GetCount() == INT32_MAX) throw EListError(FormatListError(SListCapacityError, INT32_MAX));
  FItems.insert(FItems.begin() + place, Point);
  return place;
}

int TVxPointList::IndexOf(const TPoint& Point) const noexcept {
  const int place = IndexSort(Point);
  return place < GetCount() && FItems[static_cast<size_t>(place)] == Point ? place : -1;
}

void TVxPointList::Delete(int Index) {
  CheckIndex(Index);
  FItems.erase(FItems.begin() + Index);
}

int TVxPointList::Remove(const TPoint& Point) {
  const int index = IndexOf(Point);
  if (index >= 0) Delete(index);
  return index;
}

std::unique_ptr<TVxPointList> TVxPointList::Changes(const TVxPointList* Points) const {
  auto result = std::make_unique<TVxPointList>();
  const std::span<const TPoint> others = Points ? Points->Items() : std::span<const TPoint>();
  std::set_symmetric_difference(FItems.begin(), FItems.end(), others.begin(), others.end(),
                                std::back_inserter(result->FItems), IsBelow);
  return result;
}

void TVxPointList::Refuse(std::u16string_view Function) const {
  ShowWarning(Concat({u"Die Funktion \"", ClassName(), u".", Function, u"\" wird nicht unterstützt!"}));
}

void TVxPointList::Exchange(int, int) { Refuse(u"Exchange"); }
void TVxPointList::Insert(int, const TPoint&) { Refuse(u"Insert"); }
void TVxPointList::Move(int, int) { Refuse(u"Move"); }

}  // namespace vx
