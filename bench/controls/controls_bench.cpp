// Runs all topics of a benchmark, of controls or of painting, or one of them; an unknown name lists them.
#include <cstdio>
#include <cstring>

#include "bench/controls/Topic.h"

namespace vx::bench {

bool TTopic::RunAll(const char* Name) {
  bool isFound = false;
  for (const TTopic* topic = FFirst; topic != nullptr; topic = topic->FNext) {
    if (Name != nullptr && std::strcmp(Name, topic->FName) != 0) continue;
    isFound = true;
    topic->FRun();
  }
  return isFound;
}

void TTopic::PrintNames() {
  for (const TTopic* topic = FFirst; topic != nullptr; topic = topic->FNext) std::puts(topic->FName);
}

}  // namespace vx::bench

int main(int argc, char** argv) {
  if (vx::bench::TTopic::RunAll(argc > 1 ? argv[1] : nullptr)) return 0;
  vx::bench::TTopic::PrintNames();
  return 1;
}
