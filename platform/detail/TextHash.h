// Hashes of texts, with or without regard to case, for tables of keys.
//
//   TTextHash   takes text after text; Get gives the hash of all
//   IsSameFolded   whether two texts are the same but for their case: texts of one LowerCase form
//
// Nobody can choose texts of equal hashes, as no one knows the seed: it is another one in each process. So nothing that
// can be seen may depend on a hash.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string_view>

#include "platform/detail/CaseTables.h"

namespace vx::detail {

inline constexpr size_t kHashBlock = 4;  // code units in 64 bits

constexpr uint64_t SpreadUnit(uint16_t Unit) noexcept { return uint64_t{Unit} * 0x0001000100010001; }

// Four units as small letters.
inline uint64_t FoldUnits(uint64_t Units) noexcept {
  if ((Units & SpreadUnit(0xFF80)) == 0) {
    // Bit 7 of each unit: from "A" on, and from behind "Z" on.
    const uint64_t large =
        (Units + SpreadUnit(0x80 - u'A')) & ~(Units + SpreadUnit(0x80 - u'Z' - 1)) & SpreadUnit(0x80);
    return Units + (large >> 2);
  }
  uint64_t result = 0;
  for (int shift = 0; shift < 64; shift += 16) {
    result |= uint64_t{CaseMap::Lower(static_cast<char16_t>(Units >> shift))} << shift;
  }
  return result;
}

// The units from Index on; in a longer text the last four for the rest at its end, in a shorter one 0 for units
// that are not there.
inline uint64_t LoadUnits(std::u16string_view Text, size_t Index) noexcept {
  uint64_t block = 0;
  if (Text.size() >= kHashBlock) {
    std::memcpy(&block, Text.data() + std::min(Index, Text.size() - kHashBlock), sizeof block);
  } else {
    for (char16_t unit : Text) block = block << 16 | unit;
  }
  return block;
}

inline bool IsSameFolded(std::u16string_view A, std::u16string_view B) noexcept {
  if (A.size() != B.size()) return false;
  for (size_t i = 0; i < A.size(); i += kHashBlock) {
    const uint64_t a = LoadUnits(A, i), b = LoadUnits(B, i);
    if (a != b && FoldUnits(a) != FoldUnits(b)) return false;
  }
  return true;
}

inline uint64_t HashSeed() {
  static const uint64_t seed = uint64_t{std::random_device()()} << 32 | std::random_device()();
  return seed;
}

inline uint64_t MixHash(uint64_t A, uint64_t B) noexcept {
  __extension__ using TWide = unsigned __int128;
  const TWide product = static_cast<TWide>(A) * B;
  return static_cast<uint64_t>(product) ^ static_cast<uint64_t>(product >> 64);
}

class TTextHash {
 public:
  explicit TTextHash(uint64_t Seed) noexcept : FHash(Seed) {}

  void Add(std::u16string_view Text) noexcept {
    AddWith(Text, [](uint64_t units) { return units; });
  }
  // Texts that differ in case alone count the same.
  void AddFolded(std::u16string_view Text) noexcept { AddWith(Text, FoldUnits); }
  uint64_t Get() const noexcept { return FHash ^ FHash >> 32; }

 private:
  // The size goes in first, so that u"a", u"bc" is another row of texts than u"ab", u"c".
  template <typename F>
  void AddWith(std::u16string_view Text, F Fold) noexcept {
    FHash = MixHash(FHash ^ Text.size(), 0xD6E8FEB86659FD93);
    for (size_t i = 0; i < Text.size(); i += kHashBlock) {
      FHash = MixHash(FHash ^ Fold(LoadUnits(Text, i)), 0x9E3779B97F4A7C15);
    }
  }
  uint64_t FHash;
};

}  // namespace vx::detail
