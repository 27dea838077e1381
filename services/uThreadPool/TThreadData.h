// What a pool knows: its settings, its measurements, and what the application does with the jobs.
#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <vector>

#include "services/uThreadPool/TThreadJob.h"

namespace vx {

// The durations of the latest jobs: a ring.
class TThreadTicks : public TObject {
 public:
  // A ring of Count places; one without any keeps nothing.
  explicit TThreadTicks(int Count = 64);
  String ClassName() const override { return u"TThreadTicks"; }

  // Puts a duration in milliseconds in the next place, for the oldest one once the ring is full; 0 counts as 1.
  // Whether it went to the first place: true for the first one of all and each time that the ring has wrapped.
  bool Add(uint32_t ticks) noexcept;
  // The average in whole milliseconds, rounded down; 10 as long as there is no duration.
  uint32_t Average() const noexcept;
  // The places used so far.
  int GetCount() const noexcept { return iLast + 1; }

 protected:
  // Goes on to the next place and gives it; -1 if there is none.
  int GetNext() noexcept;

 private:
  uint32_t iAverageSum = 0;
  int iLast = -1;
  int iNext = -1;
  std::vector<uint32_t> iTicks;
};

// Belongs to the application and has to outlive its pool. Added, Done, GetFirst and Failed are called under the pool's
// lock: they must not block, and may use queue. doing is the number of hand-overs, jobs or batches, that workers have.
// The numbers may be read and set by any thread; the ring is for those hooks.
class TThreadData : public TObject {
 public:
  // As many workers as there are processors.
  TThreadData();
  // So many workers more than there are processors, or less; but 2 where that is below 3.
  explicit TThreadData(int threadDiff);
  TThreadData(const TThreadData&) = delete;
  TThreadData& operator=(const TThreadData&) = delete;
  String ClassName() const override { return u"TThreadData"; }

  // How many milliseconds without work the pool waits before it stops its workers; 3000.
  uint32_t GetIdleTicks() const noexcept { return iIdleTicks; }
  void SetIdleTicks(uint32_t Value) noexcept { iIdleTicks = Value; }
  int GetThreadCount() const noexcept { return iThreadCount; }
  int GetThreadDiff() const noexcept { return iThreadDiff; }
  // The durations of the last 64 jobs.
  TThreadTicks& GetTicks() const noexcept { return *iTicks; }
  // nullptr is ignored.
  void SetTicks(std::unique_ptr<TThreadTicks> Value) noexcept;
  // While the workers are stopped, the milliseconds for which they were started in all; while they are started, the
  // tick count at which they would have begun had they never been stopped.
  uint32_t GetTicksBegin() const noexcept { return iTicksBegin; }
  void SetTicksBegin(uint32_t Value) noexcept { iTicksBegin = Value; }
  // If not 0, the workers stop as soon as the queue is empty, though jobs may be under way: those end, and come to
  // Done when the workers are started again.
  uint32_t GetTicksFinish() const noexcept { return iTicksFinish; }
  void SetTicksFinish(uint32_t Value) noexcept { iTicksFinish = Value; }
  // How many milliseconds of work a worker is to be handed at a time; 30.
  uint32_t GetTicksWork() const noexcept { return iTicksWork; }

  // A job was added to the queue.
  virtual void Added(TThreadQueue& queue, int doing);
  // A job, or a batch of them (TThreadJobs), has ended and is this operation's now: an override frees it, or keeps it,
  // or adds it again, after it has handed it on to this one, which measures it and frees nothing.
  virtual void Done(TThreadJob* job, TThreadQueue& queue, int doing);
  // The pool is made: the first jobs may go to queue.
  virtual void GetFirst(TThreadQueue& queue);
  // Asked by the pool about every 10 milliseconds, in its own thread: whether Synchronize is to run in the main thread.
  virtual bool HaveToSync() = 0;
  // In the main thread if HaveToSync asked for it, and in the pool's own thread each time that the pool, having nothing
  // to do, has stopped the workers.
  virtual void Synchronize() = 0;
  // A job has raised error, just before it goes to Done; nullptr for job: another operation of this object has. Has
  // the text shown as an error by the message handler (services/uMsg.h) in the main thread. Must not raise.
  virtual void Failed(TThreadJob* job, const std::exception_ptr& error);

 protected:
  // For derived classes, before the pool is made.
  int iThreadCount;
  std::atomic<uint32_t> iTicksWork{30};

 private:
  friend class TThreadPool;
  std::atomic<uint32_t> iIdleTicks{3000};
  int iThreadDiff = 0;
  std::unique_ptr<TThreadTicks> iTicks;
  std::atomic<uint32_t> iTicksBegin{0};
  std::atomic<uint32_t> iTicksFinish{0};
};

// Has the text of what was raised, in whichever thread, shown as an error of sender by the message handler
// (services/uMsg.h) in the main thread.
void ReportInMainThread(const std::exception_ptr& error, const String& sender);

}  // namespace vx
