#include "controls/TableAxis.h"

#include <algorithm>
#include <unordered_map>

namespace vx {

void TTableAxis::Reset(int Count, int Size) {
  FCount = std::max(Count, 0);
  FCommon = std::max(Size, 1);
  FOthers.clear();
}

void TTableAxis::SetCount(int Value) {
  FCount = std::max(Value, 0);
  FOthers.erase(From(FCount), FOthers.end());
}

std::vector<TTableAxis::TOther>::const_iterator TTableAxis::From(int Index) const noexcept {
  return std::lower_bound(FOthers.begin(), FOthers.end(), Index,
                          [](const TOther& other, int index) { return other.Index < index; });
}

int TTableAxis::GetSize(int Index) const noexcept {
  if (Index < 0 || Index >= FCount) return 0;
  const auto at = From(Index);
  return at != FOthers.end() && at->Index == Index ? at->Size : FCommon;
}

void TTableAxis::SumUp(size_t First) noexcept {
  int64_t extra = First > 0 ? FOthers[First - 1].Extra : 0;
  for (size_t i = First; i < FOthers.size(); ++i) FOthers[i].Extra = extra += FOthers[i].Size - FCommon;
}

void TTableAxis::SetSize(int Index, int Value) {
  if (Index < 0 || Index >= FCount) return;
  const int size = std::max(Value, 0);
  auto at = FOthers.begin() + (From(Index) - FOthers.cbegin());
  const bool isKnown = at != FOthers.end() && at->Index == Index;
  if (size == FCommon) {
    if (!isKnown) return;
    at = FOthers.erase(at);
  } else if (isKnown) {
    at->Size = size;
  } else {
    at = FOthers.insert(at, {Index, size, 0});
  }
  SumUp(static_cast<size_t>(at - FOthers.begin()));
}

void TTableAxis::SetSizes(std::span<const int> Sizes) {
  std::unordered_map<int, int> uses;
  for (int size : Sizes) ++uses[size];
  int common = 1, most = 0;
  for (const auto& [size, count] : uses) {
    if (size > 0 && (count > most || (count == most && size < common))) common = size, most = count;
  }
  Reset(static_cast<int>(Sizes.size()), common);
  FOthers.reserve(Sizes.size() - static_cast<size_t>(most));
  for (int i = 0; i < FCount; ++i) {
    const int size = std::max(Sizes[static_cast<size_t>(i)], 0);
    if (size != FCommon) FOthers.push_back({i, size, 0});
  }
  SumUp(0);
}

void TTableAxis::Move(int From, int To) {
  if (From == To || std::min(From, To) < 0 || std::max(From, To) >= FCount) return;
  const int size = GetSize(From), step = From < To ? -1 : 1;
  SetSize(From, FCommon);
  for (TOther& other : FOthers) {
    const bool isBetween =
        From < To ? other.Index > From && other.Index <= To : other.Index >= To && other.Index < From;
    if (isBetween) other.Index += step;
  }
  SumUp(0);
  SetSize(To, size);
}

int64_t TTableAxis::Begin(int Index) const noexcept {
  const int index = std::clamp(Index, 0, FCount);
  const auto at = From(index);
  return int64_t{index} * FCommon + (at == FOthers.begin() ? 0 : (at - 1)->Extra);
}

int TTableAxis::At(int64_t Place) const noexcept {
  if (Place < 0) return -1;
  const auto endOf = [this](const TOther& other) { return (int64_t{other.Index} + 1) * FCommon + other.Extra; };
  // The first of the others that ends behind the place; before it all are of the common size.
  const auto at =
      std::partition_point(FOthers.begin(), FOthers.end(), [&](const TOther& other) { return endOf(other) <= Place; });
  if (at != FOthers.end() && endOf(*at) - at->Size <= Place) return at->Index;
  const int64_t extra = at == FOthers.begin() ? 0 : (at - 1)->Extra;
  const int64_t index = (Place - extra) / FCommon;
  return index < FCount ? static_cast<int>(index) : -1;
}

// --- what can be seen ---

int TAxisView::First() const noexcept { return std::clamp(FixedFirst, 0, Axis.GetCount()); }

int TAxisView::Last() const noexcept {
  return std::max(First(), Axis.GetCount() - std::clamp(FixedLast, 0, Axis.GetCount()));
}

int64_t TAxisView::MaxOffset() const noexcept { return std::max<int64_t>(Axis.Total() - Room, 0); }

int TAxisView::ZoneBegin(TZone Zone) const noexcept {
  if (Zone == zoFirst) return 0;
  const int64_t first = std::min<int64_t>(Axis.Begin(First()), Room);
  if (Zone == zoMiddle) return static_cast<int>(first);
  const int64_t total = Axis.Total(), last = total - Axis.Begin(Last());
  return static_cast<int>(std::max(first, std::min<int64_t>(Room, total) - last));
}

int TAxisView::ZoneEnd(TZone Zone) const noexcept {
  if (Zone == zoFirst) return ZoneBegin(zoMiddle);
  if (Zone == zoMiddle) return ZoneBegin(zoLast);
  const int64_t last = Axis.Total() - Axis.Begin(Last());
  return static_cast<int>(std::min<int64_t>(ZoneBegin(zoLast) + last, std::max(Room, ZoneBegin(zoLast))));
}

TAxisView::TZone TAxisView::ZoneOf(int Index) const noexcept {
  return Index < First() ? zoFirst : Index < Last() ? zoMiddle : zoLast;
}

int TAxisView::PlaceOf(int Index) const noexcept {
  int64_t place = Axis.Begin(Index);
  const TZone zone = ZoneOf(Index);
  if (zone == zoMiddle) place -= Offset;
  if (zone == zoLast) place += ZoneBegin(zoLast) - Axis.Begin(Last());
  constexpr int64_t far = 1 << 26;
  return static_cast<int>(std::clamp(place, -far, far));
}

int TAxisView::At(int Pixel) const noexcept {
  if (Pixel < 0 || Pixel >= Room) return -1;
  if (Pixel < ZoneEnd(zoFirst)) return Axis.At(Pixel);
  if (Pixel < ZoneEnd(zoMiddle)) {
    const int index = Axis.At(Pixel + Offset);
    return index >= First() && index < Last() ? index : -1;
  }
  return Axis.At(Axis.Begin(Last()) + Pixel - ZoneBegin(zoLast));
}

int64_t TAxisView::OffsetToSee(int Index) const noexcept {
  if (ZoneOf(Index) != zoMiddle) return Offset;
  const int64_t begin = Axis.Begin(Index), end = begin + Axis.GetSize(Index);
  int64_t offset = Offset;
  if (end - offset > ZoneEnd(zoMiddle)) offset = end - ZoneEnd(zoMiddle);
  if (begin - offset < ZoneBegin(zoMiddle)) offset = begin - ZoneBegin(zoMiddle);
  return std::clamp<int64_t>(offset, 0, MaxOffset());
}

std::vector<TAxisPiece> TAxisView::Pieces(TZone Zone, int Begin, int End) const {
  std::vector<TAxisPiece> pieces;
  const int begin = std::max(Begin, ZoneBegin(Zone)), end = std::min(End, ZoneEnd(Zone));
  if (begin >= end) return pieces;
  const int behind = Zone == zoFirst ? First() : Zone == zoMiddle ? Last() : Axis.GetCount();
  int index = At(begin);
  if (index < 0) return pieces;
  for (int place = PlaceOf(index); place < end && index < behind; ++index) {
    const int size = Axis.GetSize(index);
    if (size > 0) {
      pieces.push_back({index, place, size});
      place += size;
      continue;
    }
    // A long run of hidden ones is passed in one step.
    const int next = Axis.At(Axis.Begin(index));
    if (next < 0) break;
    index = next - 1;
  }
  return pieces;
}

}  // namespace vx
