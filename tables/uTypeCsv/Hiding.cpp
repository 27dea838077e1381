// Hiding and showing the rows of a view, one and many, and sorting all of them.
#include <algorithm>
#include <typeinfo>

#include "tables/uTypeCsv/TCsvView.h"
#include "tables/uTypeCsv/detail/TAllRows.h"

namespace vx {

using detail::TOwnChange;

void TCsvView::Hide(TVxStringList* Row) {
  SetViewMode(true);
  if (!IsVisible(Row) || IndexOf(Row) < 0) return;
  HiddenToFill().Add(Row);
  const TOwnChange own(FOwn, Row);
  TTypeCsv::Extract(Row);
}

void TCsvView::Show(TVxStringList* Row) {
  if (IsVisible(Row)) return;
  const int count = iAll->GetCount();
  int place = PlaceOf(Row);
  if (place < 0) place = count;
  while (place < count && !IsVisible(GetAllLines(place))) ++place;
  const int index = place < count ? IndexOf(iAll->Get(place)) : -1;
  if (GetCount() == GetCapacity()) SetCapacity(GetCount() + std::max(4, GetCount() / 2));
  (void)iHidden->Extract(Row);
  const TOwnChange own(FOwn, Row);
  index < 0 ? static_cast<void>(TTypeCsv::Add(Row)) : TTypeCsv::Insert(index, Row);
}

bool TCsvView::FindShown(std::vector<bool>& IsShown) const {
  const std::span<TObject*const> all = GetAll().Items(), rows = Items();
  IsShown.assign(all.size(), !iAll);
  if (!iAll) return true;
  size_t next = 0;
  for (size_t place = 0; place < all.size() && next < rows.size(); ++place) {
    if (rows[next] != all[place]) continue;
    IsShown[place] = true;
    ++next;
  }
  if (next == rows.size() && all.size() - next == static_cast<size_t>(iHidden->GetCount())) return true;
  for (size_t place = 0; place < all.size(); ++place) {
    IsShown[place] = IsVisible(dynamic_cast<const TVxStringList*>(all[place]));
  }
  return false;
}

// Whatever may fail comes before the first change.
void TCsvView::Apply(const std::vector<bool>& WasShown, const std::vector<bool>& IsShown) {
  if (WasShown == IsShown) return;
  const bool tells = typeid(*this) != typeid(TCsvView);
  const std::span<TObject* const> all = iAll->Items();
  std::vector<TObject*> shown, gone, come;
  std::vector<TVxStringList*> hidden;
  shown.reserve(all.size());
  hidden.reserve(all.size());
  for (size_t place = 0; place < all.size(); ++place) {
    if (IsShown[place]) {
      shown.push_back(all[place]);
      if (tells && !WasShown[place]) come.push_back(all[place]);
    } else {
      hidden.push_back(KnownRow(all[place]));
      if (tells && WasShown[place]) gone.push_back(all[place]);
    }
  }
  if (static_cast<int>(shown.size()) > GetCapacity()) SetCapacity(static_cast<int>(shown.size()));
  HiddenToFill().TakeAll(std::move(hidden));
  PutAll(shown);
  NotifyAll(gone, lnExtracted);
  NotifyAll(come, lnAdded);
}

void TCsvView::NotifyAll(std::span<TObject* const> Rows, TListNotification Action) {
  for (TObject* row : Rows) {
    const TOwnChange own(FOwn, row);
    Notify(row, Action);
  }
}

void TCsvView::ShowAll() {
  if (!iAll) return;
  std::vector<bool> wasShown;
  if (FindShown(wasShown)) return Apply(wasShown, std::vector<bool>(wasShown.size(), true));
  while (iHidden->GetCount() > 0) Show(iHidden->Last());
}

void TCsvView::ShowOnly(FunctionRef<bool(const TVxStringList& Row)> IsWanted) {
  constexpr int kAhead = 16;
  std::vector<bool> was;
  const bool isInStep = FindShown(was);
  std::vector<bool> is = was;
  const TObjectList& all = GetAll();
  const int end = std::min(GetAllCount(), all.GetCount());
  for (int row = std::max(0, GetContentTop()); row < end; ++row) {
    if (row + kAhead < end) __builtin_prefetch(all.Get(row + kAhead));
    is[static_cast<size_t>(row)] = IsWanted(*AsRow(all.Get(row)));
  }
  ShowRows(was, is, isInStep);
}

void TCsvView::ShowOnly(const std::vector<bool>& IsWanted) {
  std::vector<bool> was;
  const bool isInStep = FindShown(was);
  std::vector<bool> is = was;
  std::copy_n(IsWanted.begin(), std::min(IsWanted.size(), is.size()), is.begin());
  ShowRows(was, is, isInStep);
}

void TCsvView::ShowRows(const std::vector<bool>& WasShown, const std::vector<bool>& IsShown, bool IsInStep) {
  if (!iAll && IsShown == WasShown) return;
  SetViewMode(true);
  if (IsInStep) return Apply(WasShown, IsShown);
  const std::vector<TObject*> rows(iAll->Items().begin(), iAll->Items().end());
  for (size_t i = 0; i < rows.size(); ++i) {
    if (IsShown[i] != WasShown[i]) IsShown[i] ? Show(AsRow(rows[i])) : Hide(AsRow(rows[i]));
  }
}

void TCsvView::CustomSort(TRowCompare Compare, const TSortColumn* Column, TVxIntegerList* Indices) {
  std::vector<bool> isShown;
  if (!iAll) return TTypeCsv::CustomSort(Compare, Column, Indices);
  if (!FindShown(isShown)) {
    const std::vector<TVxStringList*> hidden(iHidden->Items().begin(), iHidden->Items().end());
    SetViewMode(false);
    TTypeCsv::CustomSort(Compare, Column, Indices);
    SetViewMode(true);
    for (TVxStringList* row : hidden) Hide(row);
    return;
  }
  const std::span<TObject* const> all = iAll->Items();
  const std::vector<int> order = ContentOrder(all, Compare, Column);
  const std::vector<TObject*> rows = InOrder(all, order);
  std::vector<TObject*> shown;
  shown.reserve(static_cast<size_t>(GetCount()));
  for (size_t i = 0; i < order.size(); ++i) {
    if (isShown[static_cast<size_t>(order[i])]) shown.push_back(rows[i]);
  }
  FillIndices(order, Indices);
  iAll->PutAll(rows);
  PutAll(shown);
}

}  // namespace vx
