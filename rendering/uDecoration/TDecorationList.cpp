// The order of the list, look-ups by type, the head.
#include "rendering/uDecoration/TDecorationList.h"

#include "platform/Collation.h"
#include "platform/Exceptions.h"
#include "rendering/uDecoration/detail/Places.h"

namespace vx {

namespace {

constexpr TDecorationListOptions kOptionsAtFirst = {dloFixedVertLine, dloFixedHorzLine, dloVertLine,
                                                    dloHorzLine,      dloGridLines,     dloColumnClick};

}  // namespace

TDecorationList::TDecorationList(bool aOwnsObjects, TObject* aParent)
    : TObjectList(aOwnsObjects), iParent(aParent), iRanges(std::make_unique<TDLRangeList>(this)) {
  TDecorationList::Init();
}

TDecorationList::~TDecorationList() { TDecorationList::Clear(); }

void TDecorationList::Init() {
  Clear();
  iColCount = 0;
  iRowCount = 0;
  iFixed = {};
  iCell = {-1, -1};
  iImageList = nullptr;
  iFont = TFont();
  iFont.Size = 10;
  iTitle.clear();
  iSubTitle.clear();
  iColor = clWhite;
  iFixedColor = clWhite;
  iSelectionColor = clHighlight;
  iTrimModes = {};
  iOptions = kOptionsAtFirst;
  iDevice = ddScreen;
  iHoverIndex = -1;
  iImageSpacing = 1;
  iMarginHoriz = 1;
  iMarginVerti = 0;
  iMaxSubLines = 0;
  iMinColWidth = 0;
  iMinRowHeight = 0;
  iPrintPageColumns = 0;
  iZebraLines = 0;
  if (GetOwnsObjects()) CreateRange(rtAll, -1, -1, -1, -1)->SetFieldType(vftString);
}

void TDecorationList::Clear() {
  TObjectList::Clear();
  iIndexFirstCell = 0;
  iCoupled = nullptr;
}

TDecoration* TDecorationList::CastDecoration(TObject* Entry) {
  if (auto* decoration = dynamic_cast<TDecoration*>(Entry)) return decoration;
  throw EInvalidCast(
      Concat({u"an entry of the decoration list is no TDecoration but ", Entry ? Entry->ClassName() : u"nothing"}));
}

int TDecorationList::IndexSort(TRangeType aType, int aCol, int aRow) const {
  if (aType != rtCell) return iIndexFirstCell;
  const int64_t key = TDecoration::IndexSort(aCol, aRow);
  int low = iIndexFirstCell, high = GetCount();
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (GetItems(middle)->IndexSort() < key) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

TDecoration* TDecorationList::CellAt(int Index, int aCol, int aRow) const {
  if (Index >= GetCount()) return nullptr;
  TDecoration* item = GetItems(Index);
  const TRect& range = item->GetRange();
  return item->GetRangeType() == rtCell && range.Left == aCol && range.Top == aRow ? item : nullptr;
}

int TDecorationList::AddDecoration(TDecoration& aItem) {
  const TRect& range = aItem.GetRange();
  const bool isCell = aItem.GetRangeType() == rtCell;
  const int index = IndexSort(aItem.GetRangeType(), range.Left, range.Top);
  TDecoration* existing = isCell ? CellAt(index, range.Left, range.Top) : nullptr;
  if (existing) {
    CompressDecoration(aItem, *existing);
    if (GetOwnsObjects() && existing != &aItem) delete &aItem;
    return index;
  }
  TObjectList::Insert(index, &aItem);
  if (!isCell) ++iIndexFirstCell;
  return index;
}

int TDecorationList::Add(TObject* Object) {
  auto* decoration = dynamic_cast<TDecoration*>(Object);
  return decoration ? AddDecoration(*decoration) : -1;
}

void TDecorationList::Insert(int Index, TObject* Object) {
  auto* decoration = dynamic_cast<TDecoration*>(Object);
  if (!decoration) return;
  if (decoration->GetRangeType() == rtCell) {
    Add(Object);
  } else {
    TObjectList::Insert(Index, Object);
  }
}

void TDecorationList::Delete(int Index) {
  Get(Index);
  if (Index < iIndexFirstCell) --iIndexFirstCell;  // before the object goes, so that its destructor sees a whole list
  TObjectList::Delete(Index);
}

TObject* TDecorationList::Extract(TObject* Object) {
  const int index = IndexOf(Object);
  if (index >= 0 && index < iIndexFirstCell) --iIndexFirstCell;
  return TObjectList::Extract(Object);
}

void TDecorationList::Exchange(int A, int B) {
  if (A < iIndexFirstCell && B < iIndexFirstCell) TObjectList::Exchange(A, B);
}

void TDecorationList::Move(int From, int To) {
  if (From < iIndexFirstCell && To < iIndexFirstCell) TObjectList::Move(From, To);
}

TDecoration* TDecorationList::CreateRange(TRangeType aType, int Left, int Top, int Right, int Bottom) {
  auto decoration = std::make_unique<TDecoration>(this);
  decoration->SetRangeType(aType);
  decoration->SetRange(Left, Top, Right, Bottom);
  const int index = IndexSort(aType, Left, Top);
  TDecoration* existing = aType == rtCell ? CellAt(index, Left, Top) : nullptr;
  if (existing) return existing;  // there is nothing in the new one that could be merged
  Add(decoration.get());
  return decoration.release();
}

TDecoration* TDecorationList::GetCell(int aCol, int aRow, bool aCreate) {
  TDecoration* found = CellAt(FindCell(Places(), aCol, aRow), aCol, aRow);
  return found || !aCreate ? found : CreateRange(rtCell, aCol, aRow, -1, -1);
}

TDecoration* TDecorationList::GetRange(TRangeType aType, int Left, int Top, int Right, int Bottom, bool aCreate) {
  if (aType == rtCell) return GetCell(Left, Top, aCreate);
  TDecoration wanted(this);
  wanted.SetRangeType(aType);
  wanted.SetRange(Left, Top, Right, Bottom);
  TRect wantedCells, cells;
  wanted.RangeRect(wantedCells);
  for (int i = iIndexFirstCell; i-- > 0;) {
    TDecoration* item = GetItems(i);
    if (item->GetRangeType() != aType) continue;
    item->RangeRect(cells);
    if (cells == wantedCells) return item;
  }
  return aCreate ? CreateRange(aType, Left, Top, Right, Bottom) : nullptr;
}

TDecoration* TDecorationList::GetFirst(TRangeType aType) const {
  for (int i = aType == rtCell ? iIndexFirstCell : 0; i < GetCount(); ++i) {
    TDecoration* item = GetItems(i);
    if (item->GetRangeType() == aType) return item;
  }
  return nullptr;
}

TVxFieldType TDecorationList::GetColumnFieldType(int aCol) const {
  for (int i = iIndexFirstCell; i-- > 0;) {
    const TDecoration& item = *GetItems(i);
    if (item.GetRangeType() == rtColumn && item.GetFieldType() != vftUnknown &&
        detail::SpanOf(detail::TRegion(item), rtColumn).Has(aCol)) {
      return item.GetFieldType();
    }
  }
  return vftUnknown;
}

bool TDecorationList::ContainsType(TVxFieldType aType) const {
  for (TObject* item : Items()) {
    if (AsDecoration(item)->GetFieldType() == aType) return true;
  }
  return false;
}

bool TDecorationList::ContainsTypeForCell(TVxFieldType aType, int aCol, int aRow) {
  const std::unique_ptr<TDecorationList> cell = VirtualListForCell(aCol, aRow);
  return cell->iCoupled ? cell->iCoupled->GetFieldType() == aType : cell->ContainsType(aType);
}

bool TDecorationList::FixedCell(int aCol, int aRow, TAlignSet aAlignSet) const noexcept {
  const TRect content = detail::ContentOf(*this);
  const bool all = aAlignSet.IsEmpty();
  return ((all || aAlignSet.Has(alLeft)) && aCol < content.Left) ||
         ((all || aAlignSet.Has(alTop)) && aRow < content.Top) ||
         ((all || (aAlignSet.Has(alRight) && iFixed.Right > 0)) && aCol > content.Right) ||
         ((all || (aAlignSet.Has(alBottom) && iFixed.Bottom > 0)) && aRow > content.Bottom);
}

int TDecorationList::DeleteTag(int aTag) {
  return DeleteWhere([&](const TDecoration& item) { return item.GetTag() == aTag; });
}

int TDecorationList::DeleteTags(int aTag) {
  return DeleteWhere([&](const TDecoration& item) { return (item.GetTag() & aTag) > 0; });
}

int TDecorationList::DeleteWhere(FunctionRef<bool(const TDecoration&)> IsDoomed) {
  std::vector<int> order, doomed;
  int firstCell = 0;
  for (int i = 0; i < GetCount(); ++i) {
    const bool goes = IsDoomed(*GetItems(i));
    (goes ? doomed : order).push_back(i);
    if (!goes && i < iIndexFirstCell) ++firstCell;
  }
  if (doomed.empty()) return 0;
  // All that go are brought to the end, so that each one leaves without the others being moved.
  const int kept = static_cast<int>(order.size());
  order.insert(order.end(), doomed.begin(), doomed.end());
  Arrange(order);
  iIndexFirstCell = firstCell;
  SetCount(kept);
  return static_cast<int>(doomed.size());
}

TObject* TDecorationList::OutermostParent() const noexcept {
  TObject* parent = iParent;
  while (const auto* list = dynamic_cast<const TDecorationList*>(parent)) parent = list->iParent;
  return parent;
}

void TDecorationList::AssignHeadVar(const TDecorationList& aSource) {
  iCell = aSource.iCell;
  iColCount = aSource.iColCount;
  iRowCount = aSource.iRowCount;
  iDevice = aSource.iDevice;
  iImageList = aSource.iImageList;
  iCallbackPostDraw = aSource.iCallbackPostDraw;
  iCallbackPreDraw = aSource.iCallbackPreDraw;
  iCallbackTrimmingHoriz = aSource.iCallbackTrimmingHoriz;
}

void TDecorationList::AssignHead(const TDecorationList& aSource) {
  iTitle = aSource.iTitle;
  iSubTitle = aSource.iSubTitle;
  iFixed = aSource.iFixed;
  iFont = aSource.iFont;
  iImageSpacing = aSource.iImageSpacing;
  iColor = aSource.iColor;
  iFixedColor = aSource.iFixedColor;
  iMarginHoriz = aSource.iMarginHoriz;
  iMarginVerti = aSource.iMarginVerti;
  iTrimModes = aSource.iTrimModes;
  iMinColWidth = aSource.iMinColWidth;
  iMinRowHeight = aSource.iMinRowHeight;
  iMaxSubLines = aSource.iMaxSubLines;
  iZebraLines = aSource.iZebraLines;
  iPrintPageColumns = aSource.iPrintPageColumns;
  iSelectionColor = aSource.iSelectionColor;
  iOptions = aSource.iOptions;
  AssignHeadVar(aSource);
}

void TDecorationList::Assign(const TDecorationList& aSource) {
  SetCommatext(aSource.GetCommatext());
  AssignHeadVar(aSource);
}

std::unique_ptr<TDecorationList> TDecorationList::Duplicate() {
  auto copy = std::make_unique<TDecorationList>(this);
  copy->Assign(*this);
  return copy;
}

std::unique_ptr<TDecorationList> TDecorationList::DuplicateHead() {
  auto copy = std::make_unique<TDecorationList>(this);
  copy->AssignHead(*this);
  copy->Clear();
  return copy;
}

void TDecorationList::SetGlobalFont(const String& aName, int aSize) {
  if (iFont.Size == aSize && AnsiSameText(iFont.Name, aName)) return;
  const int smaller = aSize >= 1 ? detail::WrappingDiff(iFont.Size, aSize) : 0;
  for (TObject* entry : Items()) {
    TDecoration* item = AsDecoration(entry);
    if (!item->iFont || AnsiSameText(item->iFont->Name, u"Wingdings")) continue;
    item->iFont->Name = aName;
    item->iFont->Size = detail::WrappingDiff(item->iFont->Size, smaller);
  }
  iFont.Name = aName;
  if (smaller != 0) iFont.Size = aSize;
}

}  // namespace vx
