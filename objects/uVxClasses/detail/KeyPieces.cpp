#include "objects/uVxClasses/detail/KeyPieces.h"

#include <cmath>

namespace vx::detail {

int TKeyPieces::MostInPiece() const noexcept { return std::max(256, static_cast<int>(std::sqrt(Count()))); }

void TKeyPieces::Insert(int Index, String Text, TObject* Object) {
  if (FPieces.empty()) {
    FEnds.reserve(1);
    FPieces.push_back(std::make_unique<TEntries>());
    FEnds.push_back(0);
  }
  const size_t piece = Index == Count() ? FPieces.size() - 1 : PieceOf(Index);
  TEntries& keys = *FPieces[piece];
  if (keys.Count() >= MostInPiece()) {
    Split(piece);
    return Insert(Index, std::move(Text), Object);
  }
  keys.Insert(Index - Begin(piece), std::move(Text), Object);
  for (size_t i = piece; i < FEnds.size(); ++i) ++FEnds[i];
}

void TKeyPieces::Split(size_t Piece) {
  FPieces.reserve(FPieces.size() + 1);
  FEnds.reserve(FEnds.size() + 1);
  TEntries& front = *FPieces[Piece];
  const int half = front.Count() / 2;
  auto back = std::make_unique<TEntries>();
  back->SetCapacity(front.Count());
  for (int i = half; i < front.Count(); ++i) back->Insert(back->Count(), front.Text(i), front.Object(i));
  while (front.Count() > half) front.Erase(front.Count() - 1);
  const auto place = static_cast<std::ptrdiff_t>(Piece);
  FPieces.insert(FPieces.begin() + place + 1, std::move(back));
  FEnds.insert(FEnds.begin() + place, Begin(Piece) + half);
}

void TKeyPieces::Erase(int Index) {
  const auto [piece, index] = SpotOf(Index);
  FPieces[piece]->Erase(index);
  for (size_t i = piece; i < FEnds.size(); ++i) --FEnds[i];
  if (FPieces[piece]->Count() > 0) return;
  FPieces.erase(FPieces.begin() + static_cast<std::ptrdiff_t>(piece));
  FEnds.erase(FEnds.begin() + static_cast<std::ptrdiff_t>(piece));
}

void TKeyPieces::Fill(const TEntries& Whole) {
  TKeyPieces filled;
  const int most = std::max(256, static_cast<int>(std::sqrt(Whole.Count())));
  for (int i = 0; i < Whole.Count(); ++i) {
    if (i % (most / 2) == 0) {
      filled.FEnds.push_back(i);
      filled.FPieces.push_back(std::make_unique<TEntries>());
      filled.FPieces.back()->SetCapacity(most);
    }
    TEntries& keys = *filled.FPieces.back();
    keys.Insert(keys.Count(), Whole.Text(i), Whole.Object(i));
    filled.FEnds.back() = i + 1;
  }
  FPieces.swap(filled.FPieces);
  FEnds.swap(filled.FEnds);
}

void TKeyPieces::CopyTo(TEntries& Whole) const {
  TEntries copy;
  copy.SetCapacity(Count());
  for (const auto& piece : FPieces) {
    for (int i = 0; i < piece->Count(); ++i) copy.Insert(copy.Count(), piece->Text(i), piece->Object(i));
  }
  Whole.swap(copy);
}

void TKeyPieces::Clear() noexcept {
  FPieces.clear();
  FEnds.clear();
}

}  // namespace vx::detail
