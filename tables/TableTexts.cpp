#include "tables/TableTexts.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace vx {

namespace {

bool IsSurrogate(char16_t Unit) { return Unit >= 0xD800 && Unit < 0xE000; }

// Whether the surrogate at Pos has its other half behind it.
bool IsPair(std::u16string_view Text, size_t Pos) {
  return Text[Pos] < 0xDC00 && Pos + 1 < Text.size() && Text[Pos + 1] >= 0xDC00 && Text[Pos + 1] < 0xE000;
}

void AppendEscape(std::string& Target, char16_t Unit) {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  Target += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) Target += kDigits[static_cast<size_t>(Unit >> shift & 15)];
}

void AppendJsonUnit(std::string& Target, char16_t Unit) {
  switch (Unit) {
    case u'\n':
      Target += "\\n";
      break;
    case u'\r':
      Target += "\\r";
      break;
    case u'\t':
      Target += "\\t";
      break;
    case u'"':
    case u'\\':
      Target += '\\';
      Target += static_cast<char>(Unit);
      break;
    default:
      AppendEscape(Target, Unit);
  }
}

void AppendJsonText(std::string& Target, std::u16string_view Text) {
  Target += '"';
  size_t start = 0;
  for (size_t pos = 0; pos < Text.size(); ++pos) {
    const char16_t unit = Text[pos];
    if (IsSurrogate(unit) && IsPair(Text, pos)) {
      ++pos;
    } else if (unit < 0x20 || unit == u'"' || unit == u'\\' || IsSurrogate(unit)) {
      AppendUtf8(Target, Text.substr(start, pos - start));
      AppendJsonUnit(Target, unit);
      start = pos + 1;
    }
  }
  AppendUtf8(Target, Text.substr(start));
  Target += '"';
}

int WidestRow(const TFileCsv& Table) {
  int most = 0;
  for (int row = 0; row < Table.GetCount(); ++row) most = std::max(most, Table.GetLines(row)->GetCount());
  return most;
}

// The names of all columns of a table with rows, each once.
std::vector<std::string> NamesOf(const TFileCsv& Table) {
  std::unordered_set<std::string> taken;
  std::vector<std::string> names;
  const std::span<const String> head = Table.GetLines(0)->Items();
  for (const String& name : head) taken.insert(name.ToUtf8());
  std::unordered_set<std::string> given;
  for (size_t col = 0; col < static_cast<size_t>(WidestRow(Table)); ++col) {
    const std::string number = std::to_string(col + 1);
    std::string name = col < head.size() ? head[col].ToUtf8() : std::string();
    const bool isFirst = !name.empty() && given.insert(name).second;
    if (!isFirst) {
      name += name.empty() ? number : ' ' + number;
      while (!taken.insert(name).second) name += '\'';
    }
    names.push_back(std::move(name));
  }
  return names;
}

void AppendJsonObject(std::string& Target, std::span<const String> Cells, std::span<const std::string> Keys) {
  Target += '{';
  for (size_t col = 0; col < Cells.size(); ++col) {
    Target += Keys[col];
    AppendJsonText(Target, Cells[col]);
  }
  Target += '}';
}

void AppendMarkdownCell(std::string& Target, std::u16string_view Text) {
  static constexpr std::u16string_view kMarks = u"\\`*_[]<>&|~#$!";
  size_t start = 0;
  for (size_t pos = 0; pos < Text.size(); ++pos) {
    const char16_t unit = Text[pos];
    const bool isBreak = unit == u'\r' || unit == u'\n';
    if (!isBreak && kMarks.find(unit) == kMarks.npos) continue;
    AppendUtf8(Target, Text.substr(start, pos - start));
    start = pos + 1;
    if (!isBreak) {
      Target += '\\';
      Target += static_cast<char>(unit);
    } else {
      Target += "<br>";
      if (unit == u'\r' && start < Text.size() && Text[start] == u'\n') pos = start++;
    }
  }
  AppendUtf8(Target, Text.substr(start));
}

void AppendMarkdownRow(std::string& Target, std::span<const String> Cells, size_t Width) {
  Target += '|';
  for (size_t col = 0; col < Width; ++col) {
    Target += ' ';
    if (col < Cells.size()) AppendMarkdownCell(Target, Cells[col]);
    Target += " |";
  }
  Target += '\n';
}

}  // namespace

void AppendJsonRow(std::string& Target, std::span<const String> Cells) {
  Target += '[';
  for (const String& cell : Cells) {
    if (&cell != Cells.data()) Target += ", ";
    AppendJsonText(Target, cell);
  }
  Target += ']';
}

std::string TableToJsonLines(const TFileCsv& Table, TJsonRows Rows) {
  std::string text;
  if (Table.GetCount() == 0) return text;
  std::vector<std::string> keys;  // as they stand in front of the cell
  for (const std::string& name : Rows == jrObjects ? NamesOf(Table) : std::vector<std::string>()) {
    std::string& key = keys.emplace_back(keys.empty() ? "" : ", ");
    AppendJsonText(key, String::FromUtf8(name));
    key += ": ";
  }
  for (int row = Rows == jrObjects ? 1 : 0; row < Table.GetCount(); ++row) {
    const std::span<const String> cells = Table.GetLines(row)->Items();
    if (Rows == jrObjects) {
      AppendJsonObject(text, cells, keys);
    } else {
      AppendJsonRow(text, cells);
    }
    text += '\n';
  }
  return text;
}

std::string TableToMarkdown(const TFileCsv& Table) {
  const size_t width = static_cast<size_t>(WidestRow(Table));
  std::string text;
  if (width == 0) return text;
  for (int row = 0; row < Table.GetCount(); ++row) {
    AppendMarkdownRow(text, Table.GetLines(row)->Items(), width);
    if (row > 0) continue;
    text += '|';
    for (size_t col = 0; col < width; ++col) text += " --- |";
    text += '\n';
  }
  return text;
}

}  // namespace vx
