// The rules of decorations as plainly as they can be put: every decoration is looked at, and decorations are merged
// as the cells of their texts.
//
//   TPlainDecorations plain(list);
//   EXPECT_EQ(Items(*list.VirtualListForCell(2, 3)), plain.All(2, 3));
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/TextForms.h"
#include "rendering/uDecoration.h"

namespace vx::test {

using TItems = std::vector<TDecoration*>;

inline TItems Items(const TDecorationList& List) {
  TItems items;
  for (int i = 0; i < List.GetCount(); ++i) items.push_back(List.GetItems(i));
  return items;
}

class TPlainDecorations {
 public:
  explicit TPlainDecorations(const TDecorationList& List) : FList(List) {}

  // Looks at every item.
  TItems All(int Col, int Row) const {
    TItems found;
    Look(0, FList.GetIndexFirstCell() - 1, Col, Row, found);
    AddCell(Col, Row, found);
    return found;
  }
  // With the runs as they are, stale ones too.
  TItems ByRuns(int Col, int Row) const {
    TItems found;
    int last = -1;
    for (int r = 0; r < FList.GetRanges().GetCount(); ++r) {
      const TDLRange& run = *FList.GetRanges().GetItems(r);
      if (run.GetIndEnd() >= FList.GetCount()) break;
      Look(last + 1, run.GetIndBegin() - 1, Col, Row, found);
      last = run.GetIndEnd();
      LookInRun(run, Col, Row, found);
    }
    Look(last + 1, FList.GetIndexFirstCell() - 1, Col, Row, found);
    AddCell(Col, Row, found);
    // A run that has come to stand among cells finds them before others.
    const auto cells = std::stable_partition(found.begin(), found.end(), [](auto* i) { return !IsCell(*i); });
    std::sort(cells, found.end(), [](auto* a, auto* b) { return a->IndexSort() < b->IndexSort(); });
    return found;
  }
  static bool IsCell(const TDecoration& Item) { return Item.GetRangeType() == rtCell; }

  bool Applies(const TDecoration& Item, int Col, int Row) const {
    const TRect range = Normal(Item);
    const TRect fixed = FList.GetFixed();
    const bool inContent = Col >= fixed.Left && Col <= FList.GetColCount() - fixed.Right - 1 && Row >= fixed.Top &&
                           Row <= FList.GetRowCount() - fixed.Bottom - 1;
    const bool inCols = Col >= range.Left && Col <= range.Right, inRows = Row >= range.Top && Row <= range.Bottom;
    const bool open = range.Right < 0, openDown = range.Bottom < 0;
    const TRangeType type = Item.GetRangeType();
    return type == rtCell     ? Col == range.Left && Row == range.Top
           : type == rtColumn ? inCols
           : type == rtRow    ? inRows
           : type == rtRect   ? (inCols || (open && Col >= range.Left)) && (inRows || (openDown && Row >= range.Top))
           : type == rtFixed  ? !inContent
                              : type == rtAll || (type == rtContent && inContent);
  }

