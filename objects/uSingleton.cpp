#include "objects/uSingleton.h"

#include <utility>

namespace vx {
namespace {

constinit TSingletons* FSingletons = nullptr;

}  // namespace

TSingletons& GSingletons() {
  static const struct TAtEnd {
    ~TAtEnd() { uSingleton::FreeBuffersForLeakPrevention(); }
  } atEnd;
  if (!FSingletons) FSingletons = new TSingletons;
  return *FSingletons;
}

void uSingleton::FreeBuffersForLeakPrevention() noexcept { delete std::exchange(FSingletons, nullptr); }

}  // namespace vx
