#include <algorithm>
#include <cmath>
#include <typeinfo>

#include "objects/detail/Refusal.h"
#include "objects/uVxClasses/TVxDoubleList.h"

namespace vx {

namespace {

// Numbers ascending, then what is none: an order without contradictions.
bool IsBelow(double A, double B) noexcept { return A < B || (std::isnan(B) && !std::isnan(A)); }

// The place of Value among Count values that At gives by their index. Whatever their order, the value
// before the place is below Value: of equal values in a row the place is the first.
template <typename TAt>
int FindPlace(int Count, double Value, TAt At) {
  if (Count < 1) return 0;
  if (IsBelow(At(Count - 1), Value)) return Count;
  if (!IsBelow(At(0), Value)) return 0;
  int low = 1, high = Count - 1;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (IsBelow(At(middle), Value)) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

// A long row of values that takes new ones anywhere without moving all behind them.
class TPieces {
 public:
  explicit TPieces(std::span<const double> Values) {
    for (size_t i = 0; i < Values.size(); i += kMost / 2) {
      auto piece = Values.subspan(i, std::min(kMost / 2, Values.size() - i));
      FPieces.emplace_back(piece.begin(), piece.end());
      FEnds.push_back(static_cast<int>(i + piece.size()));
    }
  }
  int Count() const noexcept { return FEnds.empty() ? 0 : FEnds.back(); }
  double At(int Index) const noexcept {
    const size_t piece = PieceOf(Index + 1);
    return FPieces[piece][static_cast<size_t>(Index - Begin(piece))];
  }
  // Not for a row that began empty.
  void Insert(int Index, double Value) {
    const size_t at = PieceOf(Index);
    auto& piece = FPieces[at];
    piece.insert(piece.begin() + (Index - Begin(at)), Value);
    for (size_t i = at; i < FEnds.size(); ++i) ++FEnds[i];
    if (piece.size() < kMost) return;
    std::vector<double> back(piece.begin() + kMost / 2, piece.end());
    piece.resize(kMost / 2);
    FEnds.insert(FEnds.begin() + static_cast<ptrdiff_t>(at), Begin(at) + static_cast<int>(kMost / 2));
    FPieces.insert(FPieces.begin() + static_cast<ptrdiff_t>(at) + 1, std::move(back));
  }
  std::vector<double> Joined() const {
    std::vector<double> result;
    result.reserve(static_cast<size_t>(Count()));
    for (const auto& piece : FPieces) result.insert(result.end(), piece.begin(), piece.end());
    return result;
  }

 private:
  static constexpr size_t kMost = 4096;
  // The first piece that ends at or behind End.
  size_t PieceOf(int End) const noexcept {
    return static_cast<size_t>(std::lower_bound(FEnds.begin(), FEnds.end(), End) - FEnds.begin());
  }
  int Begin(size_t Piece) const noexcept { return Piece == 0 ? 0 : FEnds[Piece - 1]; }

  std::vector<std::vector<double>> FPieces;
  std::vector<int> FEnds;  // where each piece ends in the row
};

constexpr detail::TRefusal Refuse{u"Die Funktion \"TVxDoubleList.", u"\" wird nicht unterstützt!"};

}  // namespace

void TVxDoubleSortList::SetUnique(bool Value) {
  const bool packs = Value && !iUnique;
  iUnique = Value;
  if (packs) Pack();
}

int TVxDoubleSortList::IndexSort(double Value) const {
  return FindPlace(iCount, Value, [this](int index) { return iList[static_cast<size_t>(index)]; });
}

int TVxDoubleSortList::Add(double Value) {
  const int place = IndexSort(Value);
  if (iUnique && IsInside(place) && iList[static_cast<size_t>(place)] == Value) return place;
  return InsertValue(place, Value);
}

void TVxDoubleSortList::Insert(int, double Value) { Add(Value); }

void TVxDoubleSortList::Assign(const TVxDoubleList& Source) {
  if (&Source == this) return;
  if (const auto* sorted = dynamic_cast<const TVxDoubleSortList*>(&Source)) iUnique = sorted->iUnique;
  Clear();
  SetCapacity(Source.GetCount());
  AddAll(Source.Items());
}

int TVxDoubleSortList::IndexOf(double Value) const {
  const int place = IndexSort(Value);
  return IsInside(place) && iList[static_cast<size_t>(place)] == Value ? place : -1;
}

int TVxDoubleSortList::Remove(double Value) { return TVxDoubleList::Remove(Value); }

double TVxDoubleSortList::Extract(double Value) {
  Remove(Value);
  return Value;
}

void TVxDoubleSortList::SetCommatext(std::u16string_view Text) {
  std::vector<double> values;
  for (const TEntryValue& entry : FillSlots(Text)) {
    if (!IsPlain()) {
      if (entry.IsNumber) {
        Add(entry.Value);
      } else {
        Error(11);
      }
    } else if (entry.IsNumber) {
      values.push_back(entry.Value);
    }
  }
  AddAll(values);
}

bool TVxDoubleSortList::IsPlain() const noexcept { return typeid(*this) == typeid(TVxDoubleSortList); }

void TVxDoubleSortList::AddAll(std::span<const double> Values) {
  if (!IsPlain() || Values.size() >= size_t{MaxCount} - Items().size()) {
    const std::vector<double> values(Values.begin(), Values.end());  // Notify may change their source
    for (double value : values) Add(value);
  } else if (std::is_sorted(Items().begin(), Items().end(), IsBelow)) {
    AddSorted(Values);
  } else {
    AddUnsorted(Values);
  }
}

void TVxDoubleSortList::AddSorted(std::span<const double> Values) {
  // Each goes before its equals: the last one comes first.
  std::vector<double> sorted(Values.rbegin(), Values.rend());
  std::stable_sort(sorted.begin(), sorted.end(), IsBelow);
  const auto items = Items();
  if (iUnique) {
    size_t kept = 0;
    for (size_t i = 0; i < sorted.size(); ++i) {
      if (i + 1 < sorted.size() && sorted[i + 1] == sorted[i]) continue;
      auto place = std::lower_bound(items.begin(), items.end(), sorted[i], IsBelow);
      if (place == items.end() || *place != sorted[i]) sorted[kept++] = sorted[i];
    }
    sorted.resize(kept);
  }
  std::vector<double> merged(sorted.size() + items.size());
  std::merge(sorted.begin(), sorted.end(), items.begin(), items.end(), merged.begin(), IsBelow);
  TakeItems(merged);
}

void TVxDoubleSortList::AddUnsorted(std::span<const double> Values) {
  TPieces pieces(Items());
  for (double value : Values) {
    const int count = pieces.Count();
    const int place = FindPlace(count, value, [&](int index) { return pieces.At(index); });
    if (!iUnique || place == count || pieces.At(place) != value) pieces.Insert(place, value);
  }
  TakeItems(pieces.Joined());
}

void TVxDoubleSortList::TakeItems(std::span<const double> Items) {
  const int count = static_cast<int>(Items.size());
  while (GetCapacity() < count) {
    const int before = GetCapacity();
    Grow();
    if (GetCapacity() == before) SetCapacity(count);
  }
  std::copy(Items.begin(), Items.end(), iList.begin());
  iCount = count;
}

void TVxDoubleSortList::Exchange(int, int) { Refuse(u"Exchange"); }
void TVxDoubleSortList::Move(int, int) { Refuse(u"Move"); }

}  // namespace vx
