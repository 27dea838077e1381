#include "tables/Csv/TCsvWriter.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/CodePage.h"
#include "platform/Encoding.h"
#include "platform/Scan.h"

namespace vx {

namespace {

constexpr size_t kSlack = 16;       // bytes that a short cell may be written beyond its end
constexpr size_t kMostBytes = 4;    // that a unit may take: a quote of UTF-16, doubled
constexpr char16_t kMark = 0xFEFF;  // at the beginning of a file it would be taken for its byte order mark

char* PutUtf8Unit(char* Target, char16_t Unit) {
  const auto put = [&](unsigned byte) { *Target++ = static_cast<char>(byte); };
  if (Unit < 0x80) {
    put(Unit);
  } else if (Unit < 0x800) {
    put(0xC0u | Unit >> 6);
    put(0x80u | (Unit & 63));
  } else {
    put(0xE0u | Unit >> 12);
    put(0x80u | (Unit >> 6 & 63));
    put(0x80u | (Unit & 63));
  }
  return Target;
}

bool IsHighSurrogate(char16_t Unit) { return Unit >= 0xD800 && Unit < 0xDC00; }
bool IsLowSurrogate(char16_t Unit) { return Unit >= 0xDC00 && Unit < 0xE000; }

TCsvForm WithNothingOpen(TCsvForm Form) {
  if (Form.Separator == 0) Form.Separator = u',';
  if (Form.Encoding == ceGuess) Form.Encoding = ceUtf8;
  CheckCsvForm(Form);
  return Form;
}

const TCodePage* PageOf(const TCsvForm& Form) {
  if (Form.Encoding != ceCodePage) return nullptr;
  return Form.CodePage == 0 ? &GetSystemCodePage() : TCodePage::Find(Form.CodePage);
}

}  // namespace

TCsvWriter::TCsvWriter(const TCsvForm& Form) : FForm(WithNothingOpen(Form)), FPage(PageOf(FForm)) {
  std::fill_n(FSeparators, kLanes, FForm.Separator);
  std::fill_n(FQuotes, kLanes, FForm.Quote);
  if (FForm.HasMark && FPage == nullptr) {
    FSize = static_cast<size_t>(PutUnit(Room(nullptr, kMostBytes), kMark) - FBytes.get());
  }
}

TCsvWriter::~TCsvWriter() = default;

inline char* TCsvWriter::PutUnit(char* Target, char16_t Unit) const {
  const auto put = [&](unsigned byte) { *Target++ = static_cast<char>(byte); };
  switch (FForm.Encoding) {
    case ceUtf16:
      put(Unit & 0xFF);
      put(Unit >> 8);
      return Target;
    case ceUtf16BigEndian:
      put(Unit >> 8);
      put(Unit & 0xFF);
      return Target;
    case ceCodePage:
      put(FPage->EncodeUnit(Unit));
      return Target;
    default:
      return PutUtf8Unit(Target, Unit);
  }
}

#if defined(__SSE2__)

// Writes the units From to To of eight that can be read, and goes behind them. False where one of them may need quotes
// or a closer look; the scratch that was written counts for nothing then.
inline bool TCsvWriter::PutEight(char*& Target, const char16_t* Units, size_t From, size_t To) const {
  const __m128i units = scan::Load(Units);
  const unsigned part = ((1u << 2 * (To - From)) - 1) << 2 * From;
  const __m128i marks =
      _mm_or_si128(_mm_cmpeq_epi16(units, scan::Load(FSeparators)), _mm_cmpeq_epi16(units, scan::Load(FQuotes)));
  if (scan::Mask(_mm_or_si128(marks, scan::UpTo(units, u'\r'))) & part) return false;
  const auto bytes = static_cast<uint64_t>(_mm_cvtsi128_si64(_mm_packus_epi16(units, units))) >> 8 * From;
  unsigned wide = ~scan::Mask(scan::UpTo(units, 127)) & part;
  std::memcpy(Target, &bytes, sizeof bytes);
  if (wide != 0 && FPage == nullptr) {
    const size_t count = To - From;
    return PutWide(Target, {Units + From, count}, bytes, wide >> 2 * From);
  }
  for (; wide != 0; wide &= ~(3u << std::countr_zero(wide))) {
    const size_t i = static_cast<size_t>(std::countr_zero(wide)) / 2;
    if (!FPage->CanEncode(Units[i])) return false;
    Target[i - From] = static_cast<char>(FPage->EncodeUnit(Units[i]));
  }
  Target += To - From;
  return true;
}

// The same in UTF-8: Bytes has the units of ASCII and stands at Target already, Wide has two bits for each other unit.
bool TCsvWriter::PutWide(char*& Target, std::u16string_view Units, uint64_t Bytes, unsigned Wide) const {
  size_t done = 0;
  for (; Wide != 0; Wide &= ~(3u << std::countr_zero(Wide))) {
    const size_t i = static_cast<size_t>(std::countr_zero(Wide)) / 2;
    if (Units[i] >= 0xD800 && Units[i] < 0xE000) return false;
    Target = PutUtf8Unit(Target + (i - done), Units[i]);
    done = i + 1;
    const uint64_t rest = done < sizeof rest ? Bytes >> 8 * done : 0;
    std::memcpy(Target, &rest, sizeof rest);
  }
  Target += Units.size() - done;
  return true;
}

inline char* TCsvWriter::PutPlain(char* Target, const char16_t* Units, size_t Count) const {
  // A text of fewer than eight units stands inside its String, where eight are readable.
  if (Count < 8) return PutEight(Target, Units, 0, Count) ? Target : nullptr;
  size_t i = 0;
  for (; i + 8 <= Count; i += 8) {
    if (!PutEight(Target, Units + i, 0, 8)) return nullptr;
  }
  return i == Count || PutEight(Target, Units + Count - 8, 8 - (Count - i), 8) ? Target : nullptr;
}

#else

inline char* TCsvWriter::PutPlain(char* Target, const char16_t* Units, size_t Count) const {
  for (size_t i = 0; i < Count; ++i) {
    const char16_t unit = Units[i];
    if (unit == FForm.Separator || unit == FForm.Quote || unit == u'\r' || unit == u'\n') return nullptr;
    if (FPage != nullptr ? !FPage->CanEncode(unit) : unit >= 0xD800 && unit < 0xE000) return nullptr;
    Target = PutUnit(Target, unit);
  }
  return Target;
}

#endif

char* TCsvWriter::Room(char* Target, size_t Count) {
  if (static_cast<size_t>(FEnd - Target) >= Count) return Target;
  constexpr size_t kFirst = 4096;
  const size_t size = static_cast<size_t>(Target - FBytes.get());
  const size_t capacity = std::max({size + Count, 2 * static_cast<size_t>(FEnd - FBytes.get()), kFirst});
  // The system moves large blocks without copying them.
  char* const bytes = static_cast<char*>(std::realloc(FBytes.get(), capacity));
  if (bytes == nullptr) throw std::bad_alloc();
  (void)FBytes.release();
  FBytes.reset(bytes);
  FEnd = bytes + capacity;
  return bytes + size;
}

void TCsvWriter::Write(std::span<const String> Cells) {
  constexpr size_t kForEnds = 8 * kMostBytes;  // separator, quotes, line end
  char* target = Room(FBytes.get() + FSize, kForEnds);
  FCol = 0;
  for (const String& cell : Cells) {
    target = Room(target, kMostBytes * static_cast<size_t>(cell.size()) + kForEnds + kSlack);
    if (FCol > 0) target = PutUnit(target, FForm.Separator);
    target = PutCell(target, cell);
    ++FCol;
  }
  // A row of one empty cell would be a row without cells.
  if (Cells.size() == 1 && Cells[0].empty()) {
    if (FForm.Quote == 0) FLost.Add({0, FRow, lrForm});
    if (FForm.Quoting == cqNeeded) target = PutUnits(target, {}, FForm.Quote != 0);
  }
  if (FForm.LineEnd != clLf) target = PutUnit(target, u'\r');
  if (FForm.LineEnd != clCr) target = PutUnit(target, u'\n');
  FSize = static_cast<size_t>(target - FBytes.get());
  ++FRow;
}

char* TCsvWriter::PutCell(char* Target, std::u16string_view Cell) {
  const bool isQuoted = FForm.Quoting == cqAll && FForm.Quote != 0;
  if (Cell.empty() && !isQuoted) return Target;
  if (FForm.Encoding != ceUtf16 && FForm.Encoding != ceUtf16BigEndian && !isQuoted && (FRow > 0 || FCol > 0)) {
    if (char* end = PutPlain(Target, Cell.data(), Cell.size())) return end;
  }
  FIsLost = FIsFormLost = false;
  Target = PutUnits(Target, Cell, isQuoted || NeedsQuotes(Cell));
  if (FIsLost || FIsFormLost) FLost.Add({FCol, FRow, FIsFormLost ? lrForm : lrCharacter});
  return Target;
}

bool TCsvWriter::NeedsQuotes(std::u16string_view Cell) const {
  const char16_t* const end = Cell.data() + Cell.size();
  if (FRow == 0 && FCol == 0 && !FForm.HasMark && !Cell.empty() && Cell[0] == kMark) return true;
  const char16_t quote = FForm.Quote != 0 ? FForm.Quote : FForm.Separator;
  return scan::FindEither(Cell.data(), end, FForm.Separator, quote) != end ||
         scan::FindEither(Cell.data(), end, u'\r', u'\n') != end;
}

// Writes the cell with or without quotes, whatever is in it.
char* TCsvWriter::PutUnits(char* Target, std::u16string_view Cell, bool IsQuoted) {
  if (FForm.Quote == 0) {
    FIsFormLost = IsQuoted;
    return PutPiece(Target, Cell);
  }
  if (!IsQuoted) return PutPiece(Target, Cell);
  Target = PutUnit(Target, FForm.Quote);
  for (const char16_t *pos = Cell.data(), *end = pos + Cell.size(); pos != end;) {
    const char16_t* const quote = scan::FindUnit(pos, end, FForm.Quote);
    const char16_t* const next = quote == end ? end : quote + 1;
    Target = PutPiece(Target, {pos, next});
    if (quote != end) Target = PutUnit(Target, FForm.Quote);
    pos = next;
  }
  return PutUnit(Target, FForm.Quote);
}

// Writes units of a cell as they are, or what stands for those that the encoding lacks. A piece ends with a quote or
// the cell, so that no pair of surrogates is cut.
char* TCsvWriter::PutPiece(char* Target, std::u16string_view Piece) {
  if (FForm.Encoding == ceUtf8) {
    for (size_t pos = 0; pos < Piece.size();) Target = PutUtf8(Target, Piece, pos);
    return Target;
  }
  if (FPage != nullptr) {
    for (const char16_t unit : Piece) FIsLost |= !FPage->CanEncode(unit);
    FPage->Encode(Piece.data(), Piece.size(), Target);
    return Target + Piece.size();
  }
  for (const char16_t unit : Piece) Target = PutUnit(Target, unit);
  return Target;
}

// One character, of one or two units; not half of a pair.
char* TCsvWriter::PutUtf8(char* Target, std::u16string_view Text, size_t& Pos) {
  char32_t value = Text[Pos++];
  if (value < 0x80) {
    *Target++ = static_cast<char>(value);
    return Target;
  }
  if (IsHighSurrogate(static_cast<char16_t>(value)) && Pos < Text.size() && IsLowSurrogate(Text[Pos])) {
    value = 0x10000 + ((value - 0xD800) << 10) + (Text[Pos++] - 0xDC00u);
    *Target++ = static_cast<char>(0xF0 | value >> 18);
    *Target++ = static_cast<char>(0x80 | (value >> 12 & 63));
    *Target++ = static_cast<char>(0x80 | (value >> 6 & 63));
    *Target++ = static_cast<char>(0x80 | (value & 63));
    return Target;
  }
  const bool isLone = value >= 0xD800 && value < 0xE000;
  FIsLost |= isLone;
  return PutUnit(Target, isLone ? char16_t{0xFFFD} : static_cast<char16_t>(value));
}

}  // namespace vx
