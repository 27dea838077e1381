#include "tables/Csv/detail/CsvCells.h"

#include "platform/detail/Utf8.h"

namespace vx::detail {

namespace {

// The page's characters; for UTF-8, whose ASCII alone comes by the table, any will do.
TByteTable TableOf(const TCodePage* Page) {
  return TByteTable((Page != nullptr ? Page : TCodePage::Find(28591))->DecodeTable());
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

bool TCsvByteCells::IsAscii(const unsigned char* First, size_t ByteCount) noexcept {
#if defined(__SSE2__)
  for (; ByteCount > 16; First += 16, ByteCount -= 16) {
    if (scan::Mask(scan::Load(First)) != 0) return false;
  }
  return (scan::Mask(scan::Load(First)) & ((1u << ByteCount) - 1)) == 0;
#else
  return std::all_of(First, First + ByteCount, [](unsigned char byte) { return byte < 0x80; });
#endif
}

void TCsvByteCells::TakeUtf8(const unsigned char* First, size_t ByteCount, const unsigned char* From,
                             const unsigned char* To) {
  if (FUnits.size() < ByteCount) FUnits.resize(2 * ByteCount);
  const std::string_view bytes(reinterpret_cast<const char*>(First), ByteCount);
  char16_t* end = FUnits.data();
  bool isBroken = false;
  for (size_t pos = 0; pos < ByteCount;) {
    const char32_t character = NextFromUtf8(bytes, pos);
    isBroken |= character == kBrokenUtf8;
    end = PutCharacter(end, character);
  }
  if (isBroken) Note(cfInvalidBytes, FirstBroken(From, To));
  const size_t count = static_cast<size_t>(end - FUnits.data());
  Put(FArena.Build(count, [&](char16_t* units) { std::copy_n(FUnits.data(), count, units); }));
}

}  // namespace vx::detail
