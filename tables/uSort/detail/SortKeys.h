// The keys by which many cells are put in order: made once for each cell.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "tables/uSort/detail/CellValues.h"

namespace vx::detail {

// Numbers that stand as the values do.
constexpr uint64_t KeyOf(int64_t Value) noexcept {
  return static_cast<uint64_t>(Value) ^ uint64_t { 1 } << 63;
}
// That of the nearest double, so that different values may share it. -0 is 0; Value is no NaN.
uint64_t KeyOf(Extended Value) noexcept;
// So few digits that no two such numbers have the same nearest double, unless they are equal.
bool HasFewDigits(std::u16string_view Number) noexcept;

// Keys of bytes, one after the other, read as words of 8 bytes with 0 behind the end.
class TByteKeys {
 public:
  // For Count keys, with none yet.
  explicit TByteKeys(size_t Count);
  // Append the key of a text, in the order of AnsiCompareText or of code units, and give its first word.
  uint64_t AddText(std::u16string_view Text);
  uint64_t AddUnits(std::u16string_view Text);

  uint64_t Word(uint32_t Slot, size_t Index) const noexcept;
  size_t Size(uint32_t Slot) const noexcept { return FStarts[Slot + 1] - FStarts[Slot]; }
  // False for a key that does not tell all of its text; see AppendCollationKey.
  bool IsWhole(uint32_t Slot) const noexcept { return FAllWhole || FWhole[Slot]; }
  // Word and Size will be asked for Slot soon.
  void PrefetchStart(uint32_t Slot) const noexcept { __builtin_prefetch(&FStarts[Slot]); }
  void PrefetchBytes(uint32_t Slot) const noexcept { __builtin_prefetch(FBytes.data() + FStarts[Slot]); }

 private:
  std::vector<uint8_t> FBytes;
  std::vector<size_t> FStarts;  // and the end of the last one
  std::vector<bool> FWhole;     // empty as long as all are
  bool FAllWhole = true;
};

// The keys of a column of dates or times in the default format. The cells in the usual forms have numbers that
// stand as CompareDate, CompareTime and CompareDateTime have the cells. Some cells of other forms have none,
// or spoil those of the others; then the cells themselves have to be compared.
class TMomentKeys {
 public:
  explicit TMomentKeys(TVxFieldType FieldType) noexcept;
  uint64_t Add(std::u16string_view Cell) noexcept;
  // Asked behind the last Add: the numbers tell.
  bool AreExact() const noexcept { return FExact && !(FHasOther && FSpoiledByOther); }
  // Then the number to sort by instead of the one that Add gave: the same order in fewer bits.
  uint64_t Packed(uint64_t Key) const noexcept { return FAllDigits ? PackDigits(Key) : Key; }

 private:
  static uint64_t PackDigits(uint64_t Digits) noexcept;
  uint64_t AddDate(std::u16string_view Cell) noexcept;
  uint64_t AddTime(std::u16string_view Cell) noexcept;
  uint64_t AddDateTime(std::u16string_view Cell) noexcept;
  uint64_t NoKey() noexcept {
    FExact = false;
    return 0;
  }

  TVxFieldType FType;
  bool FUsualSettings;           // dates are read as day, month and year with points
  bool FExact = true;            // every cell has a key
  bool FHasOther = false;        // a cell that is always read, never compared by its characters
  bool FSpoiledByOther = false;  // a cell whose characters do not stand as its value does
  bool FAllDigits;               // the keys are eight digits each, as characters
};

}  // namespace vx::detail
