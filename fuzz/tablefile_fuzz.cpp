// Table files: the input is the file. It is loaded, saved in both forms that keep every cell, and loaded again.
#include "fuzz/support/Input.h"
#include "fuzz/support/ScratchFile.h"
#include "tests/support/PlainTable.h"

namespace vx::fuzz {
namespace {

using TRows = std::vector<TCells>;

char16_t PlainSeparator(std::u16string_view Text) {
  int commas = 0, semicolons = 0, escapes = 0, tabs = 0;
  bool inQuotes = false;
  for (char16_t unit : Text) {
    if (unit == u'"') inQuotes = !inQuotes;
    if (inQuotes) continue;
    if (unit == u'\r' || unit == u'\n') break;
    commas += unit == u',';
    semicolons += unit == u';';
    escapes += unit == 27;
    tabs += unit == u'\t';
  }
  if (semicolons > commas && semicolons > escapes && semicolons > tabs) return u';';
  if (escapes > commas && escapes > tabs) return 27;
  return tabs > commas ? u'\t' : u',';
}

void CheckSaved(TFileCsv& Table, const char* Extension, char16_t Separator) {
  TScratchFile file(Extension);
  file.Remove();
  Check(Table.SaveToFile(file.GetPath()), "a table is saved");
  const std::string bytes = file.Get();
  TFileCsv back;
  Check(back.LoadFromFile(file.GetPath()), "what was saved is there");
  Check(test::Rows(back) == test::ReadPlainly(bytes), "what was saved is read by the rules");
  // Where the cells of the first row look like another separator, that one is taken.
  if (PlainSeparator(GetSystemCodePage().Decode(bytes)) != Separator) return;
  TRows expected = test::Rows(Table);
  for (TCells& row : expected) {
    if (Separator == u';' && row.size() == 1 && row[0].empty()) row.clear();  // no cell and one empty cell look alike
  }
  Check(test::Rows(back) == expected, "what was saved reads back");
}

}  // namespace

FUZZ(Input) {
  const std::string bytes = Input.Bytes();
  static TScratchFile file("in.txt");
  file.Put(bytes);
  TFileCsv table;
  Check(table.LoadFromFile(file.GetPath()), "the file is there");
  const TRows rows = test::Rows(table);
  Check(rows == (bytes.empty() ? TRows() : test::ReadPlainly(bytes)), "a file is read by the rules");
  const String text = GetSystemCodePage().Decode(bytes);
  Check(TFileCsv::AnalyseToParse(text)[0] == PlainSeparator(text), "the separator is found by the rules");
  CheckSaved(table, ".csv", u',');
  CheckSaved(table, ".txt", u';');
}

}  // namespace vx::fuzz
