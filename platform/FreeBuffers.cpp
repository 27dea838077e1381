#include "platform/FreeBuffers.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace vx {

namespace {

using TStep = std::pair<TFreeOrder, void (*)()>;

struct TSteps {
  std::mutex Mutex;
  std::vector<TStep> List;  // in the order of the calls
};
TSteps& Steps() {
  static TSteps& steps = *new TSteps;
  return steps;
}

}  // namespace

void OnFreeBuffers(TFreeOrder Order, void (*Free)()) noexcept {
  try {
    TSteps& steps = Steps();
    std::lock_guard lock(steps.Mutex);
    if (std::ranges::find(steps.List, Free, &TStep::second) != steps.List.end()) return;
    steps.List.insert(std::ranges::lower_bound(steps.List, Order, {}, &TStep::first), {Order, Free});
  } catch (const std::bad_alloc&) {
    // What is not freed early goes with the program.
  }
}

void FreeRegisteredBuffers() {
  std::vector<TStep> list;
  {
    std::lock_guard lock(Steps().Mutex);
    list = Steps().List;
  }
  for (const TStep& step : list) step.second();
}

}  // namespace vx
