#include "platform/Text.h"

#include <algorithm>

#include "platform/detail/CaseTables.h"

namespace vx {

namespace {

constexpr size_t kNotFound = std::u16string_view::npos;
// Shorter parts are looked for unit by unit: no text can make that slow.
constexpr size_t kShortPart = 8;

// Where the greatest suffix of Part begins, by the order of the units or, with Reversed, by the
// opposite order, and the period of that suffix.
struct TSuffix {
  size_t Begin;
  size_t Period;
};

TSuffix GreatestSuffix(std::u16string_view Part, bool Reversed) noexcept {
  size_t begin = 0, candidate = 1, offset = 0, period = 1;
  while (candidate + offset < Part.size()) {
    char16_t a = Part[begin + offset], b = Part[candidate + offset];
    if (a == b) {
      if (++offset == period) {
        candidate += period;
        offset = 0;
      }
    } else if ((a > b) != Reversed) {
      candidate += offset + 1;
      offset = 0;
      period = candidate - begin;
    } else {
      begin = candidate++;
      offset = 0;
      period = 1;
    }
  }
  return {begin, period};
}

// Two-way search: linear in both lengths, without memory of its own.
size_t FindLong(std::u16string_view Part, std::u16string_view Text, size_t From) noexcept {
  const size_t size = Part.size();
  TSuffix suffix = std::max(GreatestSuffix(Part, false), GreatestSuffix(Part, true),
                            [](const TSuffix& A, const TSuffix& B) { return A.Begin < B.Begin; });
  const size_t begin = suffix.Begin;
  size_t period = suffix.Period;
  const bool periodic = begin + period <= size && Part.substr(0, begin) == Part.substr(period, begin);
  if (!periodic) period = std::max(begin, size - begin) + 1;
  size_t known = 0;  // units at the front of Part that are known to match
  for (size_t at = From; at + size <= Text.size();) {
    size_t right = std::max(begin, known);
    while (right < size && Part[right] == Text[at + right]) ++right;
    if (right < size) {
      at += right - begin + 1;
      known = 0;
      continue;
    }
    size_t left = begin;
    while (left > known && Part[left - 1] == Text[at + left - 1]) --left;
    if (left <= known) return at;
    at += period;
    known = periodic ? size - period : 0;
  }
  return kNotFound;
}

size_t Find(std::u16string_view Part, std::u16string_view Text, size_t From) noexcept {
  return Part.size() <= kShortPart ? Text.find(Part, From) : FindLong(Part, Text, From);
}

String MapCase(const CaseMap::TTable& Table, const String& Text) {
  auto changes = [&](char16_t Unit) { return CaseMap::Map(Table, Unit) != Unit; };
  if (std::none_of(Text.begin(), Text.end(), changes)) return Text;
  return String::Build(Text.size(), [&](char16_t* Units) {
    std::transform(Text.begin(), Text.end(), Units, [&](char16_t Unit) { return CaseMap::Map(Table, Unit); });
  });
}

}  // namespace

std::u16string_view TrimLeftView(std::u16string_view Text) noexcept {
  size_t first = 0;
  while (first < Text.size() && Text[first] <= u' ') ++first;
  return Text.substr(first);
}

std::u16string_view TrimRightView(std::u16string_view Text) noexcept {
  size_t size = Text.size();
  while (size > 0 && Text[size - 1] <= u' ') --size;
  return Text.substr(0, size);
}

std::u16string_view TrimView(std::u16string_view Text) noexcept { return TrimLeftView(TrimRightView(Text)); }

String TrimLeft(const String& Text) { return Text.Slice(Text.size() - static_cast<int>(TrimLeftView(Text).size())); }

String TrimRight(const String& Text) { return Text.Slice(0, static_cast<int>(TrimRightView(Text).size())); }

String Trim(const String& Text) {
  int first = Text.size() - static_cast<int>(TrimLeftView(Text).size());
  return Text.Slice(first, static_cast<int>(TrimView(Text).size()));
}

char16_t UpperCase(char16_t Unit) noexcept { return CaseMap::Upper(Unit); }
char16_t LowerCase(char16_t Unit) noexcept { return CaseMap::Lower(Unit); }
String UpperCase(const String& Text) { return MapCase(CaseMap::kUpper, Text); }
String LowerCase(const String& Text) { return MapCase(CaseMap::kLower, Text); }

bool SameAscii(std::u16string_view A, std::u16string_view B) noexcept {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(),
                    [](char16_t a, char16_t b) { return LowerAscii(a) == LowerAscii(b); });
}

String Copy(const String& Text, int Index, int Count) { return Text.Slice(std::max(Index, 1) - 1, std::max(Count, 0)); }

int Pos(std::u16string_view Part, std::u16string_view Text, int From) noexcept {
  if (Part.empty() || From < 1) return 0;
  size_t at = Find(Part, Text, static_cast<size_t>(From) - 1);
  return at == kNotFound ? 0 : static_cast<int>(at) + 1;
}

String ReplaceAll(const String& Text, std::u16string_view From, std::u16string_view To) {
  std::u16string_view text = Text;
  size_t at = From.empty() ? kNotFound : Find(From, text, 0);
  if (at == kNotFound) return Text;
  String result;
  result.Reserve(Text.size());
  size_t done = 0;
  for (; at != kNotFound; at = Find(From, text, done)) {
    result += text.substr(done, at - done);
    result += To;
    done = at + From.size();
  }
  result += text.substr(done);
  return result;
}

}  // namespace vx
