// A function that a pool runs, and its result.
//
//   TPoolTask<T>         what TThreadPool::Run gives: waits for the result, gets it, cancels
//   ECanceled            the result of a task that will never run
//
// Example:
//   vx::TThreadPool pool;
//   vx::TPoolTask<int> task = pool.Run([] { return 6 * 7; });
//   task.Get();          // 42
//
// A task that no worker has begun is run by the thread that asks for its result, so that asking never waits for a busy
// pool: jobs and tasks may ask, too.
//
// Threads: a task belongs to one thread at a time; several tasks may be asked by as many threads.
//
// Pitfalls:
//   - What the function captures by reference has to live until it has run: the end of a TPoolTask does not wait. What
//     it raises is then reported by the message handler in the main thread.
//   - In the main thread a wait runs what other threads want run there.
#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

#include "platform/Exceptions.h"
#include "platform/Threads.h"

namespace vx {

// What will never have a result, as it was cancelled before it began.
class ECanceled : public Exception {
 public:
  using Exception::Exception;
};

// A wait that could never end, such as that of a job for its own pool.
class EThreadPool : public Exception {
 public:
  using Exception::Exception;
};

namespace detail {

// What runs in this thread can be cancelled by counting Count up from Seen.
class TCancelScope {
 public:
  TCancelScope(const std::atomic<uint32_t>& Count, uint32_t Seen) noexcept;
  ~TCancelScope();
  TCancelScope(const TCancelScope&) = delete;
  TCancelScope& operator=(const TCancelScope&) = delete;
  // Whether any scope of this thread was cancelled.
  static bool IsCanceled() noexcept;

 private:
  const std::atomic<uint32_t>& FCount;
  uint32_t FSeen;
  const TCancelScope* FOuter;
};

// Waits for the event; the main thread runs what comes meanwhile. False behind so many milliseconds.
bool WaitServing(TEvent& Event, uint32_t Milliseconds) noexcept;

// A task without its result.
class TTaskState {
 public:
  TTaskState() noexcept = default;
  TTaskState(const TTaskState&) = delete;
  TTaskState& operator=(const TTaskState&) = delete;
  virtual ~TTaskState();

  // Runs the task here unless it has begun; whether it did.
  bool TryRun() noexcept;
  // A task that has not begun never will; one that runs is told to end.
  void Cancel() noexcept;
  bool IsEnded() const noexcept { return FStage >= tsEnded; }
  bool Wait(uint32_t Milliseconds);
  // Raises what kept the task from its result.
  void Ask();

 protected:
  virtual void Run() = 0;

 private:
  enum TStage : uint8_t { tsWaiting, tsRunning, tsEnded, tsCanceled };
  void End(TStage Stage) noexcept;

  std::atomic<TStage> FStage{tsWaiting};
  std::atomic<uint32_t> FCancels{0};
  std::atomic<std::thread::id> FRunner{};
  std::atomic<const TThread*> FThread{nullptr};  // the runner's, if it has one
  std::exception_ptr FError;
  bool FIsAsked = false;
  TEvent FEnded;
};

template <typename T>
class TTaskOf : public TTaskState {
 public:
  std::optional<T> Result;
};
template <>
class TTaskOf<void> : public TTaskState {};

template <typename F, typename T>
class TTaskRun final : public TTaskOf<T> {
 public:
  template <typename TFrom>
  explicit TTaskRun(TFrom&& Work) : FWork(std::forward<TFrom>(Work)) {}

 private:
  void Run() override {
    // What it has captured goes with its run, also where it raises.
    F work = std::move(*FWork);
    FWork.reset();
    if constexpr (std::is_void_v<T>) {
      work();
    } else {
      this->Result.emplace(work());
    }
  }
  std::optional<F> FWork;
};

}  // namespace detail

template <typename T>
class [[nodiscard]] TPoolTask {
 public:
  // For pools.
  explicit TPoolTask(std::shared_ptr<detail::TTaskOf<T>> State) noexcept : FState(std::move(State)) {}
  TPoolTask(TPoolTask&&) noexcept = default;
  TPoolTask& operator=(TPoolTask&&) noexcept = default;

  // Whether the task has ended or was cancelled: Get does not wait then.
  bool IsReady() const noexcept { return FState->IsEnded(); }
  // Waits up to so many milliseconds for that; true if it has come. Without a limit, the task is run here if no worker
  // has begun it. Raises EThreadPool in the task itself, and in a method that the main thread runs for it.
  bool Wait(uint32_t Milliseconds = kInfinite) { return FState->Wait(Milliseconds); }
  // The result, as soon as it is there; can be got once. Raises what the task raised, and ECanceled if it was cancelled
  // before it began, by Cancel or with its pool.
  T Get() {
    FState->Wait(kInfinite);
    FState->Ask();
    if constexpr (!std::is_void_v<T>) return std::move(*FState->Result);
  }
  // A task that has not begun never will; one that runs sees it by TThreadPool::IsCanceled, and has a result all the
  // same.
  void Cancel() noexcept { FState->Cancel(); }

 private:
  std::shared_ptr<detail::TTaskOf<T>> FState;
};

}  // namespace vx
