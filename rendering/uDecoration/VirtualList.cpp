// The decorations of one cell, and the runs that make finding them cheap.
#include "rendering/uDecoration/detail/Regions.h"

namespace vx {

namespace {

// Runs have more items than this; fewer are looked at one by one.
constexpr int kShortRun = 4;

// The way from A to B along the axis; dldtUnknown where they do not follow one another.
TDLDirectionType Direction(const TDecoration& A, const TDecoration& B, TRangeType Axis) noexcept {
  const detail::TSpan a = detail::SpanOf(A, Axis), b = detail::SpanOf(B, Axis);
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

void TDecorationList::Test(TDecoration& aItem, int aCol, int aRow, TDecorationList& aVirtual) {
  if (!detail::Applies(aItem, aCol, aRow)) return;
  aVirtual.AddDecoration(aItem);
  if (aItem.iOptions.Has(doCoupled)) aVirtual.iCoupled = &aItem;
}

void TDecorationList::TestItems(int First, int Last, int aCol, int aRow, TDecorationList& aVirtual) const {
  for (int i = First; i <= Last; ++i) Test(*GetItems(i), aCol, aRow, aVirtual);
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
  int last = -1;
  bool isStale = false;
  for (TObject* entry : iRanges->Items()) {
    const auto& run = static_cast<const TDLRange&>(*entry);
    isStale = run.GetIndEnd() >= GetCount();
    if (isStale) break;
    TestItems(last + 1, run.GetIndBegin() - 1, aCol, aRow, aList);
    last = run.GetIndEnd();
    if (FRunsAreFresh && run.FIsUneven) {
      TestItems(run.GetIndBegin(), last, aCol, aRow, aList);
    } else {
      run.Responsible(aCol, aRow, aList);
    }
  }
  TestItems(last + 1, iIndexFirstCell - 1, aCol, aRow, aList);
  if (isStale) iRanges->Clear();
  if (TDecoration* cell = GetCell(aCol, aRow, false)) aList.AddDecoration(*cell);
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
  for (TObject* run : iRanges->Items()) static_cast<TDLRange*>(run)->Weigh();
  FRunsSize = {iColCount, iRowCount};
}

}  // namespace vx
