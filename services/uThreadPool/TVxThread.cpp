#include "services/uThreadPool/TVxThread.h"

#include <atomic>

#include "platform/Clock.h"
#include "platform/FreeBuffers.h"
#include "platform/MainThread.h"

namespace vx {

namespace {

std::atomic<int> ThreadCount{0};

constexpr int kRounds = 100;
constexpr int kRoundTicks = 10;

void RunRound() {
  SystemClock().Sleep(kRoundTicks);
  CheckSynchronize();
}

}  // namespace

void SetEvent(TEvent& handle) noexcept {
  do {
    handle.SetEvent();
  } while (handle.WaitFor(0) != wrSignaled);
}

void ResetEvent(TEvent& handle) noexcept {
  do {
    handle.ResetEvent();
  } while (handle.WaitFor(0) == wrSignaled);
}

TVxThread::TVxThread(bool suspended)
    : TThread(suspended), iEventHandle(!suspended), iMinTicks(10), iSleepHandle(suspended) {
  OnFreeBuffers(foThreads, &uThreadPool::FreeBuffersForLeakPrevention);
  ++ThreadCount;
  SetFreeOnTerminate(true);
}

TVxThread::TVxThread(bool suspended, TThreadPriority priority, uint32_t minTicks) : TVxThread(suspended) {
  SetPriority(priority);
  iMinTicks = minTicks == 0 ? 1 : minTicks;
}

TVxThread::~TVxThread() {
  ExpectFinished();
  --ThreadCount;
}

int TVxThread::GetThreadCount() noexcept { return ThreadCount; }

void TVxThread::Start() {
  {
    std::lock_guard lock(FGate);
    if (!Active()) {
      SetEvent(iEventHandle);
      ResetEvent(iSleepHandle);
    }
  }
  TThread::Start();
}

void TVxThread::Stop() {
  std::lock_guard lock(FGate);
  if (!Active()) return;
  ResetEvent(iEventHandle);
  SetEvent(iSleepHandle);
}

void TVxThread::Terminate() {
  TKeep keep(*this);
  if (GetTerminated()) return;
  TThread::Terminate();
  if ((!Active() || !GetStarted()) && !GetFinished()) Start();
}

void TVxThread::TerminatedSet() noexcept {
  iEventHandle.Abandon();
  iSleepHandle.Abandon();
}

bool TVxThread::Sleep(uint32_t milliseconds) noexcept {
  return iSleepHandle.WaitFor(milliseconds) == wrTimeout && !GetTerminated();
}

bool TVxThread::WaitForEvent() noexcept { return iEventHandle.WaitFor(iMinTicks) == wrSignaled && !GetTerminated(); }

void TVxThread::Execute() {
  while (!GetTerminated()) {
    (void)iEventHandle.WaitFor();  // stands for any number of waits in vain
    if (WaitForEvent()) doExecute();
  }
}

namespace uThreadPool {

void FreeBuffersForLeakPrevention() {
  for (int round = 0; round < kRounds && TVxThread::GetThreadCount() > 0; ++round) RunRound();
}

void WaitForThreads() {
  for (int round = 0; round >= kRounds || TVxThread::GetThreadCount() > 0; round += round < kRounds) RunRound();
}

}  // namespace uThreadPool

}  // namespace vx
