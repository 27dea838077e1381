// Exports of a database server: the input is the file.
#include "fuzz/support/Input.h"
#include "fuzz/support/ScratchFile.h"
#include "tests/support/PlainTable.h"

namespace vx::fuzz {
namespace {

bool IsLineEnd(char16_t Unit) { return Unit == u'\r' || Unit == u'\n'; }

// Each row ends with the field that has the right number.
bool ReadPlainExport(const std::string& Bytes, std::vector<TCells>& Rows) {
  std::u16string text;
  for (size_t i = 0; i + 1 < Bytes.size(); i += 2) {
    unsigned unit = static_cast<uint8_t>(Bytes[i]) | static_cast<unsigned>(static_cast<uint8_t>(Bytes[i + 1])) << 8;
    if (unit == 0) break;
    text += static_cast<char16_t>(unit);
  }
  size_t commas = 0;
  for (size_t i = 0; i < text.size() && !IsLineEnd(text[i]); ++i) commas += text[i] == u',';
  TCells row;
  std::u16string cell;
  auto take = [&] {
    row.emplace_back(std::u16string_view(cell));
    cell.clear();
  };
  for (size_t i = 0; i < text.size();) {
    if (text[i] == u',') {
      take();
      ++i;
    } else if (IsLineEnd(text[i]) && row.size() >= commas) {
      take();
      Rows.push_back(std::move(row));
      row.clear();
      while (i < text.size() && IsLineEnd(text[i])) ++i;
    } else {
      cell += text[i++];
    }
  }
  take();
  Rows.push_back(row);
  return row.size() == commas + 1;
}

}  // namespace

FUZZ(Input) {
  const std::string bytes = Input.Bytes();
  static TScratchFile file("export");
  file.Put(bytes);
  TFileCsv table;
  bool isWhole = table.LoadMSSQL(file.GetPath());
  std::vector<TCells> expected;
  Check(isWhole == ReadPlainExport(bytes, expected), "the result tells whether the last record is whole");
  Check(test::Rows(table) == expected, "an export is read by the rules");
}

}  // namespace vx::fuzz
