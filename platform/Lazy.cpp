#include "platform/Lazy.h"

#include <cstdlib>

namespace vx::detail {

namespace {

constinit std::mutex Mutex;
constinit TAtEnd* Last = nullptr;

// One call for each that is held: so each goes before whatever was made before it, of others too.
void FreeLast() noexcept {
  TAtEnd* held = nullptr;
  {
    std::lock_guard lock(Mutex);
    held = Last;
    Last = held->Before;
  }
  held->Free(*held);
}

}  // namespace

void FreeAtEnd(TAtEnd& Held) noexcept {
  std::lock_guard lock(Mutex);
  if (std::atexit(FreeLast) != 0) return;
  Held.Before = Last;
  Last = &Held;
}

}  // namespace vx::detail
