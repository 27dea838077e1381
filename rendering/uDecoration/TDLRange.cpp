#include "rendering/uDecoration/TDLRange.h"

#include <algorithm>
#include <climits>

#include "core/uVxFunctionsSerialize/Explode.h"
#include "platform/Dialogs.h"
#include "platform/Numbers.h"
#include "platform/TextForms.h"
#include "rendering/uDecoration/detail/RunSearch.h"

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

void TDLRange::Weigh() {
  const TDecorationList& list = *iParent->GetParent();
  const bool rises = Rises();
  int reached = INT_MIN;
  FIsUneven = false;
  for (int i = 0; i <= iIndEnd - iIndBegin; ++i) {
    const detail::TRegion region(*list.GetItems(rises ? iIndBegin + i : iIndEnd - i));
    const detail::TSpan span = detail::SpanOf(region, iRange);
    const bool isOpen = region.Type == rtRect && span.Last < 0;
    FIsUneven |= isOpen || span.First < reached || span.Last < span.First;
    reached = span.Last;
  }
}

void TDLRange::Responsible(int aCol, int aRow, TDecorationList& aVirtual) const {
  const TDecorationList& list = *iParent->GetParent();
  Search(
      iRange == rtColumn ? aCol : aRow,
      [&](int index) { return detail::SpanOf(detail::TRegion(*list.GetItems(index)), iRange); },
      [&](int index) {
        TDecoration* item = list.GetItems(index);
        if (item->Responsible(aCol, aRow)) aVirtual.AddApplying(*item);
      });
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
