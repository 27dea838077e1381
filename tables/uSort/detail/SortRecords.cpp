#include "tables/uSort/detail/SortRecords.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace vx::detail {
namespace {

constexpr size_t kInsertion = 24;     // up to so many, by insertion
constexpr size_t kComparing = 96;     // up to so many, by comparing
constexpr size_t kNarrow = 4096;      // up to so many, digits of 8 bits
constexpr size_t kInCache = 1 << 15;  // above, parted so that the parts are near each other
constexpr int kWideBits = 11;

using TCounts = std::array<uint32_t, 1 << kWideBits>;

void SortByInsertion(std::span<TSortRecord> Records) noexcept {
  for (size_t i = 1; i < Records.size(); ++i) {
    const TSortRecord record = Records[i];
    size_t to = i;
    for (; to > 0 && record.Word < Records[to - 1].Word; --to) Records[to] = Records[to - 1];
    Records[to] = record;
  }
}

// The bits in which the words differ; 0 also where they stand in order already.
uint64_t BitsToSortBy(std::span<const TSortRecord> Records) noexcept {
  const uint64_t first = Records.front().Word;
  uint64_t differing = 0, last = first;
  bool isOrdered = true;
  for (const TSortRecord& record : Records) {
    differing |= record.Word ^ first;
    isOrdered &= last <= record.Word;
    last = record.Word;
  }
  return isOrdered ? 0 : differing;
}

// Copies Records to Target in the order of the digit at Shift. Ends[d] is where those with digit d end.
void Distribute(std::span<const TSortRecord> Records, TSortRecord* Target, int Shift, int Bits, TCounts& Ends) {
  const uint64_t mask = (uint64_t{1} << Bits) - 1;
  std::fill_n(Ends.begin(), mask + 1, 0);
  for (const TSortRecord& record : Records) ++Ends[record.Word >> Shift & mask];
  uint32_t start = 0;
  for (size_t digit = 0; digit <= mask; ++digit) start += std::exchange(Ends[digit], start);
  for (const TSortRecord& record : Records) Target[Ends[record.Word >> Shift & mask]++] = record;
}

// From and Other are places for the same records, which stand in From; they end up in Other if ToOther.
void Sort(std::span<TSortRecord> From, std::span<TSortRecord> Other, bool ToOther);

// From the highest digit down, each part by itself.
void SortParts(std::span<TSortRecord> From, std::span<TSortRecord> Other, bool ToOther, uint64_t Differing) {
  const int shift = std::max(0, static_cast<int>(std::bit_width(Differing)) - kWideBits);
  TCounts ends;
  Distribute(From, Other.data(), shift, kWideBits, ends);
  size_t start = 0;
  for (uint32_t end : ends) {
    if (end > start) Sort(Other.subspan(start, end - start), From.subspan(start, end - start), !ToOther);
    start = end;
  }
}

// From the lowest digit up, digits that are the same everywhere left out.
bool SortDigits(std::span<TSortRecord> From, std::span<TSortRecord> Other, uint64_t Differing) {
  const int bits = From.size() > kNarrow ? kWideBits : 8;
  bool isInOther = false;
  TCounts ends;
  while (Differing != 0) {
    const int shift = std::countr_zero(Differing);
    Distribute(isInOther ? Other : From, (isInOther ? From : Other).data(), shift, bits, ends);
    isInOther = !isInOther;
    Differing = shift + bits < 64 ? Differing >> (shift + bits) << (shift + bits) : 0;
  }
  return isInOther;
}

void Sort(std::span<TSortRecord> From, std::span<TSortRecord> Other, bool ToOther) {
  bool isInOther = false;
  if (From.size() <= kInsertion) {
    SortByInsertion(From);
  } else if (const uint64_t differing = BitsToSortBy(From); differing != 0) {
    if (From.size() > kInCache) return SortParts(From, Other, ToOther, differing);
    if (From.size() > kComparing) {
      isInOther = SortDigits(From, Other, differing);
    } else {
      std::sort(From.begin(), From.end(), [](const TSortRecord& A, const TSortRecord& B) {
        return A.Word != B.Word ? A.Word < B.Word : A.Row < B.Row;
      });
    }
  }
  if (isInOther != ToOther) {
    std::span<TSortRecord> source = isInOther ? Other : From;
    std::copy(source.begin(), source.end(), (isInOther ? From : Other).begin());
  }
}

}  // namespace

void SortRecords(std::span<TSortRecord> Records, std::span<TSortRecord> Scratch) {
  if (Records.size() > 1) Sort(Records, Scratch.first(Records.size()), false);
}

}  // namespace vx::detail
