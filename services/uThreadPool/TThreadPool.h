// The pool and its workers.
#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/Method.h"
#include "platform/Threads.h"
#include "platform/Types.h"
#include "services/uThreadPool/TLoopParts.h"
#include "services/uThreadPool/TPoolProgress.h"
#include "services/uThreadPool/TPoolTask.h"
#include "services/uThreadPool/TThreadData.h"
#include "services/uThreadPool/TThreadJob.h"
#include "services/uThreadPool/TVxThread.h"

namespace vx {

class TThreadPool;
namespace detail {
class TPoolLoop;
}

// Takes back the job that has ended, if job is one, and puts the next one in job, or nullptr.
using TThreadPoolExchange = Method<void(TThreadJob*& job)>;

// A pool's thread: runs what the exchange gives it, and rests for 10 milliseconds where that is nothing. Owns the job
// at hand.
class TThreadWorker final : public TVxThread {
 public:
  // Stopped. data stays the caller's.
  TThreadWorker(TThreadData& data, TThreadPoolExchange exchange);
  ~TThreadWorker() override;
  String ClassName() const override { return u"TThreadWorker"; }

  TThreadData& GetData() const noexcept { return iData; }
  // The job at hand, nullptr if there is none. For the worker's own thread.
  TThreadJob* GetJob() const noexcept { return iJob; }
  void Stop() override;

 protected:
  void doExecute() override;
  void TerminatedSet() noexcept override;

 private:
  friend class TThreadPool;
  TThreadData& iData;
  TThreadPoolExchange iExchange;
  TThreadJob* iJob = nullptr;
  TThreadPool* FPool = nullptr;  // whose tasks and loops it works at, beside what the exchange gives
  // Under the pool's lock.
  uint32_t FCancels = 0;               // of the pool when the work at hand was handed out
  TThreadWorker* FNextIdle = nullptr;  // that rests, too
  TEvent FWake;                        // breaks off the rest
};

enum TPoolWait : uint8_t { pwDone, pwTimeout, pwStopped };

// Runs jobs on data's number of workers. Its own thread looks every 10 milliseconds whether there is work: it starts
// the workers when jobs are waiting, and stops them when there was nothing to do for a while.
//
// Beside jobs, whose life the application rules by its TThreadData, a pool runs tasks, functions whose results come
// back (TPoolTask), and loops. These come by none of the hooks, and the measurements know nothing of them. Workers take
// them in turn with jobs, and begin them at once if they rest.
//
// Threads: Add, Run and Cancel are for any thread, jobs and hooks too; Wait and ForEach for any but hooks. The rest is
// for one thread at a time, and not for hooks.
class TThreadPool final : public TVxThread {
 public:
  // Started, with so many workers, 0 for as many as there are processors, and with data of its own: that frees jobs
  // behind their end.
  explicit TThreadPool(int Threads = 0);
  // data stays the caller's and has to outlive the pool; GetFirst is called. Unless suspended, the pool is started.
  TThreadPool(TThreadData& data, bool suspended);
  // Ends the pool and waits for it, as the unit's header tells. Jobs that are left are freed.
  ~TThreadPool() override;
  String ClassName() const override { return u"TThreadPool"; }

  TThreadData& GetData() const noexcept { return iData; }
  // Whether the workers are started.
  bool GetThreadsOn() const noexcept { return iThreadsOn; }
  // Puts a job, which is the pool's from then on, at the end of the queue; nullptr is ignored. What Added raises goes
  // to the caller; the job is in the queue all the same.
  void Add(TThreadJob* job);

  // Has a worker call Work. What it gives or raises comes by the result, see TPoolTask.
  template <typename F>
  auto Run(F&& Work) -> TPoolTask<std::invoke_result_t<std::decay_t<F>&>>;

