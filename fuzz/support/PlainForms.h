// The readers of the text forms once more, step by step as the rules are told, and what the writers' texts read as.
//
//   PlainSerialize, PlainLighttext, PlainOffsettext   plain readers
//   SerialPromise, LighttextPromise                   the cells that a written text has to read back as
//
// Example:
//   Check(ReadLighttext(WriteLighttext(cells)) == LighttextPromise(cells), "lighttext reads back");
#pragma once

#include <cstdint>

#include "platform/TextForms.h"

namespace vx::fuzz {

inline bool IsBlank(char16_t Unit) { return Unit >= 1 && Unit <= 32; }

// A text that has a code unit 0 behind its end.
struct TPlainText {
  explicit TPlainText(std::u16string_view Text) : Units(Text) {}
  char16_t operator*() const { return IsAtEnd() ? u'\0' : Units[Pos]; }
  bool IsAtEnd() const { return Pos >= Units.size(); }
  void SkipBlanks() {
    while (IsBlank(**this)) ++Pos;
  }

  std::u16string_view Units;
  size_t Pos = 0;
};

inline String PlainQuotedCell(TPlainText& Text, char16_t Quote) {
  String cell;
  for (++Text.Pos; !Text.IsAtEnd(); ++Text.Pos) {
    char16_t unit = *Text;
    if (unit == Quote) {
      ++Text.Pos;
      if (Text.IsAtEnd() || *Text != Quote) return cell;
    }
    cell += unit;
  }
  return cell.Slice(0, cell.size() - 1);
}

// A delimiter above 255 separates nothing.
inline TCells PlainSerialize(std::u16string_view Units, char16_t Delimiter, char16_t Quote) {
  auto isDelimiter = [&](char16_t unit) { return unit == Delimiter && unit <= 255; };
  TCells cells;
  TPlainText text(Units);
  text.SkipBlanks();
  while (*text != 0) {
    if (*text == Quote) {
      cells.push_back(PlainQuotedCell(text, Quote));
    } else {
      size_t start = text.Pos;
      while (*text > 32 && !isDelimiter(*text)) ++text.Pos;
      cells.emplace_back(Units.substr(start, text.Pos - start));
    }
    if (text.IsAtEnd()) break;
    text.SkipBlanks();
    if (text.IsAtEnd() || !isDelimiter(*text)) continue;
    ++text.Pos;
    text.SkipBlanks();
    if (*text == 0) cells.emplace_back();
  }
  return cells;
}

inline TCells PlainLighttext(std::u16string_view Units) {
  constexpr char16_t kDegree = 176;
  TCells cells;
  TPlainText text(Units);
  while (*text != 0) {
    if (*text == kDegree) {
      cells.push_back(PlainQuotedCell(text, kDegree));
    } else {
      size_t start = text.Pos;
      while (*text != 0 && *text != u'|') ++text.Pos;
      cells.emplace_back(Units.substr(start, text.Pos - start));
    }
    if (*text == u'|' && ++text.Pos == Units.size()) cells.emplace_back();
  }
  return cells;
}

// The cells number First to Last.
inline TCells PlainOffsettext(std::u16string_view Units, int First, int Last) {
  TCells cells;
  TPlainText text(Units);
  int64_t length = -1;
  for (int index = 0; index <= Last && *text != 0; ++index) {
    size_t start = text.Pos;
    while (*text != 176 && *text != 0 && text.Pos - start <= 10) ++text.Pos;
    if (text.Pos - start > 10) text.Pos = Units.size();
    if (*text != 176) break;
    if (text.Pos > start || length == -1) length = 0;
    for (size_t i = start; i < text.Pos; ++i) {
      size_t digit = std::u16string_view(u"0123456789ABCDEFabcdef").find(Units[i]);
      length = length * 16 + static_cast<int64_t>(digit == std::u16string_view::npos ? 0
                                                  : digit < 16                       ? digit
                                                                                     : digit - 6);
    }
    ++text.Pos;
    std::u16string_view cell = Units.substr(text.Pos, static_cast<size_t>(length));
    if (index >= First) cells.emplace_back(cell);
    text.Pos += cell.size();
  }
  if (First == 0 && cells.empty() && text.Pos > 0) cells.emplace_back(Units);
  return cells;
}

// What a code unit 0 leaves of cells: a cell with none of the units that Quotes tells in front of its 0 is written
// without quotes, and reading ends there. IsCut tells whether that happened to the last one.
inline TCells CutAtZero(const TCells& Cells, bool (*Quotes)(char16_t Unit, char16_t A, char16_t B), char16_t A,
                        char16_t B, bool& IsCut) {
  TCells cells;
  IsCut = false;
  for (const String& cell : Cells) {
    bool isQuoted = false;
    size_t zero = 0;
    for (; zero < cell.view().size() && cell.view()[zero] != 0; ++zero) {
      isQuoted = isQuoted || Quotes(cell.view()[zero], A, B);
    }
    IsCut = !isQuoted && zero < cell.view().size();
    cells.push_back(IsCut ? cell.Slice(0, static_cast<int>(zero)) : cell);
    if (IsCut) break;
  }
  return cells;
}

// For a delimiter and a quote that differ, both up to 255, the quote above 32 and no delimiter 0.
inline TCells SerialPromise(const TCells& Cells, char16_t Delimiter, char16_t Quote) {
  if (Cells.size() == 1 && Cells[0].empty()) return Cells;
  bool isCut;
  TCells cells = CutAtZero(
      Cells, [](char16_t unit, char16_t a, char16_t b) { return IsBlank(unit) || unit == a || unit == b; }, Delimiter,
      Quote, isCut);
  if (Delimiter <= 32) std::erase(cells, String());
  // The text that begins with a code unit 0 has no cell.
  if (isCut && cells.size() == 1 && cells[0].empty()) cells.clear();
  return cells;
}

inline TCells LighttextPromise(const TCells& Cells) {
  bool isCut;
  TCells cells = CutAtZero(
      Cells, [](char16_t unit, char16_t a, char16_t b) { return unit == a || unit == b; }, u'|', 176, isCut);
  if (isCut && cells.back().empty()) cells.pop_back();
  return cells;
}

}  // namespace vx::fuzz
