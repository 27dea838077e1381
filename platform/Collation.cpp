#include "platform/Collation.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/CaseTables.h"

namespace vx {

namespace {

// The order agrees with that of the CLDR root collation, which is the one used for German, with
// punctuation counted, except that
//   - control characters other than white space, and all that is neither Latin nor punctuation,
//     come behind the Latin letters by the code units of their small forms: data of that kind has no
//     German order, and the tables stay small;
//   - forms that differ only in their shape (ﬁ, ², no-break space) come behind the plain form before
//     case is looked at, so that AnsiCompareStr never contradicts AnsiCompareText;
//   - marks count in the order in which they stand;
//   - what is still equal is told apart by its code units.
#include "platform/CollationTables.inc"

// An element is one letter or one mark of a text:
//   bits 12..28   place of the letter in the order, 0 for a mark
//   bits 6..11    weight of the first accent, 0 for none; bits 0..5 of the second
//   kMark         a mark; its weight in bits 6..11, 0 for an ignored unit
//   kExpands      in the table only: several elements, bits 0..11 say which
constexpr int kLetterShift = 12;
constexpr int kWeightBits = 6;
constexpr uint32_t kWeightsMask = (1u << kLetterShift) - 1;
constexpr uint32_t kExpands = 1u << 29;
constexpr uint32_t kMark = 1u << 30;
constexpr uint32_t kBehind = 1024;  // place of the first letter that is in no list

template <size_t N>
constexpr int Length(const char16_t (&)[N]) {
  return static_cast<int>(N) - 1;
}

constexpr int kMarkCount = Length(kMarkOrder);
static_assert(kMarkCount + kLongS < 1 << kWeightBits);
static_assert(Length(kSame) == Length(kSameAs));
static_assert(Length(kSymbolOrder) + 10 + Length(kLetterOrder) < static_cast<int>(kBehind));

struct TTables {
  uint8_t Page[256] = {1, 2, 3};
  uint32_t Elements[15 * 256] = {};  // pages of 256 units; page 0 is empty: units in no list
  uint32_t Expansions[std::size(kExpansions)][4] = {};
  uint8_t UsedPages = 3;
  bool Complete = true;  // no letter was made from one that is in no list

  constexpr uint32_t Get(char16_t Unit) const {
    // The first three pages stand in their place.
    return Unit < 0x300 ? Elements[256 + Unit] : Elements[Page[Unit >> 8] * 256 + (Unit & 0xFF)];
  }
  constexpr void Set(char16_t Unit, uint32_t Element) {
    uint8_t& page = Page[Unit >> 8];
    if (page == 0) page = ++UsedPages;
    Complete = Complete && Element != 0;
    Elements[page * 256 + (Unit & 0xFF)] = Element;
  }
};

constexpr uint32_t WithWeight(uint32_t Element, int Weight) {
  uint32_t weight = static_cast<uint32_t>(Weight);
  bool second = (Element & kWeightsMask) != 0;
  return Element == 0 ? 0 : Element | (second ? weight : weight << kWeightBits);
}

constexpr void AddLettersAndMarks(TTables& Tables) {
  uint32_t place = 0;
  for (int i = 0; i < Length(kSymbolOrder); ++i) Tables.Set(kSymbolOrder[i], ++place << kLetterShift);
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) Tables.Set(digit, ++place << kLetterShift);
  for (int i = 0; i < Length(kLetterOrder); ++i) Tables.Set(kLetterOrder[i], ++place << kLetterShift);
  for (int i = 0; i < kMarkCount; ++i) Tables.Set(kMarkOrder[i], WithWeight(kMark, i + 1));
  for (char16_t unit : std::u16string_view(kOtherAbove)) Tables.Set(unit, Tables.Get(u'\u030D'));
  for (char16_t unit : std::u16string_view(kOtherBelow)) Tables.Set(unit, Tables.Get(u'\u0316'));
  for (int i = 0; i < Length(kSameMarks); ++i) Tables.Set(kSameMarks[i], Tables.Get(kSameMarksAs[i]));
  for (char16_t unit : std::u16string_view(kIgnored)) Tables.Set(unit, kMark);
}

constexpr void AddMarkedLetters(TTables& Tables) {
  // Twice, as the base of a letter with two marks may stand in a later row.
  for (int round = 0; round < 2; ++round) {
    Tables.Complete = true;  // the second round must find every base
    for (const TMarked& row : kMarked) {
      int weight = static_cast<int>(Tables.Get(row.Mark) >> kWeightBits & 0x3F);
      for (int i = 0; row.Letters[i] != 0; ++i) {
        Tables.Set(row.Letters[i], WithWeight(Tables.Get(row.Bases[i]), weight));
      }
    }
  }
}

constexpr TTables MakeTables() {
  TTables tables;
  AddLettersAndMarks(tables);
  AddMarkedLetters(tables);
  tables.Set(u'ð', WithWeight(tables.Get(u'd'), kMarkCount + kLigature));
  tables.Set(u'ŀ', WithWeight(tables.Get(u'l'), kMarkCount + kMiddleDot));
  tables.Set(u'ſ', WithWeight(tables.Get(u's'), kMarkCount + kLongS));
  tables.Set(u'ẛ', WithWeight(tables.Get(u'ſ'), static_cast<int>(tables.Get(u'\u0307') >> kWeightBits & 0x3F)));
  for (int i = 0; i < Length(kSame); ++i) tables.Set(kSame[i], tables.Get(kSameAs[i]));
  for (uint32_t row = 0; row < std::size(kExpansions); ++row) {
    const TExpansion& from = kExpansions[row];
    uint32_t* to = tables.Expansions[row];
    for (int i = 0; from.Units[i] != 0; ++i) to[i] = tables.Get(from.Units[i]);
    if (from.Weight != kNone) to[0] = WithWeight(to[0], kMarkCount + from.Weight);
    tables.Set(from.Unit, (to[0] & ~kWeightsMask) | kExpands | row);
  }
  for (char16_t unit = u'!'; unit <= u'~'; ++unit) {  // the wide forms of ASCII
    char16_t small = CaseMap::Lower(unit);
    tables.Set(static_cast<char16_t>(unit + 0xFEE0), tables.Get(small));
  }
  for (int unit = 0; unit < 0xFF00; ++unit) {
    if (tables.Page[unit >> 8] == 0) {
      unit |= 0xFF;
      continue;
    }
    char16_t small = CaseMap::Lower(static_cast<char16_t>(unit));
    if (small != unit && tables.Get(small) != 0) tables.Set(static_cast<char16_t>(unit), tables.Get(small));
  }
  return tables;
}

constexpr TTables kTables = MakeTables();
static_assert(kTables.Complete);

inline uint32_t ElementOf(char16_t Unit) noexcept {
  uint32_t element = kTables.Get(Unit);
  return element != 0 ? element : (kBehind + CaseMap::Lower(Unit)) << kLetterShift;
}

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

}  // namespace vx
