// A stranger's program: a table from commatexts, printed as UTF-8. Exit status 0 if all is right.
#include <cstdio>
#include <string>

#include "tables/uFileCsv.h"

int main() {
  vx::TFileCsv table;
  table.SetText(u"Nr,Name,Ort\r\n4711,\"Max Müller\",Köln");
  table.SetCell(2, table.IndexForColKey(0, u"4711"), u"Lüdenscheid");
  std::string text = table.GetText().ToUtf8();
  std::puts(text.c_str());
  return text == "Nr,Name,Ort\r\n4711,\"Max Müller\",Lüdenscheid" ? 0 : 1;
}
