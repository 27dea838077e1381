// Which places of an array are taken, for a list that takes items out without moving those behind.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vx::detail {

// The taken places, in their order, are the items 0, 1, 2 and so on. One way and back cost the logarithm of the number
// of places; the item behind the one that was asked for last costs nothing.
class THoles {
 public:
  // So many places, all taken.
  explicit THoles(size_t Places) : FWords((Places + kBits - 1) / kBits, ~uint64_t{0}), FPlaces(Places) {
    if (Places % kBits != 0) FWords.back() >>= kBits - Places % kBits;
    FSums.resize(FWords.size());
    for (size_t word = 0; word < FWords.size(); ++word) {
      FSums[word] += std::popcount(FWords[word]);
      const size_t next = word + Low(word + 1);
      if (next < FSums.size()) FSums[next] += FSums[word];
    }
  }

  // Adds a taken place at the end.
  void Append() {
    if (FPlaces % kBits == 0) {
      FWords.push_back(0);
      // A node has the sum of so many words as its lowest bit says, up to its own.
      const size_t node = FWords.size();
      int sum = 0;
      for (size_t child = node - 1; child > node - Low(node); child -= Low(child)) sum += FSums[child - 1];
      FSums.push_back(sum);
    }
    FWords.back() |= uint64_t{1} << FPlaces % kBits;
    Add(FPlaces / kBits, 1);
    ++FPlaces;
  }

  // Frees a taken place.
  void Free(size_t Place) noexcept {
    FWords[Place / kBits] &= ~(uint64_t{1} << Place % kBits);
    Add(Place / kBits, -1);
    FLastItem = -1;
  }

  bool IsTaken(size_t Place) const noexcept { return (FWords[Place / kBits] >> Place % kBits & 1) != 0; }

  // The place of an item that is there.
  size_t PlaceOf(int Item) const noexcept {
    if (FLastItem >= 0 && Item == FLastItem + 1) {
      ++FLastPlace;
      while (!IsTaken(FLastPlace)) ++FLastPlace;
    } else if (Item != FLastItem) {
      FLastPlace = Search(Item);
    }
    FLastItem = Item;
    return FLastPlace;
  }

  // The item at a taken place.
  int ItemAt(size_t Place) const noexcept {
    int item = std::popcount(FWords[Place / kBits] & ((uint64_t{1} << Place % kBits) - 1));
    for (size_t node = Place / kBits; node > 0; node -= Low(node)) item += FSums[node - 1];
    return item;
  }

 private:
  static constexpr size_t kBits = 64;
  static size_t Low(size_t Node) noexcept { return Node & -Node; }

  void Add(size_t Word, int Count) noexcept {
    for (size_t node = Word + 1; node <= FSums.size(); node += Low(node)) FSums[node - 1] += Count;
  }

  size_t Search(int Item) const noexcept {
    size_t word = 0;
    for (size_t step = std::bit_floor(FSums.size()); step > 0; step /= 2) {
      if (word + step > FSums.size() || FSums[word + step - 1] > Item) continue;
      word += step;
      Item -= FSums[word - 1];
    }
    uint64_t bits = FWords[word];
    for (; Item > 0; --Item) bits &= bits - 1;
    return word * kBits + static_cast<size_t>(std::countr_zero(bits));
  }

  std::vector<uint64_t> FWords;  // a bit for each place
  std::vector<int> FSums;        // of the bits, as a binary indexed tree over the words
  size_t FPlaces = 0;
  mutable int FLastItem = -1;  // asked for last; -1: none
  mutable size_t FLastPlace = 0;
};

}  // namespace vx::detail
