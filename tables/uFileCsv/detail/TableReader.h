// Reads a table file, in chunks, from bytes straight to the cells of rows. Internal to uFileCsv.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/CodePage.h"
#include "platform/StringArena.h"
#include "platform/Types.h"
#include "tables/uFileCsv/detail/RowMemory.h"

namespace vx::detail {

// The separator by the counts of the four in a first line; see TFileCsv::AnalyseToParse.
struct TSeparatorCounts {
  size_t Commas = 0, Semicolons = 0, Escapes = 0, Tabs = 0;
  void Count(char16_t Unit) noexcept {
    Commas += Unit == u',';
    Semicolons += Unit == u';';
    Escapes += Unit == 27;
    Tabs += Unit == 9;
  }
  char16_t Winner() const noexcept;
};

// Counts in the first line of [First, Last), double quotes regarded. Returns where the line ends, Last
// if it does not.
template <typename Unit>
const Unit* CountSeparators(const Unit* First, const Unit* Last, TSeparatorCounts& Counts) {
  bool inQuotes = false;
  for (; First != Last; ++First) {
    if (*First == '"') {
      inQuotes = !inQuotes;
    } else if (!inQuotes) {
      if (*First == '\n' || *First == '\r') return First;
      Counts.Count(*First);
    }
  }
  return First;
}

// Reads all rows of a file's bytes once. Bytes become code units by the system's code page; those of the
// German letters in old DOS code pages are then turned right, and zeros are left out.
class TTableReader {
 public:
  using TTakeRow = FunctionRef<void(std::unique_ptr<TVxStringList> Row)>;

  // Up to Count bytes, 0 at the end.
  using TRead = FunctionRef<size_t(void* Target, size_t Count)>;

  // Size: of the file, as far as it is known.
  TTableReader(TRead Read, int64_t Size);
  TTableReader(const TTableReader&) = delete;
  TTableReader& operator=(const TTableReader&) = delete;
  void ReadAll(TTakeRow TakeRow);

 private:
  // The bytes of one row as a source of cells. A byte up to 32 stands behind the last one, and at least
  // 16 more may be read.
  struct TSource {
    using Unit = unsigned char;
    TSource(const TByteTable& Bytes, TBulkMemory* Memory) : Table(Bytes), Arena(Memory) {}
    template <bool kLines>
    const Unit* TakeUnquoted(const Unit* First, const Unit* Last);
    const Unit* NextQuote(const Unit* First, const Unit* Last) const;
    void TakeEmpty() {
      ::new (Cells.Place()) String();
      Cells.Advance();
    }
    void TakePlain(const Unit* Bytes, size_t ByteCount) {
      ::new (Cells.Place()) String(Arena.Decode(Table, Bytes, ByteCount));
      Cells.Advance();
    }
    void TakeQuoted(const Unit* Bytes, size_t ByteCount, size_t Pairs);

    TByteTable Table;
    Unit Delimiter = ',';
    static constexpr Unit Quote = '"';
    TEntryFiller Cells;
    TStringArena Arena;
  };

  // Makes more bytes available behind the unread ones; false at the end of the file.
  bool Fill();
  void FindDelimiter();
  bool NextRow();
  // Takes the row of [FPos, LineEnd), whose quotes stand in odd places.
  bool TakeIrregularRow(const unsigned char* LineEnd);
  const unsigned char* FindLineEnd() const;
  // Steps over a line end of one or two characters.
  void SkipLineEnd();
  bool AtLineEnd() const { return FPos != FEnd && (*FPos == '\r' || *FPos == '\n'); }
  std::unique_ptr<TVxStringList> MakeRow();

  TRead FRead;
  std::vector<unsigned char> FBuffer;
  const unsigned char* FPos;
  unsigned char* FEnd;
  bool FAtEof = false;
  TRowMemory FMemory;
  TSource FSource;
};

}  // namespace vx::detail
