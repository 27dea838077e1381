// Pieces of work, and the queue in which they wait.
#pragma once

#include <cstdint>
#include <exception>

#include "objects/uVxObjects/TVxObjectList.h"
#include "platform/TQueue.h"

namespace vx {

class TThreadData;

// What a worker runs. A job may be run again once it is done.
class TThreadJob : public TObject {
 public:
  TThreadJob() noexcept = default;
  TThreadJob(const TThreadJob&) = delete;
  TThreadJob& operator=(const TThreadJob&) = delete;
  String ClassName() const override { return u"TThreadJob"; }

  // The milliseconds that the job took; while it runs, the tick count at which it began. In a batch a few
  // milliseconds before that also count.
  uint32_t GetTicks() const noexcept { return iTicks; }
  // What the job raised when a worker ran it last; nullptr for nothing.
  std::exception_ptr GetError() const noexcept { return FError; }
  // Runs the job and measures it. What it raises goes to the caller, and then ExecuteEnd has not been called.
  void Execute(TThreadData& data);
  // The two ends of the measurement.
  void ExecuteBegin() noexcept;
  void ExecuteEnd() noexcept;

 protected:
  // The work. data is the pool's, shared by all workers and not locked.
  virtual void doExecute(TThreadData& data) = 0;

 private:
  friend class TThreadJobs;
  friend class TThreadWorker;
  friend class TThreadPool;
  // As Execute and doExecute, keeping what the job raises.
  void ExecuteCaught(TThreadData& data) noexcept;
  void doExecuteCaught(TThreadData& data) noexcept;

  uint32_t iTicks = 0;
  bool FHasFailed = false;  // the job, or one in it
  std::exception_ptr FError;
};

// The jobs that wait, which it owns.
class TThreadQueue : public TQueue<TThreadJob*> {
 public:
  ~TThreadQueue() override { Clear(); }
  String ClassName() const override { return u"TThreadQueue"; }

  // Push takes the job over. Pop gives the oldest one, the caller's from then on; nullptr if the queue is empty.
  using TQueue::Pop;
  using TQueue::Push;
  // Frees all jobs, the oldest first.
  void Clear();
};

// The jobs of a batch, reached and freed at little cost.
class TThreadJobList : public TVxListClassed<TThreadJobList, TVxObjectList, u"TThreadJobList"> {
 public:
  using TVxListClassed::TVxListClassed;
  ~TThreadJobList() override;
  TThreadJob& At(int index) const noexcept { return static_cast<TThreadJob&>(*iList[index]); }
  // Takes so many jobs out of the queue, which has as many, into this list, which is empty.
  void Take(TThreadQueue& queue, int count);
  // Frees, if it owns, and forgets all but the first ones.
  void Drop(int kept);
};

// Several jobs as one, in the order in which they were added.
class TThreadJobs : public TThreadJob {
 public:
  explicit TThreadJobs(bool OwnsObjects = true) : iList(OwnsObjects) {}
  String ClassName() const override { return u"TThreadJobs"; }

  // Whether the jobs are freed with this object.
  bool GetOwnsObjects() const noexcept { return iList.GetOwnsObjects(); }
  void SetOwnsObjects(bool Value) noexcept { iList.SetOwnsObjects(Value); }
  int GetCount() const noexcept { return iList.GetCount(); }
  // From 0 on. The job stays here; a bad index gets the warning of lists and nullptr.
  TThreadJob* GetItem(int index) const { return static_cast<TThreadJob*>(iList.GetItem(index)); }
  // Appends the job, which is this object's from then on if it owns. nullptr is ignored.
  void Add(TThreadJob* job);

 protected:
  // Runs each job. One that raises keeps its error, and the others run all the same. Where the pool is cancelled
  // meanwhile (TThreadPool::IsCanceled) those that have not begun leave this object.
  void doExecute(TThreadData& data) override;

 private:
  friend class TThreadPool;
  TThreadJobList iList;
};

// Calls Work(TThreadJob&) for a job or, for a batch, for each job in it.
template <typename TWork>
void ForEachJob(TThreadJob* job, TWork Work) {
  auto* jobs = dynamic_cast<TThreadJobs*>(job);
  if (jobs == nullptr) {
    if (job != nullptr) Work(*job);
    return;
  }
  for (int i = 0; i < jobs->GetCount(); ++i) Work(*jobs->GetItem(i));
}

}  // namespace vx
