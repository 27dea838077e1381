// Finds out where time goes: stop watches around the steps of a small export, the last of which is another program.
//   stop_watches 20000
// Prints what that program says, and the table of the watches by name with their counts.
#include <cstdio>

#include "platform/Numbers.h"
#include "services/uAnimate.h"
#include "services/uHandleFile.h"
#include "tables/uFileCsv.h"

namespace {

// Measures the block that it stands in.
class TWatch {
 public:
  explicit TWatch(const char16_t* Name) : FName(Name) { vx::Animate()->Start(FName, nullptr); }
  ~TWatch() { vx::Animate()->Stop(FName, nullptr); }
  TWatch(const TWatch&) = delete;
  TWatch& operator=(const TWatch&) = delete;

 private:
  vx::String FName;
};

void Export(int Rows) {
  const TWatch all(u"Export");
  vx::THeadCsv table;
  {
    const TWatch watch(u"Zeilen");
    table.AddRow({u"Nummer", u"Name"});
    for (int i = 0; i < Rows; ++i) table.AddRow({vx::IntToStr(i * 7919 % Rows), u"Müller; \"$HOME\""});
  }
  {
    const TWatch watch(u"Sortieren");
    table.SortByField(u"Nummer", true);
  }
  const TWatch watch(u"Programm");
  int code = 0;
  // The text reaches the program as it is: no shell reads it.
  const vx::String text = vx::VxQuoteArgument(table.GetCell(1, 1));
  vx::VxExecAndWait(u"/usr/bin/printf", vx::String(u"%s\\n ") + text, code, true, false, 0);
}

}  // namespace

int main(int argc, char** argv) {
  int rows = 0;
  if (argc != 2 || !vx::TryStrToInt(vx::String::FromUtf8(argv[1]), rows)) return 2;
  Export(rows);
  const auto statistic = vx::Animate()->Statistic();
  for (int row = 0; row < statistic->GetCount(); ++row) {
    std::printf("%-12s %s\n", statistic->GetCell(0, row).ToUtf8().c_str(), statistic->GetCell(2, row).ToUtf8().c_str());
  }
  vx::uAnimate::FreeBuffersForLeakPrevention();
  return 0;
}
