// Routines on texts and lines: a width, an indent, options, a separator, then a text of cells.
#include <algorithm>

#include "core/uVxFunctionsSerialize.h"
#include "fuzz/support/Input.h"
#include "platform/Exceptions.h"
#include "platform/Text.h"

namespace vx::fuzz {
namespace {

std::u16string WithoutBlanks(const TCells& Cells) {
  std::u16string result(Joined(Cells).view());
  std::erase_if(result, [](char16_t unit) { return unit <= 32; });
  return result;
}

TCells CellsOf(const TTextList& List) { return TCells(List.Items().begin(), List.Items().end()); }

void CheckSplitting(std::u16string_view Text, char16_t Separator) {
  const std::u16string_view glue(&Separator, 1);
  auto pieces = explode(Text, Separator);
  Check(implode(*pieces, glue) == Text, "what is exploded implodes to the same");
  auto some = explode(Text, Separator, {eoSkipEmpty, eoTrim});
  TCells expected;
  for (int i = 0; i < pieces->GetCount(); ++i) {
    bool isLast = i == pieces->GetCount() - 1;
    String piece = isLast ? pieces->Get(i) : Trim(pieces->Get(i));
    if (isLast || !piece.empty()) expected.push_back(piece);
  }
  Check(CellsOf(*some) == expected, "options hold for all pieces but the last");
  auto merged = mergeSl(*pieces, *some, glue);
  Check(merged->GetCount() == some->GetCount(), "the shorter list counts");

  const TCells cells = ReadCommatext(Text);
  String sentence;
  for (size_t i = 0; i < cells.size(); ++i) {
    std::u16string_view cell = cells[i];
    while (cell.starts_with(u' ')) cell.remove_prefix(1);
    while (cell.ends_with(u' ')) cell.remove_suffix(1);
    if (!cell.empty()) sentence = Concat({sentence, cell, i + 1 < cells.size() ? u" " : u""});
  }
  Check(CommatextToString(Text) == sentence, "the sentence of a commatext");
}

void CheckWrapping(std::u16string_view Text, int Width) {
  const TCells cells = ReadCommatext(Text);
  const TCells plain = ReadCommatext(WordWrapCommatext(Text, Width));
  const TCells tiny = ReadCommatext(WordWrapTINYCommatext(Text, Width));
  if (Text.find(u'\0') != Text.npos) return;  // may end what is written
  Check(WithoutBlanks(plain) == WithoutBlanks(cells), "wrapping loses blanks alone");
  Check(WithoutBlanks(tiny) == WithoutBlanks(cells), "wrapping with tags loses blanks alone");
  auto isLong = [&](const String& cell) { return cell.size() > Width; };
  Check(Width < 1 || std::none_of(plain.begin(), plain.end(), isLong), "no cell is too long");
  bool hasTags = Text.find_first_of(u"<>") != Text.npos;
  Check(hasTags || tiny == plain, "without tags both wrap alike");
}

void CheckLines(const TCells& Lines, int Width, int Indent, unsigned Flags) {
  TVxStringList list;
  list.AddStrings(Lines);
  bool isWrapped = WordWrapStrings(list, Width, Indent);
  const TCells wrapped = CellsOf(list);
  auto isLong = [&](const String& line) { return line.size() > Width; };
  Check(isWrapped == (Width >= 1 && std::any_of(Lines.begin(), Lines.end(), isLong)), "long lines are wrapped");
  if (Indent <= 0) Check(Joined(wrapped) == Joined(Lines), "wrapping without indent keeps every unit");
  Check(WithoutBlanks(wrapped) == WithoutBlanks(Lines), "wrapping adds blanks alone");
  Check(Width < 1 || std::none_of(wrapped.begin(), wrapped.end(), isLong), "no line is too long");

  TCells trimmed;
  for (const String& line : Lines) {
    if (!Trim(line).empty()) trimmed.push_back(Trim(line));
  }
  list.Clear();
  list.AddStrings(Lines);
  Check(TrimUltimate(list) == WriteCommatext(trimmed), "nothing blank stays");
  try {
    auto flag = [&](unsigned bit) { return (Flags >> bit & 1) != 0; };
    bool isLeft = DecorateStrings(list, flag(0), flag(1), flag(2), flag(3), flag(4), flag(5), Width);
    Check(isLeft == (list.GetCount() > 0), "tells whether lines are left");
    Check(WithoutBlanks(CellsOf(list)) == WithoutBlanks(Lines), "trimming loses blanks alone");
  } catch (const EStringListError&) {
    Check((Flags & 0x14) == 0x14, "only leading and inner lines together raise");
  }
  TrimString(list);
  int first = 0, last = 0;
  bool isFound = GetMyCommatext(Lines.empty() ? u"" : Lines[0].view(), list, first, last);
  Check(isFound == (first <= last) && first >= 0 && last < list.GetCount(), "a section lies in the list");
}

}  // namespace

FUZZ(Input) {
  const int width = static_cast<int8_t>(Input.Byte()), indent = static_cast<int8_t>(Input.Byte());
  const unsigned flags = Input.Byte();
  const char16_t separator = Input.Byte();
  const TCells lines = Input.Cells();
  const String text = Joined(lines);
  CheckSplitting(text, separator);
  CheckWrapping(text, width);
  CheckLines(lines, width, indent, flags);
  if (flags % 8 != 0 || text.view().find(u'\0') != std::u16string_view::npos) return;
  TFont font;
  StringToFont(text, font);
  const String written = FontToString(font, flags % 16 != 0);
  TFont back;
  StringToFont(written, back);
  Check(FontToString(back, flags % 16 != 0) == written, "a font's text stands");
}

}  // namespace vx::fuzz
