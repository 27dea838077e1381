// A loop over a range that several threads share.
#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>

#include "platform/Threads.h"
#include "platform/Types.h"
#include "services/uThreadPool/TPoolTask.h"

namespace vx {

class TPoolProgress;

namespace detail {

// Threads take pieces from the range one after the other. How large, each finds out by the time that its last one took:
// so long that taking it costs nothing beside it, and so short that all end together.
class TPoolLoop {
 public:
  // The items from From to before Behind, in the thread of that slot.
  using TRun = FunctionRef<void(uint64_t From, uint64_t Behind, int Slot)>;
  // Broken off when Cancels is counted up.
  TPoolLoop(uint64_t Count, int Threads, TRun Run, TPoolProgress* Progress,
            const std::atomic<uint32_t>& Cancels) noexcept
      : FCount(Count), FThreads(Threads), FRun(Run), FProgress(Progress), FCancels(Cancels), FSeen(Cancels) {}

  // Takes pieces until there are none, or the loop is broken off. Keeps the first error that a body raises.
  void Work(int Slot) noexcept;
  bool IsOpen() const noexcept { return FNext.load(std::memory_order_relaxed) < FCount && FBreaks == 0; }
  // Behind all work: raises what a body raised; whether each item was done.
  bool Finish();

  // The pool's, under its lock.
  TPoolLoop* Outer = nullptr;
  int Slots = 1;                // given to threads so far
  std::atomic<int> Helpers{0};  // threads beside the caller that work
  bool IsAwaited = false;       // the caller waits for HelpersEnded
  TEvent HelpersEnded;

 private:
  uint64_t Take(uint64_t Wanted, uint64_t& From) noexcept;
  void Break(std::exception_ptr Error) noexcept;

  alignas(64) std::atomic<uint64_t> FNext{0};
  alignas(64) const uint64_t FCount;
  const int FThreads;
  TRun FRun;
  TPoolProgress* FProgress;
  const std::atomic<uint32_t>& FCancels;
  const uint32_t FSeen;
  std::atomic<uint32_t> FBreaks{0};
  std::atomic<uint64_t> FDone{0};
  std::mutex FMutex;
  std::exception_ptr FError;
};

}  // namespace detail

}  // namespace vx
