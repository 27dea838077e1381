#include "rendering/uDecoration/detail/TrimSizes.h"

#include <algorithm>
#include <numeric>

#include "core/uVxFunctions/Rounding.h"

namespace vx::detail {
namespace {

// The modes of one direction.
struct TModeNames {
  TRangeType Range;
  TTrimMode CanvasMax, CanvasMin, HideEmpty, HideEmptyContent, Balance;
  int TRect::*FixedFirst;
  int TRect::*FixedLast;
  int TRect::*First;
  int TRect::*Last;
};
constexpr TModeNames kCols{rtColumn,       tmCanvasWidthMax, tmCanvasWidthMin, tmHideEmptyColumn, tmHideEmptyColContent,
                           tmBalanceWidth, &TRect::Left,     &TRect::Right,    &TRect::Left,      &TRect::Right};
constexpr TModeNames kRows{rtRow,           tmCanvasHeightMax, tmCanvasHeightMin, tmHideEmptyRow, tmHideEmptyRowContent,
                           tmBalanceHeight, &TRect::Top,       &TRect::Bottom,    &TRect::Top,    &TRect::Bottom};

// Columns, or rows, on their way to their sizes.
class TTrim {
 public:
  TTrim(const TDecorationList& List, const TModeNames& Names, const std::vector<TNeed>& Needs, int Least)
      : FNames(Names), FNeeds(Needs), FSizes(Needs.size()), FLeast(Needs.size(), std::max(Least, 1)) {
    ReadModes(List);
    FFirst = List.GetFixed().*Names.FixedFirst;
    FBehind = static_cast<int>(Needs.size()) - List.GetFixed().*Names.FixedLast;
    for (size_t i = 0; i < Needs.size(); ++i) FSizes[i] = std::max(Needs[i].Size, Least);
  }

  void Hide(const std::vector<int>& Present);
  void Balance();
  // Room: of all without the lines; 0 for no limit.
  void FitRoom(int64_t Room);
  int64_t CountShown() const noexcept {
    return std::count_if(FSizes.begin(), FSizes.end(), [](int size) { return size > 0; });
  }
  std::vector<int>& Sizes() noexcept { return FSizes; }
  const std::vector<int>& Least() const noexcept { return FLeast; }

 private:
  void ReadModes(const TDecorationList& List);
  bool Has(size_t Index, TTrimMode Mode) const noexcept { return FModes[Index].Has(Mode); }
  bool IsFixed(size_t Index) const noexcept {
    return static_cast<int>(Index) < FFirst || static_cast<int>(Index) >= FBehind;
  }
  void Shrink(int64_t Room, int64_t Sum);
  void Stretch(int64_t Surplus);

