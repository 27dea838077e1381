// The masked editor.
#include "bench/controls/Topic.h"
#include "bench/support/Bench.h"
#include "controls/uVxMaskEdit.h"

namespace vx::bench {
namespace {

void RunHourTexts() {
  constexpr int kCount = 1000000;
  Extended hours = 0;
  const double seconds = Time([&hours] {
    for (int i = 0; i < kCount; ++i) {
      toHour(i % 2 == 0 ? u"-1234:45" : u"7:30", hours);
      benchmark::DoNotOptimize(hours);
    }
  });
  Expect(hours == 7.5L, "reading of an hour text");
  ReportOurs("edit_read_hour", seconds, kCount);
}

const TTopic topic("edit", [] { RunHourTexts(); });

}  // namespace
}  // namespace vx::bench
