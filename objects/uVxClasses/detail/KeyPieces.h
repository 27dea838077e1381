// A long row of keys in pieces. Internal to the index of keys.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "objects/uVxClasses/detail/Entries.h"

namespace vx::detail {

// What a search for a key has found: where it stands, or where it would have to.
struct TFoundKey {
  int Place;
  bool IsThere;
};

// Keys in order, each with an object, in pieces of about the root of their number: a key that comes or goes moves as
// many others. Indexes are not checked. Frees no object. std::bad_alloc changes nothing.
class TKeyPieces {
 public:
  int Count() const noexcept { return FEnds.empty() ? 0 : FEnds.back(); }
  const String& Text(int Index) const noexcept {
    const TSpot spot = SpotOf(Index);
    return FPieces[spot.Piece]->Text(spot.Index);
  }
  TObject* Object(int Index) const noexcept {
    const TSpot spot = SpotOf(Index);
    return FPieces[spot.Piece]->Object(spot.Index);
  }
  void SetObject(int Index, TObject* Object) {
    const TSpot spot = SpotOf(Index);
    FPieces[spot.Piece]->SetObject(spot.Index, Object);
  }
  // Order(key, other) is below 0, 0 or above 0.
  template <typename TOrder>
  TFoundKey Search(std::u16string_view Key, TOrder Order) const;

  void Insert(int Index, String Text, TObject* Object);
  void Erase(int Index);
  // Become the keys of Whole, and the other way round.
  void Fill(const TEntries& Whole);
  void CopyTo(TEntries& Whole) const;
  void Clear() noexcept;

 private:
  struct TSpot {
    size_t Piece;
    int Index;  // in the piece
  };
  int Begin(size_t Piece) const noexcept { return Piece == 0 ? 0 : FEnds[Piece - 1]; }
  // The first piece that ends behind Index.
  size_t PieceOf(int Index) const noexcept {
    return static_cast<size_t>(std::upper_bound(FEnds.begin(), FEnds.end(), Index) - FEnds.begin());
  }
  TSpot SpotOf(int Index) const noexcept {
    const size_t piece = PieceOf(Index);
    return {piece, Index - Begin(piece)};
  }
  // How many keys make a piece too long.
  int MostInPiece() const noexcept;
  void Split(size_t Piece);

  std::vector<std::unique_ptr<TEntries>> FPieces;  // none is empty
  std::vector<int> FEnds;                          // where each piece ends in the row
};

template <typename TOrder>
TFoundKey TKeyPieces::Search(std::u16string_view Key, TOrder Order) const {
  // The piece is the last one whose first key does not stand behind Key.
  size_t low = 0, high = FPieces.size();
  while (low < high) {
    const size_t middle = low + (high - low) / 2;
    const int order = Order(Key, FPieces[middle]->Text(0));
    if (order == 0) return {Begin(middle), true};
    if (order > 0) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  if (low == 0) return {0, false};
  const std::span<const String> keys = FPieces[low - 1]->Texts();
  size_t first = 1, last = keys.size();
  while (first < last) {
    const size_t middle = first + (last - first) / 2;
    const int order = Order(Key, keys[middle]);
    if (order == 0) return {Begin(low - 1) + static_cast<int>(middle), true};
    if (order > 0) {
      first = middle + 1;
    } else {
      last = middle;
    }
  }
  return {Begin(low - 1) + static_cast<int>(first), false};
}

}  // namespace vx::detail
