#include "tables/Csv/TCsvEncodingGuess.h"

#include <algorithm>
#include <cstring>

#include "platform/Encoding.h"
#include "platform/detail/Utf8.h"

namespace vx {

namespace {

// UTF-16 without a mark: in every other place of the beginning nearly all bytes are zero, and hardly one in the others.
// ceGuess if it is not so.
TCsvEncoding Utf16ByZeros(std::string_view Bytes, int64_t Size) {
  const size_t length = std::min<size_t>(Bytes.size(), 65536) / 2 * 2;
  size_t zeros[2] = {};
  for (size_t i = 0; i < length; ++i) zeros[i & 1] += Bytes[i] == '\0';
  if (length == 0 || Size % 2 != 0) return ceGuess;
  if (zeros[1] > length / 4 && zeros[0] <= length / 20) return ceUtf16;
  if (zeros[0] > length / 4 && zeros[1] <= length / 20) return ceUtf16BigEndian;
  return ceGuess;
}

TCsvEncoding Utf16ByMark(const TEncoding& Encoding) {
  return &Encoding == &TEncoding::Utf16() ? ceUtf16 : ceUtf16BigEndian;
}

// The first byte from Pos on that is none of ASCII.
size_t SkipAscii(std::string_view Bytes, size_t Pos) {
  for (uint64_t word; Bytes.size() - Pos >= sizeof word; Pos += sizeof word) {
    std::memcpy(&word, Bytes.data() + Pos, sizeof word);
    if ((word & 0x8080808080808080) != 0) break;
  }
  while (Pos < Bytes.size() && static_cast<unsigned char>(Bytes[Pos]) < 0x80) ++Pos;
  return Pos;
}

bool IsLetter(char Byte) { return (Byte >= 'a' && Byte <= 'z') || (Byte >= 'A' && Byte <= 'Z'); }

}  // namespace

TCsvEncodingGuess::TCsvEncodingGuess(std::string_view Beginning, int64_t Size) noexcept {
  size_t mark = 0;
  const TEncoding& encoding = TEncoding::Detect(Beginning, mark, TEncoding::Default());
  FHasMark = mark > 0;
  if (!FHasMark) {
    FEncoding = Utf16ByZeros(Beginning, Size);
  } else {
    FEncoding = &encoding == &TEncoding::Utf8() ? ceUtf8 : Utf16ByMark(encoding);
  }
  FIsSure = FEncoding != ceGuess;
}

size_t TCsvEncodingGuess::Look(std::string_view Bytes, bool AreLast) noexcept {
  constexpr size_t kLongest = 4;  // bytes of a character
  size_t i = 0;
  while (i < Bytes.size() && !FIsSure) {
    i = SkipAscii(Bytes, i);
    if (i == Bytes.size() || (!AreLast && Bytes.size() - i < kLongest)) break;
    const char32_t character = detail::NextFromUtf8(Bytes, i);
    if (character >= 0x80) FEncoding = ceUtf8;
    if (character == detail::kBrokenUtf8) FEncoding = ceCodePage;
    FIsSure = character == detail::kBrokenUtf8;
  }
  return i;
}

int GuessCodePage(std::string_view Bytes) noexcept {
  int dos = 0, windows = 0;
  for (size_t i = 1; i < Bytes.size(); ++i) {
    if (static_cast<unsigned char>(Bytes[i]) < 0x80 || !IsLetter(Bytes[i - 1])) continue;
    switch (static_cast<unsigned char>(Bytes[i])) {
      case 0x81:
      case 0x84:
      case 0x94:
        // Behind a word the last two are quotes and dashes of other pages.
        dos += i + 1 < Bytes.size() && (IsLetter(Bytes[i + 1]) || Bytes[i + 1] == '\xE1');
        break;
      case 0xE4:
      case 0xF6:
      case 0xFC:
        ++windows;
        break;
      default:
        break;
    }
  }
  return dos > windows ? 850 : 0;
}

}  // namespace vx
