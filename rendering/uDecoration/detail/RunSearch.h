// The bisection of a run, over the decorations themselves or over copies of their places.
#pragma once

#include "rendering/uDecoration/detail/Regions.h"

namespace vx {

template <typename TSpanAt, typename TFound>
void TDLRange::Search(int Position, TSpanAt SpanAt, TFound Found) const {
  const bool rises = Rises();
  if (SpanAt(rises ? iIndBegin : iIndEnd).First > Position) return;
  if (SpanAt(rises ? iIndEnd : iIndBegin).Last < Position) return;
  int low = iIndBegin, high = iIndEnd;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    const detail::TSpan span = SpanAt(middle);
    if (span.Has(Position)) {
      low = high = middle;
    } else if ((Position >= span.First) == rises) {
      low = middle + 1;
    } else {
      high = middle - 1;
    }
  }
  if (!SpanAt(low).Has(Position)) return;
  while (low > iIndBegin && SpanAt(low - 1).Has(Position)) --low;
  for (; low <= iIndEnd && SpanAt(low).Has(Position); ++low) Found(low);
}

}  // namespace vx