  const TModeNames& FNames;
  const std::vector<TNeed>& FNeeds;
  std::vector<TTrimModes> FModes;
  std::vector<int> FSizes, FLeast;
  std::vector<bool> FIsKept;
  int FFirst = 0, FBehind = 0;
};

void TTrim::ReadModes(const TDecorationList& List) {
  TTrimModes all = List.GetTrimModes();
  for (int i = 0; i < List.GetIndexFirstCell(); ++i) {
    if (List.GetItems(i)->GetRangeType() == rtAll) all = all + List.GetItems(i)->GetTrimModes();
  }
  FModes.assign(FNeeds.size(), all - TTrimModes{tmHide});
  for (int i = 0; i < List.GetIndexFirstCell(); ++i) {
    const TDecoration& item = *List.GetItems(i);
    if (item.GetRangeType() != FNames.Range || item.GetTrimModes().IsEmpty()) continue;
    TRect range;
    item.RangeRect(range);
    const int last = std::min(range.*FNames.Last, static_cast<int>(FNeeds.size()) - 1);
    for (int k = std::max(range.*FNames.First, 0); k <= last; ++k) {
      TTrimModes& modes = FModes[static_cast<size_t>(k)];
      modes = modes + item.GetTrimModes();
    }
  }
}

void TTrim::Hide(const std::vector<int>& Present) {
  FIsKept.resize(FSizes.size());
  for (size_t i = 0; i < FSizes.size(); ++i) {
    if (Has(i, tmShowFullFixed)) FLeast[i] = std::max(FLeast[i], FNeeds[i].FixedSize);
    FIsKept[i] = Has(i, tmHide) || (Has(i, tmNone) && i < Present.size());
    if (FIsKept[i]) {
      FSizes[i] = Has(i, tmHide) ? 0 : Present[i];
    } else if ((Has(i, FNames.HideEmpty) && !FNeeds[i].HasText) ||
               (Has(i, FNames.HideEmptyContent) && !FNeeds[i].HasContent && !IsFixed(i))) {
      FSizes[i] = 0;
    }
  }
}

void TTrim::Balance() {
  const auto isMeant = [this](size_t i) {
    return Has(i, FNames.Balance) && !IsFixed(i) && !FIsKept[i] && FSizes[i] > 0;
  };
  int widest = 0;
  for (size_t i = 0; i < FSizes.size(); ++i) {
    if (isMeant(i)) widest = std::max(widest, FSizes[i]);
  }
  for (size_t i = 0; i < FSizes.size(); ++i) {
    if (isMeant(i)) FSizes[i] = widest;
  }
}

// Lowers all that may be lowered to the highest common size with which all fit.
void TTrim::Shrink(int64_t Room, int64_t Sum) {
  std::vector<size_t> meant;
  for (size_t i = 0; i < FSizes.size(); ++i) {
    if (Has(i, FNames.CanvasMax) && !FIsKept[i] && FSizes[i] > FLeast[i]) meant.push_back(i);
  }
  int64_t others = Sum;
  for (size_t i : meant) others -= FSizes[i];
  const auto total = [&](int cap) {
    int64_t sum = others;
    for (size_t i : meant) sum += std::min(FSizes[i], std::max(cap, FLeast[i]));
    return sum;
  };
  int low = 0, high = 0;  // low fits, or nothing does
  for (size_t i : meant) high = std::max(high, FSizes[i]);
  while (low < high) {
    const int middle = low + (high - low + 1) / 2;
    if (total(middle) <= Room) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  int64_t rest = Room - total(low);
  for (size_t i : meant) {
    const int least = std::max(low, FLeast[i]);
    if (FSizes[i] <= least) continue;
    FSizes[i] = least;
    if (least == low && rest-- > 0) ++FSizes[i];
  }
}

void TTrim::Stretch(int64_t Surplus) {
  std::vector<size_t> meant;
  for (const bool fixedToo : {false, true}) {
    for (size_t i = 0; i < FSizes.size(); ++i) {
      if (Has(i, FNames.CanvasMin) && !FIsKept[i] && FSizes[i] > 0 && IsFixed(i) == fixedToo) meant.push_back(i);
    }
    if (!meant.empty()) break;
  }
  if (meant.empty()) return;
  const auto count = static_cast<int64_t>(meant.size());
  for (size_t k = 0; k < meant.size(); ++k) {
    FSizes[meant[k]] += static_cast<int>(Surplus / count + (static_cast<int64_t>(k) < Surplus % count ? 1 : 0));
  }
}

void TTrim::FitRoom(int64_t Room) {
  if (Room <= 0) return;
  const int64_t sum = std::accumulate(FSizes.begin(), FSizes.end(), int64_t{0});
  if (sum > Room) Shrink(Room, sum);
  if (sum < Room) Stretch(Room - sum);
}

int64_t WithoutLines(int Room, int Line, int64_t Count) {
  return Room <= 0 ? 0 : std::max<int64_t>(Room - Line * Count, 1);
}

void CallBack(TDecorationList& List, const std::vector<TNeed>& Needs, TTrim& Cols, int Room) {
  std::vector<int> values;
  TPointArray sizes;
  for (size_t i = 0; i < Needs.size(); ++i) {
    values.push_back(Needs[i].Size);
    sizes.push_back({Cols.Least()[i], Cols.Sizes()[i]});
  }
  List.GetCallbackTrimmingHoriz()(List, values, sizes, List.GetTrimModes(), std::max(Room, 0));
  for (size_t i = 0; i < std::min(sizes.size(), Needs.size()); ++i) Cols.Sizes()[i] = std::max(sizes[i].Y, 0);
}

}  // namespace

TTableSizes TrimSizes(TDecorationList& List, const TNeeds& Needs, const TTrimRoom& Target) {
  const auto scaled = [](int least, Extended factor) {
    return static_cast<int>(std::clamp<Extended>(least * factor, 0, INT32_MAX / 4) + 0.5L);
  };
  TTrim cols(List, kCols, Needs.Cols, scaled(List.GetMinColWidth(), TDecorator::FaktorHorz(List)));
  cols.Hide(Target.Present.ColWidths);
  cols.Balance();
  cols.FitRoom(WithoutLines(Target.Room.X, Target.Line.X, cols.CountShown()));
  if (List.GetCallbackTrimmingHoriz()) CallBack(List, Needs.Cols, cols, Target.Room.X);

  TTrim rows(List, kRows, Needs.Rows, scaled(List.GetMinRowHeight(), TDecorator::FaktorVert(List)));
  rows.Hide(Target.Present.RowHeights);
  rows.Balance();
  rows.FitRoom(WithoutLines(Target.Room.Y, Target.Line.Y, rows.CountShown()));
  return {std::move(cols.Sizes()), std::move(rows.Sizes())};
}

}  // namespace vx::detail
