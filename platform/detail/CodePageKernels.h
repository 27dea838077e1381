// The loops that convert long texts, for the code pages and their tests.
//
//   DecodeLoop   bytes to code units by a table
//   EncodeLoop   code units to bytes by a table
//
// Each comes in a portable form (kVector = false) and one that handles 16 and 64 characters in a step
// where the processor has SSE2 (kVector = true; the portable form elsewhere). Both give the same.
//
// Example:
//   DecodeLoop<kHasVector>(table, false, bytes, count, target);
//
// Pitfall: Latin says that the bytes 0xA0 to 0xFF and the code units of the same numbers map to each
// other; it only makes the loops faster and must be false where that does not hold.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vx::codepage {

#if defined(__SSE2__)
inline constexpr bool kHasVector = true;
#else
inline constexpr bool kHasVector = false;
#endif

#if defined(__SSE2__)
// Widens 16 bytes to the code units of the same numbers. A bit is set for each that is to be taken
// from the table.
inline uint64_t Widen16(const char* Bytes, char16_t* Target, bool Latin) noexcept {
  const __m128i zero = _mm_setzero_si128();
  // Signed, 0x80 to 0x9F are the values below -96, all from 0x80 those below 0.
  const __m128i limit = Latin ? _mm_set1_epi8(-96) : zero;
  __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(Bytes));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(Target), _mm_unpacklo_epi8(bytes, zero));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(Target + 8), _mm_unpackhi_epi8(bytes, zero));
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmplt_epi8(bytes, limit)));
}

// All bits set in each of the eight units that are not the byte of the same number.
inline __m128i Foreign8(__m128i Units, bool Latin) noexcept {
  const __m128i zero = _mm_setzero_si128();
  if (!Latin) return _mm_cmpgt_epi16(_mm_srli_epi16(Units, 7), zero);
  __m128i wide = _mm_cmpgt_epi16(_mm_srli_epi16(Units, 8), zero);
  __m128i control = _mm_cmpeq_epi16(_mm_srli_epi16(Units, 5), _mm_set1_epi16(0x80 >> 5));
  return _mm_or_si128(wide, control);
}

// Packs 16 code units to the bytes of the same numbers, with bits as Widen16 gives them. Bytes of
// units above 0xFF are spoiled by the packing and are among those.
inline uint64_t Narrow16(const char16_t* Units, char* Target, bool Latin) noexcept {
  __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(Units));
  __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(Units + 8));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(Target), _mm_packus_epi16(low, high));
  __m128i foreign = _mm_packs_epi16(Foreign8(low, Latin), Foreign8(high, Latin));
  return static_cast<unsigned>(_mm_movemask_epi8(foreign));
}
#endif

// Runs Step(at) on whole steps of 16 and Patch(at) on each character whose bit Step gave; returns
// how far it came. Bits of four steps are gathered, since each walk over bits ends in a jump that the
// processor can't foresee.
template <typename TStep, typename TPatch>
inline size_t Stepwise(size_t Count, TStep Step, TPatch Patch) noexcept {
  size_t i = 0;
  for (; Count - i >= 64; i += 64) {
    uint64_t mask = Step(i) | Step(i + 16) << 16 | Step(i + 32) << 32 | Step(i + 48) << 48;
    for (; mask != 0; mask &= mask - 1) Patch(i + static_cast<size_t>(std::countr_zero(mask)));
  }
  for (; Count - i >= 16; i += 16) {
    for (uint64_t mask = Step(i); mask != 0; mask &= mask - 1) Patch(i + static_cast<size_t>(std::countr_zero(mask)));
  }
  return i;
}

// Table: 256 code units, the first 128 the bytes themselves.
template <bool kVector>
void DecodeLoop(const char16_t* Table, [[maybe_unused]] bool Latin, const char* Bytes, size_t Count,
                char16_t* Target) noexcept {
  auto patch = [&](size_t at) { Target[at] = Table[static_cast<uint8_t>(Bytes[at])]; };
  size_t i = 0;
#if defined(__SSE2__)
  if constexpr (kVector) {
    i = Stepwise(
        Count, [&](size_t at) { return Widen16(Bytes + at, Target + at, Latin); }, patch);
  }
#endif
  for (; i < Count; ++i) patch(i);
}

// Table: the byte of each of the 65536 code units, the first 128 the units themselves.
template <bool kVector>
void EncodeLoop(const uint8_t* Table, [[maybe_unused]] bool Latin, const char16_t* Units, size_t Count,
                char* Target) noexcept {
  auto patch = [&](size_t at) { Target[at] = static_cast<char>(Table[Units[at]]); };
  size_t i = 0;
#if defined(__SSE2__)
  if constexpr (kVector) {
    i = Stepwise(
        Count, [&](size_t at) { return Narrow16(Units + at, Target + at, Latin); }, patch);
  }
#endif
  for (; i < Count; ++i) patch(i);
}

}  // namespace vx::codepage
