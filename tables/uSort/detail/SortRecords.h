// The sorting of records by 64-bit words.
#pragma once

#include <cstdint>
#include <span>

namespace vx::detail {

struct TSortRecord {
  uint64_t Word;
  uint32_t Row;
  uint32_t Slot;  // the place of the row's key among the keys
};

// Puts Records in the order of their words; equal ones keep their order, which has to be that of their rows.
// Scratch is room for as many. Time n, with a factor by the number of bits in which the words differ.
void SortRecords(std::span<TSortRecord> Records, std::span<TSortRecord> Scratch);

}  // namespace vx::detail
