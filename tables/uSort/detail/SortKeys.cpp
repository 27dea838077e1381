#include "tables/uSort/detail/SortKeys.h"

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cstring>

#include "core/uVxFunctions/DateParsers.h"
#include "platform/Calendar.h"
#include "platform/Collation.h"
#include "platform/Text.h"

namespace vx::detail {
namespace {

constexpr uint64_t kFirstDay = 18991230;  // the value 0, and what an empty cell is read as

// The eight digits of Number as characters, the highest in the highest byte.
constexpr uint64_t DigitUnits(uint64_t Number) noexcept {
  uint64_t units = 0;
  for (int shift = 0; shift < 64; shift += 8, Number /= 10) units |= (u'0' + Number % 10) << shift;
  return units;
}

bool AreDigits(uint64_t Units) noexcept {
  constexpr uint64_t kEach = 0x0101010101010101;
  return (Units & 0xF0 * kEach) == 0x30 * kEach && ((Units + 6 * kEach) & 0xF0 * kEach) == 0x30 * kEach;
}

// Two digits as a number; 100 and above for anything else.
unsigned TwoDigits(const char16_t* Units) noexcept {
  const unsigned tens = unsigned{Units[0]} - u'0', ones = unsigned{Units[1]} - u'0';
  return tens <= 9 && ones <= 9 ? tens * 10 + ones : 100;
}

// The seconds of hh:nn and hh:nn:ss; false for another form and another hour than 0 to MostHours.
bool ReadUsualTime(std::u16string_view Text, unsigned MostHours, unsigned& Seconds) noexcept {
  const bool hasSeconds = Text.size() == 8;
  if (!(Text.size() == 5 || hasSeconds) || Text[2] != u':' || (hasSeconds && Text[5] != u':')) return false;
  const unsigned hour = TwoDigits(Text.data()), minute = TwoDigits(Text.data() + 3);
  const unsigned second = hasSeconds ? TwoDigits(Text.data() + 6) : 0;
  Seconds = (hour * 60 + minute) * 60 + second;
  return hour <= MostHours && minute < 60 && second < 60;
}

// The year, the month and the day of a text that begins as a date; false where a unit needs more than 8 bits.
bool ReadDateUnits(std::u16string_view Text, uint64_t& Units) noexcept {
  uint64_t units = 0, all = 0;
  for (size_t at : {6, 7, 8, 9, 3, 4, 0, 1}) {
    units = units << 8 | (Text[at] & 0xFF);
    all |= Text[at];
  }
  Units = units;
  return all <= 0xFF;
}

bool IsDateThatExists(uint64_t Number) noexcept {
  const int year = static_cast<int>(Number / 10000), month = static_cast<int>(Number / 100 % 100);
  const int day = static_cast<int>(Number % 100);
  return year > 0 && day > 0 && day <= DaysInMonth(year, month);
}

// A key for a day and the seconds in it, with room for one more before them.
constexpr uint64_t MomentKey(uint64_t Day, uint64_t SecondsBehindOne) noexcept { return Day << 18 | SecondsBehindOne; }

uint64_t BigEndian(const uint8_t* Bytes) noexcept {
  uint64_t word;
  std::memcpy(&word, Bytes, sizeof word);
  return std::endian::native == std::endian::little ? __builtin_bswap64(word) : word;
}

}  // namespace

uint64_t KeyOf(Extended Value) noexcept {
  const auto nearest = static_cast<double>(std::clamp<Extended>(Value, -DBL_MAX, DBL_MAX));
  const auto bits = std::bit_cast<uint64_t>(nearest + 0.0);
  return bits >> 63 != 0 ? ~bits : bits | uint64_t{1} << 63;
}

bool HasFewDigits(std::u16string_view Number) noexcept {
  return Number.size() <= DBL_DIG && Number.find_first_of(u"eE") == std::u16string_view::npos;
}

TByteKeys::TByteKeys(size_t Count) {
  constexpr size_t kUsualSize = 12;
  FStarts.reserve(Count + 1);
  FStarts.push_back(0);
  FBytes.reserve(Count * kUsualSize);
}

uint64_t TByteKeys::AddText(std::u16string_view Text) {
  const bool isWhole = AppendCollationKey(Text, FBytes);
  if (!isWhole && FAllWhole) {
    FAllWhole = false;
    FWhole.assign(FStarts.size() - 1, true);
  }
  if (!FAllWhole) FWhole.push_back(isWhole);
  FStarts.push_back(FBytes.size());
  return Word(static_cast<uint32_t>(FStarts.size() - 2), 0);
}

uint64_t TByteKeys::AddUnits(std::u16string_view Text) {
  size_t at = FBytes.size();
  FBytes.resize(at + 2 * Text.size());
  for (char16_t unit : Text) {
    FBytes[at++] = static_cast<uint8_t>(unit >> 8);
    FBytes[at++] = static_cast<uint8_t>(unit);
  }
  FStarts.push_back(at);
  return Word(static_cast<uint32_t>(FStarts.size() - 2), 0);
}

uint64_t TByteKeys::Word(uint32_t Slot, size_t Index) const noexcept {
  const size_t at = FStarts[Slot] + 8 * Index, end = FStarts[Slot + 1];
  if (at >= end) return 0;
  const size_t count = std::min<size_t>(end - at, 8);
  if (at + 8 <= FBytes.size()) return BigEndian(&FBytes[at]) >> (64 - 8 * count) << (64 - 8 * count);
  uint8_t bytes[8] = {};
  std::memcpy(bytes, &FBytes[at], count);
  return BigEndian(bytes);
}

TMomentKeys::TMomentKeys(TVxFieldType FieldType) noexcept
    : FType(FieldType),
      FUsualSettings(FindMomentForm(vftDate)->Digits(u"02.01.2003") == 20030102),
      FAllDigits(FieldType == vftDate) {}

uint64_t TMomentKeys::Add(std::u16string_view Cell) noexcept {
  return FType == vftDate ? AddDate(Cell) : FType == vftTime ? AddTime(Cell) : AddDateTime(Cell);
}

uint64_t TMomentKeys::PackDigits(uint64_t Digits) noexcept {
  // Pairs, then fours, then all eight digits at once.
  Digits &= 0x0F0F0F0F0F0F0F0F;
  Digits = (Digits & 0x000F000F000F000F) + (Digits >> 8 & 0x000F000F000F000F) * 10;
  Digits = (Digits & 0x000000FF000000FF) + (Digits >> 16 & 0x000000FF000000FF) * 100;
  return (Digits & 0xFFFF) + (Digits >> 32) * 10000;
}

uint64_t TMomentKeys::AddDate(std::u16string_view Cell) noexcept {
  uint64_t units;
  if (!BeginsAsDate(Cell)) {
    FHasOther = true;
    constexpr uint64_t kEmpty = DigitUnits(kFirstDay);
    return Cell.empty() ? kEmpty : DigitUnits(FindMomentForm(vftDate)->Digits(Cell));
  }
  if (!ReadDateUnits(Cell, units)) return NoKey();
  const bool areDigits = AreDigits(units);
  FAllDigits &= areDigits;
  FSpoiledByOther |= !(areDigits && Cell.size() == 10 && FUsualSettings && IsDateThatExists(PackDigits(units)));
  return units;
}

uint64_t TMomentKeys::AddTime(std::u16string_view Cell) noexcept {
  // An empty cell stands before 00:00 by its characters, and no cell is always read.
  unsigned seconds;
  if (Cell.empty()) return 0;
  return ReadUsualTime(Cell, 99, seconds) ? seconds + 1 : NoKey();
}

uint64_t TMomentKeys::AddDateTime(std::u16string_view Cell) noexcept {
  if (!BeginsAsDate(Cell)) {
    FHasOther = true;
    const uint64_t digits = Cell.empty() ? kFirstDay * 1000000 : FindMomentForm(vftDateTime)->Digits(Cell);
    const uint64_t time = digits % 1000000;
    return MomentKey(digits / 1000000, (time / 10000 * 60 + time / 100 % 100) * 60 + time % 100 + 1);
  }
  // Days before the first one have a time that runs backwards where it is read.
  uint64_t units;
  if (!FUsualSettings || !ReadDateUnits(Cell, units) || !AreDigits(units)) return NoKey();
  const uint64_t day = PackDigits(units);
  if (!IsDateThatExists(day) || day < kFirstDay) return NoKey();
  if (Cell.size() == 10) {
    // Without a blank it is read as the first day; among the times of its own day that is before them all.
    FSpoiledByOther = true;
    return MomentKey(day, day == kFirstDay ? 1 : 0);
  }
  unsigned seconds;
  if (Cell[10] != u' ' || !ReadUsualTime(Cell.substr(11), 23, seconds)) return NoKey();
  return MomentKey(day, seconds + 1);
}

}  // namespace vx::detail
