// Loads a table of patients, moves one of them to another town, adds one, and saves the table.
#include <cstdio>

#include "tables/uFileCsv.h"

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  vx::TFileCsv table;
  if (!table.LoadFromFile(vx::String::FromUtf8(argv[1]))) return 1;

  int row = table.IndexForColKey(0, u"p-1002");  // columns and rows count from 0, case does not matter
  if (row < 0) return 1;
  table.SetCell(5, row, u"Königswinter");
  row = table.AddRow(u"P-1099,\"Weiß, Jörg\",04.05.1944,,53113,Bonn,2");  // cells with blanks stand in quotes
  std::printf("%d rows, the last is %s\n", table.GetCount(), table.GetCell(1, row).ToUtf8().c_str());

  return table.SaveToFile(vx::String::FromUtf8(argv[2])) ? 0 : 1;  // the extension decides the separator
}
