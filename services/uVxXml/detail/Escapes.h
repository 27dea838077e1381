// Encoding of markup into memory that is sized first.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/Scan.h"
#include "platform/String.h"

namespace vx::xml {

constexpr bool IsMarkup(char16_t Unit) noexcept {
  constexpr uint64_t kBits = 1ull << u'&' | 1ull << u'"' | 1ull << u'\'' | 1ull << u'<' | 1ull << u'>';
  return Unit < 64 && (kBits >> Unit & 1) != 0;
}

constexpr std::u16string_view Escape(char16_t Unit) noexcept {
  switch (Unit) {
    case u'&':
      return u"&amp;";
    case u'"':
      return u"&quot;";
    case u'\'':
      return u"&#039;";
    case u'<':
      return u"&lt;";
    default:
      return u"&gt;";
  }
}

// The first unit that has to be encoded.
inline const char16_t* FindMarkup(const char16_t* First, const char16_t* Last) {
#if defined(__SSE2__)
  auto match = [](__m128i Units) {
    auto is = [&](char16_t Unit) { return _mm_cmpeq_epi16(Units, scan::Fill(Unit)); };
    return _mm_or_si128(_mm_or_si128(_mm_or_si128(is(u'&'), is(u'"')), _mm_or_si128(is(u'<'), is(u'>'))), is(u'\''));
  };
#else
  const int match = 0;
#endif
  return scan::Find(First, Last, match, IsMarkup);
}

// Hands Text over in pieces, in order: stretches as they stand, and the escapes of the units between them.
template <typename TTake>
void ForEachEncoded(std::u16string_view Text, TTake Take) {
  const char16_t* pos = Text.data();
  const char16_t* end = pos + Text.size();
  for (;;) {
    const char16_t* markup = FindMarkup(pos, end);
    if (markup != pos) Take(std::u16string_view(pos, static_cast<size_t>(markup - pos)));
    if (markup == end) return;
    Take(Escape(*markup));
    pos = markup + 1;
  }
}

inline size_t EncodedSize(std::u16string_view Text) {
  size_t total = 0;
  ForEachEncoded(Text, [&](std::u16string_view Piece) { total += Piece.size(); });
  return total;
}

// Returns the place behind what was written.
inline char16_t* PutEncoded(char16_t* Target, std::u16string_view Text) {
  ForEachEncoded(Text, [&](std::u16string_view Piece) { Target = std::copy(Piece.begin(), Piece.end(), Target); });
  return Target;
}

}  // namespace vx::xml
