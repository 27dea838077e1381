// Runs the benchmarks of the machinery, or one of them: pool, texts or trees.
#include <cstring>

#include "bench/machinery/Topics.h"

int main(int argc, char** argv) {
  const auto wants = [&](const char* topic) { return argc < 2 || std::strcmp(argv[1], topic) == 0; };
  if (wants("trees")) vx::bench::RunTrees();
  if (wants("texts")) vx::bench::RunTexts();
  if (wants("pool")) vx::bench::RunPool();
}
