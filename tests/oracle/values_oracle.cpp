// Compares the dates, times, amounts and numbers of the library with the standard library of C++ and
// with exact integer arithmetic, over whole ranges:
//   values_oracle [-v] [dates] [weeks] [times] [currency] [printing] [parsing]
// All comparisons without a name. -v lists the days on which the week differs from the ISO rule.
// A line of counts for each comparison; exit status 1 for a difference that no rule explains.
#include "values_oracle.h"

#include <cstdio>
#include <cstring>

namespace {

struct TGroup {
  const char* Name;
  void (*Run)(vx::oracle::TReport& Report);
};

constexpr TGroup kGroups[] = {
    {"dates", vx::oracle::CompareDates},       {"weeks", vx::oracle::CompareWeeks},
    {"times", vx::oracle::CompareTimes},       {"currency", vx::oracle::CompareCurrency},
    {"printing", vx::oracle::ComparePrinting}, {"parsing", vx::oracle::CompareParsing},
};

}  // namespace

int main(int argc, char** argv) {
  vx::oracle::TReport report;
  bool all = true;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "-v") == 0) {
      report.Verbose = true;
      continue;
    }
    all = false;
    bool known = false;
    for (const TGroup& group : kGroups) known = known || std::strcmp(argv[i], group.Name) == 0;
    if (!known) {
      std::fprintf(stderr, "no comparison: %s\n", argv[i]);
      return 2;
    }
  }
  for (const TGroup& group : kGroups) {
    bool wanted = all;
    for (int i = 1; i < argc; ++i) wanted = wanted || std::strcmp(argv[i], group.Name) == 0;
    if (wanted) group.Run(report);
  }
  std::printf("%s\n", report.Differences == 0 ? "no unexplained difference" : "UNEXPLAINED DIFFERENCES");
  return report.Differences == 0 ? 0 : 1;
}
