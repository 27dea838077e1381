// The pool and its workers.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/Method.h"
#include "platform/Threads.h"
#include "services/uThreadPool/TThreadData.h"
#include "services/uThreadPool/TThreadJob.h"
#include "services/uThreadPool/TVxThread.h"

namespace vx {

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

 protected:
  void doExecute() override;

 private:
  TThreadData& iData;
  TThreadPoolExchange iExchange;
  TThreadJob* iJob = nullptr;
};

// Runs jobs on data's number of workers. Its own thread looks every 10 milliseconds whether there is work: it starts
// the workers when jobs are waiting, and stops them when there was nothing to do for a while.
//
// Add may be called by any thread, jobs and hooks too. The rest is for one thread at a time, and not for hooks.
class TThreadPool final : public TVxThread {
 public:
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
  using TWorkers = std::vector<std::unique_ptr<TThreadWorker>>;
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

  // What each hand-over changes stands apart from what it only reads.
  alignas(64) TCriticalSection iCritical;  // guards iDoing, iToDo and the hooks
  int iDoing = 0;
  TThreadQueue iToDo;
  alignas(64) TThreadData& iData;
  std::atomic<int> FBatchSize{0};  // of the latest hand-over, 0 for a single job
  TWorkers iThreads;
  TWorkers FEnding;  // those that are terminated only
  std::atomic<bool> iThreadsOn{false};
  uint32_t iToDoEmpty = 0;  // of the pool's own thread
  std::mutex FControl;      // guards iThreads, FEnding and the change of iThreadsOn
};

}  // namespace vx
