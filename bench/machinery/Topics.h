// What the benchmark of the machinery measures, each in a file of its own.
#pragma once

namespace vx::bench {

// The thread pool beside others: a million jobs of 100 ns and 10,000 of 50 microseconds, and what an idle pool costs.
void RunPool();
// XML of 5 MB read and written, and templates filled.
void RunTexts();
// Trees of 1,000, 10,000 and 100,000 nodes: built, walked, sorted, written and read.
void RunTrees();

}  // namespace vx::bench
