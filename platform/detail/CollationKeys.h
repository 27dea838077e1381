// What the sources of Collation.h share: the order as a table. Not for use outside them.
//
//   ElementOf         the place and the accents of a unit
//   kTables           the elements of all units that have one of their own
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "platform/detail/CaseTables.h"

namespace vx::collation {

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
inline constexpr int kLetterShift = 12;
inline constexpr int kWeightBits = 6;
inline constexpr uint32_t kWeightsMask = (1u << kLetterShift) - 1;
inline constexpr uint32_t kExpands = 1u << 29;
inline constexpr uint32_t kMark = 1u << 30;
inline constexpr uint32_t kBehind = 1024;  // place of the first letter that is in no list

template <size_t N>
constexpr int Length(const char16_t (&)[N]) {
  return static_cast<int>(N) - 1;
}

inline constexpr int kMarkCount = Length(kMarkOrder);
static_assert(kMarkCount + kLongS < 1 << kWeightBits);
static_assert(Length(kSame) == Length(kSameAs));
inline constexpr uint32_t kPlaceCount = Length(kSymbolOrder) + 10 + Length(kLetterOrder);
static_assert(kPlaceCount < kBehind);

struct TTables {
  uint8_t Page[256] = {1, 2, 3};
  uint32_t Elements[16 * 256] = {};  // pages of 256 units; page 0 is empty: units in no list
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
    if (CaseMap::kLower.Page[unit >> 8] == 0) {  // no capitals
      unit |= 0xFF;
      continue;
    }
    char16_t small = CaseMap::Lower(static_cast<char16_t>(unit));
    if (small != unit && tables.Get(small) != 0) tables.Set(static_cast<char16_t>(unit), tables.Get(small));
  }
  return tables;
}

inline constexpr TTables kTables = MakeTables();
static_assert(kTables.Complete);

inline uint32_t ElementOf(char16_t Unit) noexcept {
  uint32_t element = kTables.Get(Unit);
  return element != 0 ? element : (kBehind + CaseMap::Lower(Unit)) << kLetterShift;
}

}  // namespace vx::collation
