// Searching for units in memory, with vector instructions where the machine has them.
//
// All functions look at [First, Last) alone and return Last if nothing is found.
//
// Threads: any number may call these at once.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vx::scan {

#if defined(__SSE2__)
inline __m128i Load(const void* Address) { return _mm_loadu_si128(static_cast<const __m128i*>(Address)); }
inline unsigned Mask(__m128i Compared) { return static_cast<unsigned>(_mm_movemask_epi8(Compared)); }
inline __m128i Fill(char16_t Unit) { return _mm_set1_epi16(static_cast<short>(Unit)); }
// All bits set in each 16-bit lane up to Limit, taken without sign.
inline __m128i UpTo(__m128i Units, char16_t Limit) {
  return _mm_cmpeq_epi16(_mm_subs_epu16(Units, Fill(Limit)), _mm_setzero_si128());
}

// Walks eight units at a time by Match, which gives all bits set in the lanes that match; then one at
// a time by Equals.
template <typename TMatch, typename TEquals>
const char16_t* Find(const char16_t* First, const char16_t* Last, TMatch Match, TEquals Equals) {
  for (; Last - First >= 8; First += 8) {
    if (unsigned mask = Mask(Match(Load(First)))) return First + (std::countr_zero(mask) >> 1);
  }
  while (First != Last && !Equals(*First)) ++First;
  return First;
}
#else
template <typename TMatch, typename TEquals>
const char16_t* Find(const char16_t* First, const char16_t* Last, TMatch, TEquals Equals) {
  while (First != Last && !Equals(*First)) ++First;
  return First;
}
#endif

#if defined(__SSE2__)
#define VX_LANES(expression) [=](__m128i units) { return expression; }
#else
#define VX_LANES(expression) 0
#endif

// The first unit equal to Unit.
inline const char16_t* FindUnit(const char16_t* First, const char16_t* Last, char16_t Unit) {
  return Find(First, Last, VX_LANES(_mm_cmpeq_epi16(units, Fill(Unit))), [=](char16_t u) { return u == Unit; });
}

// The first unit equal to A or B.
inline const char16_t* FindEither(const char16_t* First, const char16_t* Last, char16_t A, char16_t B) {
  return Find(First, Last, VX_LANES(_mm_or_si128(_mm_cmpeq_epi16(units, Fill(A)), _mm_cmpeq_epi16(units, Fill(B)))),
              [=](char16_t u) { return u == A || u == B; });
}

// The first unit up to 32 or equal to A.
inline const char16_t* FindBlankOr(const char16_t* First, const char16_t* Last, char16_t A) {
  return Find(First, Last, VX_LANES(_mm_or_si128(UpTo(units, 32), _mm_cmpeq_epi16(units, Fill(A)))),
              [=](char16_t u) { return u <= 32 || u == A; });
}

// The first unit up to 32 or equal to A or B.
inline const char16_t* FindBlankOr(const char16_t* First, const char16_t* Last, char16_t A, char16_t B) {
  return Find(First, Last,
              VX_LANES(_mm_or_si128(UpTo(units, 32),
                                    _mm_or_si128(_mm_cmpeq_epi16(units, Fill(A)), _mm_cmpeq_epi16(units, Fill(B))))),
              [=](char16_t u) { return u <= 32 || u == A || u == B; });
}

// The first unit that is half of a surrogate pair.
inline const char16_t* FindSurrogate(const char16_t* First, const char16_t* Last) {
  return Find(First, Last, VX_LANES(_mm_cmpeq_epi16(_mm_and_si128(units, Fill(0xF800)), Fill(0xD800))),
              [](char16_t u) { return (u & 0xF800) == 0xD800; });
}

#undef VX_LANES

}  // namespace vx::scan
