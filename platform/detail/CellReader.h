// Reads the cells of one row in the serial form, from code units or from bytes. Internal to the
// readers of text forms and table files.
#pragma once

#include <cstddef>

namespace vx::detail {

enum TRowEnd {
  reEnd,       // at the end of the text
  reLine,      // on the carriage return or line feed that ends the row
  reIrregular  // a quote stands inside an unquoted cell; only counting quotes tells where the row ends
};

// What the reader asks of a source of cells:
//   Unit                        the type of one code unit or byte
//   const Unit* TakeUnquoted<kLines>(p, end)   takes the cell from p on, which ends before a unit up to
//                               32 or the delimiter, and returns its end; with kLines it may end
//                               before a quote too, since all cells are dropped then
//   const Unit* NextQuote(p, end)   the first quote from p on, or end
//   void TakeEmpty()            takes an empty cell
//   void TakeQuoted(p, count, pairs)   takes count units with that many pairs of quotes, each standing
//                               for one
//   Unit Delimiter, Quote
// With kLines a carriage return or line feed outside quotes ends the row; without, both are blanks. A unit 0 ends
// the row.
template <bool kLines, typename TSource>
class TCellReader {
  using Unit = typename TSource::Unit;

 public:
  TCellReader(TSource& Source, const Unit* Text, const Unit* End) : FSource(Source), FPos(Text), FEnd(End) {}

  // Takes all cells of the row.
  TRowEnd ReadRow() {
    SkipBlanks();
    while (!AtEnd()) {
      if (*FPos == FSource.Quote) {
        TakeQuoted();
      } else {
        FPos = FSource.template TakeUnquoted<kLines>(FPos, FEnd);
        if constexpr (kLines) {
          if (FPos != FEnd && *FPos == FSource.Quote) return reIrregular;
        }
      }
      TakeDelimiter();
    }
    return FPos == FEnd ? reEnd : reLine;
  }
  // Takes the one quoted cell that begins here; returns the position behind it.
  const Unit* ReadQuoted() {
    TakeQuoted();
    return FPos;
  }
  // Where the reader stands.
  const Unit* Position() const { return FPos; }

 private:
  static bool IsLineEnd(Unit unit) { return unit == '\r' || unit == '\n'; }
  bool AtEnd() const { return FPos == FEnd || *FPos == 0 || (kLines && IsLineEnd(*FPos)); }
  void SkipBlanks() {
    while (FPos != FEnd && *FPos <= 32 && *FPos != 0 && !(kLines && IsLineEnd(*FPos))) ++FPos;
  }
  void TakeDelimiter() {
    if (FPos == FEnd) return;
    if (*FPos <= 32) SkipBlanks();
    if (FPos == FEnd || *FPos != FSource.Delimiter) return;
    ++FPos;
    if (FPos != FEnd && *FPos > 32) return;
    SkipBlanks();
    if (AtEnd()) FSource.TakeEmpty();
  }
  void TakeQuoted() {
    const Unit* start = ++FPos;
    size_t pairs = 0;
    for (;;) {
      const Unit* quote = FSource.NextQuote(FPos, FEnd);
      if (quote == FEnd) {
        // Not closed: the last character is lost, even where it belongs to a pair.
        FPos = FEnd;
        TakeUnclosed(start, pairs);
        return;
      }
      if (quote + 1 == FEnd || quote[1] != FSource.Quote) {
        FPos = quote + 1;
        FSource.TakeQuoted(start, static_cast<size_t>(quote - start), pairs);
        return;
      }
      FPos = quote + 2;
      ++pairs;
    }
  }
  void TakeUnclosed(const Unit* start, size_t pairs) {
    if (start == FEnd) {
      FSource.TakeEmpty();
    } else if (pairs > 0 && FEnd[-1] == FSource.Quote) {
      FSource.TakeQuoted(start, static_cast<size_t>(FEnd - start) - 2, pairs - 1);
    } else {
      FSource.TakeQuoted(start, static_cast<size_t>(FEnd - start) - 1, pairs);
    }
  }

  TSource& FSource;
  const Unit* FPos;
  const Unit* FEnd;
};

}  // namespace vx::detail
