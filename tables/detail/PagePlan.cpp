#include "tables/detail/PagePlan.h"

#include <algorithm>
#include <numeric>

namespace vx::detail {
namespace {

int Size(std::span<const int> Sizes, int Line) noexcept { return std::max(Sizes[static_cast<size_t>(Line)], 0); }

int64_t Total(std::span<const int> Sizes) noexcept {
  return std::transform_reduce(Sizes.begin(), Sizes.end(), int64_t{0}, std::plus<>(),
                               [](int size) { return int64_t{std::max(size, 0)}; });
}

// How many of the fixed lines are repeated: all of them, or none if they leave too little for the others.
int RepeatedLines(std::span<const int> Sizes, int Fixed, int Room) noexcept {
  const int count = std::clamp(Fixed, 0, static_cast<int>(Sizes.size()));
  return Total(Sizes.first(static_cast<size_t>(count))) * 2 <= Room ? count : 0;
}

// Lays lines from First on into bands of Room pixels each.
class TBandMaker {
 public:
  TBandMaker(std::span<const int> Sizes, int First, int Room)
      : FSizes(Sizes), FRoom(std::max(Room, 1)), FBand{First, First} {}

  std::vector<TBand> Make() {
    for (; FBand.End < static_cast<int>(FSizes.size()); ++FBand.End) {
      if (FUsed + Size(FSizes, FBand.End) > FRoom && FBand.End > FBand.First) Close();
      Place(Size(FSizes, FBand.End));
    }
    if (FBands.empty() || FBand.End > FBand.First) FBands.push_back(FBand);
    return std::move(FBands);
  }
  int GetUsed() const noexcept { return FUsed; }

 private:
  // The line at the end of the band, alone on the page if it doesn't fit, and on as many further ones as it needs.
  void Place(int LineSize) {
    int left = LineSize;
    for (; left > FRoom; left -= FRoom) {
      FBands.push_back({FBand.First, FBand.End + 1, FBand.Skip, FRoom});
      FBand.Skip += FRoom;
    }
    FUsed += left;
  }
  void Close() {
    FBands.push_back(FBand);
    FBand = {FBand.End, FBand.End};
    FUsed = 0;
  }

  const std::span<const int> FSizes;
  const int FRoom;
  std::vector<TBand> FBands;
  TBand FBand;
  int FUsed = 0;
};

}  // namespace

TPagePlan::TPagePlan(const TTable& Table)
    : FFixedCols(RepeatedLines(Table.ColWidths, Table.FixedCols, Table.Room.X)),
      FFixedRows(RepeatedLines(Table.RowHeights, Table.FixedRows, Table.Room.Y)) {
  for (int strips = std::max(Table.Strips, 1); strips > 1 && FStrips == 1; --strips) {
    const int64_t room = (Table.Room.X - int64_t{strips - 1} * Table.StripGap) / strips;
    if (Total(Table.ColWidths) > room) continue;
    FStrips = strips;
    FStripStep = static_cast<int>(room) + Table.StripGap;
  }
  const auto fixed = [](std::span<const int> sizes, int count) {
    return static_cast<int>(Total(sizes.first(static_cast<size_t>(count))));
  };
  FColBands = TBandMaker(Table.ColWidths, FFixedCols, Table.Room.X - fixed(Table.ColWidths, FFixedCols)).Make();
  TBandMaker rows(Table.RowHeights, FFixedRows, Table.Room.Y - fixed(Table.RowHeights, FFixedRows));
  FRowBands = rows.Make();
  FRest = Table.Room.Y - fixed(Table.RowHeights, FFixedRows) - rows.GetUsed();
}

int TPagePlan::GetDownCount() const noexcept { return (static_cast<int>(FRowBands.size()) + FStrips - 1) / FStrips; }

TPageContent TPagePlan::GetPage(int Page) const noexcept {
  const auto first = static_cast<size_t>(Page / GetAcrossCount() * FStrips);
  const auto count = std::min(static_cast<size_t>(FStrips), FRowBands.size() - first);
  return {FColBands[static_cast<size_t>(Page % GetAcrossCount())], std::span(FRowBands).subspan(first, count)};
}

}  // namespace vx::detail
