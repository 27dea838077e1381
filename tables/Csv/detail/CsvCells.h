// Makes texts of the cells that the walk finds. Internal to the readers of Csv.
#pragma once

#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/CodePage.h"
#include "platform/StringArena.h"
#include "tables/Csv/TCsvFaults.h"
#include "tables/Csv/TCsvForm.h"
#include "tables/Csv/detail/CsvRows.h"

namespace vx::detail {

// A fault of the present row, by the unit where it stands.
template <typename TUnit>
struct TCsvFound {
  TCsvFaultKind Kind;
  int Col;
  const TUnit* At;
};

// What both kinds of units have in common. TSelf has Take(first, count,
// from, to): a cell of at least one unit, and where it stands in the file, quotes and all.
template <typename TUnit, typename TSelf>
class TCsvCellBase {
 public:
  TCsvCellBase(TBulkMemory* Memory, TUnit Quote) : FArena(Memory), FQuote(Quote) {}

  void Empty() {
    ::new (Filler.Place()) String();
    Filler.Advance();
    ++Count;
  }
  void Plain(const TUnit* First, size_t UnitCount) {
    Self().Take(First, UnitCount, First, First + UnitCount);
    ++Count;
  }
  void Quoted(const TUnit* First, size_t UnitCount, size_t Pairs) {
    if (UnitCount == 0) return Empty();
    if (Pairs == 0) return Plain(First, UnitCount);
    FScratch.clear();
    Single(First, UnitCount);
    TakeScratch(First, First + UnitCount);
  }
  void Tailed(const TUnit* First, size_t UnitCount, size_t, const TUnit* Tail, size_t TailCount) {
    Note(cfTextBehindQuote, Tail);
    FScratch.clear();
    Single(First, UnitCount);
    FScratch.insert(FScratch.end(), Tail, Tail + TailCount);
    TakeScratch(First, Tail + TailCount);
  }
  void Unclosed(const TUnit* Open) { Note(cfOpenQuote, Open); }

  // Forgets the cells and faults of a row.
  void Drop() noexcept {
    Filler.DropAll();
    Count = 0;
    Found.clear();
    FoundCount = 0;
  }

  TEntryFiller Filler;
  int Count = 0;  // of the cells of the present row
  // The faults of the present row: all counted, the first ones kept.
  std::vector<TCsvFound<TUnit>> Found;
  int64_t FoundCount = 0;

 protected:
  void Note(TCsvFaultKind Kind, const TUnit* At) {
    ++FoundCount;
    if (Found.size() < TCsvFaults::kMostKept) Found.push_back({Kind, Count, At});
  }
  void Put(String Text) {
    ::new (Filler.Place()) String(std::move(Text));
    Filler.Advance();
  }
  TStringArena FArena;

 private:
  TSelf& Self() noexcept { return static_cast<TSelf&>(*this); }
  // Appends the units with every pair of quotes as one.
  void Single(const TUnit* First, size_t UnitCount) {
    for (const TUnit *pos = First, *end = First + UnitCount; pos != end;) {
      const TUnit* quote = std::find(pos, end, FQuote);
      if (quote != end) ++quote;
      FScratch.insert(FScratch.end(), pos, quote);
      pos = quote == end ? end : quote + 1;
    }
  }
  void TakeScratch(const TUnit* From, const TUnit* To) {
    const size_t count = FScratch.size();
    FScratch.resize(count + kCsvPadding);
    Self().Take(FScratch.data(), count, From, To);
    ++Count;
  }

  TUnit FQuote;
  std::vector<TUnit> FScratch;
};

class TCsvByteCells : public TCsvCellBase<unsigned char, TCsvByteCells> {
 public:
  // Page: nullptr for UTF-8.
  TCsvByteCells(TBulkMemory* Memory, unsigned char Quote, const TCodePage* Page);
  void Take(const unsigned char* First, size_t ByteCount, const unsigned char* From, const unsigned char* To) {
    if (FIsUtf8 && !IsAscii(First, ByteCount)) return TakeUtf8(First, ByteCount, From, To);
    ::new (Filler.Place()) String(FArena.Decode(FTable, First, ByteCount));
    Filler.Advance();
  }

 private:
  static bool IsAscii(const unsigned char* First, size_t ByteCount) noexcept;
  void TakeUtf8(const unsigned char* First, size_t ByteCount, const unsigned char* From, const unsigned char* To);

  TByteTable FTable;
  bool FIsUtf8;
  std::vector<char16_t> FUnits;
};

class TCsvUnitCells : public TCsvCellBase<char16_t, TCsvUnitCells> {
 public:
  using TCsvCellBase::TCsvCellBase;
  void Take(const char16_t* First, size_t UnitCount, const char16_t*, const char16_t*) {
    Put(FArena.Build(UnitCount, [&](char16_t* units) { std::copy_n(First, UnitCount, units); }));
  }
};

inline bool TCsvByteCells::IsAscii(const unsigned char* First, size_t ByteCount) noexcept {
#if defined(__SSE2__)
  for (; ByteCount > 16; First += 16, ByteCount -= 16) {
    if (scan::Mask(scan::Load(First)) != 0) return false;
  }
  return (scan::Mask(scan::Load(First)) & ((1u << ByteCount) - 1)) == 0;
#else
  return std::all_of(First, First + ByteCount, [](unsigned char byte) { return byte < 0x80; });
#endif
}

}  // namespace vx::detail
