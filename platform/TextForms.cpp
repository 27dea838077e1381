#include "platform/TextForms.h"

#include <algorithm>
#include <cstring>

#include "platform/Scan.h"
#include "platform/detail/CellReader.h"
#include "platform/detail/OffsetCells.h"
#include "platform/detail/Quoting.h"

namespace vx {

namespace {

constexpr char16_t kDegree = u'\u00B0';
constexpr char16_t kBar = u'|';
constexpr char16_t kEsc = 27;
constexpr char16_t kDoubleQuote = u'"';

const char16_t* EndOf(std::u16string_view Text) { return Text.data() + Text.size(); }

size_t CountUnit(std::u16string_view Text, char16_t Unit) {
  return static_cast<size_t>(std::count(Text.begin(), Text.end(), Unit));
}

// A unit above 255 separates and quotes nothing: a blank in its place adds nothing to the blanks.
char16_t Separating(char16_t Unit) { return Unit > 255 ? u' ' : Unit; }

char16_t* Put(char16_t* Target, std::u16string_view Text) {
  std::memcpy(Target, Text.data() ? Text.data() : u"", Text.size() * sizeof(char16_t));
  return Target + Text.size();
}

char16_t* PutQuoted(char16_t* Target, std::u16string_view Text, char16_t Quote) {
  *Target++ = Quote;
  detail::ForEachDoubled(Text, Quote, [&](const char16_t* units, size_t count) {
    Target = Put(Target, {units, count});
  });
  *Target++ = Quote;
  return Target;
}

// Copies Count units in which each pair of Quotes stands for one.
void PutWithoutPairs(char16_t* Target, const char16_t* Text, size_t Count, char16_t Quote) {
  const char16_t* end = Text + Count;
  while (Text != end) {
    const char16_t* quote = scan::FindUnit(Text, end, Quote);
    const char16_t* next = quote == end ? end : quote + 1;
    Target = Put(Target, {Text, static_cast<size_t>(next - Text)});
    Text = quote == end ? end : quote + 2;
  }
}

String WithoutPairs(const char16_t* Text, size_t Count, size_t Pairs, char16_t Quote) {
  if (Pairs == 0) return String(std::u16string_view(Text, Count));
  return String::Build(Count - Pairs, [&](char16_t* target) { PutWithoutPairs(target, Text, Count, Quote); });
}

// Joins the cells by Delimiter; those for which NeedsQuotes holds stand in Quotes. The text is
// sized first and then filled.
template <typename TNeedsQuotes>
String Join(std::span<const String> Cells, char16_t Delimiter, char16_t Quote, TNeedsQuotes NeedsQuotes) {
  if (Cells.empty()) return {};
  if (Cells.size() == 1 && Cells[0].empty()) return String(2, Quote);
  constexpr size_t kRemembered = 64;
  bool remembered[kRemembered];
  size_t total = Cells.size() - 1;
  for (size_t i = 0; i < Cells.size(); ++i) {
    std::u16string_view cell = Cells[i];
    bool quoted = NeedsQuotes(cell);
    if (i < kRemembered) remembered[i] = quoted;
    total += cell.size() + (quoted ? CountUnit(cell, Quote) + 2 : 0);
  }
  return String::Build(total, [&](char16_t* target) {
    for (size_t i = 0; i < Cells.size(); ++i) {
      std::u16string_view cell = Cells[i];
      if (i > 0) *target++ = Delimiter;
      bool quoted = i < kRemembered ? remembered[i] : NeedsQuotes(cell);
      target = quoted ? PutQuoted(target, cell, Quote) : Put(target, cell);
    }
  });
}

// Cells of a text for TCellReader.
struct TTextSource {
  using Unit = char16_t;
  template <bool kLines>
  const char16_t* TakeUnquoted(const char16_t* First, const char16_t* Last) {
    const char16_t* stop = scan::FindBlankOr(First, Last, Delimiter);
    Cells.emplace_back(std::u16string_view(First, static_cast<size_t>(stop - First)));
    return stop;
  }
  const char16_t* NextQuote(const char16_t* First, const char16_t* Last) const {
    return scan::FindUnit(First, Last, Quote);
  }
  void TakeEmpty() { Cells.emplace_back(); }
  void TakeQuoted(const char16_t* Text, size_t Count, size_t Pairs) {
    Cells.push_back(WithoutPairs(Text, Count, Pairs, Quote));
  }
  char16_t Delimiter;
  char16_t Quote;
  TCells Cells;
};

// Reads the quoted cell at Pos of a lighttext and moves Pos behind it.
String TakeQuotedCell(const char16_t*& Pos, const char16_t* End, char16_t Quote) {
  TTextSource source{kBar, Quote, {}};
  detail::TCellReader<false, TTextSource> reader(source, Pos, End);
  Pos = reader.ReadQuoted();
  return std::move(source.Cells.back());
}

}  // namespace

String QuotedStr(std::u16string_view Text, char16_t Quote) {
  size_t total = Text.size() + CountUnit(Text, Quote) + 2;
  return String::Build(total, [&](char16_t* target) { PutQuoted(target, Text, Quote); });
}

String DequotedStr(std::u16string_view Text, char16_t Quote, int& Consumed) {
  Consumed = 0;
  if (Text.empty() || Text[0] != Quote) return {};
  String result;
  const char16_t* pos = Text.data() + 1;
  const char16_t* end = EndOf(Text);
  bool closed = false;
  while (pos != end && !closed) {
    const char16_t* quote = scan::FindUnit(pos, end, Quote);
    const char16_t* behind = std::find_if(quote, end, [&](char16_t unit) { return unit != Quote; });
    result += {pos, static_cast<size_t>(quote - pos)};
    result += String(static_cast<int>((behind - quote) / 2), Quote);
    closed = (behind - quote) % 2 == 1;
    pos = behind;
  }
  Consumed = static_cast<int>(pos - Text.data());
  return result;
}

String CommatextToCelltext(std::u16string_view Text) { return WriteCellText(ReadCommatext(Text)); }

String WriteCommatext(std::span<const String> Cells) { return WriteSerialize(Cells, u',', kDoubleQuote); }
TCells ReadCommatext(std::u16string_view Text) { return ReadSerialize(Text, u',', kDoubleQuote); }

String WriteSerialize(std::span<const String> Cells, char16_t Delimiter, char16_t Quote) {
  return Join(Cells, Delimiter, Quote, [&](std::u16string_view cell) {
    return detail::NeedsQuotes(cell, Separating(Delimiter), Separating(Quote));
  });
}

TCells ReadSerialize(std::u16string_view Text, char16_t Delimiter, char16_t Quote) {
  TTextSource source{Separating(Delimiter), Quote, {}};
  detail::TCellReader<false, TTextSource> reader(source, Text.data(), EndOf(Text));
  reader.ReadRow();
  return std::move(source.Cells);
}

String WriteLighttext(std::span<const String> Cells) {
  return Join(Cells, kBar, kDegree, [](std::u16string_view cell) {
    cell = cell.substr(0, cell.find(u'\0'));
    return scan::FindEither(cell.data(), EndOf(cell), kBar, kDegree) != EndOf(cell);
  });
}

TCells ReadLighttext(std::u16string_view Text) {
  TCells cells;
  const char16_t* pos = Text.data();
  const char16_t* end = EndOf(Text);
  while (pos != end && *pos != 0) {
    if (*pos == kDegree) {
      cells.push_back(TakeQuotedCell(pos, end, kDegree));
    } else {
      const char16_t* stop = scan::FindEither(pos, end, kBar, 0);
      cells.emplace_back(std::u16string_view(pos, static_cast<size_t>(stop - pos)));
      pos = stop;
    }
    if (pos != end && *pos == kBar && ++pos == end) cells.emplace_back();
  }
  return cells;
}

String WriteOffsettext(std::span<const String> Cells) {
  size_t total = 0;
  for (int last = -1; const String& cell : Cells) {
    const auto size = static_cast<size_t>(cell.size());
    total += (cell.size() == last ? 0 : detail::HexDigits(size)) + 1 + size;
    last = cell.size();
  }
  return String::Build(total, [&](char16_t* target) {
    for (int last = -1; const String& cell : Cells) {
      if (cell.size() != last) target = detail::PutHex(target, static_cast<uint64_t>(cell.size()));
      last = cell.size();
      *target++ = kDegree;
      target = Put(target, cell);
    }
  });
}

TCells ReadOffsettext(std::u16string_view Text) { return ReadOffsettext(Text, 0, INT32_MAX); }

TCells ReadOffsettext(std::u16string_view Text, int First, int Last) {
  TCells cells;
  if (Last < 0) return cells;
  detail::TOffsetReader reader(Text);
  std::u16string_view cell;
  for (int64_t index = 0; index <= Last && reader.Next(cell); ++index) {
    // What is as long as the text is the text itself, taken as one cell where index 0 is asked for.
    if (index >= First && (First == 0 || cell.size() < Text.size())) cells.emplace_back(cell);
  }
  return cells;
}

String WriteIntellitext(std::span<const String> Cells) {
  if (Cells.empty()) return {};
  const String& middle = Cells[Cells.size() / 2];
  if (scan::FindUnit(middle.begin(), middle.end(), kDegree) != middle.end()) return WriteOffsettext(Cells);
  constexpr size_t kLong = 500;
  size_t step = Cells.size() >= 11 ? Cells.size() / 10 : 1;
  size_t sum = 0;
  for (size_t i = 0; i < Cells.size(); i += step) {
    sum += static_cast<size_t>(Cells[i].size());
    if (sum > kLong) return WriteOffsettext(Cells);
  }
  return WriteLighttext(Cells);
}

TCells ReadIntellitext(std::u16string_view Text) {
  if (Text.size() >= 3 && Text[0] != kDegree) {
    size_t found = Text.substr(0, 9).find(kDegree);
    if (found != Text.npos && Text[found - 1] != kBar) return ReadOffsettext(Text);
  }
  return ReadLighttext(Text);
}

String WriteCellText(std::span<const String> Cells) {
  if (Cells.empty()) return {};
  size_t total = Cells.size() - 1;
  for (const String& cell : Cells) total += static_cast<size_t>(cell.size());
  return String::Build(total, [&](char16_t* target) {
    for (size_t i = 0; i < Cells.size(); ++i) {
      if (i > 0) *target++ = u'\n';
      target = Put(target, Cells[i]);
    }
  });
}

TCells ReadCellText(std::u16string_view Text) {
  TCells cells;
  if (Text.empty()) return cells;
  for (;;) {
    size_t end = Text.find(u'\n');
    cells.emplace_back(Text.substr(0, end));
    if (end == Text.npos) return cells;
    Text.remove_prefix(end + 1);
  }
}

String WriteCsv(std::span<const String> Cells) {
  size_t total = Cells.size();
  for (const String& cell : Cells) total += static_cast<size_t>(cell.size());
  return String::Build(total, [&](char16_t* target) {
    for (const String& cell : Cells) {
      target = Put(target, cell);
      *target++ = kEsc;
    }
  });
}

TCells ReadCsv(std::u16string_view Text) {
  TCells cells;
  const char16_t* pos = Text.data();
  const char16_t* end = EndOf(Text);
  auto skipBlanks = [&] {
    while (pos != end && *pos >= 1 && *pos <= 32) ++pos;
  };
  skipBlanks();
  while (pos != end && *pos != 0) {
    const char16_t* stop = scan::FindEither(pos, end, kEsc, 0);
    if (stop != pos) cells.emplace_back(std::u16string_view(pos, static_cast<size_t>(stop - pos)));
    pos = stop;
    if (pos != end && *pos == kEsc) {
      ++pos;
      skipBlanks();
    }
  }
  return cells;
}

}  // namespace vx
