#include "tables/Csv/TCsvWriter.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/CodePage.h"
#include "platform/Encoding.h"
#include "platform/Scan.h"

namespace vx {

namespace {

constexpr size_t kSlack = 16;       // bytes that a short cell may be written beyond its end
constexpr size_t kMostBytes = 4;    // that a unit may take: a quote of UTF-16, doubled
constexpr char16_t kMark = 0xFEFF;  // at the beginning of a file it would be taken for its byte order mark

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
  if (FForm.HasMark && FPage == nullptr) FSize = static_cast<size_t>(PutUnit(Room(kMostBytes), kMark) - FBytes.get());
}

TCsvWriter::~TCsvWriter() = default;

char* TCsvWriter::Room(size_t Count) {
  constexpr size_t kFirst = 4096;
  if (FCapacity - FSize < Count) {
    const size_t capacity = std::max({FSize + Count, 2 * FCapacity, kFirst});
    auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
    if (FSize > 0) std::memcpy(bytes.get(), FBytes.get(), FSize);
    FBytes = std::move(bytes);
    FCapacity = capacity;
  }
  return FBytes.get() + FSize;
}

void TCsvWriter::Write(std::span<const String> Cells) {
  size_t most = 64;
  for (const String& cell : Cells) most += kMostBytes * static_cast<size_t>(cell.size()) + 3 * kMostBytes + kSlack;
  char* target = Room(most);
  FCol = 0;
  for (const String& cell : Cells) {
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
  if (FForm.Encoding != ceUtf16 && FForm.Encoding != ceUtf16BigEndian && !isQuoted &&
      PutPlain(Target, Cell.data(), Cell.size())) {
    return Target + Cell.size();
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

// Writes every unit, whatever it needs.
char* TCsvWriter::PutUnits(char* Target, std::u16string_view Cell, bool IsQuoted) {
  const bool hasQuote = FForm.Quote != 0;
  FIsFormLost = IsQuoted && !hasQuote;
  if (IsQuoted && hasQuote) Target = PutUnit(Target, FForm.Quote);
  for (size_t pos = 0; pos < Cell.size();) {
    const char16_t unit = Cell[pos];
    if (hasQuote && unit == FForm.Quote) Target = PutUnit(Target, unit);
    if (FForm.Encoding == ceUtf8) {
      Target = PutUtf8(Target, Cell, pos);
      continue;
    }
    FIsLost |= FPage != nullptr && !FPage->CanEncode(unit);
    Target = PutUnit(Target, unit);
    ++pos;
  }
  return IsQuoted && hasQuote ? PutUnit(Target, FForm.Quote) : Target;
}

// One character, of one or two units; not half of a pair.
char* TCsvWriter::PutUtf8(char* Target, std::u16string_view Text, size_t& Pos) {
  char32_t value = Text[Pos++];
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

char* TCsvWriter::PutUnit(char* Target, char16_t Unit) const {
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
      break;
  }
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

#if defined(__SSE2__)

// Eight units at once, of which Count are part of the cell; all eight must be readable.
bool TCsvWriter::PutEight(char* Target, const char16_t* Units, size_t Count) const {
  const unsigned part = Count >= 8 ? 0xFFFFu : (1u << (2 * Count)) - 1;
  const __m128i units = scan::Load(Units);
  const auto is = [&](char16_t unit) { return _mm_cmpeq_epi16(units, scan::Fill(unit)); };
  const __m128i special =
      _mm_or_si128(_mm_or_si128(is(FForm.Separator), is(FForm.Quote)), _mm_or_si128(is(u'\r'), is(u'\n')));
  if (scan::Mask(special) & part) return false;
  _mm_storel_epi64(reinterpret_cast<__m128i*>(Target), _mm_packus_epi16(units, units));
  unsigned wide = ~scan::Mask(scan::UpTo(units, 127)) & part;
  if (wide != 0 && FPage == nullptr) return false;
  for (; wide != 0; wide &= wide - 1, wide &= wide - 1) {
    const int i = std::countr_zero(wide) / 2;
    if (!FPage->CanEncode(Units[i])) return false;
    Target[i] = static_cast<char>(FPage->EncodeUnit(Units[i]));
  }
  return true;
}

bool TCsvWriter::PutPlain(char* Target, const char16_t* Units, size_t Count) const {
  // A text of fewer than eight units stands inside its String, where eight are readable.
  if (Count < 8) return PutEight(Target, Units, Count);
  size_t i = 0;
  for (; i + 8 <= Count; i += 8) {
    if (!PutEight(Target + i, Units + i, 8)) return false;
  }
  return i == Count || PutEight(Target + Count - 8, Units + Count - 8, 8);
}

#else

bool TCsvWriter::PutPlain(char* Target, const char16_t* Units, size_t Count) const {
  for (size_t i = 0; i < Count; ++i) {
    const char16_t unit = Units[i];
    if (unit == FForm.Separator || unit == FForm.Quote || unit == u'\r' || unit == u'\n') return false;
    if (unit >= 0x80 && (FPage == nullptr || !FPage->CanEncode(unit))) return false;
    Target[i] = static_cast<char>(FPage == nullptr ? unit : FPage->EncodeUnit(unit));
  }
  return true;
}

#endif

}  // namespace vx
