// How far work on several threads is, told by a signal in the main thread.
//
//   TPoolProgress    counts steps in any thread and emits a TProgressSignal now and then
//
// Example:
//   vx::TThreadPool pool;
//   vx::TPoolProgress progress;
//   vx::TConnection shown = progress.GetSignal().Connect(
//       [&](vx::TObject*, int step, int max, bool& stop, vx::TObject*) { stop = !Show(step, max); });
//   bool isWhole = pool.ForEach(0, 100000, [](int) {}, &progress);
//   progress.GetStep();     // 100000
//
// The signal is emitted once the work begins to advance, then every 100 milliseconds by the clock in use at most, and
// for the last step; never twice for one step. Where steps come from other threads it waits for the next
// CheckSynchronize of the main thread, which a wait for the work runs, too. A handler that sets doStop breaks off a
// loop: it is not called for steps that were not done.
//
// Threads: made, connected and freed by the main thread; the rest is for any.
//
// Pitfalls: it has to outlive the work that counts in it. What a handler raises reaches the loop's caller if that is
// the main thread and counts itself, and otherwise who calls CheckSynchronize.
#pragma once

#include <cstdint>
#include <memory>

#include "services/uVxEvents/Signals.h"

namespace vx {

class TPoolProgress {
 public:
  // Sender goes to the handlers and stays the caller's. Interval in milliseconds.
  explicit TPoolProgress(TObject* Sender = nullptr, uint32_t Interval = 100);
  ~TPoolProgress();
  TPoolProgress(const TPoolProgress&) = delete;
  TPoolProgress& operator=(const TPoolProgress&) = delete;

  // Step and max of its emissions are halved together until max is an int.
  TProgressSignal& GetSignal() noexcept { return FSignal; }
  // Counts from 0 to Max from here on, and forgets a stop; a loop calls it.
  void Begin(int64_t Max) noexcept;
  // So many steps more are done.
  void Advance(int64_t Steps = 1);
  // In the main thread: emits the steps that no handler knows yet.
  void Flush();
  int64_t GetStep() const noexcept;
  int64_t GetMax() const noexcept;
  // Whether a handler wants the work to end.
  bool IsStopped() const noexcept;

 private:
  struct TState;
  bool IsDue(int64_t Step) const noexcept;
  void Emit();

  std::shared_ptr<TState> FState;
  TProgressSignal FSignal;
  TObject* FSender;
  uint32_t FInterval;
};

}  // namespace vx
