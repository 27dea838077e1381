#include "rendering/uDecoration/TDLRange.h"

#include <algorithm>
#include <climits>

#include "core/uVxFunctionsSerialize/Explode.h"
#include "platform/Dialogs.h"
#include "platform/Numbers.h"
#include "platform/TextForms.h"
#include "rendering/uDecoration/detail/Regions.h"

namespace vx {

namespace {

// By the ordinal.
constexpr std::u16string_view kDirections[] = {u"Unknown", u"Left", u"Up", u"Right", u"Down", u"Equal"};

void TellMissing(std::u16string_view Function) {
  ShowWarning(Concat({u"[TDLRangeList] : Die Funktion ", Function, u" ist nicht unterstützt."}));
}

}  // namespace

String TDLRange::GetCommatext() const {
  const String cells[] = {kDirections[iDirection <= dldtEqual ? iDirection : dldtUnknown], IntToStr(iIndBegin),
                          IntToStr(iIndEnd), RangeTypeToStr(iRange)};
  return WriteCommatext(cells);
}

bool TDLRange::Rises() const noexcept {
  return iDirection == dldtRight || iDirection == dldtDown || iDirection == dldtEqual;
}

void TDLRange::Weigh() {
  const TDecorationList& list = *iParent->GetParent();
  const bool rises = Rises();
  int reached = INT_MIN;
  FIsUneven = false;
  for (int i = 0; i <= iIndEnd - iIndBegin; ++i) {
    const TDecoration& item = *list.GetItems(rises ? iIndBegin + i : iIndEnd - i);
    const detail::TSpan span = detail::SpanOf(item, iRange);
    const bool isOpen = item.GetRangeType() == rtRect && span.Last < 0;
    FIsUneven |= isOpen || span.First < reached || span.Last < span.First;
    reached = span.Last;
  }
}

void TDLRange::Responsible(int aCol, int aRow, TDecorationList& aVirtual) const {
  const TDecorationList& list = *iParent->GetParent();
  const int position = iRange == rtColumn ? aCol : aRow;
  const auto spanAt = [&](int index) { return detail::SpanOf(*list.GetItems(index), iRange); };
  const bool rises = Rises();
  if (spanAt(rises ? iIndBegin : iIndEnd).First > position) return;
  if (spanAt(rises ? iIndEnd : iIndBegin).Last < position) return;

  int low = iIndBegin, high = iIndEnd;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    const detail::TSpan span = spanAt(middle);
    if (span.Has(position)) {
      low = high = middle;
    } else if ((position >= span.First) == rises) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  if (!spanAt(low).Has(position)) return;
  while (low > iIndBegin && spanAt(low - 1).Has(position)) --low;
  for (; low <= iIndEnd && spanAt(low).Has(position); ++low) {
    TDecorationList::Test(*list.GetItems(low), aCol, aRow, aVirtual);
  }
}

int TDLRangeList::IndexSort(int aIndBegin) const noexcept {
  const auto items = Items();
  const auto found = std::lower_bound(items.begin(), items.end(), aIndBegin, [](TObject* item, int begin) {
    return static_cast<TDLRange*>(item)->GetIndBegin() < begin;
  });
  return static_cast<int>(found - items.begin());
}

TDLRange* TDLRangeList::GetRanges(int aIndBegin) const noexcept {
  const int index = IndexSort(aIndBegin);
  if (index == GetCount()) return nullptr;
  TDLRange* range = GetItems(index);
  return range->GetIndBegin() == aIndBegin ? range : nullptr;
}

String TDLRangeList::GetText() const {
  TCells lines;
  for (TObject* item : Items()) lines.push_back(static_cast<TDLRange*>(item)->GetCommatext());
  return implode(lines, u"\r\n");
}

int TDLRangeList::Add(TObject* Object) {
  const auto* range = dynamic_cast<TDLRange*>(Object);
  if (!range) return -1;
  const int index = IndexSort(range->GetIndBegin());
  TObjectList::Insert(index, Object);
  return index;
}

void TDLRangeList::Insert(int, TObject* Object) { TDLRangeList::Add(Object); }

void TDLRangeList::Exchange(int, int) { TellMissing(u"Exchange"); }

void TDLRangeList::Move(int, int) { TellMissing(u"Move"); }

}  // namespace vx
