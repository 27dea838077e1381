// The decorations of one cell, and the runs that make finding them cheap.
#include <algorithm>

#include "rendering/uDecoration/detail/Places.h"
#include "rendering/uDecoration/detail/RunSearch.h"

namespace vx {

namespace {

// Runs have more items than this; fewer are looked at one by one.
constexpr int kShortRun = 4;

// The way from A to B along the axis; dldtUnknown where they do not follow one another.
TDLDirectionType Direction(const TDecoration& A, const TDecoration& B, TRangeType Axis) noexcept {
  const detail::TSpan a = detail::SpanOf(detail::TRegion(A), Axis), b = detail::SpanOf(detail::TRegion(B), Axis);
  if (a.First == b.First) return a.Last == b.First ? dldtEqual : dldtUnknown;
  if (a.First > b.First) return a.Last < b.First ? dldtUnknown : Axis == rtColumn ? dldtLeft : dldtUp;
  return a.Last > b.First ? dldtUnknown : Axis == rtColumn ? dldtRight : dldtDown;
}

}  // namespace

void TDecorationList::DropItems() {
  SetCount(0);
  iIndexFirstCell = 0;
  iCoupled = nullptr;
}

void TDecorationList::Changing() {
  FRunsAreFresh = false;
  FAsked = 0;
  if (FPlaces) FPlaces->Stamp = 0;
}

const detail::TPlaces* TDecorationList::Places() {
  if (!FPlaces || FPlaces->Stamp != TDecoration::RangeChanges()) MakePlaces();
  return FPlaces && FPlaces->Stamp == TDecoration::RangeChanges() ? FPlaces.get() : nullptr;
}

void TDecorationList::MakePlaces() {
  constexpr int kFew = 32, kWorth = 32;
  if (GetCount() < kFew || ++FAsked < GetCount() / kWorth) return;
  FAsked = 0;
  if (!std::ranges::all_of(Items(), [](TObject* item) { return dynamic_cast<TDecoration*>(item); })) return;
  if (!FPlaces) FPlaces = std::make_unique<detail::TPlaces>();
  FPlaces->Regions.clear();
  FPlaces->Keys.clear();
  for (int i = 0; i < GetCount(); ++i) {
    TDecoration& item = *GetItems(i);
    if (i < iIndexFirstCell) {
      FPlaces->Regions.emplace_back(item);
    } else {
      FPlaces->Keys.push_back(item.IndexSort());
    }
    item.FIsCopied = true;
  }
  FPlaces->Stamp = TDecoration::RangeChanges();
}

int TDecorationList::FindCell(const detail::TPlaces* Places, int aCol, int aRow) const {
  if (!Places) return IndexSort(rtCell, aCol, aRow);
  const auto& keys = Places->Keys;
  const auto found = std::lower_bound(keys.begin(), keys.end(), TDecoration::IndexSort(aCol, aRow));
  return iIndexFirstCell + static_cast<int>(found - keys.begin());
}

void TDecorationList::AddApplying(TDecoration& aItem) {
  AddDecoration(aItem);
  if (aItem.iOptions.Has(doCoupled)) iCoupled = &aItem;
}

void TDecorationList::TestItems(const detail::TPlaces* Places, int First, int Last, TDecorationList& aVirtual) const {
  const auto [col, row] = aVirtual.iCell;
  for (int i = First; i <= Last; ++i) {
    const bool applies = Places && i < iIndexFirstCell
                             ? detail::Applies(Places->Regions[static_cast<size_t>(i)], col, row)
                             : GetItems(i)->Responsible(col, row);
    if (applies) aVirtual.AddApplying(*GetItems(i));
  }
}

void TDecorationList::TestRun(const detail::TPlaces* Places, const TDLRange& Run, TDecorationList& aVirtual) const {
  const auto [col, row] = aVirtual.iCell;
  if (FRunsAreFresh && Run.FIsUneven) {
    TestItems(Places, Run.GetIndBegin(), Run.GetIndEnd(), aVirtual);
  } else if (Places && Run.GetIndBegin() >= 0 && Run.GetIndEnd() < iIndexFirstCell) {
    const auto spanAt = [&](int index) {
      return detail::SpanOf(Places->Regions[static_cast<size_t>(index)], Run.GetRange());
    };
    Run.Search(Run.GetRange() == rtColumn ? col : row, spanAt,
               [&](int index) { TestItems(Places, index, index, aVirtual); });
  } else {
    Run.Responsible(col, row, aVirtual);
  }
}

std::unique_ptr<TDecorationList> TDecorationList::VirtualListForCell(int aCol, int aRow) {
  std::unique_ptr<TDecorationList> list(new TDecorationList(false, this));
  list->AssignHead(*this);
  VirtualListForCell(aCol, aRow, *list);
  return list;
}

void TDecorationList::VirtualListForCell(int aCol, int aRow, TDecorationList& aList) {
  aList.DropItems();
  aList.SetOwnsObjects(false);
  aList.iCell = {aCol, aRow};
  aList.iHoverIndex = iHoverIndex;
  if (FRunsAreFresh && FRunsSize != TPoint{iColCount, iRowCount}) WeighRuns();
  const detail::TPlaces* places = Places();
  int last = -1;
  bool isStale = false;
  for (TObject* entry : iRanges->Items()) {
    const auto& run = static_cast<const TDLRange&>(*entry);
    isStale = run.GetIndEnd() >= GetCount();
    if (isStale) break;
    TestItems(places, last + 1, run.GetIndBegin() - 1, aList);
    last = run.GetIndEnd();
    TestRun(places, run, aList);
  }
  TestItems(places, last + 1, iIndexFirstCell - 1, aList);
  if (isStale) iRanges->Clear();
  if (TDecoration* cell = CellAt(FindCell(places, aCol, aRow), aCol, aRow)) aList.AddDecoration(*cell);
}

std::unique_ptr<TDecoration> TDecorationList::Compress() {
  auto result = std::make_unique<TDecoration>(this);
  for (TObject* item : Items()) result->Merge(*AsDecoration(item));
  if (!result->iImageList) result->iImageList = iImageList;
  return result;
}

void TDecorationList::CompressDecoration(const TDecoration& aSource, TDecoration& aTarget) { aTarget.Merge(aSource); }

void TDecorationList::RefreshRangeList() {
  iRanges->Clear();
  const auto fits = [&](int index, TRangeType axis) {
    const TRangeType type = GetItems(index)->GetRangeType();
    return type == axis || type == rtRect;
  };
  int i = 0;
  while (i < iIndexFirstCell) {
    const TRangeType axis = GetItems(i)->GetRangeType();
    const int begin = i++;
    if (axis != rtColumn && axis != rtRow) continue;
    TDLDirectionType run = dldtUnknown;
    for (; i < iIndexFirstCell && fits(i, axis); ++i) {
      const TDLDirectionType step = Direction(*GetItems(i - 1), *GetItems(i), axis);
      if (i == begin + 1) run = step;
      if (step == dldtUnknown || (step != run && step != dldtEqual && run != dldtEqual)) break;
      if (run == dldtEqual) run = step;
    }
    const int end = i - 1;
    if (end - begin >= kShortRun) iRanges->Add(new TDLRange(iRanges.get(), begin, end, axis, run));
  }
  FRunsAreFresh = true;
  WeighRuns();
}

void TDecorationList::WeighRuns() {
  for (TObject* entry : iRanges->Items()) {
    auto& run = static_cast<TDLRange&>(*entry);
    if (run.GetIndEnd() < GetCount()) run.Weigh();
  }
  FRunsSize = {iColCount, iRowCount};
}

}  // namespace vx
