// The lines of a configuration file, for all who read one.
//
//   TIniLine, ParseIniLine   what one line says
//   ForEachLine              the lines of a text
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>
#include <string_view>

namespace vx {

enum TIniLineKind : uint8_t {
  ilNothing,  // blank, or a comment, which begins with ";"
  ilSection,  // "[Name]"
  ilValue,    // "Name=Value", parted at the first "="
  ilPlain     // any other text, which is the Name
};

// Views of the line, each trimmed.
struct TIniLine {
  TIniLineKind Kind = ilNothing;
  std::u16string_view Name;
  std::u16string_view Value;
};

TIniLine ParseIniLine(std::u16string_view Line) noexcept;

// Hands each line of Text to Take(std::u16string_view). A line ends at a carriage return, a line feed or
// both; what follows the last line end is a line only if it is not empty.
template <typename F>
void ForEachLine(std::u16string_view Text, F Take) {
  while (!Text.empty()) {
    size_t end = 0;
    while (end < Text.size() && Text[end] != u'\r' && Text[end] != u'\n') ++end;
    Take(Text.substr(0, end));
    if (end == Text.size()) return;
    Text.remove_prefix(end + (Text.substr(end, 2) == u"\r\n" ? 2 : 1));
  }
}

}  // namespace vx
