// The one walk over the cells of a row, for bytes and for code units. Internal to the readers of Csv.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/Scan.h"

namespace vx::detail {

// Before the first byte that is no unit any more, a line feed stands; so many units behind it may be read.
inline constexpr size_t kCsvPadding = 64;

// What closes cells, in units of the file.
template <typename TUnit>
struct TCsvMarks {
  // As many units as SeparatorLength tells. A file that can't have its separator has a line feed for one, which closes
  // the line before anyone asks.
  std::array<TUnit, 4> Separator{'\n'};
  size_t SeparatorLength = 1;
  TUnit Quote = '"';
  bool HasQuote = true;
};

// TSink is asked for: Empty(); Plain(first, count), a cell without quotes, count > 0; Quoted(first, count, pairs), what
// stands between two quotes, with that many pairs of quotes in it; Tailed(first, count, pairs, tail, tailCount), the
// same and what stands behind the closing quote; Unclosed(open), the quote of the cell that comes next is never closed.
template <typename TUnit, typename TSink>
class TCsvWalk {
 public:
  // Last: where the units that are there end, and a line feed stands for the walk. IsLast: no more come.
  TCsvWalk(const TCsvMarks<TUnit>& Marks, const TUnit* Last, bool IsLast, TSink& Sink)
      : FMarks(Marks), FLast(Last), FIsLast(IsLast), FSink(Sink) {}

  // Walks the row that begins at First, before Last, and returns where the next one begins; nullptr if the row may go
  // on behind Last: the sink has got cells then that are to be forgotten.
  const TUnit* Row(const TUnit* First) {
    const TUnit* pos = First;
    for (bool isFirst = true;; isFirst = false) {
      const TUnit* const start = pos;
      if (*pos == FMarks.Quote && FMarks.HasQuote && pos != FLast) {
        pos = QuotedCell(pos);
        if (pos == nullptr) return nullptr;
      } else {
        pos = CellEnd(pos);
        if (pos == FLast && !FIsLast) return nullptr;
        if (pos != start) {
          FSink.Plain(start, static_cast<size_t>(pos - start));
        } else if (!isFirst || !IsLineEnd(*pos)) {
          FSink.Empty();
        }
      }
      if (IsLineEnd(*pos)) return Next(pos);
      pos += FMarks.SeparatorLength;
    }
  }
  // The line ends that the walk has passed.
  int64_t Lines() const noexcept { return FLines; }

 private:
  static bool IsLineEnd(TUnit Unit) { return Unit == '\n' || Unit == '\r'; }

  const TUnit* Next(const TUnit* LineEnd) {
    if (LineEnd == FLast) return FLast;
    ++FLines;
    const TUnit* next = LineEnd + 1;
    if (*LineEnd == '\n') return next;
    if (next == FLast) return FIsLast ? next : nullptr;
    return *next == '\n' ? next + 1 : next;
  }

  // The first separator or line end from First on.
  const TUnit* CellEnd(const TUnit* First) const {
    const TUnit* pos = Find(First, FMarks.Separator[0]);
    if (FMarks.SeparatorLength == 1) return pos;
    while (!IsLineEnd(*pos) && !std::equal(pos, pos + FMarks.SeparatorLength, FMarks.Separator.begin())) {
      pos = Find(pos + 1, FMarks.Separator[0]);
    }
    return pos;
  }

  // The first line end or Unit from First on.
  static const TUnit* Find(const TUnit* First, TUnit Unit) {
#if defined(__SSE2__)
    const auto match = [](auto a, auto b) { return sizeof(TUnit) == 1 ? _mm_cmpeq_epi8(a, b) : _mm_cmpeq_epi16(a, b); };
    const auto fill = [](TUnit unit) {
      return sizeof(TUnit) == 1 ? _mm_set1_epi8(static_cast<char>(unit)) : _mm_set1_epi16(static_cast<short>(unit));
    };
    const __m128i unit = fill(Unit), lf = fill('\n'), cr = fill('\r');
    for (;; First += 16 / sizeof(TUnit)) {
      const __m128i units = scan::Load(First);
      const __m128i ends = _mm_or_si128(match(units, lf), match(units, cr));
      if (unsigned mask = scan::Mask(_mm_or_si128(ends, match(units, unit)))) {
        return First + static_cast<size_t>(std::countr_zero(mask)) / sizeof(TUnit);
      }
    }
#else
    while (*First != Unit && !IsLineEnd(*First)) ++First;
    return First;
#endif
  }

  // Open: the opening quote. Returns the separator or line end behind the cell.
  const TUnit* QuotedCell(const TUnit* Open) {
    const TUnit* const first = Open + 1;
    size_t pairs = 0;
    const TUnit* pos = first;
    for (;;) {
      pos = Find(pos, FMarks.Quote);
      if (pos == FLast) return Unclosed(Open, pairs);
      if (*pos != FMarks.Quote) {
        ++FLines;
        if (*pos == '\r' && pos + 1 != FLast && pos[1] == '\n') ++pos;
        ++pos;
        continue;
      }
      if (pos + 1 == FLast || pos[1] != FMarks.Quote) break;
      ++pairs;
      pos += 2;
    }
    const size_t count = static_cast<size_t>(pos - first);
    const TUnit* const tail = pos + 1;
    const TUnit* const end = CellEnd(tail);
    if (end == FLast && !FIsLast) return nullptr;
    if (end == tail) {
      FSink.Quoted(first, count, pairs);
    } else {
      FSink.Tailed(first, count, pairs, tail, static_cast<size_t>(end - tail));
    }
    return end;
  }

  const TUnit* Unclosed(const TUnit* Open, size_t Pairs) {
    if (!FIsLast) return nullptr;
    FSink.Unclosed(Open);
    FSink.Quoted(Open + 1, static_cast<size_t>(FLast - Open) - 1, Pairs);
    return FLast;
  }

  const TCsvMarks<TUnit>& FMarks;
  const TUnit* const FLast;
  const bool FIsLast;
  TSink& FSink;
  int64_t FLines = 0;
};

// The number of the cells that come.
struct TCsvCellCount {
  int Cells = 0;
  void Empty() noexcept { ++Cells; }
  void Plain(const void*, size_t) noexcept { ++Cells; }
  void Quoted(const void*, size_t, size_t) noexcept { ++Cells; }
  void Tailed(const void*, size_t, size_t, const void*, size_t) noexcept { ++Cells; }
  void Unclosed(const void*) noexcept {}
};

}  // namespace vx::detail
