#include "core/uVxFunctionsSerialize/Commatext.h"

#include <algorithm>

#include "core/uVxFunctionsSerialize/TrimLines.h"
#include "objects/uVxClasses/TVxStringList.h"

namespace vx {

namespace {

std::u16string_view WithoutSpaces(std::u16string_view Text) {
  size_t first = Text.find_first_not_of(u' ');
  return first == Text.npos ? std::u16string_view() : Text.substr(first, Text.find_last_not_of(u' ') + 1 - first);
}

}  // namespace

String ArrayToCommatext(std::span<const String> Items, bool Trim) {
  if (!Trim) return ToCommatext(Items);
  TVxStringList list;
  list.AddStrings(Items);
  TrimStrings(list, false, false, true, true, true);
  return list.GetCommatext();
}

String CommatextToString(std::u16string_view Text) {
  TCells cells = ReadCommatext(Text);
  if (cells.empty()) return {};
  size_t total = 0;
  for (const String& cell : cells) {
    size_t size = WithoutSpaces(cell).size();
    if (size > 0) total += size + (&cell == &cells.back() ? 0 : 1);
  }
  return String::Build(total, [&](char16_t* target) {
    for (const String& cell : cells) {
      std::u16string_view part = WithoutSpaces(cell);
      target = std::copy(part.begin(), part.end(), target);
      if (!part.empty() && &cell != &cells.back()) *target++ = u' ';
    }
  });
}

String TextToCommatext(std::u16string_view Text) {
  TVxStringList lines;
  lines.SetTextStr(Text);
  return lines.GetCommatext();
}

String CommatextToText(std::u16string_view Text) {
  TVxStringList lines;
  lines.SetCommatext(Text);
  return lines.GetTextStr();
}

}  // namespace vx
