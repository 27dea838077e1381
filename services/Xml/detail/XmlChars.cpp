#include "services/Xml/detail/XmlChars.h"

#include <algorithm>
#include <array>
#include <string>

namespace vx::detail {

namespace {

struct TSpan {
  char32_t First, Last;
};
// Letters with which a name may begin, beyond ASCII.
constexpr TSpan kStarts[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                             {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                             {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
// What a name may hold besides.
constexpr TSpan kOthers[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

enum TUse : uint8_t { uStart = 1, uPart = 2 };
constexpr auto kAscii = [] {
  std::array<uint8_t, 128> uses{};
  for (char16_t unit = 0; unit < 128; ++unit) {
    const bool isLetter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    const bool isStart = isLetter || unit == u'_' || unit == u':';
    const bool isPart = isStart || (unit >= u'0' && unit <= u'9') || unit == u'-' || unit == u'.';
    uses[unit] = static_cast<uint8_t>((isStart ? uStart : 0) | (isPart ? uPart : 0));
  }
  return uses;
}();

template <size_t N>
bool IsIn(char32_t Character, const TSpan (&Spans)[N]) noexcept {
  for (const TSpan& span : Spans) {
    if (Character >= span.First && Character <= span.Last) return true;
  }
  return false;
}

bool IsNamePart(char32_t Character, TUse Use) noexcept {
  return IsIn(Character, kStarts) || (Use == uPart && IsIn(Character, kOthers));
}

// Where characters end of which the first has to be of that use.
const char16_t* EndOf(const char16_t* First, TUse FirstUse) noexcept {
  const char16_t* pos = First;
  for (TUse use = FirstUse;; use = uPart) {
    if (*pos < 128) {
      if ((kAscii[*pos] & use) == 0) return pos;
      ++pos;
    } else {
      const bool isPair = IsHighSurrogate(*pos) && IsLowSurrogate(pos[1]);
      if (!IsNamePart(isPair ? JoinSurrogates(*pos, pos[1]) : *pos, use)) return pos;
      pos += isPair ? 2 : 1;
    }
  }
}

}  // namespace

const char16_t* EndOfXmlName(const char16_t* First) noexcept { return EndOf(First, uStart); }
const char16_t* EndOfXmlToken(const char16_t* First) noexcept { return EndOf(First, uPart); }

bool IsXmlName(std::u16string_view Text) {
  const auto isPart = [](char16_t unit) { return unit < 128 && (kAscii[unit] & uPart) != 0; };
  if (std::ranges::all_of(Text, isPart)) return !Text.empty() && (kAscii[Text[0]] & uStart) != 0;
  const std::u16string text(Text);  // with a unit 0 behind it
  return EndOfXmlName(text.c_str()) == text.c_str() + text.size();
}

}  // namespace vx::detail
