#include "core/uVxFunctions/Matching.h"

#include <algorithm>
#include <vector>

#include "platform/Text.h"

namespace vx {

namespace {

// What may stand for a unit of a text: the end of the search, and a unit that is equal to none.
constexpr int kEnd = -1;
constexpr int kNone = -2;

// Finds a part in a text in one walk over the text. PartAt and TextAt give the units by index as they
// are to be compared. Accept is told the number of units walked at the end of each place found,
// overlapping ones too, and ends the search by true.
template <typename TPartAt, typename TTextAt, typename TAccept>
bool FindPart(size_t PartSize, TPartAt PartAt, size_t TextSize, TTextAt TextAt, TAccept Accept) {
  constexpr size_t kSmallPart = 64;
  if (PartSize == 0) {
    for (size_t i = 0; !Accept(i); ++i) {
      if (i == TextSize || TextAt(i) == kEnd) return false;
    }
    return true;
  }
  // For each front of the part the length of the longest shorter front that it ends with: where to go
  // on when the next unit differs.
  size_t small[kSmallPart];
  std::vector<size_t> large(PartSize <= kSmallPart ? 0 : PartSize);
  size_t* border = PartSize <= kSmallPart ? small : large.data();
  auto advance = [&](size_t Matched, int Unit) {
    while (Matched > 0 && PartAt(Matched) != Unit) Matched = border[Matched - 1];
    return PartAt(Matched) == Unit ? Matched + 1 : 0;
  };
  border[0] = 0;
  for (size_t i = 1; i < PartSize; ++i) border[i] = advance(border[i - 1], PartAt(i));
  size_t matched = 0;
  for (size_t i = 0; i < TextSize; ++i) {
    const int unit = TextAt(i);
    if (unit == kEnd) return false;
    matched = advance(matched, unit);
    if (matched < PartSize) continue;
    if (Accept(i + 1)) return true;
    matched = border[matched - 1];
  }
  return false;
}

char16_t Upper(char16_t Unit) noexcept {
  if (Unit >= 128) return UpperCase(Unit);
  return Unit >= u'a' && Unit <= u'z' ? static_cast<char16_t>(Unit - 32) : Unit;
}

// Where the first Run in Text at or behind From ends; 0 if there is none.
size_t FindRun(std::u16string_view Run, std::u16string_view Text, size_t From, bool CaseSensitive) {
  if (CaseSensitive) {
    const int pos = Pos(Run, Text, static_cast<int>(From) + 1);
    return pos == 0 ? 0 : static_cast<size_t>(pos) - 1 + Run.size();
  }
  size_t end = 0;
  FindPart(
      Run.size(), [&](size_t Index) { return int{Upper(Run[Index])}; }, Text.size() - From,
      [&](size_t Index) { return int{Upper(Text[From + Index])}; },
      [&](size_t Walked) {
        end = From + Walked;
        return true;
      });
  return end;
}

// The unit by which StrFind compares.
int FoldToByte(char16_t Unit) noexcept {
  const bool isCapital =
      (Unit >= u'A' && Unit <= u'Z') || (Unit >= u'À' && Unit <= u'Ö') || (Unit >= u'Ø' && Unit <= u'Ý');
  return (Unit + (isCapital ? 32 : 0)) & 0xFF;
}

}  // namespace

bool StrMatch(std::u16string_view Text, std::u16string_view Pattern, bool CaseSensitive, TStrings* List) {
  auto same = [&](char16_t A, char16_t B) { return A == B || (!CaseSensitive && Upper(A) == Upper(B)); };
  auto capture = [&](size_t Start, size_t Length) {
    if (List != nullptr) List->Add(Text.substr(Start, Length));
  };
  if (List != nullptr) List->Clear();
  if (Pattern == u"*") capture(0, Text.size());
  if (Pattern == u"*" || std::equal(Text.begin(), Text.end(), Pattern.begin(), Pattern.end(), same)) return true;

  // What stands behind the last "*" has to end the text; the rest of both is matched from the front.
  std::u16string_view text = Text, pattern = Pattern;
  while (!text.empty() && !pattern.empty() && pattern.back() != u'*') {
    if (!same(text.back(), pattern.back())) return false;
    text.remove_suffix(1);
    pattern.remove_suffix(1);
  }
  size_t at = 0, next = 0, start = 0;
  bool inWildcard = false;
  auto skipWildcards = [&] { next = std::min(pattern.find_first_not_of(u'*', next), pattern.size()); };
  while (at < text.size() && next < pattern.size()) {
    if (pattern[next] == u'*') {
      inWildcard = true;
      start = at;
      skipWildcards();
    } else if (inWildcard) {
      const std::u16string_view run = pattern.substr(next, std::min(pattern.find(u'*', next), pattern.size()) - next);
      const size_t end = FindRun(run, text, at, CaseSensitive);
      if (end == 0) break;
      capture(start, end - start - 1);
      inWildcard = false;
      at = end;
      next += run.size();
    } else if (!same(text[at++], pattern[next++])) {
      return false;
    }
  }
  if (inWildcard) capture(start, text.size() - start);
  skipWildcards();
  return next == pattern.size() && (inWildcard || at == text.size());
}

bool StrFind(std::u16string_view Buffer, std::u16string_view Text, int& Pos, bool Forward, bool /*MatchCase*/,
             bool WholeWord, const TCharSet& Delimiters) {
  const size_t start = std::min(static_cast<size_t>(std::max(Pos, 0)), Buffer.size());
  const size_t last = Text.size() - 1;
  auto isBorder = [&](size_t Place) {
    return Place >= Buffer.size() || Buffer[Place] == 0 || Delimiters.Has(Buffer[Place]);
  };
  auto accept = [&](size_t Place) {
    if (WholeWord && !((Place == 0 || isBorder(Place - 1)) && isBorder(Place + Text.size()))) return false;
    Pos = static_cast<int>(Place);
    return true;
  };
  if (Forward) {
    return FindPart(
        Text.size(), [&](size_t Index) { return FoldToByte(Text[Index]); }, Buffer.size() - start,
        [&](size_t Index) { return Buffer[start + Index] == 0 ? kEnd : FoldToByte(Buffer[start + Index]); },
        [&](size_t Walked) { return accept(start + Walked - Text.size()); });
  }
  return FindPart(
      Text.size(), [&](size_t Index) { return FoldToByte(Text[last - Index]); }, start,
      [&](size_t Index) { return Buffer[start - 1 - Index] == 0 ? kNone : FoldToByte(Buffer[start - 1 - Index]); },
      [&](size_t Walked) { return accept(start - Walked); });
}

bool StrFind(const char16_t* Buffer, std::u16string_view Text, int& Pos, bool Forward, bool MatchCase, bool WholeWord,
             const TCharSet& Delimiters) {
  if (Buffer == nullptr) return false;
  return StrFind(std::u16string_view(Buffer), Text, Pos, Forward, MatchCase, WholeWord, Delimiters);
}

}  // namespace vx
