#include "tables/uFileCsv/detail/RowWriter.h"

#include <algorithm>
#include <bit>

#include "platform/Scan.h"
#include "platform/detail/Quoting.h"

namespace vx::detail {

namespace {

constexpr size_t kSlack = 16;  // bytes that a short cell may be written beyond its end
constexpr char16_t kQuote = u'"';

}  // namespace

TRowWriter::TRowWriter(TPut Put, TRowForm Form, char16_t Separator, std::span<char> Buffer)
    : FPut(Put),
      FPage(GetSystemCodePage()),
      FForm(Form),
      FSeparator(Separator),
      FBuffer(Buffer),
      FNext(Buffer.data()) {}

size_t TRowWriter::MostBytes(std::span<const String> Cells) noexcept {
  size_t most = 4 + kSlack;
  for (const String& cell : Cells) most += 2 * static_cast<size_t>(cell.size()) + 3;
  return most;
}

void TRowWriter::Flush() {
  size_t used = static_cast<size_t>(FNext - FBuffer.data());
  if (used > 0) FPut(FBuffer.data(), used);
  FFlushed += static_cast<int64_t>(used);
  FNext = FBuffer.data();
}

void TRowWriter::Write(std::span<const String> Cells) {
  if (static_cast<size_t>(FBuffer.data() + FBuffer.size() - FNext) < MostBytes(Cells)) Flush();
  char* target = FNext;
  char separator = static_cast<char>(FSeparator);
  for (size_t i = 0; i < Cells.size(); ++i) {
    if (i > 0) *target++ = separator;
    target = PutCell(target, Cells[i].data(), static_cast<size_t>(Cells[i].size()));
  }
  if (FForm == rfCommatext && Cells.size() == 1 && Cells[0].empty()) {
    *target++ = '"';
    *target++ = '"';
  }
  *target++ = '\r';
  *target++ = '\n';
  FNext = target;
}

char* TRowWriter::PutCell(char* Target, const char16_t* Units, size_t Count) {
  if (Count == 0) return Target;
  if (FForm == rfPlain) {
    FPage.Encode(Units, Count, Target);
    return Target + Count;
  }
  if (PutUnquoted(Target, Units, Count)) return Target + Count;
  return PutSpecialCell(Target, Units, Count);
}

// A cell whose unquoted form showed something special: decides and writes exactly.
char* TRowWriter::PutSpecialCell(char* Target, const char16_t* Units, size_t Count) {
  if (!NeedsQuotes(Units, Count)) {
    FPage.Encode(Units, Count, Target);
    return Target + Count;
  }
  *Target++ = '"';
  ForEachDoubled({Units, Count}, kQuote, [&](const char16_t* units, size_t count) {
    FPage.Encode(units, count, Target);
    Target += count;
  });
  *Target++ = '"';
  return Target;
}

bool TRowWriter::NeedsQuotes(const char16_t* Units, size_t Count) const {
  const char16_t* end = Units + Count;
  const char16_t* found = scan::FindBlankOr(Units, end, FSeparator, kQuote);
  // In a commatext the look for what needs quotes ends at a code unit 0.
  return found != end && (FForm != rfCommatext || *found != 0);
}

#if defined(__SSE2__)

// Eight units at once, of which Count are part of the cell; all eight must be readable.
bool TRowWriter::PutEight(char* Target, const char16_t* Units, size_t Count) const {
  unsigned part = Count >= 8 ? 0xFFFFu : (1u << (2 * Count)) - 1;
  __m128i units = scan::Load(Units);
  __m128i special = _mm_or_si128(scan::UpTo(units, 32), _mm_or_si128(_mm_cmpeq_epi16(units, scan::Fill(FSeparator)),
                                                                     _mm_cmpeq_epi16(units, scan::Fill(kQuote))));
  if (scan::Mask(special) & part) return false;
  _mm_storel_epi64(reinterpret_cast<__m128i*>(Target), _mm_packus_epi16(units, units));
  unsigned wide = ~scan::Mask(scan::UpTo(units, 127)) & part;
  while (wide != 0) {
    int i = std::countr_zero(wide) / 2;
    Target[i] = static_cast<char>(FPage.EncodeUnit(Units[i]));
    wide &= ~(3u << (2 * i));
  }
  return true;
}

bool TRowWriter::PutUnquoted(char* Target, const char16_t* Units, size_t Count) const {
  // A text of fewer than eight units stands inside its String, where eight are readable.
  if (Count < 8) return PutEight(Target, Units, Count);
  size_t i = 0;
  for (; i + 8 <= Count; i += 8) {
    if (!PutEight(Target + i, Units + i, 8)) return false;
  }
  return i == Count || PutEight(Target + Count - 8, Units + Count - 8, 8);
}

#else

bool TRowWriter::PutUnquoted(char* Target, const char16_t* Units, size_t Count) const {
  for (size_t i = 0; i < Count; ++i) {
    if (Units[i] <= 32 || Units[i] == FSeparator || Units[i] == kQuote) return false;
    Target[i] = static_cast<char>(FPage.EncodeUnit(Units[i]));
  }
  return true;
}

#endif

}  // namespace vx::detail
