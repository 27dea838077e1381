// The rules by which table files are read, one after the other and as plainly as they can be put.
//
//   EXPECT_EQ(Rows(table), ReadPlainly(bytes));
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/CodePage.h"
#include "tables/uFileCsv.h"

namespace vx::test {

inline std::vector<TCells> ReadPlainly(const std::string& Bytes) {
  std::u16string text;
  for (char byte : Bytes) {
    char16_t unit = GetSystemCodePage().DecodeByte(static_cast<uint8_t>(byte));
    const size_t repaired = std::u16string_view(u"\x81\x84\x8E\x94\x99\x9A\xE1").find(unit);
    if (unit != 0) text += repaired < 7 ? u"üäÄöÖÜß"[repaired] : unit;
  }
  char16_t separator = TFileCsv::AnalyseToParse(text)[0];
  std::vector<TCells> rows;
  bool inQuotes = false;
  size_t start = 0, pos = 0;
  for (; pos < text.size(); ++pos) {
    if (text[pos] == u'"') inQuotes = !inQuotes;
    if (inQuotes || (text[pos] != u'\r' && text[pos] != u'\n')) continue;
    rows.push_back(ReadSerialize(text.substr(start, pos - start), separator, u'"'));
    if (pos + 1 < text.size() && (text[pos + 1] == u'\r' || text[pos + 1] == u'\n')) ++pos;
    start = pos + 1;
  }
  if (start + 1 < text.size()) rows.push_back(ReadSerialize(text.substr(start), separator, u'"'));
  return rows;
}

inline std::vector<TCells> Rows(const TFileCsv& Table) {
  std::vector<TCells> rows;
  for (int row = 0; row < Table.GetCount(); ++row) {
    auto items = Table.GetLines(row)->Items();
    rows.emplace_back(items.begin(), items.end());
  }
  return rows;
}

}  // namespace vx::test
