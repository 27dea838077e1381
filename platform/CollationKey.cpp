#include <algorithm>
#include <cstring>

#include "platform/Collation.h"
#include "platform/detail/CollationKeys.h"

namespace vx {

namespace {

using namespace collation;

// A key is
//   - the letters, each of one to three bytes from 2 on, of which none begins another: one byte for the
//     letters of German texts, two for the others that have a place, three for what stands behind;
//   - if there are accents, the byte 1 and the lists of the accents of all letters, as far as there are
//     any. The first list is that of marks before the first letter.
// In the lists, an accent is its weight behind kAccents. n ends of lists one after the other are the
// byte kAccents - n, so that the accent that comes later stands before; more than kMostEnds are first 1.
constexpr uint8_t kAccentsFollow = 1;
constexpr int kAccents = 128;
constexpr int kMostEnds = kAccents - 2;
constexpr uint8_t kMoreEnds = 1;
constexpr uint32_t kLowestByte = 2;
constexpr uint32_t kByteValues = 256 - kLowestByte;
constexpr uint32_t kSecondWeight = (1u << kWeightBits) - 1;
constexpr uint32_t kFirstBehind = 254;   // first byte of what stands behind, or the next one
constexpr char16_t kPlainUnits = 0x200;  // a power of 2
static_assert(kAccents + (1 << kWeightBits) <= 256);
static_assert(kByteValues * kByteValues * (256 - kFirstBehind) >= 0x10000);

// Units behind kPlainUnits whose letters get one byte.
constexpr char16_t kOftenUsed[] = u"‐–—‘’‚“”„†•′‵‹›⁄€";

// In TKeyTables::Letters, what is no letter of one byte with at most one accent, or a form of another unit.
constexpr uint16_t kNoLetter = 0x8000;

struct TKeyTables {
  uint16_t Letters[kPlainUnits] = {};                      // the byte, and the weight of the accent behind it
  uint16_t Places[kBehind] = {};                           // the first byte, and the second behind it if there is one
  uint64_t Shapes[std::size(kTables.Elements) / 64] = {};  // of kTables.Elements, those IsShape speaks of
  uint32_t LastFirstByte = 0;
  size_t MostLetterBytes = 3;  // of one unit
  size_t MostAccentBytes = 3;

  // Whether the unit is a form of another one, which has the same elements.
  constexpr bool IsShape(char16_t Unit) const {
    int at = kTables.Page[Unit >> 8] * 256 + (Unit & 0xFF);
    return (Shapes[at / 64] >> (at % 64) & 1) != 0;
  }
  constexpr void SetShape(char16_t Unit) {
    int at = kTables.Page[Unit >> 8] * 256 + (Unit & 0xFF);
    Shapes[at / 64] |= uint64_t{1} << (at % 64);
  }
};

constexpr bool IsPlain(uint32_t Element) { return Element != 0 && (Element & (kWeightsMask | kMark | kExpands)) == 0; }

constexpr void AddPlaces(TKeyTables& Tables) {
  bool often[kBehind] = {};
  auto setOften = [&](char16_t unit) {
    if (IsPlain(kTables.Get(unit))) often[kTables.Get(unit) >> kLetterShift] = true;
  };
  for (char16_t unit = 0; unit < kPlainUnits; ++unit) setOften(unit);
  for (char16_t unit : std::u16string_view(kOftenUsed)) setOften(unit);
  uint32_t first = kLowestByte - 1, second = 0;
  for (uint32_t place = 1; place <= kPlaceCount; ++place) {
    if (often[place] || second == 0 || second == 255) ++first;
    second = often[place] ? 0 : second == 0 || second == 255 ? kLowestByte : second + 1;
    Tables.Places[place] = static_cast<uint16_t>(first | second << 8);
  }
  Tables.LastFirstByte = first;
}

constexpr TKeyTables MakeKeyTables() {
  TKeyTables tables;
  AddPlaces(tables);
  for (char16_t unit : std::u16string_view(kSame)) tables.SetShape(unit);
  for (char16_t unit = u'!'; unit <= u'~'; ++unit) tables.SetShape(static_cast<char16_t>(unit + 0xFEE0));
  for (char16_t unit = 0; unit < kPlainUnits; ++unit) {
    uint32_t element = kTables.Get(unit), place = element >> kLetterShift, weights = element & kWeightsMask;
    bool other = element == 0 || (element & (kMark | kExpands)) != 0 || tables.IsShape(unit) ||
                 tables.Places[place] > 255 || (weights & kSecondWeight) != 0;
    tables.Letters[unit] =
        other ? kNoLetter : static_cast<uint16_t>(tables.Places[place] | weights >> kWeightBits << 8);
  }
  for (const auto& expansion : kTables.Expansions) {
    size_t letterBytes = 0, accentBytes = 0;
    for (int i = 0; expansion[i] != 0; ++i) {
      letterBytes += tables.Places[expansion[i] >> kLetterShift] > 255 ? 2 : 1;
      uint32_t weights = expansion[i] & kWeightsMask;
      accentBytes += weights == 0 ? 0 : (weights & kSecondWeight) == 0 ? 2 : 3;
    }
    tables.MostLetterBytes = std::max(tables.MostLetterBytes, letterBytes);
    tables.MostAccentBytes = std::max(tables.MostAccentBytes, accentBytes);
  }
  return tables;
}

constexpr TKeyTables kKeys = MakeKeyTables();
static_assert(kKeys.LastFirstByte < kFirstBehind);

// Writes the keys of four units; false, and no matter what is written, if one has not one plain byte.
inline bool WriteFour(const char16_t* Units, uint8_t* To) noexcept {
  constexpr uint16_t kOthers = 0x10000 - kPlainUnits;
  if (((Units[0] | Units[1] | Units[2] | Units[3]) & kOthers) != 0) return false;
  const unsigned a = kKeys.Letters[Units[0]], b = kKeys.Letters[Units[1]];
  const unsigned c = kKeys.Letters[Units[2]], d = kKeys.Letters[Units[3]];
  To[0] = static_cast<uint8_t>(a);
  To[1] = static_cast<uint8_t>(b);
  To[2] = static_cast<uint8_t>(c);
  To[3] = static_cast<uint8_t>(d);
  return (a | b | c | d) < 256;
}

class TKeyWriter {
 public:
  // From Letters on stand the bytes of LetterCount letters without accents.
  TKeyWriter(uint8_t* Letters, uint8_t* Accents, size_t LetterCount) noexcept
      : FLetter(Letters + LetterCount), FFirstAccent(Accents), FAccent(Accents), FEnds(LetterCount) {}

