#include "tables/uFileCsv/detail/TableReader.h"

#include <algorithm>
#include <cstring>

#include "platform/Scan.h"
#include "platform/detail/CellReader.h"

namespace vx::detail {

namespace {

constexpr int64_t kChunk = 256 * 1024;
constexpr int64_t kLargeFile = 1024 * 1024;  // from here on rows come by the ten thousand
constexpr size_t kPadding = 64;              // readable behind the last byte, for vector instructions
constexpr unsigned char kSentinel = '\n';    // stands behind the last byte and ends the last cell

// The places of the German letters in the code pages 437 and 850. That the letter á turns into ß is
// wanted: files rely on it.
char16_t RepairDosLetter(char16_t Unit) {
  switch (Unit) {
    case 129:
      return 252;
    case 132:
      return 228;
    case 142:
      return 196;
    case 148:
      return 246;
    case 153:
      return 214;
    case 154:
      return 220;
    case 225:
      return 223;
    default:
      return Unit;
  }
}

// Small files need no large buffer. One byte more than the file shows that it has ended.
size_t FirstSize(int64_t Size) { return static_cast<size_t>(std::clamp<int64_t>(Size + 1, 4096, kChunk)); }

TByteTable MakeTable() {
  const TCodePage& page = GetSystemCodePage();
  char16_t units[256];
  for (unsigned byte = 0; byte < 256; ++byte)
    units[byte] = RepairDosLetter(page.DecodeByte(static_cast<uint8_t>(byte)));
  return TByteTable(units);
}

}  // namespace

char16_t TSeparatorCounts::Winner() const noexcept {
  if (Semicolons > Commas && Semicolons > Escapes && Semicolons > Tabs) return u';';
  if (Escapes > Commas && Escapes > Tabs) return 27;
  return Tabs > Commas ? 9 : u',';
}

template <bool kLines>
const unsigned char* TTableReader::TSource::TakeUnquoted(const Unit* First, [[maybe_unused]] const Unit* Last) {
#if defined(__SSE2__)
  const __m128i blank = _mm_set1_epi8(32);
  const __m128i delimiter = _mm_set1_epi8(static_cast<char>(Delimiter));
  const __m128i quote = _mm_set1_epi8('"');
  for (const Unit* pos = First;; pos += 16) {
    __m128i bytes = scan::Load(pos);
    __m128i stops = _mm_or_si128(_mm_cmpeq_epi8(_mm_min_epu8(bytes, blank), bytes), _mm_cmpeq_epi8(bytes, delimiter));
    if constexpr (kLines) stops = _mm_or_si128(stops, _mm_cmpeq_epi8(bytes, quote));
    if (unsigned mask = scan::Mask(stops)) {
      pos += std::countr_zero(mask);
      TakePlain(First, static_cast<size_t>(pos - First));
      return pos;
    }
  }
#else
  const Unit* stop =
      std::find_if(First, Last, [&](Unit b) { return b <= 32 || b == Delimiter || (kLines && b == Quote); });
  TakePlain(First, static_cast<size_t>(stop - First));
  return stop;
#endif
}

const unsigned char* TTableReader::TSource::NextQuote(const Unit* First, const Unit* Last) const {
  const void* found = First == Last ? nullptr : std::memchr(First, Quote, static_cast<size_t>(Last - First));
  return found ? static_cast<const Unit*>(found) : Last;
}

void TTableReader::TSource::TakeQuoted(const Unit* Bytes, size_t ByteCount, size_t Pairs) {
  if (Pairs == 0) {
    TakePlain(Bytes, ByteCount);
    return;
  }
  ::new (Cells.Place()) String(Arena.Build(ByteCount - Pairs, [&](char16_t* units) {
    for (const Unit* end = Bytes + ByteCount; Bytes != end; ++Bytes) {
      *units++ = Table.Unit(*Bytes);
      if (*Bytes == Quote) ++Bytes;
    }
  }));
  Cells.Advance();
}

TTableReader::TTableReader(TRead Read, int64_t Size)
    : FRead(Read),
      FBuffer(FirstSize(Size) + kPadding),
      FPos(FBuffer.data()),
      FEnd(FBuffer.data()),
      FMemory(Size >= kLargeFile),
      FSource(MakeTable(), FMemory.Bulk()) {
  *FEnd = kSentinel;
}

bool TTableReader::Fill() {
  if (FAtEof) return false;
  size_t unread = static_cast<size_t>(FEnd - FPos);
  if (unread > 0) std::memmove(FBuffer.data(), FPos, unread);
  if (unread + kPadding >= FBuffer.size() / 2) FBuffer.resize(2 * FBuffer.size());
  FPos = FBuffer.data();
  FEnd = FBuffer.data() + unread;
  for (;;) {
    size_t count = FRead(FEnd, FBuffer.size() - kPadding - unread);
    if (count == 0) {
      *FEnd = kSentinel;
      FAtEof = true;
      return false;
    }
    unsigned char* end = FEnd + count;
    if (std::memchr(FEnd, 0, count)) end = std::remove(FEnd, end, 0);
    if (end == FEnd) continue;  // nothing but zeros
    FEnd = end;
    *FEnd = kSentinel;
    return true;
  }
}

void TTableReader::FindDelimiter() {
  TSeparatorCounts counts;
  const unsigned char* end;
  do {
    counts = {};
    end = CountSeparators<unsigned char>(FPos, FEnd, counts);
  } while (end == FEnd && Fill());
  FSource.Delimiter = static_cast<unsigned char>(counts.Winner());
}

void TTableReader::ReadAll(TTakeRow TakeRow) {
  FindDelimiter();
  while (NextRow()) TakeRow(MakeRow());
}

bool TTableReader::NextRow() {
  for (;;) {
    FSource.Cells.DropAll();
    TCellReader<true, TSource> reader(FSource, FPos, FEnd);
    TRowEnd rowEnd = reader.ReadRow();
    if (rowEnd == reIrregular) {
      FSource.Cells.DropAll();
      const unsigned char* lineEnd = FindLineEnd();
      if (lineEnd != FEnd || FAtEof) return TakeIrregularRow(lineEnd);
    } else if (rowEnd == reLine) {
      FPos = reader.Position();
      SkipLineEnd();
      return true;
    } else if (FAtEof) {
      // A last line of one character without line end is no row; that is wanted.
      bool isRow = FEnd - FPos >= 2;
      FPos = FEnd;
      return isRow;
    }
    Fill();
  }
}

bool TTableReader::TakeIrregularRow(const unsigned char* LineEnd) {
  bool isRow = LineEnd != FEnd || FEnd - FPos >= 2;
  TCellReader<false, TSource> reader(FSource, FPos, LineEnd);
  reader.ReadRow();
  FPos = LineEnd;
  SkipLineEnd();
  return isRow;
}

const unsigned char* TTableReader::FindLineEnd() const {
  bool inQuotes = false;
  const unsigned char* pos = FPos;
  for (; pos != FEnd; ++pos) {
    if (*pos == '"') inQuotes = !inQuotes;
    if (!inQuotes && (*pos == '\r' || *pos == '\n')) break;
  }
  return pos;
}

void TTableReader::SkipLineEnd() {
  if (!AtLineEnd()) return;
  ++FPos;
  if (FPos == FEnd) Fill();
  if (AtLineEnd()) ++FPos;
}

std::unique_ptr<TVxStringList> TTableReader::MakeRow() {
  auto row = FMemory.NewRow();
  FSource.Cells.GiveTo([&](TEntries& cells) { row->TakeCells(cells, FMemory.Bulk()); });
  return row;
}

}  // namespace vx::detail