 private:
  TRect Normal(const TDecoration& Item) const {
    TRect range = Item.GetRange();
    const int cols = FList.GetColCount(), rows = FList.GetRowCount();
    for (int* col : {&range.Left, &range.Right}) *col += *col < 0 ? cols : 0;
    for (int* row : {&range.Top, &range.Bottom}) *row += *row < 0 ? rows : 0;
    return range;
  }
  void Look(int First, int Last, int Col, int Row, TItems& Found) const {
    for (int i = First; i <= Last; ++i) {
      if (Applies(*FList.GetItems(i), Col, Row)) Found.push_back(FList.GetItems(i));
    }
  }
  void AddCell(int Col, int Row, TItems& Found) const {
    for (TDecoration* item : Items(FList)) {
      const TRect& range = item->GetRange();
      if (!IsCell(*item) || range.Left != Col || range.Top != Row) continue;
      if (std::find(Found.begin(), Found.end(), item) == Found.end()) Found.push_back(item);
    }
  }
  void LookInRun(const TDLRange& Run, int Col, int Row, TItems& Found) const {
    const bool isCol = Run.GetRange() == rtColumn;
    const int at = isCol ? Col : Row, begin = Run.GetIndBegin(), end = Run.GetIndEnd();
    const auto first = [&](int i) { return Side(i, isCol ? &TRect::Left : &TRect::Top); };
    const auto last = [&](int i) { return Side(i, isCol ? &TRect::Right : &TRect::Bottom); };
    const auto has = [&](int i) { return first(i) <= at && at <= last(i); };
    const bool falls = Run.GetDirection() == dldtLeft || Run.GetDirection() == dldtUp;
    if (first(falls ? end : begin) > at || last(falls ? begin : end) < at) return;
    int lo = begin, hi = end, mid = begin + (end - begin) / 2;
    for (; lo < hi && !has(mid); mid = lo + (hi - lo) / 2) {
      (at >= first(mid)) == falls ? hi = mid - 1 : lo = mid + 1;
    }
    if (!has(mid)) return;
    while (mid > begin && has(mid - 1)) --mid;
    for (; mid <= end && has(mid); ++mid) Look(mid, mid, Col, Row, Found);
  }
  int Side(int Index, int TRect::*Member) const {
    TRect cells;
    FList.GetItems(Index)->RangeRect(cells);
    return cells.*Member;
  }

  const TDecorationList& FList;
};

// The text of Target after Source was merged into it: what is not the cell of an unset value is taken over.
inline String MergedText(const TDecoration& Source, const TDecoration& Target) {
  const TCells source = ReadCommatext(Source.GetCommatext());
  TCells result = ReadCommatext(Target.GetCommatext());
  for (size_t i = 5; i < source.size(); ++i) {
    const bool isUnset = source[i].empty() || source[i] == u"0" || (i == 21 && source[i].view().front() == u'-');
    const bool isZeroSet = source[i] == u"0" && (i == 9 || i == 21 || i > 22);  // format, image and limits
    if (i == 11) {                                                              // options
      const String both = source[i] + result[i];
      result[i] = {};
      for (char16_t letter : {u'C', u'Z'}) {
        if (both.view().find(letter) != std::u16string_view::npos) result[i] += letter;
      }
    } else if (i != 20 && (!isUnset || isZeroSet)) {  // 20: trim modes
      result[i] = source[i];
    }
  }
  return WriteCommatext(result);
}

// A list out of numbers: Next(n) gives one from 0 to n - 1. Tables of up to 12 x 12 cells; many have long runs, and
// many decorations of cells. Ranges may go from the end of the table or be open; with Odd sides may stand the wrong way
// round.
template <typename TNext>
void MakeDecorations(TDecorationList& List, bool Odd, TNext Next) {
  List.Clear();
  List.SetColCount(Next(13));
  List.SetRowCount(Next(13));
  List.SetFixed(Next(3), Next(3), Next(3), Next(3));
  for (int part = Next(4); part >= 0; --part) {
    const TRangeType axis = Next(2) ? rtColumn : rtRow;
    const bool isRun = Next(2) != 0;
    const int step = Next(5) - 2;
    for (int i = 0, count = Next(isRun ? 14 : 8), at = Next(14); i < count; ++i, at += step) {
      const auto pick = [&] { return Next(16) - 3; };
      const int left = isRun ? at : pick(), top = isRun ? at : pick();
      const int wide = Odd ? pick() : left + Next(3) * (isRun ? std::abs(step) / 2 : 1);
      const int high = Odd ? pick() : top + Next(3) * (isRun ? std::abs(step) / 2 : 1);
      const TRangeType any = static_cast<TRangeType>(Next(8));
      TDecoration* item = List.CreateRange(isRun ? (Next(6) ? axis : rtRect) : any, left, top, wide, high);
      if (Next(6) == 0) item->SetOptions({doCoupled});
    }
  }
  for (int cells = Next(3) == 0 ? Next(60) : 0; cells > 0; --cells) List.GetCell(Next(14), Next(14), true);
  List.RefreshRangeList();
}

}  // namespace vx::test
