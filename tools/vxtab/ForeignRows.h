// The one walk over rows and cells by the rules of other programs, for bytes and for code units. Internal to the
// readers of such files.
#pragma once

#include <algorithm>
#include <cstring>

#include "platform/Scan.h"

namespace vx::vxtab {

inline const char16_t* FindQuote(const char16_t* First, const char16_t* Last) {
  return scan::FindUnit(First, Last, u'"');
}
inline const char* FindQuote(const char* First, const char* Last) {
  const void* found = First == Last ? nullptr : std::memchr(First, '"', static_cast<size_t>(Last - First));
  return found ? static_cast<const char*>(found) : Last;
}

// The first separator or line end.
template <typename TUnit>
const TUnit* FindCellEnd(const TUnit* First, const TUnit* Last, TUnit Separator) {
#if defined(__SSE2__)
  if constexpr (sizeof(TUnit) == 1) {
    const __m128i separator = _mm_set1_epi8(Separator), lf = _mm_set1_epi8('\n'), cr = _mm_set1_epi8('\r');
    for (; Last - First >= 16; First += 16) {
      const __m128i bytes = scan::Load(First);
      const __m128i ends = _mm_or_si128(_mm_cmpeq_epi8(bytes, lf), _mm_cmpeq_epi8(bytes, cr));
      if (unsigned mask = scan::Mask(_mm_or_si128(ends, _mm_cmpeq_epi8(bytes, separator)))) {
        return First + std::countr_zero(mask);
      }
    }
  }
#endif
  return std::find_if(First, Last, [=](TUnit unit) { return unit == Separator || unit == '\n' || unit == '\r'; });
}

// Walks the row that begins at First and returns where the next one begins, or Last. Sink.Cell(first, count) gets
// each cell as it stands in the text, quotes included.
template <typename TUnit, typename TSink>
const TUnit* WalkRow(const TUnit* First, const TUnit* Last, TUnit Separator, TSink& Sink) {
  const TUnit* pos = First;
  for (bool isFirst = true;; isFirst = false) {
    const TUnit* start = pos;
    if (pos != Last && *pos == '"') {
      pos = FindQuote(pos + 1, Last);
      while (Last - pos > 1 && pos[1] == '"') pos = FindQuote(pos + 2, Last);
      if (pos != Last) ++pos;
    }
    pos = FindCellEnd(pos, Last, Separator);
    const bool atSeparator = pos != Last && *pos == Separator;
    if (!isFirst || pos != start || atSeparator) Sink.Cell(start, static_cast<size_t>(pos - start));
    if (!atSeparator) break;
    ++pos;
  }
  if (Last - pos > 1 && pos[0] == '\r' && pos[1] == '\n') ++pos;
  return pos == Last ? pos : pos + 1;
}

// The number of the cells that come.
struct TCellCount {
  template <typename TUnit>
  void Cell(const TUnit*, size_t) noexcept {
    ++Cells;
  }
  int Cells = 0;
};

}  // namespace vx::vxtab
