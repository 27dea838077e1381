// Runs a program and tells what it took.
#pragma once

#include <string>
#include <vector>

namespace vx::bench {

struct TProcessCost {
  double Seconds = 0, User = 0, System = 0;
  double ResidentMb = 0;  // at most, of what it held at once
  long Faults = 0;        // pages that the kernel had to find
};

// Runs Arguments, of which the first is the path of the program, with its output put away. Ends this program where
// that one fails.
TProcessCost RunProcess(const std::vector<std::string>& Arguments);

// The medians of each figure, of as many costs.
TProcessCost MedianOf(const std::vector<TProcessCost>& Costs);

}  // namespace vx::bench