  // Calls Body(i) for each i from First to before Behind, in several threads at once, each i once and in no order; also
  // Body(i, part), with the part of the thread that calls it. Works at it itself, beside workers that have nothing else
  // to do, so that a job may run a loop, and a body another one. A pool that is stopped does not help.
  //
  // True if the loop is whole; false if it was broken off by Cancel, by the end of the job in which it runs, or by a
  // handler of Progress. What a body raises breaks it off and goes to the caller; of several ones the first. Threads
  // take pieces of the range that last about 50 microseconds: where it is broken off each ends its piece. A body that
  // takes long asks IsCanceled.
  //
  // In the main thread it runs, once its own share is done, what bodies hand over to the main thread. Raises
  // EThreadPool in a hook of this pool.
  template <std::integral TFirst, std::integral TBehind, typename TBody>
  [[nodiscard]] bool ForEach(TFirst First, TBehind Behind, TBody&& Body, TPoolProgress* Progress = nullptr);
  template <std::integral TFirst, std::integral TBehind, typename T, typename TBody>
  [[nodiscard]] bool ForEach(TFirst First, TBehind Behind, TLoopParts<T>& Parts, TBody&& Body,
                             TPoolProgress* Progress = nullptr);

  // Waits up to so many milliseconds until all jobs and tasks are done, those that are added meanwhile too, and all
  // jobs were at Done: pwDone; pwTimeout if they are not. pwStopped if there is nobody to do them, as the pool is
  // stopped or its workers have ended. The main thread runs meanwhile what other threads want run there. Raises
  // EThreadPool where the pool waits for its caller: in its jobs, tasks and hooks, and in what the main thread runs for
  // these.
  [[nodiscard]] TPoolWait Wait(uint32_t Milliseconds = kInfinite);
  // Frees all jobs and tasks that wait in the queue, and tells those that run, and loops, to end (IsCanceled). Of a
  // batch the job at hand ends, the others are freed; Done gets it with those that have run. Waits for nothing, and
  // what is added later is not meant. How many have left the queue; those of batches do not count.
  int Cancel();
  // Whether the job, task or body that calls it is to end, as its pool, its task or its loop was cancelled.
  static bool IsCanceled() noexcept { return detail::TCancelScope::IsCanceled(); }
  // How many threads work at a loop at most, its caller among them: as many as the pool has workers.
  int GetLoopThreads() const noexcept { return FLoopThreads; }
  // Start the pool's own thread and all workers.
  void Start() override;
  // Stops all. Jobs under way end, but come to Done only after the next Start.
  void Stop() override;
  // Ends the workers and waits for them, then lets the pool's own thread end, which frees the pool. Nobody is told
  // when: where data goes too, delete the pool instead. A job may call this as well.
  void Terminate();
  // Ends the workers for good. They are waited for, if terminateOnly only by the destructor.
  void ThreadsDestroy(bool terminateOnly);

 protected:
  void doExecute() override;

 private:
  friend class TThreadWorker;
  using TWorkers = std::vector<std::unique_ptr<TThreadWorker>>;
  using TTasks = std::deque<std::shared_ptr<detail::TTaskState>>;
  struct TWaiter;
  explicit TThreadPool(std::unique_ptr<TThreadData> data);

  void Exchange(TThreadJob*& job) noexcept;
  void SetBatchSize(int Value) noexcept;
  std::unique_ptr<TThreadJobs> NewBatch() noexcept;
  TThreadJob* TakeNext(std::unique_ptr<TThreadJobs>& batch);
  void ReportFailures(TThreadJob& job) noexcept;
  void ReportFailure(TThreadJob* job, const std::exception_ptr& error) noexcept;
  void LookForWork();
  bool IsIdleOver(int doing) noexcept;
  void ThreadsStart();
  void ThreadsStop();
  // Tasks and loops (PoolWork.cpp).
  void AddTask(std::shared_ptr<detail::TTaskState> Task);
  bool RunLoop(uint64_t Count, FunctionRef<void(uint64_t From, uint64_t Behind, int Slot)> Work,
               TPoolProgress* Progress);
  void HelpOrRest(TThreadWorker& Worker);
  void RunTask(detail::TTaskState& Task, uint32_t Cancels) noexcept;
  void Rest(TThreadWorker& Worker) noexcept;
  void LeaveLoop(detail::TPoolLoop& Loop) noexcept;
  detail::TPoolLoop* OpenLoop() const noexcept;
  void WakeIdle(int Count) noexcept;
  // Waiting for all (PoolWork.cpp).
  bool IsMine(const TThread* Thread) const noexcept;
  void RefuseInHook() const;
  void RefuseWait() const;
  bool HasWork() const noexcept { return iDoing > 0 || FTasksRunning > 0 || iToDo.GetCount() > 0 || !FTasks.empty(); }
  bool HasWorkers() const noexcept { return FHasWorkers && (Active() || iThreadsOn); }
  void TellWaiters() noexcept;
  void TellIfDone() noexcept {
    if (FWaiters != nullptr && !HasWork()) TellWaiters();
  }