  void Add(char16_t Unit) noexcept {
    if (uint32_t letter = Unit < kPlainUnits ? kKeys.Letters[Unit] : kNoLetter; letter != kNoLetter) {
      *FLetter++ = static_cast<uint8_t>(letter);
      ++FEnds;
      if (letter > 255) AddWeight(letter >> 8);
    } else {
      AddOther(Unit);
    }
  }
  // Puts the accents behind the letters; gives the end of the key.
  uint8_t* Finish() noexcept {
    if (FAccent == FFirstAccent) return FLetter;
    *FLetter++ = kAccentsFollow;
    size_t size = static_cast<size_t>(FAccent - FFirstAccent);
    std::memmove(FLetter, FFirstAccent, size);
    return FLetter + size;
  }
  bool IsWhole() const noexcept { return FWhole; }

 private:
  void AddOther(char16_t Unit) noexcept {
    uint32_t element = ElementOf(Unit);
    if ((element & kExpands) == 0) {
      FWhole = FWhole && (element & kMark) == 0 && !kKeys.IsShape(Unit);
      return AddElement(element);
    }
    uint32_t row = element & kWeightsMask;
    FWhole = FWhole && kExpansions[row].Weight == kLigature;  // nothing else begins with this weight
    for (const uint32_t* next = kTables.Expansions[row]; *next != 0; ++next) AddElement(*next);
  }
  void AddElement(uint32_t Element) noexcept {
    if ((Element & kMark) == 0) AddLetter(Element >> kLetterShift);
    for (uint32_t own = Element & kWeightsMask; own != 0; own = own << kWeightBits & kWeightsMask) {
      AddWeight(own >> kWeightBits);
    }
  }
  void AddLetter(uint32_t Place) noexcept {
    ++FEnds;
    if (Place < kBehind) {
      uint32_t bytes = kKeys.Places[Place];
      *FLetter++ = static_cast<uint8_t>(bytes);
      if (bytes > 255) *FLetter++ = static_cast<uint8_t>(bytes >> 8);
      return;
    }
    uint32_t unit = Place - kBehind;
    *FLetter++ = static_cast<uint8_t>(kFirstBehind + unit / (kByteValues * kByteValues));
    *FLetter++ = static_cast<uint8_t>(kLowestByte + unit / kByteValues % kByteValues);
    *FLetter++ = static_cast<uint8_t>(kLowestByte + unit % kByteValues);
  }
  void AddWeight(uint32_t Weight) noexcept {
    for (; FEnds > kMostEnds; FEnds -= kMostEnds) *FAccent++ = kMoreEnds;
    if (FEnds != 0) *FAccent++ = static_cast<uint8_t>(kAccents - FEnds);
    *FAccent++ = static_cast<uint8_t>(kAccents + Weight);
    FEnds = 0;
  }

  uint8_t* FLetter;
  uint8_t* FFirstAccent;
  uint8_t* FAccent;
  size_t FEnds;  // lists of accents that ended since the last accent
  bool FWhole = true;
};

}  // namespace

bool AppendCollationKey(std::u16string_view Text, std::vector<uint8_t>& Key) {
  const size_t start = Key.size(), size = Text.size();
  const size_t letterRoom = size * kKeys.MostLetterBytes + 1;                           // with kAccentsFollow
  const size_t accentRoom = size * kKeys.MostAccentBytes + letterRoom / kMostEnds + 1;  // a letter has a byte at least
  Key.resize(start + letterRoom + accentRoom);
  uint8_t* letters = Key.data() + start;
  size_t plain = 0;
  while (plain + 4 <= size && WriteFour(Text.data() + plain, letters + plain)) plain += 4;
  // The last four overlap what is done: most texts are short, and so few branches depend on their length.
  if (size >= 4 && plain + 4 > size && WriteFour(Text.data() + size - 4, letters + size - 4)) plain = size;
  TKeyWriter writer(letters, letters + letterRoom, plain);
  for (char16_t unit : Text.substr(plain)) writer.Add(unit);
  Key.resize(static_cast<size_t>(writer.Finish() - Key.data()));
  return writer.IsWhole();
}

}  // namespace vx
