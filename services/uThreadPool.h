// Threads that can be stopped and started again, and a pool of them that hands work out in batches.
//
//   TVxThread                         a thread that works while it is started and rests while it is stopped
//   TThreadJob, TThreadJobs           a piece of work; several as one
//   TThreadData                       a pool's settings and measurements, and what the application does with its jobs
//   TThreadPool, TThreadWorker        the pool and its threads
//   TPoolTask, TLoopParts, TPoolProgress   for functions with a result, loops, and progress in the main thread
//   TThreadTicks, TThreadQueue        durations of the latest jobs; jobs that wait
//   ReportInMainThread                an error of any thread as a message
//   SetEvent, ResetEvent              for sure
//   uThreadPool::FreeBuffersForLeakPrevention   waits for threads that free themselves
//   GetLogicalCpuCount                the number of processors (platform/Threads.h)
//
// Example:
//   class TSquare : public vx::TThreadJob {
//    public:
//     explicit TSquare(int aNumber) : Number(aNumber) {}
//     int Number;
//    protected:
//     void doExecute(vx::TThreadData&) override { Number *= Number; }       // on a worker
//   };
//   class TSquares : public vx::TThreadData {
//    public:
//     void Done(vx::TThreadJob* job, vx::TThreadQueue& queue, int doing) override {   // under the pool's lock
//       TThreadData::Done(job, queue, doing);
//       vx::ForEachJob(job, [&](vx::TThreadJob& each) { sum += static_cast<TSquare&>(each).Number; });
//       delete job;
//     }
//     bool HaveToSync() override { return false; }
//     void Synchronize() override {}
//     int sum = 0;
//   };
//   TSquares data;
//   vx::TThreadPool pool(data, true);
//   for (int i = 0; i < 1000; ++i) pool.Add(new TSquare(i));
//   pool.Start();
//   bool isDone = pool.Wait() == vx::pwDone;
//   data.sum;                                                    // 332833500
//
// For most work no class is needed: functions that a pool runs, and loops.
// Example (tasks and a loop):
//   vx::TThreadPool pool;                                          // as many workers as there are processors
//   vx::TPoolTask<int> sum = pool.Run([] { return 20 + 22; });     // on a worker
//   std::vector<int> squares(1000);
//   bool isWhole = pool.ForEach(0, 1000, [&](int i) { squares[i] = i * i; });
//   sum.Get();                                                     // 42
//
// The pool measures how long jobs take and hands a worker so many at a time that they take about
// TThreadData::GetTicksWork milliseconds. Short jobs come as one TThreadJobs that holds them: Done gets that.
//
// What a job raises is kept by the job (GetError) and told to TThreadData::Failed, which reports it to the message
// handler in the main thread unless it is overridden. To the pool such a job has ended as any other: it goes to Done,
// the rest of its batch runs, and the worker goes on.
//
// The end of a pool lets each worker finish what it was handed, a job or a batch; jobs that still wait in the queue are
// freed unrun. Terminate breaks off the Sleep of threads. One that waits in TThread::Synchronize is served
// if the main thread is what ends the pool, and otherwise gives up after a second.
//
// Pitfalls:
//   - What runs in the main thread runs when the application calls CheckSynchronize (platform/MainThread.h), or waits
//     there for a pool, a task or a loop.
//   - In one pool tasks and loops go before jobs or behind them as it comes.
//   - Hooks of TThreadData run under the pool's lock: they must not block. They may add jobs.
//   - Done has to free jobs; the pool doesn't.
//   - A pool on the stack must not be terminated by Terminate, see TVxThread.
//   - Durations are of the clock in use (platform/Clock.h), so a clock that stands still measures none and lets no
//     idle time pass; waits are in real time.
//   - Batches are lists of objects: don't count objects (DoCountObjects) while a pool runs.
#pragma once

#include "services/uThreadPool/TLoopParts.h"
#include "services/uThreadPool/TPoolProgress.h"
#include "services/uThreadPool/TPoolTask.h"
#include "services/uThreadPool/TThreadData.h"
#include "services/uThreadPool/TThreadJob.h"
#include "services/uThreadPool/TThreadPool.h"
#include "services/uThreadPool/TVxThread.h"
