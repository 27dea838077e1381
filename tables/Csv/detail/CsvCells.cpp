#include "tables/Csv/detail/CsvCells.h"

#include "platform/detail/Utf8.h"

namespace vx::detail {

namespace {

// The page's characters; for UTF-8, whose ASCII alone comes by the table, any will do.
TByteTable TableOf(const TCodePage* Page) {
  return TByteTable((Page != nullptr ? Page : TCodePage::Find(28591))->DecodeTable());
}

constexpr size_t kStep = 8;  // bytes that are widened at once

// The bytes in front that are ASCII, up to kStep of them, as units; kStep units may be written, and as many bytes read.
size_t WidenAscii(const unsigned char* Bytes, size_t ByteCount, char16_t* Target) noexcept {
#if defined(__SSE2__)
  const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(Bytes));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(Target), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
  return std::min(ByteCount, static_cast<size_t>(std::countr_zero(scan::Mask(bytes) | 1u << kStep)));
#else
  size_t count = 0;
  for (; count < std::min(ByteCount, kStep) && Bytes[count] < 0x80; ++count) Target[count] = Bytes[count];
  return count;
#endif
}

const unsigned char* FirstBroken(const unsigned char* From, const unsigned char* To) {
  const std::string_view bytes(reinterpret_cast<const char*>(From), static_cast<size_t>(To - From));
  size_t start = 0;
  for (size_t pos = 0; pos < bytes.size() && NextFromUtf8(bytes, pos) != kBrokenUtf8;) start = pos;
  return From + start;
}

}  // namespace

TCsvByteCells::TCsvByteCells(TBulkMemory* Memory, unsigned char Quote, const TCodePage* Page)
    : TCsvCellBase(Memory, Quote), FTable(TableOf(Page)), FIsUtf8(Page == nullptr) {}

void TCsvByteCells::TakeUtf8(const unsigned char* First, size_t ByteCount, const unsigned char* From,
                             const unsigned char* To) {
  if (FUnits.size() < ByteCount + kStep) FUnits.resize(2 * ByteCount + kStep);
  const std::string_view bytes(reinterpret_cast<const char*>(First), ByteCount);
  char16_t* end = FUnits.data();
  bool isBroken = false;
  for (size_t pos = 0;;) {
    const size_t count = WidenAscii(First + pos, ByteCount - pos, end);
    pos += count;
    end += count;
    if (pos == ByteCount) break;
    if (First[pos] < 0x80) continue;
    const char32_t character = NextFromUtf8(bytes, pos);
    isBroken |= character == kBrokenUtf8;
    end = PutCharacter(end, character);
  }
  if (isBroken) Note(cfInvalidBytes, FirstBroken(From, To));
  const size_t count = static_cast<size_t>(end - FUnits.data());
  Put(FArena.Build(count, [&](char16_t* units) { std::copy_n(FUnits.data(), count, units); }));
}

}  // namespace vx::detail
