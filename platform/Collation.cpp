#include "platform/Collation.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/detail/CaseTables.h"
#include "platform/detail/CollationKeys.h"

namespace vx {

namespace {

using namespace collation;

// The elements of a text, one after the other, and 0 at its end.
class TReader {
 public:
  TReader(std::u16string_view Text, size_t From) noexcept
      : FNext(Text.data() + From), FEnd(Text.data() + Text.size()), FElement(Read()) {}

  uint32_t Element() const noexcept { return FElement; }
  bool AtMark() const noexcept { return (FElement & kMark) != 0; }
  void Advance() noexcept { FElement = Read(); }

  // Gives the weights of a letter's accents one by one: those of Own, then those of the marks the
  // reader stands at; 0 when there are no more, and then the reader has left the marks.
  uint32_t TakeWeight(uint32_t& Own) noexcept {
    while (Own == 0 && AtMark()) {
      Own = FElement & kWeightsMask;
      Advance();
    }
    uint32_t weight = Own >> kWeightBits;
    Own = Own << kWeightBits & kWeightsMask;
    return weight;
  }

 private:
  uint32_t Read() noexcept {
    if (FRest != nullptr && *FRest != 0) return *FRest++;
    if (FNext == FEnd) return 0;
    uint32_t element = ElementOf(*FNext++);
    if ((element & kExpands) == 0) return element;
    FRest = kTables.Expansions[element & kWeightsMask];
    return *FRest++;
  }

  const char16_t* FNext;
  const char16_t* FEnd;
  const uint32_t* FRest = nullptr;
  uint32_t FElement;
};

inline int Sign(uint32_t A, uint32_t B) noexcept { return A < B ? -1 : A > B ? 1 : 0; }

// Compares the accents of two equal letters, OwnA and OwnB and all marks behind them, which are read.
int CompareAccents(TReader& A, uint32_t OwnA, TReader& B, uint32_t OwnB) noexcept {
  int result = 0;
  for (;;) {
    uint32_t a = A.TakeWeight(OwnA), b = B.TakeWeight(OwnB);
    if (a == 0 && b == 0) return result;
    if (result == 0) result = Sign(a, b);
  }
}

// Letters, then accents, of two texts from From on; up to there they have the same elements.
int CompareElements(std::u16string_view A, std::u16string_view B, size_t From) noexcept {
  TReader a(A, From), b(B, From);
  int accents = CompareAccents(a, 0, b, 0);
  for (;;) {
    uint32_t letterA = a.Element(), letterB = b.Element();
    if (int letters = Sign(letterA >> kLetterShift, letterB >> kLetterShift); letters != 0) return letters;
    if (letterA == 0) return accents;
    a.Advance();
    b.Advance();
    int difference = 0;
    if (a.AtMark() || b.AtMark()) {
      difference = CompareAccents(a, letterA & kWeightsMask, b, letterB & kWeightsMask);
    } else {
      difference = Sign(letterA, letterB);
    }
    if (accents == 0) accents = difference;
  }
}

// How many of the four units from At on are the same in both texts before the first other one.
inline size_t SameOfFour(std::u16string_view A, std::u16string_view B, size_t At) noexcept {
  static_assert(std::endian::native == std::endian::little);
  uint64_t a, b;
  std::memcpy(&a, A.data() + At, sizeof a);
  std::memcpy(&b, B.data() + At, sizeof b);
  return static_cast<size_t>(std::countr_zero(a ^ b)) / 16;
}

inline size_t CommonPrefix(std::u16string_view A, std::u16string_view B, size_t Size) noexcept {
  size_t at = 0;
  if (Size < 4) {
    while (at < Size && A[at] == B[at]) ++at;
    return at;
  }
  for (; at + 4 <= Size; at += 4) {
    if (size_t same = SameOfFour(A, B, at); same < 4) return at + same;
  }
  return Size - 4 + SameOfFour(A, B, Size - 4);
}

// AnsiCompareText, and the place of the first differing unit.
inline int Compare(std::u16string_view A, std::u16string_view B, size_t& FirstOther) noexcept {
  const size_t size = std::min(A.size(), B.size());
  size_t at = FirstOther = CommonPrefix(A, B, size);
  if (at < size) {
    uint32_t a = ElementOf(A[at]), b = ElementOf(B[at]);
    int letters = Sign((a & ~kExpands) >> kLetterShift, (b & ~kExpands) >> kLetterShift);
    if (letters != 0 && ((a | b) & kMark) == 0) return letters;
    // Forms of one letter that differ in case have the same elements.
    while (at < size && CaseMap::Lower(A[at]) == CaseMap::Lower(B[at])) ++at;
  }
  // Whatever follows, marks included, puts the longer text behind the one it begins with.
  if (at == size) return A.size() < B.size() ? -1 : A.size() > B.size() ? 1 : 0;
  int result = CompareElements(A, B, at);
  return result != 0 ? result : Sign(CaseMap::Lower(A[at]), CaseMap::Lower(B[at]));
}

inline bool SameUnit(char16_t A, char16_t B) noexcept { return A == B || CaseMap::Lower(A) == CaseMap::Lower(B); }

// Whether four units have the same small forms.
inline bool SameFour(const char16_t* A, const char16_t* B) noexcept {
  uint64_t a, b;
  std::memcpy(&a, A, sizeof a);
  std::memcpy(&b, B, sizeof b);
  if (a == b) return true;
  constexpr uint64_t kCaseBits = 0x0020002000200020, kNotAscii = 0xFF80FF80FF80FF80;
  if (((a ^ b) & ~kCaseBits) != 0 && ((a | b) & kNotAscii) == 0) return false;
  for (int i = 0; i < 4; ++i) {
    if (!SameUnit(A[i], B[i])) return false;
  }
  return true;
}

}  // namespace

int AnsiCompareText(std::u16string_view A, std::u16string_view B) noexcept {
  size_t at;
  return Compare(A, B, at);
}

int AnsiCompareStr(std::u16string_view A, std::u16string_view B) noexcept {
  size_t at;
  int result = Compare(A, B, at);
  if (result != 0 || at == A.size()) return result;
  // Only case is different, so both texts have the same length and differ in case at this place.
  bool smallA = CaseMap::Lower(A[at]) == A[at], smallB = CaseMap::Lower(B[at]) == B[at];
  if (smallA != smallB) return smallA ? -1 : 1;
  return Sign(B[at], A[at]);  // ǅ before Ǆ
}

bool collation::SameFolded(const char16_t* A, const char16_t* B, size_t Size) noexcept {
  size_t at = 0;
  if (Size < 4) {
    while (at < Size && SameUnit(A[at], B[at])) ++at;
    return at == Size;
  }
  for (; at + 4 < Size; at += 4) {
    if (!SameFour(A + at, B + at)) return false;
  }
  return SameFour(A + Size - 4, B + Size - 4);
}

}  // namespace vx