  std::unique_ptr<TThreadData> FOwnData;
  // What each hand-over changes stands apart from what it only reads.
  alignas(64) TCriticalSection iCritical;  // guards what stands up to iData, and the hooks
  int iDoing = 0;
  TThreadQueue iToDo;
  TTasks FTasks;
  int FTasksRunning = 0;
  detail::TPoolLoop* FLoops = nullptr;  // the latest one
  TThreadWorker* FIdle = nullptr;       // one that rests
  TWaiter* FWaiters = nullptr;
  bool FIsJobsTurn = true;
  alignas(64) TThreadData& iData;
  std::atomic<int> FBatchSize{0};  // of the latest hand-over, 0 for a single job
  TWorkers iThreads;
  TWorkers FEnding;  // those that are terminated only
  std::atomic<bool> iThreadsOn{false};
  std::atomic<bool> FHasWorkers{true};
  std::atomic<uint32_t> FCancels{0};
  int FLoopThreads = 1;
  uint32_t iToDoEmpty = 0;  // of the pool's own thread
  std::mutex FControl;      // guards iThreads, FEnding and the change of iThreadsOn
};

template <typename F>
auto TThreadPool::Run(F&& Work) -> TPoolTask<std::invoke_result_t<std::decay_t<F>&>> {
  using T = std::invoke_result_t<std::decay_t<F>&>;
  auto task = std::make_shared<detail::TTaskRun<std::decay_t<F>, T>>(std::forward<F>(Work));
  AddTask(task);
  return TPoolTask<T>(std::move(task));
}

template <std::integral TFirst, std::integral TBehind, typename TBody>
bool TThreadPool::ForEach(TFirst First, TBehind Behind, TBody&& Body, TPoolProgress* Progress) {
  using TIndex = std::common_type_t<TFirst, TBehind>;
  return RunLoop(
      detail::CountOf<TIndex>(First, Behind),
      [&](uint64_t from, uint64_t behind, int) {
        const auto end = static_cast<TIndex>(static_cast<uint64_t>(First) + behind);
        for (auto i = static_cast<TIndex>(static_cast<uint64_t>(First) + from); i != end; ++i) Body(i);
      },
      Progress);
}

template <std::integral TFirst, std::integral TBehind, typename T, typename TBody>
bool TThreadPool::ForEach(TFirst First, TBehind Behind, TLoopParts<T>& Parts, TBody&& Body, TPoolProgress* Progress) {
  using TIndex = std::common_type_t<TFirst, TBehind>;
  if (Parts.GetCount() < FLoopThreads) throw EArgumentException(u"Fewer parts than the pool has threads for a loop");
  return RunLoop(
      detail::CountOf<TIndex>(First, Behind),
      [&](uint64_t from, uint64_t behind, int slot) {
        T& part = Parts[slot];
        const auto end = static_cast<TIndex>(static_cast<uint64_t>(First) + behind);
        for (auto i = static_cast<TIndex>(static_cast<uint64_t>(First) + from); i != end; ++i) Body(i, part);
      },
      Progress);
}

}  // namespace vx
