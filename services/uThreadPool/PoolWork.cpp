// What a pool runs beside jobs, and the wait for all of it.
#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/MainThread.h"
#include "services/uThreadPool/TThreadPool.h"
#include "services/uThreadPool/detail/PoolLoop.h"

namespace vx {

namespace {

constexpr uint32_t kRoundTicks = 10;  // ms
constexpr int kTries = 100;           // looks at the last pieces of a loop before a sleep

}  // namespace

struct TThreadPool::TWaiter {
  TEvent Told;
  TWaiter* Next = nullptr;
};

// --- tasks ---

void TThreadPool::AddTask(std::shared_ptr<detail::TTaskState> Task) {
  {
    TCriticalSectionLock lock(iCritical);
    FTasks.push_back(std::move(Task));
    WakeIdle(1);
  }
  if (Active() && !iThreadsOn && FHasWorkers) ThreadsStart();
}

void TThreadPool::RunTask(detail::TTaskState& Task, uint32_t Cancels) noexcept {
  {
    const detail::TCancelScope scope(FCancels, Cancels);
    (void)Task.TryRun();  // not if it was cancelled, or run by who asked for its result
  }
  TCriticalSectionLock lock(iCritical);
  --FTasksRunning;
  TellIfDone();
}

// --- loops ---

bool TThreadPool::RunLoop(uint64_t Count, FunctionRef<void(uint64_t From, uint64_t Behind, int Slot)> Work,
                          TPoolProgress* Progress) {
  RefuseInHook();
  if (Progress != nullptr) Progress->Begin(static_cast<int64_t>(Count));
  if (Active() && !iThreadsOn && FHasWorkers && Count > 1) ThreadsStart();
  detail::TPoolLoop loop(Count, FLoopThreads, Work, Progress, FCancels);
  if (Count > 1 && FLoopThreads > 1) {
    TCriticalSectionLock lock(iCritical);
    loop.Outer = std::exchange(FLoops, &loop);
    WakeIdle(static_cast<int>(std::min(Count, static_cast<uint64_t>(FLoopThreads)) - 1));
  }
  loop.Work(0);
  LeaveLoop(loop);
  const bool isWhole = loop.Finish();
  if (Progress != nullptr) Progress->Flush();
  return isWhole;
}

// The caller's end of a loop: nobody joins any more, and those that have joined end.
void TThreadPool::LeaveLoop(detail::TPoolLoop& Loop) noexcept {
  {
    TCriticalSectionLock lock(iCritical);
    detail::TPoolLoop** link = &FLoops;
    while (*link != nullptr && *link != &Loop) link = &(*link)->Outer;
    if (*link != nullptr) *link = Loop.Outer;
  }
  for (int i = 0; i < kTries && Loop.Helpers > 0; ++i) std::this_thread::yield();
  {
    TCriticalSectionLock lock(iCritical);
    Loop.IsAwaited = Loop.Helpers > 0;
  }
  if (!Loop.IsAwaited) return;
  (void)detail::WaitServing(Loop.HelpersEnded, kInfinite);
  TCriticalSectionLock lock(iCritical);  // the last one has left it
}

detail::TPoolLoop* TThreadPool::OpenLoop() const noexcept {
  for (detail::TPoolLoop* loop = FLoops; loop != nullptr; loop = loop->Outer) {
    if (loop->Slots < FLoopThreads && loop->IsOpen()) return loop;
  }
  return nullptr;
}

// --- workers ---

void TThreadPool::HelpOrRest(TThreadWorker& Worker) {
  detail::TPoolLoop* loop = nullptr;
  std::shared_ptr<detail::TTaskState> task;
  int slot = 0;
  {
    TCriticalSectionLock lock(iCritical);
    Worker.FCancels = FCancels;
    loop = OpenLoop();
    if (loop != nullptr) {
      slot = loop->Slots++;
      ++loop->Helpers;
    } else if (!FTasks.empty()) {
      task = std::move(FTasks.front());
      FTasks.pop_front();
      ++FTasksRunning;
    } else if (!FIsJobsTurn && iToDo.GetCount() > 0) {
      return;  // what it left the jobs for is gone
    } else {
      Worker.FWake.ResetEvent();
      Worker.FNextIdle = std::exchange(FIdle, &Worker);
    }
  }
  if (task) return RunTask(*task, Worker.FCancels);
  if (loop == nullptr) return Rest(Worker);
  loop->Work(slot);
  TCriticalSectionLock lock(iCritical);
  if (--loop->Helpers > 0 || !loop->IsAwaited) return;
  loop->HelpersEnded.SetEvent();
  main_thread::Wake();
}

void TThreadPool::Rest(TThreadWorker& Worker) noexcept {
  (void)Worker.FWake.WaitFor(kRoundTicks);
  TCriticalSectionLock lock(iCritical);
  TThreadWorker** link = &FIdle;
  while (*link != nullptr && *link != &Worker) link = &(*link)->FNextIdle;
  if (*link != nullptr) *link = Worker.FNextIdle;
}

void TThreadPool::WakeIdle(int Count) noexcept {
  for (; Count > 0 && FIdle != nullptr; --Count) {
    TThreadWorker& worker = *std::exchange(FIdle, FIdle->FNextIdle);
    worker.FWake.SetEvent();
  }
}

// --- waiting and cancelling ---

int TThreadPool::Cancel() {
  TThreadQueue jobs;
  TTasks tasks;
  {
    TCriticalSectionLock lock(iCritical);
    ++FCancels;
    jobs.Swap(iToDo);
    tasks.swap(FTasks);
    TellIfDone();
  }
  for (auto& task : tasks) task->Cancel();
  return jobs.GetCount() + static_cast<int>(tasks.size());
}

bool TThreadPool::IsMine(const TThread* Thread) const noexcept {
  if (Thread == this) return true;
  const auto* worker = dynamic_cast<const TThreadWorker*>(Thread);
  return worker != nullptr && worker->FPool == this;
}

void TThreadPool::RefuseInHook() const {
  if (iCritical.IsHeld()) throw EThreadPool(u"A hook of a pool can't wait for the pool");
}

void TThreadPool::RefuseWait() const {
  RefuseInHook();
  if (IsMine(CurrentThread())) throw EThreadPool(u"A job of a pool can't wait for the pool");
  if (main_thread::IsServing([this](const TThread* thread) { return IsMine(thread); })) {
    throw EThreadPool(u"What the main thread runs for a pool can't wait for the pool");
  }
}

void TThreadPool::TellWaiters() noexcept {
  TCriticalSectionLock lock(iCritical);
  for (TWaiter* waiter = FWaiters; waiter != nullptr; waiter = waiter->Next) waiter->Told.SetEvent();
  if (FWaiters != nullptr) main_thread::Wake();
}

TPoolWait TThreadPool::Wait(uint32_t Milliseconds) {
  RefuseWait();
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(Milliseconds);
  TWaiter self;
  const auto enter = [&] {
    TCriticalSectionLock lock(iCritical);
    self.Next = std::exchange(FWaiters, &self);
  };
  const auto leave = [&] {
    TCriticalSectionLock lock(iCritical);
    TWaiter** link = &FWaiters;
    while (*link != &self) link = &(*link)->Next;
    *link = self.Next;
  };
  enter();
  TPoolWait result = pwTimeout;
  try {
    for (bool isLast = false; !isLast;) {
      {
        TCriticalSectionLock lock(iCritical);
        self.Told.ResetEvent();
        if (!HasWork()) {
          result = pwDone;
          break;
        }
      }
      if (!HasWorkers()) {
        result = pwStopped;
        break;
      }
      uint32_t left = Milliseconds;
      if (left != kInfinite) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
        left = static_cast<uint32_t>(std::max<int64_t>(rest, 0));
      }
      isLast = !detail::WaitServing(self.Told, left);
    }
  } catch (...) {
    leave();
    throw;
  }
  leave();
  return result;
}

}  // namespace vx
